#include "uilib/core/attribute_table.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/rects.h"

#include <cwchar>

namespace UILib {

namespace {

enum class Case { Any, Exact };

struct WindowAttribute {
    const wchar_t* name;
    Case match;
    void (*set)(CPaintManagerUI& manager, const wchar_t* value);

    bool is(const wchar_t* other) const {
        return match == Case::Any ? equalNoCase(name, other) : std::wcscmp(name, other) == 0;
    }
};

using Manager = CPaintManagerUI;

constexpr WindowAttribute Attributes[] = {
    {L"size", Case::Any, [](Manager& m, const wchar_t* v) { m.SetInitSize(readSize(v)); }},
    {L"sizebox", Case::Any, [](Manager& m, const wchar_t* v) { m.SetSizeBox(readRectangle(v)); }},
    {L"caption", Case::Any, [](Manager& m, const wchar_t* v) { m.SetCaptionRect(readRectangle(v)); }},
    {L"roundcorner", Case::Any, [](Manager& m, const wchar_t* v) { m.SetRoundCorner(readSize(v)); }},
    {L"mininfo", Case::Any, [](Manager& m, const wchar_t* v) { m.SetMinInfo(readSize(v)); }},
    {L"maxinfo", Case::Any, [](Manager& m, const wchar_t* v) { m.SetMaxInfo(readSize(v)); }},
    {L"showdirty", Case::Any, [](Manager& m, const wchar_t* v) { m.SetShowDirty(equalNoCase(v, L"true")); }},
    {L"noactivate", Case::Exact,
     [](Manager& m, const wchar_t* v) { m.SetNoActivate(equalNoCase(v, L"true")); }},
    {L"keyboardfocus", Case::Any,
     [](Manager& m, const wchar_t* v) { m.SetKeyboardFocus(equalNoCase(v, L"true")); }},
    {L"opacity", Case::Any, [](Manager& m, const wchar_t* v) { m.SetOpacity(readNumber(v)); }},
    {L"layeredopacity", Case::Exact,
     [](Manager& m, const wchar_t* v) { m.SetLayeredOpacity(readNumber(v)); }},
    {L"layeredimage", Case::Exact,
     [](Manager& m, const wchar_t* v) {
         m.SetLayered(true);
         m.SetLayeredImage(v);
     }},
    {L"layeredEnlargeimage", Case::Exact,
     [](Manager& m, const wchar_t* v) {
         m.SetLayered(true);
         m.SetLayeredEnlargeImage(v);
     }},
    {L"disabledfontcolor", Case::Any,
     [](Manager& m, const wchar_t* v) { m.SetDefaultDisabledColor(readColorValue(v)); }},
    {L"defaultfontcolor", Case::Any,
     [](Manager& m, const wchar_t* v) { m.SetDefaultFontColor(readColorValue(v)); }},
    {L"linkfontcolor", Case::Any,
     [](Manager& m, const wchar_t* v) { m.SetDefaultLinkFontColor(readColorValue(v)); }},
    {L"linkhoverfontcolor", Case::Any,
     [](Manager& m, const wchar_t* v) { m.SetDefaultLinkHoverFontColor(readColorValue(v)); }},
    {L"selectedcolor", Case::Any,
     [](Manager& m, const wchar_t* v) { m.SetDefaultSelectedBkColor(readColorValue(v)); }},
};

} // namespace

void CPaintManagerUI::SetWindowAttribute(const wchar_t* name, const wchar_t* value) {
    for (const WindowAttribute& attribute : Attributes)
        if (attribute.is(name)) {
            attribute.set(*this, value);
            return;
        }
    AddWindowCustomAttribute(name, value);
}

// A window that has no tree yet takes the size at once. What its frame adds is measured
// and not computed from the style: most of our windows hide the frame of theirs.
void CPaintManagerUI::SetInitSize(SIZE size) {
    initSize = size;
    if (root || !window)
        return;
    RECT outer = {};
    GetWindowRect(window, &outer);
    const SIZE client = GetClientSize();
    SetWindowPos(window, nullptr, 0, 0, size.cx + width(outer) - client.cx,
                 size.cy + height(outer) - client.cy, SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
}

} // namespace UILib
