#include "uilib/core/ui_string.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

namespace UILib {

CUIString& CUIString::operator=(const CUIString& other) {
    return this == &other ? *this : Assign(other.buffer, other.length);
}

CUIString& CUIString::operator=(CUIString&& other) noexcept {
    if (this != &other) {
        release();
        take(other);
    }
    return *this;
}

void CUIString::release() {
    if (buffer != local)
        delete[] buffer;
    buffer = local;
    capacity = InlineLength;
    length = 0;
    local[0] = 0;
}

void CUIString::take(CUIString& other) {
    if (other.buffer == other.local) {
        std::copy_n(other.local, other.length + 1, local);
    } else {
        buffer = other.buffer;
        capacity = other.capacity;
        other.buffer = other.local;
    }
    length = other.length;
    other.release();
}

void CUIString::reserve(int wanted, bool keep) {
    if (wanted <= capacity)
        return;
    const int newCapacity = std::max(wanted, capacity * 2);
    wchar_t* larger = new wchar_t[newCapacity + 1];
    if (keep)
        std::copy_n(buffer, length + 1, larger);
    if (buffer != local)
        delete[] buffer;
    buffer = larger;
    capacity = newCapacity;
}

CUIString& CUIString::Assign(const wchar_t* text, int newLength) {
    if (!text)
        newLength = 0;
    else if (newLength < 0)
        newLength = static_cast<int>(std::wcslen(text));
    if (text >= buffer && text <= buffer + length) {
        std::copy_n(text, newLength, buffer); // our own part: to the front, always fits
    } else {
        reserve(newLength, false);
        std::copy_n(text, newLength, buffer);
    }
    length = newLength;
    buffer[length] = 0;
    return *this;
}

CUIString& CUIString::Append(const wchar_t* text, int addedLength) {
    if (!text)
        return *this;
    if (addedLength < 0)
        addedLength = static_cast<int>(std::wcslen(text));
    if (text >= buffer && text <= buffer + length) {
        const CUIString copy(text, addedLength);
        return Append(copy.buffer, copy.length);
    }
    reserve(length + addedLength, true);
    std::copy_n(text, addedLength, buffer + length);
    length += addedLength;
    buffer[length] = 0;
    return *this;
}

int CUIString::CompareNoCase(const wchar_t* other) const {
    const wchar_t* a = buffer;
    const wchar_t* b = other ? other : L"";
    while (*a && std::towlower(*a) == std::towlower(*b)) {
        ++a;
        ++b;
    }
    const wint_t left = std::towlower(*a), right = std::towlower(*b);
    return left < right ? -1 : left > right;
}

bool equalNoCase(const wchar_t* a, const wchar_t* b) {
    while (*a && (*a == *b || std::towlower(*a) == std::towlower(*b))) {
        ++a;
        ++b;
    }
    return *a == *b;
}

int CUIString::Find(wchar_t character, int from) const {
    const size_t hit = view().find(character, static_cast<size_t>(std::max(from, 0)));
    return hit == std::wstring_view::npos ? -1 : static_cast<int>(hit);
}

int CUIString::Find(const wchar_t* text, int from) const {
    const size_t hit = view().find(text, static_cast<size_t>(std::max(from, 0)));
    return hit == std::wstring_view::npos ? -1 : static_cast<int>(hit);
}

int CUIString::Replace(std::wstring_view from, std::wstring_view to) {
    if (from.empty() || view().find(from) == std::wstring_view::npos)
        return 0;
    CUIString result;
    int count = 0;
    size_t position = 0;
    for (size_t hit; (hit = view().find(from, position)) != std::wstring_view::npos; ++count) {
        result.Append(buffer + position, static_cast<int>(hit - position));
        result.Append(to.data(), static_cast<int>(to.size()));
        position = hit + from.size();
    }
    result.Append(buffer + position, length - static_cast<int>(position));
    *this = std::move(result);
    return count;
}

CUIString CUIString::Mid(int first, int count) const {
    first = std::clamp(first, 0, length);
    const int rest = length - first;
    return CUIString(buffer + first, count < 0 ? rest : std::min(count, rest));
}

} // namespace UILib
