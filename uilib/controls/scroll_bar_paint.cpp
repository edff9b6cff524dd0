#include "uilib/controls/scroll_bar.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

namespace UILib {

bool CScrollBarUI::Paint(HDC context, const RECT&, CControlUI*) {
    for (Part* part : {&button1, &button2, &thumb})
        part->state = IsEnabled() ? part->state & ~Disabled : part->state | Disabled;
    PaintBkColor(context);
    PaintBkImage(context);
    if (!GetBkColor())
        paintPart(context, PartBackground, {position, thumb.state, {}}, position);
    if (showButton1)
        paintPart(context, PartButton1, button1, button1.place);
    if (showButton2)
        paintPart(context, PartButton2, button2, button2.place);
    if (!equal(thumb.place, {})) {
        paintPart(context, PartThumb, thumb, thumb.place);
        RECT grip = thumb.place;
        if (horizontal) {
            grip.left = (thumb.place.left + thumb.place.right) / 2 - GetFixedHeight() / 2;
            grip.right = grip.left + GetFixedHeight();
        } else {
            grip.top = (thumb.place.top + thumb.place.bottom) / 2 - GetFixedWidth() / 2;
            grip.bottom = grip.top + GetFixedWidth();
        }
        paintPart(context, PartRail, {grip, thumb.state, {}}, grip);
    }
    PaintBorder(context);
    return true;
}

// A colour lies under the image of a button, and takes the place of the thumb's.
void CScrollBarUI::paintPart(HDC context, PartName name, const Part& part, const RECT& place) {
    if (part.color) {
        CRenderEngine::DrawColor(context, place, GetAdjustColor(part.color));
        if (name == PartThumb)
            return;
    }
    const PictureState wanted = part.state & Disabled ? PictureDisabled
                                : part.state & Pushed ? PicturePushed
                                : part.state & Hot    ? PictureHot
                                                      : PictureNormal;
    if (wanted == PictureNormal || !drawPicture(context, name, wanted, place))
        drawPicture(context, name, PictureNormal, place);
}

bool CScrollBarUI::drawPicture(HDC context, PartName name, PictureState state, const RECT& place) {
    DrawRecord& record = pictures[name][state];
    return manager && !record.drawString.IsEmpty() &&
           CRenderEngine::DrawImage(context, manager, place, paintRect, record);
}

} // namespace UILib
