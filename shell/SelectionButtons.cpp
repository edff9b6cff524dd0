#include "shell/SelectionButtons.h"

#include <cwchar>

using UILib::CButtonUI;

namespace msg {

struct SelectionButton::Look {
    const wchar_t* height;
    int minWidthEx; // bounds in pixels
    int minWidth;
    const wchar_t* primary; // attributes of each kind
    const wchar_t* cancel;
};

namespace {

constexpr SelectionButton::Look Plain = {
    L"31", 140, 140,
    LR"(normalimage="file='vyn\btn31_normal.png' corner='30,10,30,10'" )"
    LR"(hotimage="file='vyn\btn31_hot.png'  corner='30,10,30,10'" )"
    LR"(pushedimage="file='vyn\btn31_pushed.png'  corner='30,10,30,10'" textcolor="FFFFFFFF")",
    LR"(normalimage="file='vyn\cancel_normal.png'  corner='30,10,30,10'" )"
    LR"(hotimage="file='vyn\cancel_hot.png'  corner='30,10,30,10'" )"
    LR"(pushedimage="file='vyn\cancel_pushed.png'  corner='30,10,30,10'" textcolor="FFE88DA3")"};

constexpr SelectionButton::Look Remote = {
    L"30", 100, 90,
    LR"(normalimage="file='remote\btn_32.png' source='16,0,32,32' corner='6,6,6,6'" )"
    LR"(hotimage="file='remote\btn_32.png' source='32,0,48,32' corner='6,6,6,6'" )"
    LR"(pushedimage="file='remote\btn_32.png' source='48,0,64,32' corner='6,6,6,6'" textcolor="FFFFFFFF")",
    LR"(normalimage="file='remote\btn_cancel.png' source='0,0,20,28' corner='6,6,6,6'" )"
    LR"(hotimage="file='remote\btn_cancel.png' source='20,0,40,28' corner='6,6,6,6'" )"
    LR"(pushedimage="file='remote\btn_cancel.png' source='40,0,60,28' corner='6,6,6,6'" )"
    LR"(textcolor="FF17171A")"};

constexpr wchar_t FocusLook[] =
    LR"(keyboard="true" bordersize="2" borderround="12,12" focusbordercolor="FFFFB04A")";

} // namespace

SelectionButton::SelectionButton(const Selection& selection, const Look& look) : choice(selection) {
    SetText(choice.text.c_str());
    SetAttribute(L"height", look.height);
    SetAttribute(L"valign", L"vcenter");
    SetTextPadding({20, 0, 20, 0});
    SetPadding({10, 0, 10, 0});
    SetShowCursor(true);
    SetMinWidthEx(look.minWidthEx);
    SetFont(1);
    SetMinWidth(look.minWidth);
    SetShowHtml(true);
    ApplyAttributeList(choice.primary ? look.primary : look.cancel);
    ApplyAttributeList(FocusLook);
}

void* SelectionButton::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"Selection") == 0 ? this : CButtonUI::GetInterface(interfaceName);
}

CSelectionUI::CSelectionUI(const Selection& selection) : SelectionButton(selection, Plain) {}

CSelectionUIRemote::CSelectionUIRemote(const Selection& selection) : SelectionButton(selection, Remote) {}

} // namespace msg
