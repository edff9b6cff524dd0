#include "shell/XrMenuWnd.h"

#include "uilib/controls/button.h"
#include "uilib/controls/linear_layout.h"
#include "utility/log.h"

#include <windowsx.h>

using namespace UILib;

namespace {

constexpr DWORD Style = WS_POPUP | WS_BORDER | WS_SYSMENU;
constexpr DWORD ExtendedStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST;
constexpr int WidthStep = 50;
constexpr int ImageHeight = 18;
constexpr Color DisabledTextColor = 0xFFBBBFC3;
constexpr wchar_t Separator[] = L"setperater";
constexpr wchar_t FocusLost[] = L"menu_focus";

CButtonUI* buttonOf(CControlUI* row) {
    return static_cast<CButtonUI*>(static_cast<CHorizontalLayoutUI*>(row)->GetItemAt(0));
}

CButtonUI* makeButton(const std::wstring& text, const std::wstring& normalImage,
                      const std::wstring& hotImage) {
    const MenuStyle& style = XrMenuWnd::style;
    auto* button = new CButtonUI;
    button->SetText(text.c_str());
    button->SetFixedHeight(style.rowHeight);
    button->SetFixedWidth(style.rowWidth);
    button->SetTextColor(style.textColor);
    button->SetHotTextColor(style.hotTextColor);
    button->SetNormalImage(normalImage.c_str());
    button->SetAttribute(L"hotimage", hotImage.c_str());
    button->SetAttribute(L"pushedimage", hotImage.c_str());
    button->SetHotBkColor(style.hotColor);
    button->SetFont(1);
    button->SetDisabledTextColor(DisabledTextColor);
    if (!normalImage.empty()) {
        button->SetTextStyle(0);
        button->SetTextPadding({style.textLeft, (style.rowHeight - ImageHeight) / 2, 0, 0});
    }
    button->SetEnabled(true);
    return button;
}

} // namespace

XrMenuWnd* XrMenuWnd::current = nullptr;
MenuStyle XrMenuWnd::style;

XrMenuWnd::~XrMenuWnd() {
    if (current == this) // not when another menu has taken its place
        current = nullptr;
}

void XrMenuWnd::addMenuItem(HWND owner, const std::wstring& id, const std::wstring& text,
                            const std::wstring& normalImage, const std::wstring& hotImage) {
    if (!current) {
        style.rowWidth += WidthStep;
        auto* menu = new XrMenuWnd;
        if (!menu->Create(owner, L"", Style, ExtendedStyle)) {
            common::log("XrMenuWnd::addMenuItem", __LINE__, L"no menu window, error %u", GetLastError());
            delete menu;
            return;
        }
        current = menu;
    }
    current->addRow(id, text, normalImage, hotImage);
}

void XrMenuWnd::popupMenu(int x, int y, MenuPlacement placement, Action action) {
    if (!current)
        return;
    current->action = std::move(action);
    current->place(x, y, placement);
}

void XrMenuWnd::closeCurrent() {
    if (current)
        current->Close(1);
    current = nullptr;
}

void XrMenuWnd::InitWindow() {
    paintManager.SetDefaultFontFamily(languageText("font_name"));
    if (style.inset && list())
        list()->SetPadding({1, 1, 1, 0});
}

void XrMenuWnd::addRow(const std::wstring& id, const std::wstring& text, const std::wstring& normalImage,
                       const std::wstring& hotImage) {
    CContainerUI* rows = list();
    if (!rows)
        return;
    auto* row = new CHorizontalLayoutUI;
    row->SetFixedHeight(style.rowHeight);
    row->SetFixedWidth(style.rowWidth);
    row->SetName(id.c_str());
    row->SetPadding({});
    row->SetBkColor(style.rowColor);
    row->SetEnabled(true);
    row->Add(makeButton(text, normalImage, hotImage));
    rows->Add(row);
}

void XrMenuWnd::place(int x, int y, MenuPlacement placement) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(GetParent(window), MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    const Box box = placeMenu(x, y, placement, style.rowWidth, menuHeight(rowKinds(), style.rowHeight),
                              {work.left, work.top, work.right, work.bottom});
    MoveWindow(window, box.left, box.top, box.width(), box.height(), TRUE);
    ShowWindow(true, true);
}

CContainerUI* XrMenuWnd::list() const {
    return find<CContainerUI>(L"menuListLayout", L"Container");
}

std::vector<MenuRow> XrMenuWnd::rowKinds() const {
    std::vector<MenuRow> kinds;
    const CContainerUI* rows = list();
    for (int i = 0; rows && i < rows->GetCount(); ++i)
        kinds.push_back(rows->GetItemAt(i)->GetName() == Separator ? MenuRow::Separator : MenuRow::Item);
    return kinds;
}

bool XrMenuWnd::canChoose(int index) const {
    const std::vector<MenuRow> kinds = rowKinds();
    return index >= 0 && index < static_cast<int>(kinds.size()) && kinds[index] == MenuRow::Item &&
           list()->GetItemAt(index)->IsEnabled();
}

// Out of sight at once: what the focus goes to may look for windows in front of it.
LRESULT XrMenuWnd::OnKillFocus(UINT, WPARAM, LPARAM, bool&) {
    ShowWindow(false);
    Close(1);
    call(FocusLost);
    return 1;
}

LRESULT XrMenuWnd::OnLButtonDown(UINT, WPARAM, LPARAM lParam, bool&) {
    if (const auto hit = menuRowAt(rowKinds(), style.rowHeight, GET_Y_LPARAM(lParam)))
        choose(static_cast<int>(*hit));
    return 1;
}

void XrMenuWnd::choose(int index) {
    if (!canChoose(index))
        return;
    call(list()->GetItemAt(index)->GetName().GetData());
    Close(1);
}

void XrMenuWnd::call(const std::wstring& name) {
    if (action)
        action(name);
}

// The row under the pointer and the row of the keyboard must not both look chosen: the one
// that was used last does.
LRESULT XrMenuWnd::OnMouseMove(UINT, WPARAM, LPARAM, bool& handled) {
    POINT mouse = {};
    GetCursorPos(&mouse);
    if (selected != -1 && mouse == mouseAtSelection)
        return 0;
    select(-1);
    handled = false;
    return 0;
}

LRESULT XrMenuWnd::OnKeyDown(UINT, WPARAM key, LPARAM, bool& handled) {
    const int count = static_cast<int>(rowKinds().size());
    switch (key) {
    case VK_DOWN:
        selectNext(selected, 1);
        break;
    case VK_UP:
        selectNext(selected == -1 ? count : selected, -1);
        break;
    case VK_HOME:
        selectNext(-1, 1);
        break;
    case VK_END:
        selectNext(count, -1);
        break;
    case VK_RETURN:
    case VK_SPACE:
        choose(selected);
        break;
    default:
        handled = false;
    }
    return 0;
}

// The next row that can be chosen, around both ends.
void XrMenuWnd::selectNext(int from, int step) {
    const int count = static_cast<int>(rowKinds().size());
    for (int i = 0; i < count; ++i) {
        from += step;
        if (from < 0 || from >= count)
            from = step > 0 ? 0 : count - 1;
        if (canChoose(from)) {
            select(from);
            return;
        }
    }
}

void XrMenuWnd::select(int index) {
    const auto paint = [this](int row, Color background, Color text) {
        if (!canChoose(row))
            return;
        list()->GetItemAt(row)->SetBkColor(background);
        buttonOf(list()->GetItemAt(row))->SetTextColor(text);
    };
    paint(selected, style.rowColor, style.textColor);
    paint(index, style.hotColor, style.hotTextColor);
    selected = index;
    if (index != -1)
        coolDown();
}

// Takes the hot look from the row under the pointer.
void XrMenuWnd::coolDown() {
    GetCursorPos(&mouseAtSelection);
    LRESULT result = 0;
    paintManager.MessageHandler(WM_MOUSEMOVE, 0, MAKELPARAM(-1, -1), result);
}

void XrMenuWnd::OnFinalMessage(HWND handle) {
    WindowImplBase::OnFinalMessage(handle);
    delete this;
}
