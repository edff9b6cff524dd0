#include "tests/utility/support.h"

#include "utility/encoding.h"
#include "utility/handles.h"
#include "utility/system.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace {

using namespace utility;
using namespace utility::usystem;

TEST(System, TellsTheVersionInTheLog) {
    const bool win8 = isWin8OS();
    EXPECT_TRUE(isVistaOrLater());
    const auto lines = test::takeLog();
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

// A kind of address that belongs to the child program.
class OwnScheme {
public:
    // What it is told stands in the file then.
    explicit OwnScheme(const std::wstring& file) {
        set(L"", L"URL Protocol", L"");
        set(L"\\shell\\open\\command", nullptr,
            L"\"" + test::childProgram() + L"\" tell \"" + file + L"\" \"%1\"");
    }
    ~OwnScheme() { RegDeleteTreeW(HKEY_CLASSES_ROOT, name.c_str()); }

    const std::wstring name = L"vyntest" + std::to_wstring(GetCurrentProcessId());

private:
    void set(const wchar_t* below, const wchar_t* value, const std::wstring& text) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, (name + below).c_str(), value, REG_SZ, text.c_str(),
                                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
                  0);
    }
};

TEST(System, AnAddressOpensInTheProgramForItsKind) {
    const test::TempFolder folder;
    const std::wstring file = folder.path + L"told";
    const OwnScheme scheme(file);
    int count = 0;
    test::expectNoLeak(2, [&] {
        const std::string number = std::to_string(++count);
        openUrl(scheme.name + L":a%20b?c=" + utility::ansiToWide(number));
        EXPECT_TRUE(test::waitUntil([&] { return test::readFile(file).ends_with(":a%20b?c=" + number); }));
    });
}

// A window and its dialog, as a modal loop has them.
class Modal : public testing::Test {
protected:
    static HWND open(HWND owner, DWORD extendedStyle = 0) {
        const HWND window = CreateWindowExW(extendedStyle, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 40, 40, 200,
                                            100, owner, nullptr, nullptr, nullptr);
        EXPECT_NE(window, nullptr);
        return window;
    }
    void SetUp() override {
        other = open(nullptr);
        window = open(nullptr);
        dialog = open(window);
        EnableWindow(window, FALSE);
    }
    void TearDown() override {
        DestroyWindow(window); // the owned ones go with it
        DestroyWindow(other);
    }
    static bool comesForward(HWND wanted) {
        return test::pumpUntil([wanted] { return GetForegroundWindow() == wanted && GetFocus() == wanted; });
    }
    // In the order from the top of the screen down.
    static bool isAbove(HWND upper, HWND lower) {
        while (upper && upper != lower)
            upper = GetWindow(upper, GW_HWNDNEXT);
        return upper == lower;
    }

    HWND other = nullptr, window = nullptr, dialog = nullptr;
};

TEST_F(Modal, TheDialogComesForwardWithItsDisabledOwner) {
    // In front of the dialog, but nobody to talk to.
    const HWND tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10,
                                     window, nullptr, nullptr, nullptr);
    EXPECT_NE(tip, nullptr);
    SetForegroundWindow(other);
    bringToFrontWithDialog(window);
    EXPECT_TRUE(comesForward(dialog));
    EXPECT_TRUE(isAbove(dialog, window));
    EXPECT_TRUE(isAbove(window, other));
}

TEST_F(Modal, TheInnermostDialogIsTheOneThatAnswers) {
    EnableWindow(dialog, FALSE);
    const HWND inner = open(dialog, WS_EX_TOPMOST);
    SetForegroundWindow(other);
    bringToFrontWithDialog(window);
    EXPECT_TRUE(comesForward(inner));
}

TEST_F(Modal, AMinimisedOwnerComesBackWithItsDialog) {
    ShowWindow(window, SW_MINIMIZE);
    SetForegroundWindow(other);
    bringToFrontWithDialog(window);
    EXPECT_FALSE(IsIconic(window));
    EXPECT_TRUE(comesForward(dialog));
}

TEST_F(Modal, AWindowThatDisablesNobodyComesForwardLikeADialog) {
    EnableWindow(window, TRUE);
    SetForegroundWindow(other);
    bringToFrontWithDialog(window);
    EXPECT_TRUE(comesForward(dialog));
}

TEST_F(Modal, AnOpenMenuIsNotTalkedTo) {
    EnableWindow(window, TRUE);
    DestroyWindow(dialog);
    EXPECT_TRUE(IsWindowVisible(open(window, WS_EX_TOOLWINDOW | WS_EX_TOPMOST)));
    SetForegroundWindow(other);
    bringToFrontWithDialog(window);
    EXPECT_TRUE(comesForward(window));
}

} // namespace
