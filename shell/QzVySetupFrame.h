#pragma once

#include "uilib/core/window_impl_base.h"

#include <functional>
#include <string>

// The settings window. It holds no settings of its own: it shows those of QzVySetupImpl
// and QzVyModel and writes each change at once, so that closing it discards nothing.
//
// Allocated with new; deletes itself when its window is destroyed, which the owner's end
// does, too. Its owner sets the functions after creating it. Window thread only.

class QzVySetupFrame final : public UILib::WindowImplBase {
public:
    std::function<void()> onClosed;      // the window is gone
    std::function<void()> onPathChanged; // a new install path has been stored
    std::function<void()> onCheckUpdate; // the user asks for a look for updates

private:
    const wchar_t* GetWindowClassName() const override { return L"QzVySetupFrame"; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return L"xm_setupframe.xml"; }
    const MessageMap* GetMessageMap() const override { return &messageMap; }
    void InitWindow() override;
    void OnFinalMessage(HWND handle) override;

    void onAboutLink(UILib::TUINotify& notification);
    void onBrowse(UILib::TUINotify& notification);
    void onCheckUpdateClicked(UILib::TUINotify& notification);
    void onLanguageSelected(UILib::TUINotify& notification);
    void onOptionSelected(UILib::TUINotify& notification);

    void showSwitches();
    void fillLanguages();
    void applyPath(const std::wstring& choice);
    void askForRestart();

    static const MessageMap messageMap;
};
