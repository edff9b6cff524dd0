#pragma once

#include "tests/golden/golden.h"

#include <string>

namespace UILib {
class CControlUI;
}

namespace golden {

// Paints a tree that is laid out, with its texts and then without, and compares it with the
// picture of that name. The texts are gone afterwards. Window thread only.
testing::AssertionResult windowMatches(UILib::CControlUI& root, const std::string& name);

} // namespace golden
