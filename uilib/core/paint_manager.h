#pragma once

#include "uilib/core/containers.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/events.h"
#include "uilib/core/resource_host.h"
#include "uilib/core/skin_resources.h"

#include <commctrl.h>
#include <memory>
#include <optional>
#include <vector>

// The engine behind one skinned window: it owns the root of the control tree, turns the
// system's messages into events for the right control, runs layout and painting with an
// off-screen bitmap, queues notifications and destroys controls at a safe moment.
//
// One manager is a member of one window. All points and rectangles are client
// coordinates. Controls stay alive while their own event runs: what must go then goes
// through AddDelayedCleanup. Window thread only.
//
// The code is in one file a topic: manager_dispatch, _mouse, _keys, _focus, _timers,
// _notify, _tooltip, _paint, _layered; paint_manager.cpp has the life of a manager and its
// lists.

namespace UILib {

enum class FocusWindow { No, Yes };
enum class Tab { Forward, Backward };

class CPaintManagerUI final : public SkinResources, public ResourceHost {
public:
    CPaintManagerUI();
    CPaintManagerUI(const CPaintManagerUI&) = delete;
    CPaintManagerUI& operator=(const CPaintManagerUI&) = delete;
    ~CPaintManagerUI();

    // -- The window and its tree.

    void Init(HWND newWindow, const wchar_t* newName = nullptr); // also empties the own tables
    bool AttachDialog(CControlUI* newRoot);                      // takes it over
    void InitControls(CControlUI* control, CControlUI* parent = nullptr);
    void ReapObjects(CControlUI* control); // forgets a control that goes away
    void RenameControl(CControlUI* control, const CUIString& oldName);
    CControlUI* FindControl(POINT point) const;
    CControlUI* FindControl(const wchar_t* name) const { return static_cast<CControlUI*>(names.Find(name)); }
    CControlUI* GetRoot() const { return root; }
    const CUIString& GetName() const { return windowName; }
    HWND GetPaintWindow() const { return window; }
    HDC GetPaintDC() const override { return paintContext; }
    POINT GetMousePos() const override { return mouse; }
    SIZE GetClientSize() const;

    // -- Messages. The program's loop offers each message to TranslateMessage first.

    static bool TranslateMessage(MSG* message);
    bool PreMessageHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    // True when the message is finished, with its result.
    bool MessageHandler(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // -- Listeners; none is owned. Removing one that is not listed gives false.

    bool AddNotifier(INotifyUI* notifier);
    bool RemoveNotifier(INotifyUI* notifier);
    bool AddPreMessageFilter(IMessageFilterUI* filter);
    bool RemovePreMessageFilter(IMessageFilterUI* filter);
    bool AddMessageFilter(IMessageFilterUI* filter);
    bool RemoveMessageFilter(IMessageFilterUI* filter);
    bool AddTranslateAccelerator(ITranslateAccelerator* accelerator);
    bool RemoveTranslateAccelerator(ITranslateAccelerator* accelerator);
    bool AddPostPaint(CControlUI* control);
    bool RemovePostPaint(CControlUI* control);
    bool AddNativeWindow(CControlUI* control, HWND child);
    bool RemoveNativeWindow(HWND child);
    bool AddMouseLeaveNeeded(CControlUI* control);
    bool RemoveMouseLeaveNeeded(CControlUI* control);

    // -- Notifications.

    void SendNotify(TUINotify& notification, Delivery delivery = Delivery::Now,
                    Repeats repeats = Repeats::Allow);
    void SendNotify(CControlUI* sender, const wchar_t* type, WPARAM wParam = 0, LPARAM lParam = 0,
                    Delivery delivery = Delivery::Now);
    void AddDelayedCleanup(CControlUI* control); // deletes it once the queue runs
    void SetUseVirtualWindow(bool on) { useVirtualWindow = on; }

    // -- Timers of controls; the id is the control's own.

    bool SetTimer(CControlUI* control, UINT id, UINT milliseconds);
    bool KillTimer(CControlUI* control, UINT id);
    void KillTimer(CControlUI* control);

    // -- Focus and capture.

    CControlUI* GetFocus() const { return focus; }
    void SetFocus(CControlUI* control, FocusWindow focusWindow);
    void SetFocusNeeded(CControlUI* control); // after the next layout
    bool SetNextTabControl(Tab direction);
    // On: the window begins without a focus, and the focus shows only between a Tab key and
    // the next click. Off: the first tab stop has it from the start, and it always shows.
    void SetKeyboardFocus(bool on) { keyboardFocus = on; }
    bool IsFocusShown() const { return !keyboardFocus || focusShown; }
    void SetCapture();
    void ReleaseCapture();
    bool IsCaptured() const { return captured; }

    // -- Painting.

    void Invalidate();
    void Invalidate(RECT area);
    void NeedUpdate();
    bool IsPainting() const { return painting; }
    void PaintTree(HDC context, const RECT& part, CControlUI* control) override;

    // -- What the skin says of the window. A list of numbers per size or rectangle.

    void SetWindowAttribute(const wchar_t* name, const wchar_t* value);
    SIZE GetInitSize() const { return initSize; }
    void SetInitSize(SIZE size);
    RECT GetSizeBox() const { return sizeBox; }
    void SetSizeBox(const RECT& box) { sizeBox = box; }
    RECT GetCaptionRect() const { return captionRect; }
    void SetCaptionRect(const RECT& rectangle) { captionRect = rectangle; }
    SIZE GetRoundCorner() const { return roundCorner; }
    void SetRoundCorner(SIZE ellipse) { roundCorner = ellipse; }
    SIZE GetMinInfo() const { return minInfo; }
    void SetMinInfo(SIZE size) { minInfo = size; }
    SIZE GetMaxInfo() const { return maxInfo; }
    void SetMaxInfo(SIZE size) { maxInfo = size; }
    bool IsNoActivate() const { return noActivate; }
    void SetNoActivate(bool on) { noActivate = on; }
    void SetShowDirty(bool on) { showDirty = on; }

    // -- Layered windows: the pixels' own alpha decides the window's shape.

    bool IsLayered() const { return layered; }
    void SetLayered(bool on);
    void SetOpacity(int alpha);        // of the whole window; leaves per-pixel mode
    void SetLayeredOpacity(int alpha); // with which a layered window is composed
    void SetLayeredImage(const wchar_t* imageString);
    void SetLayeredEnlargeImage(const wchar_t* imageString) { layeredImage.enlargeString = imageString; }

private:
    // Begins what other threads might call by mistake. One that does is told of in the log,
    // and ends a checked build.
    void checkThread(const wchar_t* operation) const;

    struct Timer {
        CControlUI* control;
        UINT localId;
        HWND window;
        UINT number;
        bool killed;
    };
    struct NativeWindow {
        CControlUI* control;
        HWND child;
    };
    struct WindowContextRelease {
        HWND window;
        void operator()(HDC context) const { ReleaseDC(window, context); }
    };

    // manager_dispatch.cpp
    bool applyMessageFilters(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool onLayeredFrame(UINT message, WPARAM wParam, LRESULT& result);
    bool dispatch(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool dispatchInput(UINT message, WPARAM wParam, LPARAM lParam);
    void sendEvent(CControlUI* control, EventKind kind, WPARAM wParam = 0, LPARAM lParam = 0,
                   WORD keyState = 0, wchar_t key = 0);
    bool reflect(UINT message, WPARAM wParam, LPARAM lParam, HWND child, LRESULT& result);
    void onSize(WPARAM wParam, LPARAM lParam);
    void onClose(WPARAM wParam, LPARAM lParam);
    void onMinMaxInfo(LPARAM lParam) const;

    // manager_mouse.cpp
    CControlUI* controlAt(POINT point);
    void onMouseMove(WPARAM wParam, LPARAM lParam);
    void changeHover(CControlUI* found, WPARAM wParam, LPARAM lParam);
    CControlUI* press(LPARAM lParam);
    void onButtonDown(WPARAM wParam, LPARAM lParam);
    void onButtonUp(WPARAM wParam, LPARAM lParam);
    void onCaptureChanged(WPARAM wParam, LPARAM lParam);
    void onDoubleClick(WPARAM wParam, LPARAM lParam);
    void onRightButtonDown(WPARAM wParam, LPARAM lParam);
    void onWheel(WPARAM wParam, LPARAM lParam);
    bool onSetCursor(WPARAM wParam, LPARAM lParam);
    void onContextMenu(WPARAM wParam, LPARAM lParam);

    // manager_keys.cpp
    static WORD currentKeyState();
    void onKeyDown(WPARAM wParam, LPARAM lParam);
    void onKeyUp(WPARAM wParam, LPARAM lParam);
    void onCharacter(WPARAM wParam, LPARAM lParam);
    bool activateShortcut(wchar_t character);

    // manager_focus.cpp
    void focusWindowUnlessNoActivate();
    void dropFocus();
    void showFocus(bool on);
    void onKillWindowFocus(HWND next);

    // manager_timers.cpp
    void onTimer(UINT number, LPARAM lParam);

    // manager_notify.cpp
    void deliver(TUINotify& notification);
    void postQueue();
    void runQueue();
    void deleteDelayed();

    // manager_tooltip.cpp
    void onMouseLeave(WPARAM wParam, LPARAM lParam);
    bool onHover(WPARAM wParam, LPARAM lParam);
    void hideToolTip();
    void trackMouse();

    // manager_paint.cpp
    void onPaint();
    void paintEmpty();
    bool takePaintRect(const RECT& client, RECT& part);
    bool layout(const RECT& client);
    void layoutPending();
    bool announceFirstLayout();
    void paintOffscreen(const RECT& client, const RECT& part);
    void drawDirty(HDC context, const RECT& part);
    void onPrintClient(HDC context, LPARAM flags);
    void dropBuffers();

    // manager_layered.cpp
    static constexpr UINT LayeredRefreshTimer = 8192; // outside the numbers of the controls' timers
    void paintNativeWindows(const RECT& part);
    void composeLayered(const RECT& client, const RECT& part);
    void applyFrameAlpha(const RECT& part);
    void refreshLayered();

    CUIString windowName;
    HWND window = nullptr;
    DWORD thread = 0; // of the window
    HDC paintContext = nullptr;

    std::unique_ptr<DibSurface> offscreen;
    std::unique_ptr<DibSurface> background; // layered frame

    HWND toolTipWindow = nullptr;
    int toolTipWidth = -1;
    TOOLINFOW toolInfo = {};
    UINT hoverTime = 200; // ms

    CControlUI* root = nullptr; // owned
    CControlUI* focus = nullptr;
    CControlUI* hover = nullptr; // under the mouse
    CControlUI* click = nullptr; // took the press
    CControlUI* keyed = nullptr; // took the key
    POINT mouse = {-1, -1};
    bool tracking = false;
    bool captured = false;
    bool painting = false;
    bool useVirtualWindow = false;
    bool queuePosted = false;

    SIZE minInfo = {};
    SIZE maxInfo = {};
    SIZE initSize = {};
    RECT sizeBox = {};
    SIZE roundCorner = {};
    RECT captionRect = {};

    bool firstLayout = true;
    bool updateNeeded = false;
    bool focusNeeded = false;
    bool keyboardFocus = false;
    bool focusShown = false; // by the last input; counts with keyboardFocus
    bool noActivate = false;
    bool showDirty = false;

    BYTE opacity = 255;
    bool layered = false;
    bool layeredChanged = false;
    RECT updateRect = {};
    DrawRecord layeredImage;

    UINT timerCounter = 4096;
    std::vector<Timer> timers;
    std::vector<INotifyUI*> notifiers;
    std::vector<IMessageFilterUI*> preMessageFilters;
    std::vector<IMessageFilterUI*> messageFilters;
    std::vector<ITranslateAccelerator*> accelerators;
    std::vector<CControlUI*> postPaint;
    std::vector<NativeWindow> nativeWindows;
    std::vector<CControlUI*> mouseLeave;
    std::vector<CControlUI*> delayedCleanup;
    std::vector<TUINotify> queue;
    CUIStringMap names;
};

} // namespace UILib
