#include "tests/uilib/message_loop.h"
#include "tests/uilib/window_places.h"
#include "uilib/core/rects.h"
#include "uilib/core/window.h"

#include <gtest/gtest.h>

// The plain window below every skinned one: its places, its modal loop, and windows and classes
// of the system's that it takes over.

using namespace UILib;

namespace {

// A window without a skin.
class Plain : public CWindowWnd {
public:
    explicit Plain(DWORD style = WS_POPUP, HWND owner = nullptr, HMENU menu = nullptr,
                   RECT at = {50, 60, 250, 160}) {
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        EXPECT_NE(Create(owner, L"plain", style, 0, at.left, at.top, width(at), height(at), menu), nullptr);
    }
    ~Plain() override {
        if (IsWindow(window))
            DestroyWindow(window);
    }
    int finals = 0;
    int users = 0; // messages of that kind
    bool ownerWasEnabled = true;

protected:
    Plain(bool) {}
    const wchar_t* GetWindowClassName() const override { return L"uilib test plain"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_USER)
            return CWindowWnd::HandleMessage(message, wParam, lParam);
        ++users;
        ownerWasEnabled = IsWindowEnabled(GetWindow(window, GW_OWNER));
        return 99;
    }
    void OnFinalMessage(HWND) override { ++finals; }
};

} // namespace

TEST(PlainWindow, ShowsItselfWithOrWithoutTheFocus) {
    Plain other(WS_POPUP | WS_VISIBLE), window;
    SetFocus(other);
    window.ShowWindow(true, false);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(GetFocus(), other.GetHWND());
    window.ShowWindow(false);
    EXPECT_FALSE(IsWindowVisible(window));
    window.ShowWindow();
    EXPECT_EQ(GetActiveWindow(), window.GetHWND());
}

TEST(PlainWindow, ResizesItsClientAreaWhateverItsFrame) {
    const HMENU menu = CreateMenu();
    AppendMenuW(menu, MF_STRING, 1, L"menu");
    for (const DWORD style : {DWORD(WS_POPUP), DWORD(WS_OVERLAPPEDWINDOW)})
        for (const bool withMenu : {false, true}) {
            if (withMenu && style == WS_POPUP)
                continue;
            Plain window(style, nullptr, withMenu ? menu : nullptr, {50, 60, 500, 400});
            const RECT before = frameOf(window);
            window.ResizeClient(320, 210);
            EXPECT_EQ(clientOf(window).cx, 320);
            EXPECT_EQ(clientOf(window).cy, 210);
            window.ResizeClient(-1, 150);
            EXPECT_EQ(clientOf(window).cx, 320);
            EXPECT_EQ(clientOf(window).cy, 150);
            window.ResizeClient(280, -1);
            EXPECT_EQ(clientOf(window).cx, 280);
            EXPECT_EQ(clientOf(window).cy, 150);
            EXPECT_EQ(frameOf(window).left, before.left);
            EXPECT_EQ(frameOf(window).top, before.top);
            SetMenu(window, nullptr);
        }
    DestroyMenu(menu);
}

TEST(PlainWindow, CentresOnItsOwnerWithinTheWorkArea) {
    const RECT work = monitor().rcWork;
    const RECT size = {0, 0, 101, 81};
    const auto centredOn = [&](HWND owner) {
        Plain window(WS_POPUP, owner, nullptr, size);
        window.CenterWindow();
        EXPECT_EQ(width(frameOf(window)), 101);
        return POINT{frameOf(window).left, frameOf(window).top};
    };
    const POINT alone = centredOn(nullptr);
    EXPECT_EQ(alone.x, (work.left + work.right) / 2 - 50);
    EXPECT_EQ(alone.y, (work.top + work.bottom) / 2 - 40);
    const struct {
        RECT owner;
        POINT at;
    } cases[] = {{{300, 200, 600, 500}, {400, 310}},
                 {{work.left - 200, work.top - 300, work.left + 20, work.top + 20}, {work.left, work.top}},
                 {{work.right - 20, work.bottom - 20, work.right + 200, work.bottom + 100},
                  {work.right - 101, work.bottom - 81}}};
    for (const auto& [place, at] : cases) {
        Plain owner(WS_POPUP | WS_VISIBLE, nullptr, nullptr, place);
        const POINT centred = centredOn(owner);
        EXPECT_EQ(centred.x, at.x) << place.left;
        EXPECT_EQ(centred.y, at.y) << place.left;
    }
    Plain small(WS_OVERLAPPED | WS_VISIBLE, nullptr, nullptr, {300, 200, 600, 500});
    ShowWindow(small, SW_MINIMIZE);
    EXPECT_EQ(centredOn(small).x, alone.x) << "an icon is nothing to be centred on";
}

TEST(PlainWindow, AModalLoopDisablesTheOwnerAndGivesTheResult) {
    Plain owner(WS_POPUP | WS_VISIBLE), window(WS_POPUP, owner);
    window.PostMessage(WM_USER);
    window.Close(5);
    EXPECT_EQ(window.ShowModal(), 5u);
    EXPECT_EQ(window.users, 1);
    EXPECT_FALSE(window.ownerWasEnabled);
    EXPECT_EQ(window.finals, 1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetFocus(), owner.GetHWND());
}

TEST(PlainWindow, AQuitMessageEndsTheModalLoopAndStays) {
    Plain owner(WS_POPUP | WS_VISIBLE), window(WS_POPUP, owner);
    PostQuitMessage(3);
    EXPECT_EQ(window.ShowModal(), 0u);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_TRUE(IsWindowEnabled(owner));
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u);
}

namespace {

class Adopted : public Plain {
public:
    Adopted() : Plain(false) {}
};

// Made of a class of the system's.
class Field : public Plain {
public:
    explicit Field(HWND parent) : Plain(false) {
        EXPECT_NE(Create(parent, L"text", WS_CHILD, 0, RECT{0, 0, 50, 20}), nullptr);
    }

private:
    const wchar_t* GetWindowClassName() const override { return L"uilib test field"; }
    const wchar_t* GetSuperClassName() const override { return L"EDIT"; }
};

} // namespace

TEST(PlainWindow, TakesOverAWindowAndGivesItBack) {
    const HWND existing =
        CreateWindowExW(0, L"STATIC", L"kept", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    Adopted adopted, late;
    EXPECT_EQ(adopted.Subclass(nullptr), nullptr);
    EXPECT_EQ(adopted.Subclass(existing), existing);
    EXPECT_EQ(adopted.Subclass(existing), nullptr) << "has one";
    EXPECT_EQ(SendMessageW(existing, WM_USER, 0, 0), 99);
    wchar_t text[10] = {};
    GetWindowTextW(existing, text, 10);
    EXPECT_STREQ(text, L"kept") << "the old procedure answers the rest";
    adopted.Unsubclass();
    EXPECT_NE(SendMessageW(existing, WM_USER, 0, 0), 99);
    EXPECT_EQ(late.Subclass(existing), existing);
    DestroyWindow(existing);
    EXPECT_EQ(late.finals, 1);
    EXPECT_EQ(late.GetHWND(), nullptr);
}

TEST(PlainWindow, MayExtendAClassOfTheSystems) {
    Plain parent;
    Field field(parent);
    EXPECT_EQ(SendMessageW(field, WM_USER, 0, 0), 99);
    SetWindowTextW(field, L"abc");
    EXPECT_EQ(SendMessageW(field, EM_LINELENGTH, 0, 0), 3);
    EXPECT_EQ(width(frameOf(field)), 50);
    DestroyWindow(field);
    EXPECT_EQ(field.finals, 1);
    EXPECT_EQ(field.GetHWND(), nullptr);
}
