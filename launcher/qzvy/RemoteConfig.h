#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The remote configuration document as plain values: how new the game and the player
// must be, where they come from, and which background images belong to which version.
// The document comes from the network: a member that is missing, of another type or out
// of range is absent here, and nothing else of it is believed.

struct RemoteConfig {
    std::optional<int32_t> appMinVersion;
    std::optional<int32_t> playerMinVersion;
    std::optional<std::string> apkUrl;    // bytes as they came, in the system code page
    std::optional<std::string> playerUrl; // the same
    std::optional<int32_t> version;
    std::string launchBackground; // UTF-8 addresses of JPEG images, empty if absent
    std::string playerBackground;
};

// Nothing when the text is not one JSON object.
std::optional<RemoteConfig> parseRemoteConfig(const std::string& text);
