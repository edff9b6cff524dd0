#pragma once

#include "uilib/core/platform.h"

// The thin wrapper of one system window: class registration, creation, the window
// procedure, the modal loop, centring. An object is bound to its window from WM_NCCREATE
// to WM_NCDESTROY; OnFinalMessage is the last call it gets, and where windows of the heap
// delete themselves. A window that fails while it is created makes no such call: the object
// stays the caller's. Window thread only.

namespace UILib {

class CWindowWnd {
public:
    CWindowWnd() = default;
    CWindowWnd(const CWindowWnd&) = delete;
    CWindowWnd& operator=(const CWindowWnd&) = delete;

    HWND GetHWND() const { return window; }
    operator HWND() const { return window; }

    // Registers the class if need be. Null when the system refuses, or the window itself.
    HWND Create(HWND parent, const wchar_t* name, DWORD style, DWORD extendedStyle, int x, int y, int cx,
                int cy, HMENU menu = nullptr);
    HWND Create(HWND parent, const wchar_t* name, DWORD style, DWORD extendedStyle, const RECT& rectangle);
    HWND Create(HWND parent, const wchar_t* name, DWORD style, DWORD extendedStyle);
    HWND Subclass(HWND existing);
    void Unsubclass();

    void ShowWindow(bool show = true, bool takeFocus = true);
    UINT_PTR ShowModal(); // the result that the window was closed with; disables the owner meanwhile
    void Close(UINT_PTR result = 0);
    void CenterWindow();                         // on its owner, else on the monitor
    void ResizeClient(int cx = -1, int cy = -1); // -1 leaves a side
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

protected:
    virtual const wchar_t* GetWindowClassName() const = 0;
    virtual const wchar_t* GetSuperClassName() const { return nullptr; }
    virtual UINT GetClassStyle() const { return 0; }
    virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    virtual void OnFinalMessage(HWND) {}
    virtual ~CWindowWnd() = default;

    HWND window = nullptr;

private:
    bool registerWindowClass() const;
    bool registerSuperClass();
    LRESULT finish(HWND handle, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK windowProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK controlProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    WNDPROC oldProc = DefWindowProcW;
    bool subclassed = false;
    bool creating = false;
};

} // namespace UILib
