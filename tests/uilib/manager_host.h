#pragma once

#include "tests/uilib/message_loop.h"
#include "tests/uilib/probe.h"
#include "uilib/core/window.h"

#include <gtest/gtest.h>

// A window with a manager and a tree of probes, to which a test sends messages.

// A small window with a manager and nothing else; its messages are real.
class Host : public UILib::CWindowWnd {
public:
    Host() {
        UILib::CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        const POINT at = awayFromPointer();
        Create(nullptr, L"", WS_POPUP | WS_VISIBLE, WS_EX_NOACTIVATE, at.x, at.y, 200, 200);
        EXPECT_NE(window, nullptr) << "these tests need a display";
        manager.Init(window);
        manager.AddNotifier(&creator);
    }
    ~Host() override { DestroyWindow(window); }

    UILib::CControlUI* attach(const std::wstring& elements, int width = 100, int height = 100) {
        UILib::CDialogBuilder builder;
        UILib::CControlUI* root =
            builder.Create((L"<Window>" + elements + L"</Window>").c_str(), nullptr, &creator, &manager);
        manager.AttachDialog(root);
        root->SetPos({0, 0, width, height}, false);
        paint();
        creator.take();
        return root;
    }
    // What the first paint does besides painting: after it no update is pending.
    void paint() {
        LRESULT result;
        InvalidateRect(window, nullptr, FALSE);
        manager.MessageHandler(WM_PAINT, 0, 0, result);
        pump();
    }
    void pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    LRESULT mouse(UINT message, int x, int y) { return SendMessage(message, 0, MAKELPARAM(x, y)); }
    Probe& probe(const wchar_t* name) { return static_cast<Probe&>(*manager.FindControl(name)); }
    std::string take() { return creator.take(); }

    UILib::CPaintManagerUI manager;
    ProbeCreator creator;

private:
    const wchar_t* GetWindowClassName() const override { return L"uilib test host"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        if (manager.MessageHandler(message, wParam, lParam, result))
            return result;
        return UILib::CWindowWnd::HandleMessage(message, wParam, lParam);
    }
};

// Tells whether a control has been destroyed.
class Gone {
public:
    explicit Gone(UILib::CControlUI& control) { control.OnDestroy.Add(this, &Gone::set); }
    Gone(const Gone&) = delete;
    Gone& operator=(const Gone&) = delete;
    operator bool() const { return gone; }

private:
    bool set(UILib::CControlUI&) { return gone = true; }
    bool gone = false;
};

inline const wchar_t TwoProbes[] =
    L"<VBox><Probe name=\"a\" height=\"50\"/><Probe name=\"b\" height=\"50\"/></VBox>";
inline const wchar_t ThreeStops[] =
    L"<VBox><Stop name=\"a\" height=\"10\"/><Probe name=\"x\" height=\"10\"/>"
    L"<Stop name=\"b\" height=\"10\"/><Stop name=\"off\" enabled=\"false\"/>"
    L"<Stop name=\"gone\" visible=\"false\"/><Stop name=\"c\" height=\"10\"/></VBox>";

inline std::string textOf(const RECT& r) {
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
           std::to_string(r.bottom);
}
