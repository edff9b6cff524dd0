#include "uilib/core/notify_pump.h"

#include "uilib/controls/control.h"

#include <vector>

namespace UILib {

namespace {

// A name beats none wherever it stands; of entries without a name the last one counts.
const CNotifyPump::Entry* findEntry(std::span<const CNotifyPump::Entry> entries, const CUIString& type,
                                    const CUIString& sender) {
    const CNotifyPump::Entry* general = nullptr;
    for (const CNotifyPump::Entry& entry : entries) {
        if (entry.signature == CNotifyPump::Signature::End)
            break;
        if (!(type == entry.type))
            continue;
        if (!*entry.controlName)
            general = &entry;
        else if (sender == entry.controlName)
            return &entry;
    }
    return general;
}

} // namespace

bool CNotifyPump::AddVirtualWnd(const CUIString& name, CNotifyPump* object) {
    return object && virtualWindows.Insert(name, object);
}

bool CNotifyPump::RemoveVirtualWnd(const CUIString& name) {
    return virtualWindows.Remove(name);
}

bool CNotifyPump::NotifyPump(TUINotify& notification) {
    std::vector<CNotifyPump*> targets; // names that differ in case stand side by side
    if (!notification.virtualWindow.IsEmpty())
        virtualWindows.forEach([&](const CUIString& name, void* object) {
            if (equalNoCase(name, notification.virtualWindow))
                targets.push_back(static_cast<CNotifyPump*>(object));
        });
    for (CNotifyPump* target : targets)
        if (target->dispatch(notification))
            return true;
    return dispatch(notification);
}

bool CNotifyPump::dispatch(TUINotify& notification) {
    const CUIString sender = notification.sender ? notification.sender->GetName() : CUIString();
    for (const MessageMap* map = GetMessageMap(); map; map = map->base)
        if (const Entry* entry = findEntry(map->entries, notification.type, sender))
            return call(*entry, notification);
    return false;
}

bool CNotifyPump::call(const Entry& entry, TUINotify& notification) {
    if (entry.signature == Signature::Parameters)
        (this->*entry.onParameters)(notification.wParam, notification.lParam);
    else if (entry.signature == Signature::Notification)
        (this->*entry.onNotification)(notification);
    else
        return false;
    return true;
}

} // namespace UILib
