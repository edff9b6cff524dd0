#include "shell/language_choices.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

constexpr std::wstring_view Released[] = {L"vi_VN", L"en_US", L"zh_CN", L"th_TH", L"in_ID"};

} // namespace

std::vector<LanguageChoice> releasedLanguages(const std::vector<LanguageChoice>& table,
                                              const std::wstring& present) {
    std::vector<LanguageChoice> choices;
    std::copy_if(table.begin(), table.end(), std::back_inserter(choices), [](const LanguageChoice& choice) {
        return std::find(std::begin(Released), std::end(Released), choice.code) != std::end(Released);
    });
    std::stable_partition(choices.begin(), choices.end(),
                          [&](const LanguageChoice& choice) { return choice.code == present; });
    return choices;
}
