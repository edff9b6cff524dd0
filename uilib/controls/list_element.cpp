#include "uilib/controls/list_element.h"

#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <cwchar>

namespace UILib {

namespace {

constexpr int LineMargin = 8;       // around a single line, in its estimated height
constexpr int UnlimitedSize = 9999; // room for measuring

void setSelected(CControlUI& control, const wchar_t* value) {
    if (readFlag(value))
        static_cast<CListElementUI&>(control).Select();
}

constexpr Attribute Rows[] = {
    {L"selected", AttributeKind::Flag, setSelected, "is the selected item"},
};

} // namespace

void* CListElementUI::GetInterface(const wchar_t* interfaceName) {
    if (std::wcscmp(interfaceName, L"IListItem") == 0)
        return static_cast<IListItemUI*>(this);
    if (std::wcscmp(interfaceName, L"ListElement") == 0)
        return this;
    return CControlUI::GetInterface(interfaceName);
}

const AttributeTable& CListElementUI::GetAttributeTable() const {
    static const AttributeTable table = {&CControlUI::GetAttributeTable(), Rows};
    return table;
}

// While a popup shows the item, its manager is the popup's, to which nobody listens.
void CListElementUI::tellWindow(const wchar_t* notification) {
    const auto* list = dynamic_cast<const CControlUI*>(owner);
    if (CPaintManagerUI* listener = list ? list->GetManager() : manager)
        listener->SendNotify(this, notification);
}

bool CListElementUI::Activate() {
    if (!CControlUI::Activate())
        return false;
    tellWindow(L"itemactivate");
    return true;
}

bool CListElementUI::Select(bool on, bool notify) {
    if (!IsEnabled())
        return false;
    if (selected == on)
        return true;
    selected = on;
    if (on && owner)
        owner->SelectItem(index, false, notify);
    Invalidate();
    return true;
}

// A popup that borrows its items gives them back with the mouse still on one: what mouse
// and focus of one window have made of an item means nothing in another.
void CListElementUI::SetManager(CPaintManagerUI* newManager, CControlUI* newParent, bool initialise) {
    if (newManager != manager) {
        buttonState = 0;
        storeFocused(false);
    }
    CControlUI::SetManager(newManager, newParent, initialise);
}

void CListElementUI::SetVisible(bool on) {
    CControlUI::SetVisible(on);
    if (on || !selected)
        return;
    selected = false;
    if (owner)
        owner->SelectItem(-1);
}

void CListElementUI::SetEnabled(bool on) {
    CControlUI::SetEnabled(on);
    if (!IsEnabled())
        buttonState = 0;
}

void CListElementUI::DoEvent(TUIEvent& event) {
    if (!IsMouseEnabled() && isMouseEvent(event.kind) && owner)
        owner->DoEvent(event);
    else if (event.kind == EventDoubleClick)
        Activate();
    else
        CControlUI::DoEvent(event);
}

Color CListElementUI::stateBackground(const TListInfoUI& info) const {
    if (!IsEnabled())
        return info.disabledBkColor;
    if (buttonState & StateHot)
        return info.hotBkColor;
    if (selected)
        return info.selectedBkColor;
    return hasAlternateLook(info) ? info.bkColor : Color();
}

bool CListElementUI::drawStateImage(HDC context, TListInfoUI& info) {
    return (!IsEnabled() && DrawImage(context, info.disabledImage)) ||
           ((buttonState & StateHot) && DrawImage(context, info.hotImage)) ||
           (selected && DrawImage(context, info.selectedImage));
}

void CListElementUI::drawBackground(HDC context) {
    if (!owner)
        return;
    TListInfoUI& info = *owner->GetListInfo();
    if (const Color color = stateBackground(info))
        CRenderEngine::DrawColor(context, position, GetAdjustColor(color));
    if (drawStateImage(context, info))
        return;
    if (!GetBkImage().IsEmpty())
        PaintBkImage(context);
    else if (hasAlternateLook(info))
        DrawImage(context, info.bkImage);
}

void* CListLabelElementUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"ListLabelElement") == 0 ? this
                                                                : CListElementUI::GetInterface(interfaceName);
}

void CListLabelElementUI::SetText(const wchar_t* newText) {
    needEstimate = true;
    CListElementUI::SetText(newText);
}

void CListLabelElementUI::SetFixedWidth(int pixels) {
    needEstimate = true;
    CListElementUI::SetFixedWidth(pixels);
}

void CListLabelElementUI::SetFixedHeight(int pixels) {
    needEstimate = true;
    CListElementUI::SetFixedHeight(pixels);
}

SIZE CListLabelElementUI::EstimateSize(SIZE available) {
    if (!owner || !manager)
        return {};
    const TListInfoUI& info = *owner->GetListInfo();
    const SIZE fixed = {GetFixedWidth(), GetFixedHeight()};
    if (fixed.cx > 0 && fixed.cy > 0)
        return fixed;
    if (fixed.cx > 0 && info.itemHeight > 0)
        return {fixed.cx, info.itemHeight};
    Basis basis = {available, info.itemHeight, info.font, info.textStyle, info.textPadding, info.showHtml};
    if (info.textStyle & DT_SINGLELINE)
        basis.available = {}; // makes no difference
    if (needEstimate || !(basis == last)) {
        needEstimate = false;
        last = basis;
        lastSize = measure(available, info);
    }
    return lastSize;
}

SIZE CListLabelElementUI::measure(SIZE available, const TListInfoUI& info) const {
    const RECT& padding = info.textPadding;
    const unsigned style = (info.textStyle | DT_CALCRECT) & ~(DT_CENTER | DT_RIGHT);
    SIZE size = {GetFixedWidth(), GetFixedHeight() ? GetFixedHeight() : info.itemHeight};
    if (info.textStyle & DT_SINGLELINE) {
        if (size.cy == 0)
            size.cy =
                manager->GetFontInfo(info.font).metrics.tmHeight + LineMargin + padding.top + padding.bottom;
        if (size.cx == 0) {
            RECT measured = {0, 0, UnlimitedSize, size.cy};
            drawOrMeasure(manager->GetPaintDC(), measured, info, 0, style & ~DT_END_ELLIPSIS);
            size.cx = width(measured) + padding.left + padding.right;
        }
        return size;
    }
    if (size.cx == 0)
        size.cx = available.cx;
    RECT measured = {padding.left, 0, std::max(size.cx - padding.right, padding.left), UnlimitedSize};
    drawOrMeasure(manager->GetPaintDC(), measured, info, 0, style);
    size.cy = height(measured) + padding.top + padding.bottom;
    return size;
}

void CListLabelElementUI::drawOrMeasure(HDC context, RECT& rectangle, const TListInfoUI& info, uint32_t color,
                                        unsigned style) const {
    int links = 0;
    if (info.showHtml)
        CRenderEngine::DrawHtmlText(context, manager, rectangle, text, color, nullptr, nullptr, links,
                                    info.font, style);
    else
        CRenderEngine::DrawText(context, manager, rectangle, text, color, info.font, style);
}

void CListLabelElementUI::DoEvent(TUIEvent& event) {
    if (IsMouseEnabled()) {
        switch (event.kind) {
        case EventButtonDown:
        case EventRightButtonDown:
            if (!IsEnabled())
                return;
            tellWindow(L"itemclick");
            Select(true, true);
            Invalidate();
            return;
        case EventMouseMove:
        case EventButtonUp:
            return;
        case EventMouseEnter:
        case EventMouseLeave:
            if (followMouse(*this, buttonState, event) == Hover::Unchanged)
                return;
            break;
        default:
            break;
        }
    }
    CListElementUI::DoEvent(event);
}

bool CListLabelElementUI::DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) {
    if (stop == this)
        return false;
    paintRect = intersect(rectangle, position);
    if (isEmpty(paintRect))
        return true;
    drawBackground(context);
    DrawItemText(context, position);
    return true;
}

void CListLabelElementUI::DrawItemText(HDC context, const RECT& rectangle) {
    if (!owner)
        return;
    const TListInfoUI& info = *owner->GetListInfo();
    DrawItemText(context, rectangle,
                 !IsEnabled()               ? info.disabledTextColor
                 : (buttonState & StateHot) ? info.hotTextColor
                 : selected                 ? info.selectedTextColor
                                            : info.textColor);
}

void CListLabelElementUI::DrawItemText(HDC context, const RECT& rectangle, uint32_t color) {
    if (!owner || text.IsEmpty())
        return;
    const TListInfoUI& info = *owner->GetListInfo();
    RECT place = shrunk(rectangle, info.textPadding);
    drawOrMeasure(context, place, info, GetAdjustColor(color), info.textStyle);
}

} // namespace UILib
