#pragma once

#include <cstdint>

// Why a flow ended without what it was to bring, as far as the user can do something about
// it. Values only.

enum class FlowFailure { None, NoSource, NoDownload, NoSpace, BrokenPackage, NotUnpacked, NoClient };

// Key of the language table; not for None.
const char* failureText(FlowFailure failure);

// Of a download of which nothing is left to try. Sizes are bytes; missing: what was still
// to come, as far as it is known.
FlowFailure judgeDownload(uint64_t freeSpace, uint64_t missing);

// result: of the extraction. client: the game client is there afterwards.
FlowFailure judgeInstallation(int result, bool client, uint64_t freeSpace);
