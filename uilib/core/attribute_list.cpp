#include "uilib/core/attribute_list.h"

namespace UILib {

bool takeAttribute(std::wstring_view& list, std::wstring_view& name, std::wstring_view& value) {
    const size_t equals = list.find(L'=');
    if (equals == std::wstring_view::npos || equals + 1 >= list.size() || list[equals + 1] != L'"')
        return false;
    const size_t end = list.find(L'"', equals + 2);
    if (end == std::wstring_view::npos)
        return false;
    name = list.substr(0, equals);
    value = list.substr(equals + 2, end - equals - 2);
    list.remove_prefix(end + 1);
    const bool more = list.size() > 1 && list[0] == L' ';
    list.remove_prefix(more ? 1 : list.size());
    return true;
}

} // namespace UILib
