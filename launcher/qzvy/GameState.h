#pragma once

#include <string>

// What the start button says and does, decided from what is installed and from the
// limits of the remote configuration. Values only: no window, no files.

struct InstalledGame {
    bool client; // vynclient.exe is in the install folder
    int appVersion;
    int playerVersion;
};

struct GameLimits {
    int appMinVersion; // 0 until the remote configuration has arrived
    int playerMinVersion;
};

struct GameState {
    const char* startText; // key of the language table
    bool pages;            // the pages beside the start button are visible
    bool gameUpdate;
    bool playerUpdate;
};

// A game version below 1000 is no version: neither package is then judged.
bool isGameVersion(int appVersion);
GameState judgeGame(const InstalledGame& installed, const GameLimits& limits);

enum class StartAction { DownloadPlayer, UpdatePlayer, UpdateGame, RunClient };

// The player comes before the game: the game is handed to the player's client.
StartAction startAction(bool clientInstalled, bool needPlayerUpdate, bool needGameUpdate);
