#pragma once

#include "tests/uilib/message_loop.h"
#include "tests/uilib/probe.h"
#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/window.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

// A visible window with a manager, driven with real messages; notifications are written
// down as "name!type".

class Stage : public UILib::CWindowWnd, public UILib::INotifyUI {
public:
    static constexpr int Width = 300, Height = 200;

    explicit Stage(const std::wstring& elements) : Stage(elements, awayFromPointer()) {}
    Stage(const std::wstring& elements, POINT at) {
        UILib::CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        Create(nullptr, L"", WS_POPUP, 0, at.x, at.y, Width, Height);
        EXPECT_NE(window, nullptr) << "these tests need a display";
        ::ShowWindow(window, SW_SHOW);
        manager.Init(window);
        manager.AddNotifier(this);
        UILib::CDialogBuilder builder;
        manager.AttachDialog(
            builder.Create((L"<Window><VBox name=\"root\">" + elements + L"</VBox></Window>").c_str(),
                           nullptr, nullptr, &manager));
        ::SetFocus(window);
        for (int paint = 0; paint < 2; ++paint) // the first one lays out, the second focuses a tab stop
            RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        manager.SetFocus(nullptr, UILib::FocusWindow::Yes);
        pumpMessages();
        log.clear();
    }
    ~Stage() override {
        if (window)
            DestroyWindow(window);
    }

    template <class Control = UILib::CControlUI>
    Control& get(const wchar_t* name) {
        return *static_cast<Control*>(manager.FindControl(name));
    }
    void mouse(UINT message, int x, int y) { SendMessageW(window, message, 0, MAKELPARAM(x, y)); }
    void press(int x, int y) { mouse(WM_LBUTTONDOWN, x, y); }
    void click(int x, int y) {
        press(x, y);
        mouse(WM_LBUTTONUP, x, y);
        pumpMessages();
    }
    void key(HWND target, UINT virtualKey) {
        PostMessageW(target, WM_KEYDOWN, virtualKey, 1);
        PostMessageW(target, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
        pumpMessages();
    }
    void key(UINT virtualKey) { key(GetFocus(), virtualKey); }
    // Of a control's own timer. Ends none and starts none.
    bool timerRuns(UILib::CControlUI& control, UINT id) {
        constexpr UINT later = 60000; // ms
        if (!manager.SetTimer(&control, id, later))
            return true;
        manager.KillTimer(&control, id);
        return false;
    }
    std::string take() { return std::exchange(log, {}); }
    uint32_t pixel(UILib::CControlUI& control, int x, int y) {
        UILib::DibSurface surface(nullptr, Width, Height);
        manager.PaintTree(surface.context(), {0, 0, Width, Height}, &control);
        GdiFlush();
        return surface.raster().row(y)[x] & 0xFFFFFF;
    }

    UILib::CPaintManagerUI manager;
    std::function<void(UILib::TUINotify&)> onNotify;
    UILib::TUINotify last;

private:
    const wchar_t* GetWindowClassName() const override { return L"uilib controls test"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        if (manager.MessageHandler(message, wParam, lParam, result))
            return result;
        return CWindowWnd::HandleMessage(message, wParam, lParam);
    }
    void Notify(UILib::TUINotify& notification) override {
        const std::wstring type(notification.type),
            name(notification.sender ? notification.sender->GetName().GetData() : L"?");
        if (type == L"setfocus" || type == L"killfocus" || type == L"windowinit")
            return;
        log += (log.empty() ? "" : " ") + std::string(name.begin(), name.end()) + "!" +
               std::string(type.begin(), type.end());
        last = notification;
        if (onNotify)
            onNotify(notification);
    }

    std::string log;
};
