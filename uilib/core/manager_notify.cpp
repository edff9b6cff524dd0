#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"

#include <utility>

namespace UILib {

void CPaintManagerUI::SendNotify(CControlUI* sender, const wchar_t* type, WPARAM wParam, LPARAM lParam,
                                 Delivery delivery) {
    TUINotify notification;
    notification.type = type;
    notification.sender = sender;
    notification.wParam = wParam;
    notification.lParam = lParam;
    SendNotify(notification, delivery, Repeats::Allow);
}

void CPaintManagerUI::SendNotify(TUINotify& notification, Delivery delivery, Repeats repeats) {
    checkThread(L"SendNotify");
    notification.mouse = mouse;
    notification.timestamp = GetTickCount();
    if (useVirtualWindow && notification.sender)
        notification.virtualWindow = notification.sender->GetVirtualWnd();
    if (delivery == Delivery::Now) {
        deliver(notification);
        return;
    }
    if (repeats == Repeats::Merge)
        for (TUINotify& waiting : queue)
            if (waiting.sender == notification.sender && waiting.type == notification.type) {
                waiting = notification;
                return;
            }
    queue.push_back(notification);
    postQueue();
}

// Listeners may add and remove listeners, and may delete the sender.
void CPaintManagerUI::deliver(TUINotify& notification) {
    if (notification.sender && !notification.sender->OnNotify.IsEmpty())
        notification.sender->OnNotify.Fire(notification);
    for (size_t i = 0; i < notifiers.size(); ++i)
        notifiers[i]->Notify(notification);
}

void CPaintManagerUI::postQueue() {
    if (queuePosted)
        return;
    queuePosted = window && PostMessageW(window, WM_APP + 1, 0, 0);
}

void CPaintManagerUI::runQueue() {
    queuePosted = false;
    while (!queue.empty()) {
        TUINotify next = std::move(queue.front());
        queue.erase(queue.begin());
        deliver(next);
    }
    deleteDelayed();
}

void CPaintManagerUI::AddDelayedCleanup(CControlUI* control) {
    control->SetManager(this, nullptr, false);
    delayedCleanup.push_back(control);
    postQueue();
}

void CPaintManagerUI::deleteDelayed() {
    while (!delayedCleanup.empty()) {
        CControlUI* control = delayedCleanup.front();
        delayedCleanup.erase(delayedCleanup.begin());
        control->Delete();
    }
}

} // namespace UILib
