#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <windowsx.h>

namespace UILib {

void CPaintManagerUI::trackMouse() {
    if (tracking)
        return;
    TRACKMOUSEEVENT request = {sizeof request, TME_HOVER | TME_LEAVE, window, hoverTime};
    if (toolTipWindow)
        request.dwHoverTime =
            static_cast<DWORD>(SendMessageW(toolTipWindow, TTM_GETDELAYTIME, TTDT_INITIAL, 0));
    tracking = _TrackMouseEvent(&request);
}

bool CPaintManagerUI::onHover(WPARAM wParam, LPARAM lParam) {
    tracking = false;
    CControlUI* control = FindControl({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    if (!control)
        return false;
    if (hover)
        sendEvent(hover, EventMouseHover, wParam, lParam);
    CUIString text = control->GetToolTip();
    if (text.IsEmpty())
        return true;
    ResolveLanguageKey(text);

    toolInfo = {};
    toolInfo.cbSize = TTTOOLINFOW_V2_SIZE; // what every version of the common controls takes
    toolInfo.uFlags = TTF_IDISHWND;
    toolInfo.hwnd = window;
    toolInfo.uId = reinterpret_cast<UINT_PTR>(window);
    toolInfo.hinst = GetInstance();
    toolInfo.lpszText = const_cast<wchar_t*>(text.GetData());
    toolInfo.rect = control->GetPos();
    const auto info = reinterpret_cast<LPARAM>(&toolInfo);
    if (!toolTipWindow) {
        toolTipWindow = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window,
                                        nullptr, GetInstance(), nullptr);
        if (toolTipWidth >= 0)
            toolTipWidth = static_cast<int>(SendMessageW(toolTipWindow, TTM_SETMAXTIPWIDTH, 0, toolTipWidth));
        SendMessageW(toolTipWindow, TTM_ADDTOOLW, 0, info);
    }
    SendMessageW(toolTipWindow, TTM_SETMAXTIPWIDTH, 0, control->GetToolTipWidth());
    SendMessageW(toolTipWindow, TTM_SETTOOLINFOW, 0, info);
    SendMessageW(toolTipWindow, TTM_TRACKACTIVATE, TRUE, info);
    toolInfo.lpszText = nullptr; // the tip has its own copy
    return true;
}

void CPaintManagerUI::hideToolTip() {
    if (toolTipWindow)
        SendMessageW(toolTipWindow, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&toolInfo));
}

// The mouse may have left only for a tip or a child: then it is still ours.
void CPaintManagerUI::onMouseLeave(WPARAM, LPARAM) {
    if (!root)
        return;
    hideToolTip();
    if (tracking) {
        POINT cursor = {};
        RECT frame = {};
        GetCursorPos(&cursor);
        GetWindowRect(window, &frame);
        const bool inside = !IsIconic(window) && GetActiveWindow() == window && contains(frame, cursor) &&
                            SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(cursor.x, cursor.y)) == HTCLIENT;
        POINT point = {-1, -1};
        if (inside) {
            point = cursor;
            ScreenToClient(window, &point);
        }
        SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
    }
    tracking = false;
}

} // namespace UILib
