#pragma once

#include "stage.h"
#include "uilib/controls/combo.h"

// A combo "c" of 120 by 30 with items "i0", "i1" and so on of 20 pixels, over a button "b".

inline std::wstring combo(int items, const wchar_t* attributes = L"") {
    std::wstring markup =
        std::wstring(L"<Combo name=\"c\" width=\"120\" height=\"30\" keyboard=\"true\" itemheight=\"20\" ") +
        attributes + L">";
    for (int i = 0; i < items; ++i)
        markup += L"<ListLabelElement name=\"i" + std::to_wstring(i) + L"\" text=\"item " +
                  std::to_wstring(i) + L"\"/>";
    return markup + L"</Combo><Button name=\"b\" height=\"30\"/>";
}

class ComboStage : public Stage {
public:
    using Stage::Stage;

    UILib::CComboUI& control() { return get<UILib::CComboUI>(L"c"); }
    HWND popup() { return FindWindowW(L"ComboWnd", nullptr); }
    void open() {
        control().Activate();
        pumpMessages();
        EXPECT_TRUE(control().IsOpen());
        take();
    }
    bool closed() {
        return pumpUntil([this] { return !popup(); }) && !control().IsOpen();
    }
    RECT popupPlace() {
        RECT place = {};
        GetWindowRect(popup(), &place);
        return place;
    }
    void clickPopup(int x, int y) {
        const HWND target = popup();
        SendMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(target, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        pumpMessages();
    }
    // The items are the combo's again, out of the mouse's reach.
    bool itemsAreBack() {
        for (int i = 0; i < control().GetCount(); ++i) {
            UILib::CControlUI* item = control().GetItemAt(i);
            if (item->GetManager() != &manager || item->GetParent() != &control() ||
                !UILib::isEmpty(item->GetPos()))
                return false;
        }
        return true;
    }
};
