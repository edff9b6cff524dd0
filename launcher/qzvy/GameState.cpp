#include "launcher/qzvy/GameState.h"

bool isGameVersion(int appVersion) {
    return appVersion >= 1000;
}

GameState judgeGame(const InstalledGame& installed, const GameLimits& limits) {
    if (!installed.client)
        return {"launcher_download_game", true, false, false};
    const bool judged = isGameVersion(installed.appVersion);
    const bool gameUpdate = judged && installed.appVersion < limits.appMinVersion;
    const bool playerUpdate = judged && installed.playerVersion < limits.playerMinVersion;
    if (gameUpdate || playerUpdate)
        return {"update_window_text", true, gameUpdate, playerUpdate};
    return {"launcher_start_game", false, false, false};
}

StartAction startAction(bool clientInstalled, bool needPlayerUpdate, bool needGameUpdate) {
    if (!clientInstalled)
        return StartAction::DownloadPlayer;
    if (needPlayerUpdate)
        return StartAction::UpdatePlayer;
    return needGameUpdate ? StartAction::UpdateGame : StartAction::RunClient;
}
