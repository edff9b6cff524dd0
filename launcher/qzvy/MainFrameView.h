#pragma once

#include "uilib/core/window_impl_base.h"

#include <string>

// The main window as the flows see it: one start button, three pages beside it, and the
// few values that they show. Knows nothing of games, downloads or settings; tells of
// clicks through MainFrameEvents.
//
// A skinned window. Window thread only. After the window is destroyed every operation
// does nothing, so that a late task meets no harm.

class MainFrameEvents {
public:
    virtual void InitWindow() = 0; // inside the window's creation; its controls exist
    virtual void onStartBtnClicked() = 0;
    virtual void onPauseBtnClicked() = 0;
    virtual void onCloseBtnClicked() = 0;
    virtual void onSetupBtnClicked() = 0;
    virtual void onBrowseInstallPath() = 0;
    virtual void onLink(const char* key) = 0; // key of the address in the language table
    virtual void OnDestroy() = 0;             // the window is about to go
    virtual void OnFinalMessage() = 0;        // the window is gone; the last call of the view

protected:
    ~MainFrameEvents() = default;
};

enum class Page { Path, Download, Install };

class MainFrameView final : public UILib::WindowImplBase {
public:
    // events is not owned and outlives the window. Null on failure.
    HWND create(DWORD style, MainFrameEvents& events);

    void close(UINT_PTR result) { Close(result); } // later, by way of the message queue
    void show(bool visible) { ShowWindow(visible); }
    void center() { CenterWindow(); }
    void resizeClient(int width, int height) { ResizeClient(width, height); }
    void applySmallLayout(); // for heights of 800 and less

    void setStartText(const std::wstring& text) { setText(L"startBtn", text); }
    void enableStart(bool enabled);

    void showPages(bool visible) { setVisible(L"pathTab", visible); }
    void selectPage(Page page);
    void setInstallPath(const std::wstring& path) { setText(L"pathEdit", path); }

    // percent 0 to 100; iconOffset in pixels of the design.
    void setDownloadProgress(int percent, int iconOffset);
    void setDownloadTexts(const std::wstring& amount, const std::wstring& timeLeft,
                          const std::wstring& speed);
    void setInstallProgress(int percent, int iconOffset);
    void setPaused(bool paused); // the pause button offers to go on, or to pause

    // Buttons of the social column show where the language has an address for them.
    using WindowImplBase::setVisible;
    void setBackground(const wchar_t* control, const std::wstring& image);

private:
    const wchar_t* GetWindowClassName() const override { return L"QZVYMainFrame"; }
    UINT GetClassStyle() const override { return CS_VREDRAW | CS_HREDRAW; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return L"xml_mainframe.xml"; }
    const MessageMap* GetMessageMap() const override { return &messageMap; }
    void InitWindow() override { events->InitWindow(); }
    LRESULT ResponseDefaultKeyEvent(WPARAM) override { return 0; } // no key ends the launcher
    LRESULT OnDestroy(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    void OnFinalMessage(HWND handle) override;

    void onStart(UILib::TUINotify&) { events->onStartBtnClicked(); }
    void onPause(UILib::TUINotify&) { events->onPauseBtnClicked(); }
    void onClose(UILib::TUINotify&) { events->onCloseBtnClicked(); }
    void onSetup(UILib::TUINotify&) { events->onSetupBtnClicked(); }
    void onBrowse(UILib::TUINotify&) { events->onBrowseInstallPath(); }
    void onLink(UILib::TUINotify& notification);

    void setProgress(const wchar_t* bar, int percent, const wchar_t* space, int iconOffset);

    static const MessageMap messageMap;

    MainFrameEvents* events = nullptr;
};
