#include "shell/QzVySetupImpl.h"

// Saves one set of values and another in turn until it is killed.

int main() {
    QzVySetupImpl settings;
    for (bool second = false;; second = !second) {
        settings.autorun = !second;
        settings.existgame = second;
        settings.minbyclose = !second;
        settings.configversion = second ? 1234567 : 1001;
        settings.saveConfig();
    }
}
