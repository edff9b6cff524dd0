#pragma once

#include "uilib/core/containers.h"
#include "uilib/core/events.h"

#include <span>

// Routing of notifications to member functions by type and name of the sender. A class
// lists its handlers in one map, which names its base class's map; a notification with
// the name of a virtual window goes to the object registered under that name first.

namespace UILib {

class CNotifyPump {
public:
    enum class Signature { End = 0, Parameters = 1, Notification = 2 };

    using ParametersHandler = void (CNotifyPump::*)(WPARAM wParam, LPARAM lParam);
    using NotificationHandler = void (CNotifyPump::*)(TUINotify& notification);

    struct Entry {
        const wchar_t* type;        // "click"
        const wchar_t* controlName; // empty: any control
        Signature signature = Signature::End;
        ParametersHandler onParameters = nullptr;
        NotificationHandler onNotification = nullptr;
    };

    struct MessageMap {
        const MessageMap* base;
        std::span<const Entry> entries;
    };

    // Entries of a map, from a handler of any class that derives from this one.
    template <class Window>
    static constexpr Entry entry(const wchar_t* type, const wchar_t* controlName,
                                 void (Window::*handler)(TUINotify& notification)) {
        return {type, controlName, Signature::Notification, nullptr,
                static_cast<NotificationHandler>(handler)};
    }
    template <class Window>
    static constexpr Entry entry(const wchar_t* type, const wchar_t* controlName,
                                 void (Window::*handler)(WPARAM wParam, LPARAM lParam)) {
        return {type, controlName, Signature::Parameters, static_cast<ParametersHandler>(handler), nullptr};
    }

    bool AddVirtualWnd(const CUIString& name, CNotifyPump* object); // not owned
    bool RemoveVirtualWnd(const CUIString& name);
    bool NotifyPump(TUINotify& notification); // true when a handler took it

protected:
    ~CNotifyPump() = default;
    virtual const MessageMap* GetMessageMap() const = 0;

private:
    bool dispatch(TUINotify& notification);
    bool call(const Entry& entry, TUINotify& notification);

    CUIStringMap virtualWindows;
};

} // namespace UILib
