// The program from its entrance to its end, in this process: the test's thread is the window
// thread, and another one plays the user and the game client.

#include "launcher/qzvy/QzVyImpl.h"
#include "launcher/qzvy/WebBrowserHelper.h"
#include "shell/QzVySetupImpl.h"
#include "tests/launcher/support.h"
#include "tests/support/log_watch.h"
#include "utility/curl_library.h"
#include "utility/files.h"
#include "utility/registry.h"
#include "utility/task_dispatcher.h"
#include "utility/window_ipc.h"

#include <future>
#include <memory>

namespace {

constexpr wchar_t ChannelName[] = L"{6A43FC71-98D6-43A1-83F3-6A53B0D557FD}";
constexpr wchar_t EmulationKey[] =
    L"Software\\Microsoft\\Internet Explorer\\MAIN\\FeatureControl\\FEATURE_BROWSER_EMULATION";

class Entrance : public launcher_test::Stage {
protected:
    void SetUp() override {
        Stage::SetUp();
        common::stopServices(); // the entrance starts its own
        QzVyModel::instance().setPathDir(at(L"my 게임\\"));
        QzVySetupImpl{}.saveConfig();
        for (const wchar_t* line : {L"initCrashReport error", L"addTrayIcon error", L"fonts ret",
                                    L"openfile error", L"update_en.data", L"download error", L"not a object"})
            test::allowErrors(line);
    }
    void TearDown() override {
        Stage::TearDown();
        for (const wchar_t* name : {L"config.data", L"log\\main.log"})
            DeleteFileW(at(name).c_str());
        QzVySetupImpl::instance() = {};
        QzVyModel::instance().needRestart = false;
        utility::CurlLibrary::start(); // which the program has ended
    }

    // Runs the program and, beside it, what the user does once the window is there; his last
    // deed is to end it.
    void run(const std::function<void(HWND window)>& user) {
        const auto played = std::async(std::launch::async, [&user] {
            HWND window = nullptr;
            waitUntil([&] { return IsWindowVisible(window = FindWindowW(L"QZVYMainFrame", nullptr)); });
            waitUntil([&] { return FindWindowW(L"QzPlayerTrayiconFrame", nullptr) != nullptr; });
            SendMessageW(window, WM_NULL, 0, 0); // the message loop runs
            user(window);
            PostMessageW(window, WM_CLOSE, 1, 0);
        });
        QzVyImpl launcher;
        EXPECT_EQ(launcher.entrance(GetModuleHandleW(nullptr)), 1);
        common::startServices(); // for the end of the stage
    }

    static void waitUntil(const std::function<bool()>& condition) {
        for (const ULONGLONG deadline = GetTickCount64() + 30000; GetTickCount64() < deadline; Sleep(5))
            if (condition())
                return;
        ADD_FAILURE() << "waited in vain";
    }
    // From a thread that is not the window's: after all that was sent before.
    static void send(UINT message) {
        utility::WindowIPC channel;
        ASSERT_TRUE(channel.open(ChannelName));
        ASSERT_TRUE(channel.postMessage(message, 0, 0));
        SendMessageW(FindWindowW(ChannelName, nullptr), WM_NULL, 0, 0);
    }
    static std::string mainLog() { return read(L"log\\main.log"); }
    static bool logs(const char* text) { return mainLog().find(text) != std::string::npos; }
};

TEST_F(Entrance, ServesTheGameClientAndASecondStart) {
    write(L"log\\old.log", "of the run before");
    run([](HWND window) {
        EXPECT_FALSE(exists(L"log\\old.log"));
        EXPECT_EQ(QzVyModel::instance().mainWindow, window);
        EXPECT_TRUE(GetWindowLongW(window, GWL_STYLE) & WS_MINIMIZEBOX);
        const auto raises = [window](UINT message) {
            ShowWindow(window, SW_HIDE);
            send(message);
            send(9222); // comes behind it, and means nothing
            bool raised = false;
            for (int i = 0; i < 50 && !raised; ++i, Sleep(5))
                raised = IsWindowVisible(window);
            return raised;
        };
        EXPECT_TRUE(raises(9111));
        EXPECT_TRUE(raises(9333));
        QzVySetupImpl::instance().existgame = false;
        EXPECT_FALSE(raises(9333));
        EXPECT_TRUE(raises(9111));

        // The client has installed the game.
        write(L"my 게임\\vynclient.exe", "");
        send(9334);
    });
    for (const char* line :
         {"************ vyn start ************", "language:en_US", "fonts\\FZY4JW.TTF", "create main",
          "handle ipc topwindow", "game exist", "read local version error:0", "game installed",
          "screenX:", "It is needUpdate : 0, path ", "qznim end"})
        EXPECT_TRUE(logs(line)) << line;
    EXPECT_FALSE(FindWindowW(ChannelName, nullptr));
    EXPECT_EQ(QzVyModel::instance().mainWindow, nullptr);
}

TEST_F(Entrance, TheMenuOfTheIconShowsAndEndsTheLauncher) {
    run([](HWND window) {
        const HWND icon = FindWindowW(L"QzPlayerTrayiconFrame", nullptr);
        const auto choose = [icon](int row) {
            PostMessageW(icon, 39529, 8194, WM_RBUTTONUP);
            HWND menu = nullptr;
            waitUntil([&] { return IsWindowVisible(menu = FindWindowW(L"assistantupdateframe", nullptr)); });
            RECT place = {};
            GetWindowRect(menu, &place);
            EXPECT_EQ(place.right - place.left, 170);
            EXPECT_EQ(place.bottom - place.top, 80);
            PostMessageW(menu, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, row * 40 + 20));
            waitUntil([&] { return !IsWindow(menu); });
        };
        ShowWindow(window, SW_HIDE);
        choose(0);
        waitUntil([&] { return IsWindowVisible(window); });
        ShowWindow(window, SW_HIDE);
        PostMessageW(icon, 39529, 8194, WM_LBUTTONDOWN);
        waitUntil([&] { return IsWindowVisible(window); });
        choose(1);
        waitUntil([&] { return !IsWindow(window); });
    });
}

TEST_F(Entrance, AnInstanceThatRunsIsRaisedByTheNext) {
    class Channel : public utility::IWindowIPCHandle {
    public:
        void onHandleWindowIPC(UINT message, WPARAM, LPARAM) override { last = message; }
        UINT last = 0;
    } first;
    const utility::KernelHandle mutex(CreateMutexW(nullptr, FALSE, ChannelName));
    utility::WindowIPC channel;
    ASSERT_TRUE(channel.create(ChannelName, &first));
    QzVyImpl launcher;
    EXPECT_EQ(launcher.entrance(GetModuleHandleW(nullptr)), 1);
    common::startServices();
    EXPECT_TRUE(pumpUntil([&] { return first.last == 9111; }));
    EXPECT_FALSE(FindWindowW(L"QZVYMainFrame", nullptr));
    EXPECT_TRUE(logs("main exist"));
    EXPECT_FALSE(logs("create main"));
}

TEST_F(Entrance, TheSystemsBrowserIsRegisteredInItsVersion) {
    utility::Key machine, key;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, L"machine", machine.out()), ERROR_SUCCESS);
    ASSERT_EQ(RegCreateKeyW(machine.get(), L"SOFTWARE\\Microsoft\\Internet Explorer", key.out()),
              ERROR_SUCCESS);
    const struct {
        const wchar_t* version; // null: none
        const wchar_t* name;
        DWORD value; // 0: none
    } cases[] = {{nullptr, L"", 0},
                 {L"6.0.2900", L"6.0", 0},
                 {L"8.0.6001", L"8.0", 8888},
                 {L"9.11.19041.0", L"11.0", 11001},
                 {L"9", L"9.0", 9999}};
    test::allowErrors(L"failed to query key");
    test::allowErrors(L"registerIENewVersion error");
    ASSERT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine.get()), ERROR_SUCCESS);
    for (const auto& [version, name, value] : cases) {
        if (version)
            RegSetValueExW(key.get(), L"Version", 0, REG_SZ, reinterpret_cast<const BYTE*>(version),
                           static_cast<DWORD>((wcslen(version) + 1) * sizeof(wchar_t)));
        RegDeleteKeyW(HKEY_CURRENT_USER, EmulationKey);
        EXPECT_EQ(webbrowserhelper::registerIENewVersion(), name);
        DWORD stored = 0, size = sizeof stored;
        RegGetValueW(HKEY_CURRENT_USER, EmulationKey, L"tkvyn.exe", RRF_RT_REG_DWORD, nullptr, &stored,
                     &size);
        EXPECT_EQ(stored, value) << name;
    }
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
}

} // namespace
