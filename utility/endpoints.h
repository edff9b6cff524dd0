#pragma once

#include <string>

// Hosts of the remote documents: scheme and host, without a trailing slash. Deployment values,
// fixed when the build is configured.
//
// A host that lies on this very machine, as the default does, is a developer's: where the
// environment variable VYN_PUBLISHER names another publisher of this machine, that is taken, so
// that stages side by side have one each. A build for real hosts never looks at it.

namespace utility::endpoints {

std::wstring objectStore(); // configuration, player and version documents
std::wstring cdn();         // the built-in player package address
std::wstring contentHost(); // pages of the two web panels

} // namespace utility::endpoints
