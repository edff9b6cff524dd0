#include "shell/settings_text.h"
#include "utility/text.h"

#include <cctype>
#include <cstdlib>
#include <string_view>

// Any bytes as config.data, beside a slow reader of the same grammar that looks for one key at
// a time; what is read and written again stays the same.

namespace {

std::string_view withoutBlanks(std::string_view text) {
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

bool isKey(std::string_view text, std::string_view key) {
    if (text.size() != key.size())
        return false;
    for (size_t i = 0; i < key.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(text[i])) != key[i])
            return false;
    return true;
}

// From the end: the last record of a key is the one that counts.
std::string_view valueOf(std::string_view text, std::string_view key) {
    for (size_t end = text.size();;) {
        const size_t bar = end == 0 ? text.npos : text.rfind('|', end - 1);
        const size_t begin = bar == text.npos ? 0 : bar + 1;
        const std::string_view item = text.substr(begin, end - begin);
        const size_t equals = item.find('=');
        if (equals != item.npos && isKey(withoutBlanks(item.substr(0, equals)), key))
            return withoutBlanks(item.substr(equals + 1));
        if (begin == 0)
            return {};
        end = bar;
    }
}

bool isSame(const QzVySetupImpl& one, const QzVySetupImpl& other) {
    return one.autorun == other.autorun && one.existgame == other.existgame &&
           one.minbyclose == other.minbyclose && one.configversion == other.configversion;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    QzVySetupImpl settings, expected, again;
    parseSettings(text, settings);
    expected.autorun = valueOf(text, "autorun") != "0";
    expected.existgame = valueOf(text, "existgame") != "0";
    expected.minbyclose = valueOf(text, "minbyclose") != "0";
    if (const std::string version(valueOf(text, "configversion")); !version.empty())
        expected.configversion = utility::toInt(version);
    parseSettings(formatSettings(settings), again);
    if (!isSame(settings, expected) || !isSame(settings, again))
        abort();
    return 0;
}
