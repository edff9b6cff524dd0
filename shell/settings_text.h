#pragma once

#include "shell/QzVySetupImpl.h"

#include <string>

// config.data as text: one line of key=value records with a bar between them. Free of
// files and of Windows.

// Overrides what the text names; records that it cannot read are passed over. A switch
// is only ever turned off: "on" is the default.
void parseSettings(const std::string& text, QzVySetupImpl& settings);

std::string formatSettings(const QzVySetupImpl& settings);
