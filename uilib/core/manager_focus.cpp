#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <algorithm>

namespace UILib {

namespace {

// One walk over the tab stops in tree order.
struct TabWalk {
    CControlUI* focus;
    Tab direction;
    CControlUI* last = nullptr;
    bool nextIsIt = false;
};

CControlUI* nextTabStop(CControlUI* control, void* data) {
    TabWalk& walk = *static_cast<TabWalk*>(data);
    if (control == walk.focus) {
        if (walk.direction == Tab::Backward)
            return walk.last;
        walk.nextIsIt = true;
        return nullptr;
    }
    if (!(control->GetControlFlags() & FlagTabStop))
        return nullptr;
    walk.last = control;
    return walk.nextIsIt || !walk.focus ? control : nullptr;
}

constexpr unsigned TabStops = FindVisible | FindEnabled | FindMeFirst;

// Wraps at both ends. Backward from the first stop the walk sees them all, and its last
// one is the answer.
CControlUI* findTabStop(CControlUI* root, CControlUI* focus, Tab direction) {
    TabWalk walk = {focus, direction};
    if (CControlUI* found = root->FindControl(nextTabStop, &walk, TabStops))
        return found;
    if (direction == Tab::Backward)
        return walk.last;
    TabWalk again = {nullptr, direction};
    return root->FindControl(nextTabStop, &again, TabStops);
}

} // namespace

void CPaintManagerUI::SetFocus(CControlUI* control, FocusWindow focusWindow) {
    checkThread(L"SetFocus");
    if (focusWindow == FocusWindow::Yes && control != focus && !noActivate && ::GetFocus() != window)
        ::SetFocus(window);
    if (control == focus)
        return;
    dropFocus();
    if (!control || control->GetManager() != this || !control->IsVisible() || !control->IsEnabled())
        return;
    focus = control;
    sendEvent(focus, EventSetFocus);
    if (focus)
        SendNotify(focus, L"setfocus");
}

void CPaintManagerUI::dropFocus() {
    if (!focus)
        return;
    CControlUI* old = focus;
    sendEvent(old, EventKillFocus);
    if (focus == old) // not deleted by its own event
        SendNotify(old, L"killfocus");
    focus = nullptr;
}

void CPaintManagerUI::showFocus(bool on) {
    if (focusShown != on && focus)
        focus->Invalidate();
    focusShown = on;
}

void CPaintManagerUI::SetFocusNeeded(CControlUI* control) {
    focusWindowUnlessNoActivate();
    if (!control || !root)
        return;
    dropFocus();
    // The stop before the control: the tab step of the next paint then lands on it.
    TabWalk walk = {control, Tab::Backward};
    focus = root->FindControl(nextTabStop, &walk, TabStops);
    focusNeeded = true;
    root->NeedUpdate();
}

bool CPaintManagerUI::SetNextTabControl(Tab direction) {
    if (updateNeeded && direction == Tab::Forward) {
        focusNeeded = true;
        InvalidateRect(window, nullptr, FALSE);
        return true;
    }
    CControlUI* found = root ? findTabStop(root, focus, direction) : nullptr;
    if (found)
        SetFocus(found, FocusWindow::Yes);
    focusNeeded = false;
    return true;
}

void CPaintManagerUI::SetCapture() {
    ::SetCapture(window);
    captured = true;
}

void CPaintManagerUI::ReleaseCapture() {
    captured = false; // first: the system tells of the loss at once
    ::ReleaseCapture();
}

void CPaintManagerUI::focusWindowUnlessNoActivate() {
    if (!noActivate)
        ::SetFocus(window);
}

// The focus went to a child window of ours: its control becomes the focus control.
void CPaintManagerUI::onKillWindowFocus(HWND next) {
    HWND child = next;
    while (child && GetParent(child) != window)
        child = GetParent(child);
    if (!child)
        return;
    const auto entry = std::find_if(nativeWindows.begin(), nativeWindows.end(),
                                    [child](const NativeWindow& native) { return native.child == child; });
    if (entry != nativeWindows.end() && entry->control != focus)
        SetFocus(entry->control, FocusWindow::No);
}

} // namespace UILib
