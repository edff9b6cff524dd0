#include "uilib/core/paint_manager.h"

#include "uilib/controls/control.h"
#include "utility/log.h"

#include <algorithm>

namespace UILib {

namespace {

std::vector<CPaintManagerUI*>& managers() {
    static auto& all = *new std::vector<CPaintManagerUI*>;
    return all;
}

template <class Item>
bool addTo(std::vector<Item>& list, Item item) {
    if (!item || std::find(list.begin(), list.end(), item) != list.end())
        return false;
    list.push_back(item);
    return true;
}

template <class Item>
bool removeFrom(std::vector<Item>& list, Item item) {
    const auto hit = std::find(list.begin(), list.end(), item);
    if (hit == list.end())
        return false;
    list.erase(hit);
    return true;
}

CControlUI* controlUnder(CControlUI* control, void* data) {
    return contains(control->GetPos(), *static_cast<POINT*>(data)) ? control : nullptr;
}

CControlUI* rememberName(CControlUI* control, void* data) {
    const CUIString name = control->GetName();
    if (!name.IsEmpty())
        static_cast<CUIStringMap*>(data)->Set(name, control);
    return nullptr;
}

} // namespace

CPaintManagerUI::CPaintManagerUI() {
    static const bool controlsReady = (InitCommonControls(), true);
    static_cast<void>(controlsReady);
}

CPaintManagerUI::~CPaintManagerUI() {
    deleteDelayed();
    queue.clear();
    names.RemoveAll();
    if (root)
        root->Delete();
    tables.Clear();
    KillTimer(nullptr);
    if (toolTipWindow)
        DestroyWindow(toolTipWindow);
    dropBuffers();
    if (paintContext)
        ReleaseDC(window, paintContext);
    removeFrom(managers(), this);
}

void CPaintManagerUI::Init(HWND newWindow, const wchar_t* newName) {
    names.RemoveAll();
    tables.Clear();
    KillTimer(nullptr);
    windowName = newName;
    if (!newWindow || newWindow == window)
        return;
    if (paintContext)
        ReleaseDC(window, paintContext);
    window = newWindow;
    thread = GetCurrentThreadId();
    paintContext = GetDC(window);
    addTo(managers(), this);
}

void CPaintManagerUI::checkThread(const wchar_t* operation) const {
    const DWORD caller = GetCurrentThreadId();
    if (!thread || caller == thread)
        return;
    common::log("UILib::CPaintManagerUI::checkThread", __LINE__,
                L"%s of window \"%s\" called on thread %lu, the window's is %lu", operation,
                windowName.GetData(), caller, thread);
#ifdef VYN_CHECKED
    __builtin_trap();
#endif
}

bool CPaintManagerUI::AttachDialog(CControlUI* newRoot) {
    checkThread(L"AttachDialog");
    if (!newRoot)
        return false;
    SetFocus(nullptr, FocusWindow::Yes);
    hover = click = keyed = nullptr;
    if (root) {
        deleteDelayed();
        queue.clear();
        names.RemoveAll();
        postPaint.clear();
        nativeWindows.clear();
        AddDelayedCleanup(root);
    }
    root = newRoot;
    firstLayout = updateNeeded = true;
    focusNeeded = !keyboardFocus;
    InitControls(root);
    return true;
}

void CPaintManagerUI::InitControls(CControlUI* control, CControlUI* parent) {
    checkThread(L"InitControls");
    control->SetManager(this, parent ? parent : control->GetParent(), true);
    control->FindControl(rememberName, &names, 0);
}

void CPaintManagerUI::ReapObjects(CControlUI* control) {
    checkThread(L"ReapObjects");
    for (CControlUI** slot : {&keyed, &hover, &click, &focus})
        if (*slot == control)
            *slot = nullptr;
    KillTimer(control);
    removeFrom(mouseLeave, control);
    removeFrom(postPaint, control);
    if (FindControl(control->GetName()) == control)
        names.Remove(control->GetName());
    for (TUINotify& waiting : queue)
        if (waiting.sender == control)
            waiting.sender = nullptr;
}

void CPaintManagerUI::RenameControl(CControlUI* control, const CUIString& oldName) {
    if (!oldName.IsEmpty() && names.Find(oldName) == control)
        names.Remove(oldName);
    rememberName(control, &names);
}

CControlUI* CPaintManagerUI::FindControl(POINT point) const {
    return root ? root->FindControl(controlUnder, &point, FindVisible | FindHitTest | FindTopFirst) : nullptr;
}

SIZE CPaintManagerUI::GetClientSize() const {
    RECT client = {};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

bool CPaintManagerUI::AddNotifier(INotifyUI* notifier) {
    return addTo(notifiers, notifier);
}

bool CPaintManagerUI::RemoveNotifier(INotifyUI* notifier) {
    return removeFrom(notifiers, notifier);
}

bool CPaintManagerUI::AddPreMessageFilter(IMessageFilterUI* filter) {
    return addTo(preMessageFilters, filter);
}

bool CPaintManagerUI::RemovePreMessageFilter(IMessageFilterUI* filter) {
    return removeFrom(preMessageFilters, filter);
}

bool CPaintManagerUI::AddMessageFilter(IMessageFilterUI* filter) {
    return addTo(messageFilters, filter);
}

bool CPaintManagerUI::RemoveMessageFilter(IMessageFilterUI* filter) {
    return removeFrom(messageFilters, filter);
}

bool CPaintManagerUI::AddTranslateAccelerator(ITranslateAccelerator* accelerator) {
    return addTo(accelerators, accelerator);
}

bool CPaintManagerUI::RemoveTranslateAccelerator(ITranslateAccelerator* accelerator) {
    return removeFrom(accelerators, accelerator);
}

bool CPaintManagerUI::AddPostPaint(CControlUI* control) {
    return addTo(postPaint, control);
}

bool CPaintManagerUI::RemovePostPaint(CControlUI* control) {
    return removeFrom(postPaint, control);
}

bool CPaintManagerUI::AddMouseLeaveNeeded(CControlUI* control) {
    return addTo(mouseLeave, control);
}

bool CPaintManagerUI::RemoveMouseLeaveNeeded(CControlUI* control) {
    return removeFrom(mouseLeave, control);
}

bool CPaintManagerUI::AddNativeWindow(CControlUI* control, HWND child) {
    if (!control || !child)
        return false;
    RemoveNativeWindow(child);
    nativeWindows.push_back({control, child});
    return true;
}

bool CPaintManagerUI::RemoveNativeWindow(HWND child) {
    return std::erase_if(nativeWindows, [child](const NativeWindow& entry) { return entry.child == child; }) >
           0;
}

bool CPaintManagerUI::TranslateMessage(MSG* message) {
    const auto offer = [message](CPaintManagerUI& manager) {
        for (size_t i = 0; i < manager.accelerators.size(); ++i)
            if (manager.accelerators[i]->TranslateAccelerator(message) == 0)
                return true;
        return false;
    };
    LRESULT result = 0;
    if (!(GetWindowLongW(message->hwnd, GWL_STYLE) & WS_CHILD)) {
        const auto owner =
            std::find_if(managers().begin(), managers().end(),
                         [message](CPaintManagerUI* manager) { return manager->window == message->hwnd; });
        if (owner == managers().end())
            return false;
        if (offer(**owner))
            return true;
        if (message->wParam == VK_PROCESSKEY)
            message->wParam = ImmGetVirtualKey(message->hwnd);
        return (*owner)->PreMessageHandler(message->message, message->wParam, message->lParam, result);
    }
    // A filter may close windows: look again at each step.
    for (size_t i = managers().size(); i-- > 0;) {
        for (HWND at = message->hwnd; at && i < managers().size(); at = GetAncestor(at, GA_PARENT)) {
            if (at != managers()[i]->window)
                continue;
            if (offer(*managers()[i]))
                return true;
            if (i < managers().size())
                managers()[i]->PreMessageHandler(message->message, message->wParam, message->lParam, result);
        }
    }
    return false;
}

} // namespace UILib
