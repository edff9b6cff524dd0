#pragma once

#include "uilib/core/platform.h"
#include "uilib/core/ui_string.h"

// What travels between a manager, its controls and whoever listens.

namespace UILib {

class CControlUI;

enum EventKind : int {
    EventKeyDown = 3,
    EventKeyUp = 4,
    EventChar = 5,
    EventSystemKey = 6,
    EventMouseMove = 9,
    EventMouseLeave = 10,
    EventMouseEnter = 11,
    EventMouseHover = 12,
    EventButtonDown = 13,
    EventButtonUp = 14,
    EventRightButtonDown = 15,
    EventDoubleClick = 16,
    EventContextMenu = 17,
    EventScrollWheel = 18,
    EventKillFocus = 20,
    EventSetFocus = 21,
    EventWindowSize = 22,
    EventSetCursor = 23,
    EventTimer = 24,
};

constexpr bool isMouseEvent(EventKind kind) {
    return kind >= EventMouseMove && kind <= EventScrollWheel;
}

// Bits of TUIEvent::keyState.
enum KeyState : WORD { KeyLeftButton = 1, KeyRightButton = 2, KeyShift = 4, KeyControl = 8, KeyAlt = 32 };

// First parameter of EventScrollWheel.
enum WheelDirection : WPARAM { WheelUp = 0, WheelDown = 1 };

// One input event for CControlUI::Event. Points are client coordinates of the window.
struct TUIEvent {
    EventKind kind;
    CControlUI* sender = nullptr;
    DWORD timestamp = 0;
    POINT mouse = {};
    wchar_t key = 0; // character or virtual key code
    WORD keyState = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

// One notification for the window.
struct TUINotify {
    CUIString type;          // "click", "timer" and so on
    CUIString virtualWindow; // filled only while the manager uses virtual windows
    CControlUI* sender = nullptr;
    DWORD timestamp = 0;
    POINT mouse = {};
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

class INotifyUI {
public:
    virtual void Notify(TUINotify& notification) = 0;

protected:
    ~INotifyUI() = default;
};

class IMessageFilterUI {
public:
    // The result counts only when handled was set.
    virtual LRESULT MessageHandler(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) = 0;

protected:
    ~IMessageFilterUI() = default;
};

class ITranslateAccelerator {
public:
    virtual LRESULT TranslateAccelerator(MSG* message) = 0; // 0: it took the message

protected:
    ~ITranslateAccelerator() = default;
};

enum class Delivery { Now, Queued };
enum class Repeats { Allow, Merge }; // Merge: overwrite a waiting one of the same sender and type

} // namespace UILib
