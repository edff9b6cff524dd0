#include "tests/utility/support.h"

#include "utility/process.h"
#include "utility/window_ipc.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using utility::WindowIPC;
using Message = std::tuple<UINT, WPARAM, LPARAM>;

class Receiver : public utility::IWindowIPCHandle {
public:
    void onHandleWindowIPC(UINT message, WPARAM wParam, LPARAM lParam) override {
        thread = GetCurrentThreadId();
        messages.emplace_back(message, wParam, lParam);
    }

    std::vector<Message> messages;
    DWORD thread = 0;
};

class WindowIPCTest : public testing::Test {
protected:
    const std::wstring name = L"{vyn-ipc-test-" + std::to_wstring(GetCurrentProcessId()) + L"}";
    Receiver receiver;
};

TEST_F(WindowIPCTest, AnotherProcessReachesTheHandlerOfTheListener) {
    WindowIPC listener;
    ASSERT_TRUE(listener.create(name, &receiver));
    test::allowErrors(L"execute exitcode = 0");
    EXPECT_TRUE(
        utility::process::execute(test::childProgram(), L"post " + name + L" 9333 7 -8", false, 20000));
    EXPECT_TRUE(test::pumpUntil([&] { return !receiver.messages.empty(); }));
    EXPECT_EQ(receiver.messages, (std::vector<Message>{{9333, 7, -8}}));
    EXPECT_EQ(receiver.thread, GetCurrentThreadId());
}

TEST_F(WindowIPCTest, OnlyMessagesOfTheChannelReachTheHandler) {
    WindowIPC listener, sender;
    ASSERT_TRUE(listener.create(name, &receiver));
    ASSERT_TRUE(sender.open(name));
    EXPECT_TRUE(sender.postMessage(WM_USER, 1, 1));
    EXPECT_TRUE(sender.postMessage(WM_USER + 1, 2, 2));
    const HWND window = FindWindowW(name.c_str(), nullptr);
    COPYDATASTRUCT data = {};
    EXPECT_EQ(SendMessageW(window, WM_COPYDATA, 3, reinterpret_cast<LPARAM>(&data)), 0);
    EXPECT_TRUE(test::pumpUntil([&] { return receiver.messages.size() == 2; }));
    EXPECT_EQ(std::get<0>(receiver.messages[0]), UINT(WM_COPYDATA));
    EXPECT_EQ(receiver.messages[1], Message(WM_USER + 1, 2, 2));
    EXPECT_FALSE(IsWindowVisible(window));
}

TEST_F(WindowIPCTest, NobodyListensBeforeAndAfterTheListener) {
    WindowIPC sender;
    EXPECT_FALSE(sender.open(name));
    EXPECT_FALSE(sender.postMessage(9111, 0, 0));
    for (int round = 0; round < 2; ++round) { // the class stays registered
        WindowIPC listener;
        EXPECT_TRUE(listener.create(name, &receiver));
        EXPECT_TRUE(sender.open(name));
    }
    EXPECT_FALSE(sender.postMessage(9111, 0, 0));
    EXPECT_FALSE(sender.open(name));
    EXPECT_TRUE(test::takeLog().empty());
}

} // namespace
