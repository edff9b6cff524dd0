#pragma once

#include "uilib/core/window_impl_base.h"

#include <functional>
#include <string>

// The window that offers or forces a new launcher and shows its download. A forced update
// starts by itself and has no close button while it runs; one whose download has failed
// can be tried again or closed.
//
// Closing it by whatever way ends the download. A forced one takes the launcher with it,
// and so does a download that is complete: the program is handed over at its end.
//
// Allocated with new; deletes itself when its window is destroyed. While it exists, the
// model's download callbacks are its own. Window thread only.

class QzNimUpdateFrame final : public UILib::WindowImplBase {
public:
    // May be called again with what a later check has found.
    void setUpdateInfo(const std::wstring& version, bool force);
    bool isForced() const { return forced; }
    ~QzNimUpdateFrame() override;

    std::function<void()> onClosed; // the window is gone

private:
    enum class State { Offered, Downloading, Failed };

    const wchar_t* GetWindowClassName() const override { return L"updateFrame"; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return L"updateframe.xml"; }
    const MessageMap* GetMessageMap() const override { return &messageMap; }
    void InitWindow() override;
    LRESULT ResponseDefaultKeyEvent(WPARAM key) override;
    LRESULT OnClose(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    void OnFinalMessage(HWND handle) override;

    void onUpdateClicked(UILib::TUINotify&) { startDownload(); }
    void onCancelClicked(UILib::TUINotify&) { Close(1); }

    void startDownload();
    void onDownloadPercent(int percent);
    void onDownloadFailed();
    void enter(State next);

    void setProgress(int percent);

    static const MessageMap messageMap;

    bool forced = false;
    State state = State::Offered;
    std::wstring shownVersion;
};
