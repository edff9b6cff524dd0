#include "launcher/qzvy/PlayerPackage.h"
#include "launcher/qzvy/RemoteConfig.h"
#include "update/UpdateDocument.h"
#include "utility/json.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdlib>

// Any bytes as each of the remote documents. The values found are put into a new document that
// must be read as the same, and none leaves its bounds.

namespace {

using Value = rapidjson::Value;

void check(bool sound) {
    if (!sound)
        abort();
}

class Writer {
public:
    Writer() { document.SetObject(); }
    void add(const char* key, const std::optional<int32_t>& number) {
        if (number)
            document.AddMember(Value::StringRefType(key), *number, document.GetAllocator());
    }
    void add(const char* key, const std::optional<std::string>& text) {
        if (text)
            document.AddMember(
                Value::StringRefType(key),
                Value(text->data(), static_cast<rapidjson::SizeType>(text->size()), document.GetAllocator()),
                document.GetAllocator());
    }
    std::string text() const;

private:
    rapidjson::Document document;
};

std::string Writer::text() const {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    document.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}

bool operator==(const RemoteConfig& one, const RemoteConfig& other) {
    return one.appMinVersion == other.appMinVersion && one.playerMinVersion == other.playerMinVersion &&
           one.apkUrl == other.apkUrl && one.playerUrl == other.playerUrl && one.version == other.version &&
           one.launchBackground == other.launchBackground && one.playerBackground == other.playerBackground;
}

void checkConfig(const std::string& bytes) {
    const auto config = parseRemoteConfig(bytes);
    if (!config)
        return;
    Writer writer;
    writer.add("appminversion", config->appMinVersion);
    writer.add("playerminversion", config->playerMinVersion);
    writer.add("apkurl", config->apkUrl);
    writer.add("playerurl", config->playerUrl);
    writer.add("version", config->version);
    writer.add("launch_bg", config->launchBackground);
    writer.add("player_bg", config->playerBackground);
    check(gamePackageName(config->version.value_or(0)).find_first_of(L"/\\:") == std::wstring::npos);
    const auto again = parseRemoteConfig(writer.text());
    check(again && *again == *config);
}

void checkPackage(const std::string& bytes) {
    const PlayerPackage package = parsePlayerPackage(bytes);
    check(!package.address.empty());
    check(installCommand(package.address).ends_with(L"|apk=" + package.address));
    const std::wstring name = playerPackageName(package.version);
    check(name.size() <= 64 + 9 && name.find_first_of(L"/\\:") == name.npos && name.front() == L'v' &&
          name.ends_with(L".7z"));
}

void checkUpdate(const std::string& bytes) {
    const UpdateDocument update = parseUpdateDocument(bytes, "th");
    check(update.strVer.size() <= bytes.size() && update.url.size() <= bytes.size() &&
          update.content.size() <= bytes.size());
    const UpdateKind asked = decideUpdate(update, false), silent = decideUpdate(update, true);
    check((asked == UpdateKind::None) <= (silent == UpdateKind::None));
    check((asked == UpdateKind::Forced) == (silent == UpdateKind::Forced));
    check(asked == UpdateKind::None || update.ver > 0);
    const int percent =
        downloadPercent(static_cast<uint32_t>(update.ver), static_cast<uint32_t>(update.forceVer));
    check(percent >= 0 && percent <= 99);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    checkConfig(bytes);
    checkPackage(bytes);
    checkUpdate(bytes);
    return 0;
}
