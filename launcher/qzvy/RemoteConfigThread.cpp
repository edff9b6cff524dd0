// The body of the model's configuration thread: fetches the remote configuration once
// per start and brings new background images. Nobody waits for it and nobody joins it.

#include "launcher/qzvy/QzVyModel.h"
#include "launcher/qzvy/RemoteConfig.h"
#include "shell/QzVySetupImpl.h"
#include "utility/curl_downloader.h"
#include "utility/encoding.h"
#include "utility/endpoints.h"
#include "utility/files.h"
#include "utility/handles.h"
#include "utility/log.h"
#include "utility/task_dispatcher.h"

#include <memory>

using namespace utility;

namespace {

constexpr char Function[] = "QzVyModel::_threadConfig";
constexpr int VersionIfAbsent = 1000;

// Empty when the document could not be fetched.
std::string fetchDocument() {
    const std::string address = wideToAnsi(endpoints::objectStore() + L"/vyn/config_sea.data");
    std::string text;
    for (int round = 0; round < 2; ++round) {
        text.clear();
        if (QzCurlDownloader::downloadMemory(address, text))
            return text;
        Sleep(100);
    }
    return {};
}

// An image replaces the old one only when it has arrived whole.
bool fetchImage(const std::string& address, const std::wstring& target) {
    if (address.empty())
        return false;
    const std::wstring partial = target + L".tmp";
    // What an earlier start left may belong to another image: continuing would mix them.
    if (ufile::isExist(partial))
        ufile::removeFile(partial);
    if (!QzCurlDownloader::downloadFile(wideToAnsi(partial), wideToAnsi(utf8ToWide(address)),
                                        [](int, int, int) {}))
        return false;
    return ufile::moveFile(partial, target, ufile::MoveReplaceAndCopy);
}

bool fetchBackgrounds(const RemoteConfig& config) {
    const std::wstring folder = ufile::getModuleDir() + L"data\\";
    const bool launch = fetchImage(config.launchBackground, folder + L"launch_bg.jpg");
    const bool player = fetchImage(config.playerBackground, folder + L"player_bg.jpg");
    return launch || player;
}

// From here on the settings are read, and this is the first instance: a second one ends
// without running a task, and must not write over the files of the first. False when the
// program is ending already.
bool waitForMessageLoop() {
    const auto running = std::make_shared<KernelHandle>(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return common::postToWindowThread([running] { SetEvent(running->get()); }) &&
           WaitForSingleObject(running->get(), INFINITE) == WAIT_OBJECT_0;
}

void runIfSet(const std::function<void()>& action) {
    if (action)
        action();
}

} // namespace

void QzVyModel::_threadConfig() {
    const auto config = parseRemoteConfig(fetchDocument());
    if (!config) {
        common::log(Function, __LINE__, L"not a object");
        return;
    }
    appMinVersion = config->appMinVersion.value_or(appMinVersion);
    apkUrl = ansiToWide(config->apkUrl.value_or(""));
    playerMinVersion = config->playerMinVersion.value_or(playerMinVersion);
    playerUrl = ansiToWide(config->playerUrl.value_or(""));
    remoteReady = true;
    common::postToWindowThread([this] { runIfSet(onVersionReady); });

    if (!waitForMessageLoop())
        return;
    QzVySetupImpl& settings = QzVySetupImpl::instance();
    const int local = settings.configversion;
    const int remote = config->version.value_or(VersionIfAbsent);
    common::log(Function, __LINE__, L"local config version %d current:%d", local, remote);
    if (remote <= local || !fetchBackgrounds(*config))
        return;
    settings.configversion = remote;
    settings.saveConfig();
    common::postToWindowThread([this] { runIfSet(onBackgroundReady); });
}
