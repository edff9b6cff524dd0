#include "shell/MessageBoxWindow.h"

#include "shell/SelectionButtons.h"
#include "uilib/controls/container.h"
#include "utility/log.h"

#include <set>

using namespace UILib;

namespace msg {

namespace {

constexpr DWORD Style = WS_POPUP | WS_BORDER | WS_SYSMENU;
constexpr DWORD ExtendedStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST;
constexpr UINT_PTR Chosen = 1; // result that a box closes with

std::set<std::wstring>& shownContents() {
    static std::set<std::wstring> contents;
    return contents;
}

} // namespace

MessageBoxWindow::MessageBoxWindow(HWND parent, std::wstring skin) : parent(parent), skin(std::move(skin)) {
    EnableWindow(parent, FALSE);
}

MessageBoxWindow::~MessageBoxWindow() {
    shownContents().erase(content);
}

bool MessageBoxWindow::isShown(const std::wstring& content) {
    return shownContents().contains(content);
}

void MessageBoxWindow::remember(const std::wstring& content) {
    shownContents().insert(content);
}

bool MessageBoxWindow::open() {
    if (!Create(parent, L"", Style, ExtendedStyle)) {
        common::log("MessageBoxWindow::open", __LINE__, L"create window error %d", GetLastError());
        releaseParent();
        return false;
    }
    CenterWindow();
    ShowWindow();
    return true;
}

void MessageBoxWindow::InitWindow() {
    paintManager.SetDefaultFontFamily(languageText("font_name"));
}

// Gives it the focus, too, which otherwise goes to a window of the system's choice.
void MessageBoxWindow::releaseParent() {
    EnableWindow(parent, TRUE);
    if (window && GetActiveWindow() == window)
        ::SetFocus(parent);
}

void MessageBoxWindow::setIcon(const std::wstring& image) {
    CControlUI* icon = find(L"msgiconimage");
    if (image.empty()) {
        if (icon)
            icon->SetVisible(false);
        if (CControlUI* text = find(L"descriptlabel"))
            text->SetAttribute(L"width", L"340");
    } else if (icon) {
        icon->SetBkImage(image.c_str());
    }
}

void MessageBoxWindow::setTitle(const std::wstring& text) {
    setText(L"titlelabel", text);
}

void MessageBoxWindow::setContent(const std::wstring& text) {
    content = text;
    auto* label = find(L"descriptlabel");
    if (!label)
        return;
    label->SetAttribute(L"align", L"center");
    label->SetAttribute(L"valign", L"vcenter");
    label->SetAttribute(L"multiline", L"true");
    label->SetAttribute(L"showhtml", L"true");
    label->SetText(text.c_str());
}

void MessageBoxWindow::addSelection(const Selection& selection) {
    addButton(new CSelectionUI(selection), selection.primary);
}

void MessageBoxWindow::addRemoteSelection(const Selection& selection) {
    addButton(new CSelectionUIRemote(selection), selection.primary);
}

// Before the last child, the spacer on the right. The main button gets the focus once the
// layout has given it a place.
void MessageBoxWindow::addButton(CControlUI* button, bool primary) {
    auto* buttons = find<IContainerUI>(L"bottombar", L"IContainer");
    if (!buttons || !buttons->AddAt(button, std::max(buttons->GetCount() - 1, 0))) {
        button->Delete();
        return;
    }
    if (primary)
        paintManager.SetFocusNeeded(button);
}

void MessageBoxWindow::OnClick(TUINotify& notification) {
    if (notification.sender->GetName() == L"closebtn") {
        const HWND handle = window; // the action may end more than the box
        const auto action = closeAction;
        releaseParent();
        if (action)
            action();
        if (IsWindow(handle))
            WindowImplBase::OnClick(notification);
        return;
    }
    if (const auto* button =
            static_cast<const SelectionButton*>(notification.sender->GetInterface(L"Selection")))
        choose(button->selection());
    else
        WindowImplBase::OnClick(notification);
}

// Hidden first, so that what the action opens is not covered by the closing box.
void MessageBoxWindow::choose(const Selection& selection) {
    const HWND handle = window;
    const auto action = selection.action;
    releaseParent();
    ShowWindow(false);
    if (action)
        action();
    if (IsWindow(handle))
        ::PostMessageW(handle, WM_CLOSE, Chosen, 0);
}

LRESULT MessageBoxWindow::OnClose(UINT, WPARAM, LPARAM, bool& handled) {
    releaseParent();
    handled = false;
    return 0;
}

void MessageBoxWindow::OnFinalMessage(HWND handle) {
    WindowImplBase::OnFinalMessage(handle);
    delete this;
}

} // namespace msg
