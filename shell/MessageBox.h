#pragma once

#include "utility/windows.h"

#include <functional>
#include <string>

// The skinned message box: a small window above all others with a title, a text, an
// optional icon and any number of buttons. It does not block: it disables its parent while
// it is open, and answers through the function that its caller gave a button. A box that
// is closed in any other way does nothing but release its parent.
//
// Window thread only. A box deletes itself when its window is destroyed.

namespace msg {

// One button of a box. The action runs with the parent enabled again and the box hidden;
// it must not destroy the parent itself, but may post what does.
struct Selection {
    std::wstring text;
    std::function<void()> action; // may be empty: the box just closes
    bool primary = false;         // the main button's look, otherwise that of cancelling
};

class IMessageBox {
public:
    virtual void setIcon(const std::wstring& image) = 0; // empty: none
    virtual void setTitle(const std::wstring& text) = 0;
    virtual void setContent(const std::wstring& text) = 0; // may have tags
    virtual void setCloseAction(std::function<void()> action) = 0;
    virtual void addSelection(const Selection& selection) = 0; // from left to right
    virtual void addRemoteSelection(const Selection& selection) = 0;

protected:
    ~IMessageBox() = default;
};

// Shows an empty box of that skin file, centred on parent, to be filled by the caller. The
// result is valid until the box closes; null when the system makes no window.
IMessageBox* createMessageBox(HWND parent, const std::wstring& skin);

// A notice with two buttons. Does nothing while a box with the same content is open.
void showConfirmBox(HWND parent, const Selection& first, const Selection& second, const std::wstring& title,
                    const std::wstring& content);

// -- The rules behind showConfirmBox.

std::wstring iconOfType(int type); // empty for an unknown type
std::wstring skinForIcon(const std::wstring& icon);

} // namespace msg
