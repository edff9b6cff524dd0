#pragma once

#include "uilib/core/window_impl_base.h"

#include <functional>

// The window that a user opens to ask for a newer launcher. It starts the check when it
// opens; its owner, who hears of the result, either closes it or lets it say that there
// is nothing newer.
//
// Allocated with new; deletes itself when its window is destroyed. Window thread only.

class QzHubUpdateCheckFrame final : public UILib::WindowImplBase {
public:
    void showUpToDate();

    std::function<void()> onClosed; // the window is gone

private:
    const wchar_t* GetWindowClassName() const override { return L"updatecheckframe"; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return L"updatecheckframe.xml"; }
    void InitWindow() override;
    void OnFinalMessage(HWND handle) override;

    void selectPage(int page);
};
