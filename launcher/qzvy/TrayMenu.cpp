// What the icon in the notification area does: the left button raises the window, the right
// one opens a menu.

#include "launcher/qzvy/QzVyImpl.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "shell/XrMenuWnd.h"

using UILib::languageText;

namespace {

constexpr wchar_t ShowMain[] = L"MENU_SHOWMAIN";
constexpr wchar_t Exit[] = L"MENU_EXIT";

const MenuStyle TrayMenuStyle = {.rowHeight = 40,
                                 .rowWidth = 120,
                                 .textLeft = 32,
                                 .rowColor = 0xFFFFFFFF,
                                 .hotColor = 0xFFE3E5E8,
                                 .textColor = 0xFF000000,
                                 .hotTextColor = 0xFF000000,
                                 .inset = false};

} // namespace

void QzVyImpl::createTrayIcon() {
    trayIcon = std::make_unique<view::TrayiconControl>();
    trayIcon->leftAction = [this] { raiseMainFrame(); };
    trayIcon->rightAction = [this] { showTrayMenu(); };
    trayIcon->addTrayIcon(mainFrame->window().GetHWND());
}

void QzVyImpl::showTrayMenu() {
    if (!mainFrame)
        return;
    POINT cursor = {};
    GetCursorPos(&cursor);
    const HWND owner = mainFrame->window().GetHWND();
    SetForegroundWindow(owner); // or the menu would never lose a focus that it never got
    XrMenuWnd::closeCurrent();
    XrMenuWnd::style = TrayMenuStyle;
    XrMenuWnd::addMenuItem(owner, ShowMain, languageText("menu_showmain"), L"", L"");
    XrMenuWnd::addMenuItem(owner, Exit, languageText("menu_exit"), L"", L"");
    XrMenuWnd::popupMenu(cursor.x, cursor.y, MenuPlacement::AboveRight,
                         [this](const std::wstring& name) { return onTrayMenu(name); });
}

bool QzVyImpl::onTrayMenu(const std::wstring& name) {
    if (name == ShowMain)
        raiseMainFrame();
    if (name != Exit)
        return false;
    if (mainFrame)
        mainFrame->window().close(1);
    return true;
}
