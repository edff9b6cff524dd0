#include "launcher/qzvy/RemoteConfig.h"

#include "utility/json.h"

std::optional<RemoteConfig> parseRemoteConfig(const std::string& text) {
    const rapidjson::Document document = json::parse(text);
    if (!document.IsObject())
        return std::nullopt;
    return RemoteConfig{
        .appMinVersion = json::intMember(document, "appminversion"),
        .playerMinVersion = json::intMember(document, "playerminversion"),
        .apkUrl = json::stringMember(document, "apkurl"),
        .playerUrl = json::stringMember(document, "playerurl"),
        .version = json::intMember(document, "version"),
        .launchBackground = json::stringMember(document, "launch_bg").value_or(""),
        .playerBackground = json::stringMember(document, "player_bg").value_or(""),
    };
}
