#pragma once

#include "uilib/controls/container.h"

// A thin bar with two optional end buttons and a thumb. With an owner it asks the owner to
// scroll, which then sets the bar's position and range; without one it moves its own
// position. Either way a changed position can be told as "scroll".
//
// The thumb follows the mouse on a timer of 50 ms, and not on every move: a move only
// records how far it should go. Positions run from 0 to the range.

namespace UILib {

class CScrollBarUI : public CControlUI {
public:
    CScrollBarUI();

    const wchar_t* GetClass() const override { return L"ScrollBar"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;

    void SetOwner(CContainerUI* container) { owner = container; } // not owned
    bool IsHorizontal() const { return horizontal; }
    void SetHorizontal(bool on);
    int GetScrollRange() const { return range; }
    void SetScrollRange(int newRange);
    int GetScrollPos() const { return scrollPosition; }
    void SetScrollPos(int target, Notification notification = Notification::Skip);
    int GetLineSize() const { return lineSize; }
    void SetLineSize(int pixels);
    int GetScrollUnit() const { return scrollUnit; }
    void SetScrollUnit(int pixels); // above 1: positions snap to it
    void SetShowButton1(bool show);
    void SetShowButton2(bool show);
    void SetButton1Color(Color color) { setAndInvalidate(button1.color, color); }
    void SetButton2Color(Color color) { setAndInvalidate(button2.color, color); }
    void SetThumbColor(Color color) { setAndInvalidate(thumb.color, color); }

    enum PartName { PartBackground, PartButton1, PartButton2, PartThumb, PartRail };
    enum PictureState { PictureNormal, PictureHot, PicturePushed, PictureDisabled };
    CUIString GetPicture(PartName part, PictureState state) const { return pictures[part][state].drawString; }
    void SetPicture(PartName part, PictureState state, const wchar_t* imageString);
    const RECT& GetThumbRect() const { return thumb.place; }
    const RECT& GetButton1Rect() const { return button1.place; }
    const RECT& GetButton2Rect() const { return button2.place; }

    void SetPos(RECT rectangle, bool invalidate = true) override;
    void Move(int dx, int dy, bool invalidate = true) override;
    void SetVisible(bool on) override;
    void SetEnabled(bool on) override;
    void SetFocus() override;
    void DoEvent(TUIEvent& event) override;
    bool Paint(HDC context, const RECT& rectangle, CControlUI* stop) override;

protected:
    CControlUI* walkParent() const override;

private:
    enum State : unsigned { Disabled = 4, Hot = 8, Pushed = 16, Captured = 64 };
    struct Part {
        RECT place = {};
        unsigned state = 0;
        Color color;
    };

    void layoutThumb(int start, int end, int thickness);
    void setPart(Part& part, int from, int to);
    void passOn(TUIEvent& event);
    void onPress(const TUIEvent& event);
    void onRelease();
    void onMove(const TUIEvent& event);
    void onTimer();
    void onEnter(const TUIEvent& event);
    bool onLeave(const TUIEvent& event);
    void scrollLine(int direction);
    void scrollPage(POINT mouse);
    void dragThumb();
    int lineStep() const { return scrollUnit > 1 ? scrollUnit : lineSize; }
    int along(POINT point) const { return horizontal ? point.x : point.y; }
    int length() const { return horizontal ? GetWidth() : GetHeight(); }
    void paintPart(HDC context, PartName name, const Part& part, const RECT& place);
    bool drawPicture(HDC context, PartName name, PictureState state, const RECT& place);

    bool horizontal = false;
    int range = 100;
    int scrollPosition = 0;
    int lineSize = 8;
    int scrollUnit = 1;
    CContainerUI* owner = nullptr;
    POINT pressedAt = {};
    int startPosition = 0;
    int dragOffset = 0;
    int ticks = 0; // of the timer, since the press
    bool showButton1 = true;
    bool showButton2 = true;
    Part button1;
    Part button2;
    Part thumb;
    DrawRecord pictures[5][4]; // by PartName and PictureState
};

} // namespace UILib
