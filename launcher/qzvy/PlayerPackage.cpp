#include "launcher/qzvy/PlayerPackage.h"

#include "utility/encoding.h"
#include "utility/endpoints.h"
#include "utility/json.h"
#include "utility/log.h"
#include "utility/text.h"

PlayerPackage PlayerPackage::builtIn() {
    return {utility::endpoints::cdn() + L"/obj/lf-game-alisg/ga18/qzvyn_en.7z", L"1.0"};
}

PlayerPackage parsePlayerPackage(const std::string& text) {
    PlayerPackage package = PlayerPackage::builtIn();
    const rapidjson::Document document = json::parse(text);
    if (!document.IsObject())
        return package;
    const auto sea = document.FindMember("sea");
    if (sea == document.MemberEnd() || !sea->value.IsObject())
        return package;
    if (const auto url = json::stringMember(sea->value, "url").value_or(""); !url.empty())
        package.address = utility::utf8ToWide(url);
    const auto version = utility::utf8ToWide(json::stringMember(sea->value, "vershow").value_or(""));
    if (utility::isPlainVersion(version))
        package.version = version;
    else if (!version.empty())
        common::log("parsePlayerPackage", __LINE__, L"version word refused: %.80s", version.c_str());
    return package;
}

std::wstring playerPackageName(const std::wstring& version) {
    return L"vynen_" + version + L".7z";
}

std::wstring gamePackageName(int version) {
    return L"vyn_app_sea_" + std::to_wstring(version) + L".apk";
}

std::wstring installCommand(const std::wstring& packagePath) {
    return L"show=0|package=com.play.vysea|apk=" + packagePath;
}
