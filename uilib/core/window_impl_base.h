#pragma once

#include "uilib/core/dialog_builder.h"
#include "uilib/core/notify_pump.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/window.h"

// The base of every skinned window: a window without a frame of the system's, whose tree
// comes from its skin file. It answers hit tests from the skin's caption and size box,
// keeps a maximised window inside the work area and handles the buttons "closebtn",
// "minbtn", "maxbtn" and "restorebtn". A skin that cannot be loaded ends the process.
//
// Derived windows give the skin file and the class name, and override what they need; the
// message operations set handled to false to pass a message on. Window thread only.

namespace UILib {

class WindowImplBase : public CWindowWnd,
                       public CNotifyPump,
                       public INotifyUI,
                       public IMessageFilterUI,
                       public IDialogBuilderCallback {
public:
    CPaintManagerUI& GetPaintManager() { return paintManager; }

protected:
    UINT GetClassStyle() const override { return CS_DBLCLKS; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFinalMessage(HWND handle) override;
    ~WindowImplBase() override = default;

    virtual void InitWindow() {} // the tree is attached, but not laid out yet
    virtual void OnClick(TUINotify& notification);
    virtual CUIString GetSkinFolder() = 0;
    virtual CUIString GetSkinFile() = 0;
    virtual LRESULT ResponseDefaultKeyEvent(WPARAM key); // Return and Escape

    virtual LRESULT OnClose(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnDestroy(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnNcActivate(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnNcCalcSize(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnNcPaint(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnNcHitTest(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnGetMinMaxInfo(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnMouseHover(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnSize(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnChar(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnSysCommand(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnCreate(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnKillFocus(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnSetFocus(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnLButtonUp(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LRESULT HandleCustomMessage(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    virtual LONG GetStyle();

    void Notify(TUINotify& notification) override { NotifyPump(notification); }
    const MessageMap* GetMessageMap() const override { return &messageMap; }
    LRESULT MessageHandler(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    CControlUI* CreateControl(const wchar_t*) override { return nullptr; }

    // What the skin calls by that name, as its class (kind is what GetInterface knows it by);
    // null where there is none.
    CControlUI* find(const wchar_t* name) const { return paintManager.FindControl(name); }
    template <class Control>
    Control* find(const wchar_t* name, const wchar_t* kind) const {
        return static_cast<Control*>(findInterface(name, kind));
    }
    // Of what is not there they change nothing.
    void setText(const wchar_t* name, const std::wstring& text);
    void setVisible(const wchar_t* name, bool visible);

    static const MessageMap messageMap; // base of the maps of derived windows
    CPaintManagerUI paintManager;

private:
    void* findInterface(const wchar_t* name, const wchar_t* kind) const;
    LRESULT route(UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
    LRESULT edgeAt(POINT point, const RECT& client) const;
    bool isCaption(POINT point, const RECT& client) const;
    void showRestoreButton(bool wasZoomed);
    [[noreturn]] static void endWithoutSkin(const CDialogBuilder& builder);
};

} // namespace UILib
