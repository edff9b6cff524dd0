#pragma once

#include "uilib/core/window_impl_base.h"

#include <functional>

// The hidden window to which the shell sends what happens to the icon in the notification
// area. Never shown; deletes itself. Window thread only.

namespace view {

class ITrayIconDelegate {
public:
    virtual bool onMouseMessage(UINT message) = 0; // whether it was handled

protected:
    ~ITrayIconDelegate() = default;
};

constexpr UINT TrayIconMessage = 39529; // from the shell; lParam is the mouse message

class TrayIconWindow final : public UILib::WindowImplBase {
public:
    // delegate is not owned and outlives the window.
    explicit TrayIconWindow(ITrayIconDelegate& delegate);
    ~TrayIconWindow() override = default;

    bool create();

    std::function<void()> onShellStarted; // anew: it knows no icons any more

private:
    const wchar_t* GetWindowClassName() const override { return L"QzPlayerTrayiconFrame"; }
    UINT GetClassStyle() const override { return CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return L"trayicon.xml"; }
    LRESULT HandleCustomMessage(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    void OnFinalMessage(HWND handle) override;

    ITrayIconDelegate& delegate;
    const UINT shellStarted; // a message that the shell broadcasts
};

} // namespace view
