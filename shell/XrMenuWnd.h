#pragma once

#include "shell/menu_layout.h"
#include "uilib/core/attribute_table.h"
#include "uilib/core/window_impl_base.h"

#include <functional>
#include <string>
#include <vector>

// A small skinned popup list. It is closed by a choice, by Escape and by any loss of the
// focus. One menu exists at a time; all its look comes from the process-wide style, which
// the caller fills before it adds the first row.
//
// By the mouse a row is chosen as the button goes down; by the keyboard with the arrows,
// Home, End, Return and Space. The window deletes itself. Window thread only.

namespace UILib {
class CContainerUI;
}

struct MenuStyle {
    int rowHeight = 38;
    int rowWidth = 120; // each new menu adds 50 to it
    int textLeft = 42;  // beside an image
    UILib::Color rowColor = 0xFF212121;
    UILib::Color hotColor = 0xFF3E3E3E;
    UILib::Color textColor = 0xFFE4E4E4;
    UILib::Color hotTextColor = 0xFFE4E4E4;
    bool inset = false; // keeps the rows a pixel off the edges
};

class XrMenuWnd final : public UILib::WindowImplBase {
public:
    // Called with the name of the chosen row, and with "menu_focus" at any moment, also
    // right after a name, when the menu loses the focus. Nobody reads the result.
    using Action = std::function<bool(const std::wstring& name)>;

    static XrMenuWnd* current; // the open menu, or null
    static MenuStyle style;

    // Adds a row to the open menu; without one makes it first, hidden. An image string may
    // be empty.
    static void addMenuItem(HWND owner, const std::wstring& id, const std::wstring& text,
                            const std::wstring& normalImage, const std::wstring& hotImage);

    // Shows the open menu at that point of the screen.
    static void popupMenu(int x, int y, MenuPlacement placement, Action action);

    // Makes room for another menu; the open one closes a moment later.
    static void closeCurrent();

private:
    ~XrMenuWnd() override;

    const wchar_t* GetWindowClassName() const override { return L"assistantupdateframe"; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return L"xml_menu.xml"; }
    void InitWindow() override;
    LRESULT OnKillFocus(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    LRESULT OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, bool& handled) override;
    void OnFinalMessage(HWND handle) override;

    UILib::CContainerUI* list() const;
    std::vector<MenuRow> rowKinds() const;
    bool canChoose(int index) const;

    void addRow(const std::wstring& id, const std::wstring& text, const std::wstring& normalImage,
                const std::wstring& hotImage);
    void place(int x, int y, MenuPlacement placement);
    void choose(int index);
    void call(const std::wstring& name);
    void select(int index); // -1: none
    void selectNext(int from, int step);
    void coolDown();

    Action action;
    int selected = -1;           // by the keyboard
    POINT mouseAtSelection = {}; // on the screen; resting there, it makes no row hot
};
