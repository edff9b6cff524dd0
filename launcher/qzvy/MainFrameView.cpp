#include "launcher/qzvy/MainFrameView.h"

#include "launcher/qzvy/MainFrameControls.h"
#include "launcher/qzvy/MainFramePalette.h"
#include "launcher/qzvy/WindowSize.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <windowsx.h>

#include <algorithm>

using namespace palette;

namespace {

constexpr wchar_t ClassName[] = L"QZVYMainFrame";
constexpr int IconCentre = 16; // half of the icon that rides on the bar

HINSTANCE programInstance() {
    return GetModuleHandleW(nullptr);
}

void registerClass(WNDPROC procedure) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_VREDRAW | CS_HREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = programInstance();
    windowClass.hIcon = LoadIconW(programInstance(), MAKEINTRESOURCEW(IconResource));
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = ClassName;
    RegisterClassExW(&windowClass); // a second window finds the class registered
}

// Shape of the design: the scale follows the height, the width has the same one.
int heightOfClient(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client.bottom;
}

} // namespace

HWND MainFrameView::create(DWORD style, MainFrameEvents& receiver) {
    events = &receiver;
    const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);
    registerClass(windowProc);
    return CreateWindowExW(0, ClassName, L"", style, 0, 0, DesignSize.width, DesignSize.height, nullptr,
                           nullptr, programInstance(), this);
}

LRESULT CALLBACK MainFrameView::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* view = reinterpret_cast<MainFrameView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        view = static_cast<MainFrameView*>(creation->lpCreateParams);
        view->hWnd = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(view));
    }
    if (message == WM_NCDESTROY && view) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        view->hWnd = nullptr;
        view->events->OnFinalMessage(); // may delete the view
        return 0;
    }
    return view ? view->handle(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT MainFrameView::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        onCreate();
        return 0;
    case WM_DESTROY:
        events->OnDestroy();
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED || HIWORD(wParam) == BN_DOUBLECLICKED)
            onCommand(LOWORD(wParam));
        return 0;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            layOut();
        return 0;
    case WM_NCHITTEST:
        return hitTest(lParam);
    case WM_PAINT:
        paint();
        return 0;
    case WM_DRAWITEM:
        drawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_CTLCOLORSTATIC:
        return colorText(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    }
    return DefWindowProcW(hWnd, message, wParam, lParam);
}

void MainFrameView::onCreate() {
    titleBrush.reset(CreateSolidBrush(TitleColor));
    bandBrush.reset(CreateSolidBrush(BandColor));
    for (const MainFrameControl& item : mainFrameControls()) {
        const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(item.id));
        CreateWindowExW(0, item.windowClass, L"", WS_CHILD | item.style, 0, 0, 0, 0, hWnd, id,
                        programInstance(), nullptr);
    }
    for (const Id id : {DownloadProgress, InstallProgress}) {
        SetWindowTheme(control(id), L"", L""); // a theme has colours of its own
        SendDlgItemMessageW(hWnd, id, PBM_SETBARCOLOR, 0, AccentColor);
        SendDlgItemMessageW(hWnd, id, PBM_SETBKCOLOR, 0, TroughColor);
    }
    const auto icon = reinterpret_cast<WPARAM>(LoadIconW(programInstance(), MAKEINTRESOURCEW(IconResource)));
    for (const Id id : {LoadingIcon, InstallIcon})
        SendMessageW(control(id), STM_SETICON, icon, 0);
    setText(TitleText, L"VYN");
    layOut();
    updateVisibility();
    events->InitWindow();
}

void MainFrameView::onCommand(int id) {
    switch (id) {
    case StartButton:
        return events->onStartBtnClicked();
    case PauseButton:
        return events->onPauseBtnClicked();
    case BrowseButton:
        return events->onBrowseInstallPath();
    case CloseButton:
        return events->onCloseBtnClicked();
    case MinimiseButton:
        ShowWindow(hWnd, SW_MINIMIZE);
        return;
    }
}

// The title bar of the design moves the window; its buttons are windows of their own.
LRESULT MainFrameView::hitTest(LPARAM position) const {
    POINT point = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ScreenToClient(hWnd, &point);
    return point.y < scaled(TitleHeight) ? HTCAPTION : HTCLIENT;
}

int MainFrameView::scaled(int length) const {
    return MulDiv(length, heightOfClient(hWnd), DesignSize.height);
}

void MainFrameView::layOut() {
    textFont = makeFont(scaled(20), FW_NORMAL);
    buttonFont = makeFont(scaled(26), FW_BOLD);
    for (const MainFrameControl& item : mainFrameControls()) {
        const RECT& place = item.place;
        const HWND child = control(item.id);
        SetWindowPos(child, nullptr, scaled(place.left), scaled(place.top), scaled(place.right - place.left),
                     scaled(place.bottom - place.top), SWP_NOZORDER | SWP_NOACTIVATE);
        const utility::Font& font = item.id == StartButton ? buttonFont : textFont;
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    }
    moveIcon(LoadingIcon, downloadIconOffset);
    moveIcon(InstallIcon, installIconOffset);
    InvalidateRect(hWnd, nullptr, TRUE);
}

void MainFrameView::updateVisibility() {
    for (const MainFrameControl& item : mainFrameControls()) {
        bool visible = !item.page || (pagesVisible && *item.page == page);
        if (item.id == SpeedText && smallLayout)
            visible = false;
        ShowWindow(control(item.id), visible ? SW_SHOW : SW_HIDE);
    }
}

void MainFrameView::close(WPARAM result) {
    if (hWnd)
        PostMessageW(hWnd, WM_CLOSE, result, 0);
}

void MainFrameView::show(bool visible) {
    if (hWnd)
        ShowWindow(hWnd, visible ? SW_SHOWNORMAL : SW_HIDE);
}

void MainFrameView::center() {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    RECT frame{};
    if (!GetMonitorInfoW(MonitorFromWindow(hWnd, MONITOR_DEFAULTTONEAREST), &monitor) ||
        !GetWindowRect(hWnd, &frame))
        return;
    const RECT& work = monitor.rcWork;
    const LONG left = (work.left + work.right - (frame.right - frame.left)) / 2;
    const LONG top = (work.top + work.bottom - (frame.bottom - frame.top)) / 2;
    SetWindowPos(hWnd, nullptr, std::max(left, work.left), std::max(top, work.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainFrameView::resizeClient(int width, int height) {
    RECT frame = {0, 0, width, height};
    AdjustWindowRectEx(&frame, GetWindowLongW(hWnd, GWL_STYLE), FALSE, GetWindowLongW(hWnd, GWL_EXSTYLE));
    SetWindowPos(hWnd, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainFrameView::applySmallLayout() {
    smallLayout = true;
    updateVisibility();
}

void MainFrameView::setText(Id id, const std::wstring& text) {
    SetDlgItemTextW(hWnd, id, text.c_str());
}

void MainFrameView::setStartText(const std::wstring& text) {
    setText(StartButton, text);
}

void MainFrameView::enableStart(bool enabled) {
    EnableWindow(control(StartButton), enabled);
}

void MainFrameView::showPages(bool visible) {
    pagesVisible = visible;
    updateVisibility();
}

void MainFrameView::selectPage(Page selected) {
    page = selected;
    updateVisibility();
}

void MainFrameView::setInstallPath(const std::wstring& path) {
    setText(PathText, path);
}

void MainFrameView::setPathTitle(const std::wstring& text) {
    setText(PathTitle, text);
}

void MainFrameView::setInstallText(const std::wstring& text) {
    setText(InstallText, text);
}

void MainFrameView::setDownloadProgress(int percent, int iconOffset) {
    SendDlgItemMessageW(hWnd, DownloadProgress, PBM_SETPOS, percent, 0);
    downloadIconOffset = iconOffset;
    moveIcon(LoadingIcon, iconOffset);
}

void MainFrameView::setDownloadTexts(const std::wstring& amount, const std::wstring& timeLeft,
                                     const std::wstring& speed) {
    setText(DownloadText, amount);
    setText(TimeLeftText, timeLeft);
    setText(SpeedText, speed);
}

void MainFrameView::setInstallProgress(int percent, int iconOffset) {
    SendDlgItemMessageW(hWnd, InstallProgress, PBM_SETPOS, percent, 0);
    installIconOffset = iconOffset;
    moveIcon(InstallIcon, iconOffset);
}

void MainFrameView::moveIcon(Id id, int offset) {
    for (const MainFrameControl& item : mainFrameControls())
        if (item.id == id)
            SetWindowPos(control(id), nullptr, scaled(item.place.left + offset - IconCentre),
                         scaled(item.place.top), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void MainFrameView::setPaused(bool paused) {
    pausedShown = paused;
    InvalidateRect(control(PauseButton), nullptr, TRUE);
}
