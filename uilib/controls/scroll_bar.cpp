#include "uilib/controls/scroll_bar.h"

#include "uilib/core/paint_manager.h"

#include <cwchar>

namespace UILib {

namespace {

constexpr int Thickness = 4;
constexpr UINT TimerId = 10;
constexpr UINT TimerInterval = 50; // ms
constexpr int RepeatDelay = 6;     // ticks before a held button repeats

using Bar = CScrollBarUI;

template <Bar::PartName Part, Bar::PictureState State>
void setPicture(CControlUI& control, const wchar_t* value) {
    static_cast<Bar&>(control).SetPicture(Part, State, value);
}

template <Bar::PartName Part, Bar::PictureState State>
constexpr Attribute picture(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Image, setPicture<Part, State>, description};
}

void setValue(CControlUI& control, const wchar_t* value) {
    static_cast<Bar&>(control).SetScrollPos(readNumber(value), Notification::Send);
}

constexpr Attribute Rows[] = {
    attribute<&Bar::SetButton1Color>(L"button1color", "colour of the first button"),
    attribute<&Bar::SetButton2Color>(L"button2color", "colour of the second button"),
    attribute<&Bar::SetThumbColor>(L"thumbcolor", "colour of the thumb, in place of its image"),
    picture<Bar::PartButton1, Bar::PictureNormal>(L"button1normalimage", "first button"),
    picture<Bar::PartButton1, Bar::PictureHot>(L"button1hotimage", "first button under the mouse"),
    picture<Bar::PartButton1, Bar::PicturePushed>(L"button1pushedimage", "first button, pushed"),
    picture<Bar::PartButton1, Bar::PictureDisabled>(L"button1disabledimage", "first button, disabled"),
    picture<Bar::PartButton2, Bar::PictureNormal>(L"button2normalimage", "second button"),
    picture<Bar::PartButton2, Bar::PictureHot>(L"button2hotimage", "second button under the mouse"),
    picture<Bar::PartButton2, Bar::PicturePushed>(L"button2pushedimage", "second button, pushed"),
    picture<Bar::PartButton2, Bar::PictureDisabled>(L"button2disabledimage", "second button, disabled"),
    picture<Bar::PartThumb, Bar::PictureNormal>(L"thumbnormalimage", "thumb"),
    picture<Bar::PartThumb, Bar::PictureHot>(L"thumbhotimage", "thumb under the mouse"),
    picture<Bar::PartThumb, Bar::PicturePushed>(L"thumbpushedimage", "thumb, pushed"),
    picture<Bar::PartThumb, Bar::PictureDisabled>(L"thumbdisabledimage", "thumb, disabled"),
    picture<Bar::PartRail, Bar::PictureNormal>(L"railnormalimage", "grip on the thumb"),
    picture<Bar::PartRail, Bar::PictureHot>(L"railhotimage", "grip under the mouse"),
    picture<Bar::PartRail, Bar::PicturePushed>(L"railpushedimage", "grip, pushed"),
    picture<Bar::PartRail, Bar::PictureDisabled>(L"raildisabledimage", "grip, disabled"),
    picture<Bar::PartBackground, Bar::PictureNormal>(L"bknormalimage", "background"),
    picture<Bar::PartBackground, Bar::PictureHot>(L"bkhotimage", "background under the mouse"),
    picture<Bar::PartBackground, Bar::PicturePushed>(L"bkpushedimage", "background, pushed"),
    picture<Bar::PartBackground, Bar::PictureDisabled>(L"bkdisabledimage", "background, disabled"),
    attribute<&Bar::SetHorizontal>(L"hor", "lies"),
    attribute<&Bar::SetLineSize>(L"linesize", "step of a button"),
    attribute<&Bar::SetScrollRange>(L"range", "largest position"),
    {L"value", AttributeKind::Number, setValue, "position"},
    attribute<&Bar::SetScrollUnit>(L"scrollunit", "positions snap to its multiples"),
    attribute<&Bar::SetShowButton1>(L"showbutton1", "has the first button"),
    attribute<&Bar::SetShowButton2>(L"showbutton2", "has the second button"),
};

CUIString defaultPicture(Bar::PartName part, Bar::PictureState state) {
    static constexpr const wchar_t* Files[] = {L"scroll_back.png", L"scroll_button1.png",
                                               L"scroll_button2.png", L"scroll_thumb.png",
                                               L"scroll_tail.png"};
    static constexpr const wchar_t* Corners[] = {L" corner='2,2,2,2'", L"", L"", L" corner='3,3,3,3'",
                                                 L" corner='2,2,2,2'"};
    const int left = 8 * state;
    return CUIString(L"file='") + Files[part] + L"' source='" + std::to_wstring(left) + L",0," +
           std::to_wstring(left + 8) + L",8' mask='#FFFF00FF'" + Corners[part];
}

} // namespace

CScrollBarUI::CScrollBarUI() {
    SetFixedWidth(Thickness);
    for (int part = PartBackground; part <= PartRail; ++part)
        for (int state = PictureNormal; state <= PictureDisabled; ++state)
            pictures[part][state].drawString =
                defaultPicture(static_cast<PartName>(part), static_cast<PictureState>(state));
}

void* CScrollBarUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"ScrollBar") == 0 ? this : CControlUI::GetInterface(interfaceName);
}

const AttributeTable& CScrollBarUI::GetAttributeTable() const {
    static const AttributeTable table = {&CControlUI::GetAttributeTable(), Rows};
    return table;
}

CControlUI* CScrollBarUI::walkParent() const {
    return owner ? owner : CControlUI::walkParent();
}

void CScrollBarUI::SetHorizontal(bool on) {
    if (horizontal == on)
        return;
    horizontal = on;
    if (on && GetFixedHeight() == 0) {
        SetFixedWidth(0);
        SetFixedHeight(Thickness);
    } else if (!on && GetFixedWidth() == 0) {
        SetFixedWidth(Thickness);
        SetFixedHeight(0);
    }
    if (owner)
        owner->NeedUpdate();
    else
        NeedParentUpdate();
}

void CScrollBarUI::SetScrollRange(int newRange) {
    if (range == newRange)
        return;
    range = std::max(newRange, 0);
    scrollPosition = std::min(scrollPosition, range);
    SetPos(position, true);
}

void CScrollBarUI::SetScrollPos(int target, Notification notification) {
    if (scrollPosition == target)
        return;
    const int old = scrollPosition;
    target = std::max(target, 0);
    if (scrollUnit > 1) {
        const int beyond = target % scrollUnit;
        target += beyond < scrollUnit / 2 ? -beyond : scrollUnit - beyond;
    }
    scrollPosition = std::min(target, range);
    SetPos(position, true);
    if (notification == Notification::Send && manager)
        manager->SendNotify(this, L"scroll", static_cast<WPARAM>(scrollPosition), old, Delivery::Queued);
}

void CScrollBarUI::SetLineSize(int pixels) {
    if (pixels >= 0)
        lineSize = pixels;
}

void CScrollBarUI::SetScrollUnit(int pixels) {
    if (pixels >= 0)
        scrollUnit = pixels;
}

void CScrollBarUI::SetShowButton1(bool show) {
    showButton1 = show;
    SetPos(position, true);
}

void CScrollBarUI::SetShowButton2(bool show) {
    showButton2 = show;
    SetPos(position, true);
}

void CScrollBarUI::SetPicture(PartName part, PictureState state, const wchar_t* imageString) {
    DrawRecord& record = pictures[part][state];
    if (record.drawString == imageString)
        return;
    record.Clear();
    record.drawString = imageString;
    Invalidate();
}

void CScrollBarUI::setPart(Part& part, int from, int to) {
    if (horizontal)
        part.place = {from, position.top, to, position.top + GetFixedHeight()};
    else
        part.place = {position.left, from, position.left + GetFixedWidth(), to};
}

void CScrollBarUI::SetPos(RECT rectangle, bool invalidate) {
    CControlUI::SetPos(rectangle, invalidate);
    const int first = horizontal ? position.left : position.top,
              last = horizontal ? position.right : position.bottom;
    const int thickness = horizontal ? GetFixedHeight() : GetFixedWidth();
    const int shown = (showButton1 ? 1 : 0) + (showButton2 ? 1 : 0);
    const int room = last - first - shown * thickness;
    const int button = room <= thickness ? std::min((last - first) / 2, thickness) : thickness;
    setPart(button1, first, first + (showButton1 ? button : 0));
    setPart(button2, last - (showButton2 ? button : 0), last);
    if (room <= thickness)
        thumb.place = {};
    else
        layoutThumb(first + (showButton1 ? button : 0), last - (showButton2 ? button : 0), thickness);
}

void CScrollBarUI::Move(int dx, int dy, bool invalidate) {
    CControlUI::Move(dx, dy, invalidate);
    for (Part* part : {&button1, &button2, &thumb})
        if (!equal(part->place, {})) // a thumb without room stays nowhere, and is not painted
            part->place = moved(part->place, dx, dy);
}

void CScrollBarUI::layoutThumb(int start, int end, int thickness) {
    if (range < 1) {
        setPart(thumb, start, end);
        return;
    }
    const int64_t room = end - start;
    const int size =
        static_cast<int>(std::max<int64_t>(thickness, length() * room / (int64_t(range) + length())));
    int from = static_cast<int>((room - size) * scrollPosition / range) + start;
    if (from + size > end)
        from = end - size;
    setPart(thumb, from, from + size);
}

void CScrollBarUI::SetVisible(bool on) {
    if (on != IsVisible())
        storeFocused(false);
    storeVisible(on);
}

void CScrollBarUI::SetEnabled(bool on) {
    CControlUI::SetEnabled(on);
    if (!on)
        button1.state = button2.state = thumb.state = 0;
}

void CScrollBarUI::SetFocus() {
    if (owner)
        owner->SetFocus();
    else
        CControlUI::SetFocus();
}

void CScrollBarUI::passOn(TUIEvent& event) {
    if (owner)
        owner->DoEvent(event);
    else
        CControlUI::DoEvent(event);
}

void CScrollBarUI::DoEvent(TUIEvent& event) {
    if (!IsMouseEnabled() && isMouseEvent(event.kind)) {
        passOn(event);
        return;
    }
    switch (event.kind) {
    case EventSetFocus:
    case EventKillFocus:
    case EventContextMenu:
        return;
    case EventButtonDown:
    case EventDoubleClick:
        if (IsEnabled())
            onPress(event);
        return;
    case EventButtonUp:
        onRelease();
        return;
    case EventMouseMove:
        onMove(event);
        return;
    case EventTimer:
        if (event.wParam == TimerId) {
            onTimer();
            return;
        }
        break;
    case EventMouseEnter:
        onEnter(event);
        break;
    case EventMouseLeave:
        if (!onLeave(event))
            return;
        break;
    default:
        break;
    }
    passOn(event);
}

void CScrollBarUI::onPress(const TUIEvent& event) {
    dragOffset = ticks = 0;
    if (manager)
        manager->SetTimer(this, TimerId, TimerInterval);
    if (contains(button1.place, event.mouse)) {
        button1.state |= Pushed;
        scrollLine(-1);
    } else if (contains(button2.place, event.mouse)) {
        button2.state |= Pushed;
        scrollLine(1);
    } else if (contains(thumb.place, event.mouse)) {
        thumb.state |= Captured | Pushed;
        pressedAt = event.mouse;
        startPosition = scrollPosition;
    } else {
        scrollPage(event.mouse);
    }
    Invalidate();
}

void CScrollBarUI::onRelease() {
    dragOffset = ticks = 0;
    if (manager)
        manager->KillTimer(this, TimerId);
    if (thumb.state & Captured)
        thumb.state &= ~(Captured | Pushed);
    else if (button1.state & Pushed)
        button1.state &= ~Pushed;
    else if (button2.state & Pushed)
        button2.state &= ~Pushed;
    else
        return;
    Invalidate();
}

void CScrollBarUI::onMove(const TUIEvent& event) {
    if (thumb.state & Captured) {
        const int run = length() - (horizontal ? width(thumb.place) : height(thumb.place));
        if (run > 0)
            dragOffset = static_cast<int>(int64_t(along(event.mouse) - along(pressedAt)) * range / run);
        return;
    }
    const bool inside = contains(thumb.place, event.mouse);
    if (thumb.state & Hot) {
        if (inside)
            return;
        thumb.state &= ~Hot;
    } else {
        if (!inside || !IsEnabled())
            return;
        thumb.state |= Hot;
    }
    Invalidate();
}

void CScrollBarUI::onTimer() {
    ++ticks;
    if (thumb.state & Captured) {
        dragThumb();
        return;
    }
    if (ticks < RepeatDelay)
        return;
    if (button1.state & Pushed) {
        scrollLine(-1);
    } else if (button2.state & Pushed) {
        scrollLine(1);
    } else if (manager) {
        POINT mouse = {};
        GetCursorPos(&mouse);
        ScreenToClient(manager->GetPaintWindow(), &mouse);
        scrollPage(mouse);
    }
}

void CScrollBarUI::dragThumb() {
    const int target = startPosition + dragOffset;
    if (!owner) {
        SetScrollPos(target, Notification::Send);
    } else {
        const SIZE now = owner->GetScrollPos();
        owner->SetScrollPos(horizontal ? SIZE{target, now.cy} : SIZE{now.cx, target});
    }
    Invalidate();
}

void CScrollBarUI::scrollLine(int direction) {
    if (!owner)
        SetScrollPos(scrollPosition + direction * lineStep(), Notification::Send);
    else if (direction < 0)
        horizontal ? owner->LineLeft() : owner->LineUp();
    else
        horizontal ? owner->LineRight() : owner->LineDown();
}

// One page towards the mouse; nothing when it is on the thumb.
void CScrollBarUI::scrollPage(POINT mouse) {
    const int at = along(mouse);
    const bool before = at < (horizontal ? thumb.place.left : thumb.place.top);
    const bool behind = at > (horizontal ? thumb.place.right : thumb.place.bottom);
    if (!before && !behind)
        return;
    if (!owner)
        SetScrollPos(scrollPosition + (before ? -length() : length()), Notification::Send);
    else if (before)
        horizontal ? owner->PageLeft() : owner->PageUp();
    else
        horizontal ? owner->PageRight() : owner->PageDown();
}

void CScrollBarUI::onEnter(const TUIEvent& event) {
    if (!IsEnabled() || !contains(position, event.mouse))
        return;
    button1.state |= Hot;
    button2.state |= Hot;
    if (contains(thumb.place, event.mouse))
        thumb.state |= Hot;
    Invalidate();
}

// False while the mouse has only gone to a part of ours.
bool CScrollBarUI::onLeave(const TUIEvent& event) {
    if (contains(position, event.mouse)) {
        if (manager)
            manager->AddMouseLeaveNeeded(this);
        return false;
    }
    if (IsEnabled()) {
        button1.state &= ~Hot;
        button2.state &= ~Hot;
        thumb.state &= ~Hot;
        Invalidate();
    }
    if (manager)
        manager->RemoveMouseLeaveNeeded(this);
    return true;
}

} // namespace UILib
