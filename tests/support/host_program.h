#pragma once

#include <string>

// Programs of the machine below Wine, which do what Wine has no part in.

namespace test {

// Starts one and waits for nothing; a test fails where that is not possible.
void runOnHost(std::wstring commandLine);

} // namespace test
