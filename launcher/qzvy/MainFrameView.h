#pragma once

#include "utility/handles.h"

#include <string>

// The main window as the flows see it: one start button, three pages beside it, and the
// few values that they show. Knows nothing of games, downloads or settings; tells of
// clicks through MainFrameEvents.
//
// A plain window whose controls stand at the places of the 1642 by 977 design, scaled to
// the client area. Window thread only. After the window is destroyed every operation
// does nothing, so that a late task meets no harm.

class MainFrameEvents {
public:
    virtual void InitWindow() = 0; // inside the window's creation; its controls exist
    virtual void onStartBtnClicked() = 0;
    virtual void onPauseBtnClicked() = 0;
    virtual void onCloseBtnClicked() = 0;
    virtual void onBrowseInstallPath() = 0;
    virtual void OnDestroy() = 0;      // the window is about to go
    virtual void OnFinalMessage() = 0; // the window is gone; the last call of the view

protected:
    ~MainFrameEvents() = default;
};

enum class Page { Path, Download, Install };

class MainFrameView {
public:
    // Control ids, for whoever drives the window from outside.
    enum Id {
        StartButton = 101,
        PathTitle,
        PathText,
        BrowseButton,
        DownloadProgress,
        DownloadText,
        TimeLeftText,
        SpeedText,
        PauseButton,
        InstallProgress,
        InstallText,
        TitleText,
        MinimiseButton,
        CloseButton,
        LoadingIcon,
        InstallIcon,
    };

    MainFrameView() = default;
    MainFrameView(const MainFrameView&) = delete;
    MainFrameView& operator=(const MainFrameView&) = delete;

    // events is not owned and outlives the window. Null on failure.
    HWND create(DWORD style, MainFrameEvents& events);
    HWND window() const { return hWnd; }

    void close(WPARAM result); // later, by way of the message queue
    void show(bool visible);   // with the focus
    void center();             // on the work area of its monitor
    void resizeClient(int width, int height);
    void applySmallLayout(); // for heights of 800 and less

    void setStartText(const std::wstring& text);
    void enableStart(bool enabled);

    void showPages(bool visible);
    void selectPage(Page page);

    void setPathTitle(const std::wstring& text);
    void setInstallPath(const std::wstring& path);

    // percent 0 to 100; iconOffset in pixels of the design.
    void setDownloadProgress(int percent, int iconOffset);
    void setDownloadTexts(const std::wstring& amount, const std::wstring& timeLeft,
                          const std::wstring& speed);
    void setInstallProgress(int percent, int iconOffset);
    void setInstallText(const std::wstring& text);
    void setPaused(bool paused); // the pause button offers to go on, or to pause

private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT hitTest(LPARAM position) const;
    void onCommand(int id);
    void onCreate();
    void paint();
    void drawButton(const DRAWITEMSTRUCT& item) const;
    LRESULT colorText(HDC dc, HWND child) const; // the brush behind a text control
    void layOut();
    void updateVisibility();
    void setText(Id id, const std::wstring& text);
    void moveIcon(Id id, int offset);
    HWND control(int id) const { return GetDlgItem(hWnd, id); }
    int scaled(int length) const; // from pixels of the design to those of the client area

    HWND hWnd = nullptr;
    MainFrameEvents* events = nullptr;
    Page page = Page::Path;
    bool pagesVisible = true;
    bool smallLayout = false;
    bool pausedShown = false;
    int downloadIconOffset = 1;
    int installIconOffset = 1;
    utility::Font textFont;
    utility::Font buttonFont;
    utility::Brush titleBrush;
    utility::Brush bandBrush;
};
