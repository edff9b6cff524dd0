#pragma once

#include "utility/windows.h"

// The numbers that reach the launcher over the window channel, and what is let in from senders
// with fewer rights than the launcher's.

enum ChannelMessage : UINT {
    RaiseWindow = 9111,   // from a second launcher
    GameEnded = 9333,     // from the game client
    GameInstalled = 9334, // from the game client
};

// 9222 has no meaning here yet; clients that send it are not to be turned away.
inline constexpr UINT AdmittedMessages[] = {WM_COPYDATA, WM_USER,   RaiseWindow,
                                            9222,        GameEnded, GameInstalled};
