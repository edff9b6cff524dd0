#include "tests/support/host_program.h"

#include "utility/handles.h"
#include "utility/windows.h"

#include <gtest/gtest.h>

namespace test {

void runOnHost(std::wstring commandLine) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION created = {};
    ASSERT_TRUE(CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &created));
    utility::KernelHandle(created.hProcess).reset();
    utility::KernelHandle(created.hThread).reset();
}

} // namespace test
