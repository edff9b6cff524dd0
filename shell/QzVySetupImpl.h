#pragma once

#include <string>
#include <string_view>

// The four settings of the user, kept in the small text file config.data beside the
// program. Plain data without a lock: fields are single words, set before a save.
// Defaults are the initial values; a file only overrides them.

class QzVySetupImpl {
public:
    static QzVySetupImpl& instance();

    void loadConfig(); // window thread, once at start
    void saveConfig(); // any thread; a save that is cut short leaves the old file

    bool autorun = true;      // start with the system
    bool existgame = true;    // come to the front when the game has ended
    bool minbyclose = true;   // the close button hides to the tray
    int configversion = 1000; // version of the remote configuration last applied
};
