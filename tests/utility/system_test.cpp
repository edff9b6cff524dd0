#include "tests/utility/support.h"

#include "utility/handles.h"
#include "utility/system.h"

#include <gtest/gtest.h>

namespace {

using namespace utility;
using namespace utility::usystem;

TEST(System, TellsTheVersionInTheLog) {
    test::LogRecorder log;
    const bool win8 = isWin8OS();
    EXPECT_TRUE(isVistaOrLater());
    const auto lines = log.take();
    ASSERT_EQ(lines.size(), 1u);
    int major = 0, minor = 0;
    ASSERT_EQ(swscanf(lines[0].c_str(), L"isWin8OS major = %d, minor = %d", &major, &minor), 2);
    EXPECT_EQ(win8, major >= 6 && minor >= 2);
    EXPECT_GE(major, 6);
}

TEST(System, AMutexNameIsTakenOnceAndFreeAgainWhenClosed) {
    const std::wstring name = L"vyn-system-test-" + std::to_wstring(GetCurrentProcessId());
    KernelHandle first(createSingleMutex(name, false, true));
    EXPECT_TRUE(first);
    EXPECT_EQ(createSingleMutex(name, false, true), nullptr);
    EXPECT_TRUE(KernelHandle(createSingleMutex(name, false, false)));
    first.reset();
    EXPECT_TRUE(KernelHandle(createSingleMutex(name, false, true)));
}

TEST(System, BringToFrontRestoresAMinimisedWindow) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                        nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    ShowWindow(window, SW_SHOWMINIMIZED);
    ASSERT_TRUE(IsIconic(window));
    bringToFront(window);
    EXPECT_FALSE(IsIconic(window));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_FALSE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST); // not left in the upper band
    DestroyWindow(window);
}

} // namespace
