#include "update/UpdateDocument.h"

#include "utility/encoding.h"
#include "utility/json.h"
#include "utility/program_version.h"

#include <algorithm>
#include <cwchar>

namespace {

int32_t localVersion() {
    return static_cast<int32_t>(std::wcstol(utility::ProgramVersion, nullptr, 10));
}

void readText(const rapidjson::Document& document, const char* key, std::wstring& text) {
    if (auto value = json::stringMember(document, key))
        text = utility::utf8ToWide(*value);
}

} // namespace

UpdateDocument parseUpdateDocument(const std::string& body, const std::string& language) {
    UpdateDocument result;
    const rapidjson::Document document = json::parse(body);
    if (!document.IsObject())
        return result;
    result.ver = json::intMember(document, "ver").value_or(0);
    result.forceVer = json::intMember(document, "forceVer").value_or(0);
    result.noiceVer = json::intMember(document, "noiceVer").value_or(0);
    readText(document, "strVer", result.strVer);
    readText(document, "url", result.url);
    readText(document, "content", result.content);
    readText(document, language.c_str(), result.content);
    return result;
}

UpdateKind decideUpdate(const UpdateDocument& document, bool silent) {
    if (document.ver <= localVersion())
        return UpdateKind::None;
    if (document.forceVer > localVersion())
        return UpdateKind::Forced;
    return !silent || document.noiceVer > localVersion() ? UpdateKind::Offered : UpdateKind::None;
}

int downloadPercent(uint32_t received, uint32_t total) {
    constexpr int most = 99; // 100 tells the interface to end the program
    if (received >= total)
        return most;
    return std::min(static_cast<int>(static_cast<double>(received) / total * 100.0), most);
}
