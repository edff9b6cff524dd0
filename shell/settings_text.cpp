#include "shell/settings_text.h"

#include "utility/text.h"

#include <map>

namespace {

using Records = std::map<std::string, std::string>;

Records readRecords(const std::string& text) {
    Records records;
    for (const std::string& item : utility::split(text, "|")) {
        const size_t equals = item.find('=');
        if (equals == std::string::npos)
            continue;
        std::string key = utility::trim(item.substr(0, equals));
        utility::toLower(key);
        if (!key.empty())
            records[key] = utility::trim(item.substr(equals + 1));
    }
    return records;
}

} // namespace

void parseSettings(const std::string& text, QzVySetupImpl& settings) {
    Records records = readRecords(text);
    if (records["autorun"] == "0")
        settings.autorun = false;
    if (records["existgame"] == "0")
        settings.existgame = false;
    if (records["minbyclose"] == "0")
        settings.minbyclose = false;
    if (const std::string& version = records["configversion"]; !version.empty())
        settings.configversion = utility::toInt(version);
}

std::string formatSettings(const QzVySetupImpl& settings) {
    const auto digit = [](bool on) { return on ? "1" : "0"; };
    return std::string("autorun=") + digit(settings.autorun) + "|existgame=" + digit(settings.existgame) +
           "|minbyclose=" + digit(settings.minbyclose) +
           "|configversion=" + std::to_string(settings.configversion);
}
