#include "uilib/controls/text_effects.h"

#include "uilib/core/gdi_plus.h"
#include "uilib/core/rects.h"

#include <algorithm>

namespace UILib {

namespace {

using Gdiplus::GpImage;
using Gdiplus::PointF;
using Gdiplus::RectF;
using namespace Gdiplus::DllExports;

// More characters than any window shows; GDI+ measures all that it is given.
constexpr size_t TextLimit = 4096;
constexpr int64_t GlowPixelLimit = 4 << 20;

GdiPlusFont makeFont(HDC context, HFONT source) {
    GdiPlusFont font;
    LOGFONTW description = {};
    if (!source || !GetObjectW(source, sizeof description, &description) ||
        GdipCreateFontFromLogfontW(context, &description, font.out()) != Gdiplus::Ok)
        GdipCreateFontFromDC(context, font.out());
    return font;
}

GdiPlusFormat makeFormat(unsigned style) {
    using namespace Gdiplus;
    GdiPlusFormat format;
    GdipCreateStringFormat(0, LANG_NEUTRAL, format.out());
    GdipSetStringFormatLineAlign(format.get(), style & DT_VCENTER  ? StringAlignmentCenter
                                               : style & DT_BOTTOM ? StringAlignmentFar
                                                                   : StringAlignmentNear);
    GdipSetStringFormatAlign(format.get(), style & DT_CENTER  ? StringAlignmentCenter
                                           : style & DT_RIGHT ? StringAlignmentFar
                                                              : StringAlignmentNear);
    return format;
}

GdiPlusBrush makeBrush(PointF from, float length, uint32_t first, uint32_t second) {
    const PointF to(0, length);
    Gdiplus::GpLineGradient* gradient = nullptr;
    GdipCreateLineBrush(&from, &to, first, second == NoSecondColor ? first : second, Gdiplus::WrapModeTile,
                        &gradient);
    return GdiPlusBrush(gradient);
}

GdiPlusImage makeBitmap(int width, int height) {
    Gdiplus::GpBitmap* bitmap = nullptr;
    GdipCreateBitmapFromScan0(width, height, 0, PixelFormat32bppARGB, nullptr, &bitmap);
    return GdiPlusImage(bitmap);
}

GdiPlusGraphics graphicsOf(const GdiPlusImage& image) {
    GdiPlusGraphics graphics;
    GdipGetImageGraphicsContext(image.get(), graphics.out());
    GdipSetTextRenderingHint(graphics.get(), Gdiplus::TextRenderingHintAntiAlias);
    return graphics;
}

// One text with the means to draw it, for the layers that it is drawn in.
class EffectText {
public:
    EffectText(HDC context, const RECT& rectangle, std::wstring_view text, HFONT font, unsigned style)
        : text(text.substr(0, TextLimit)),
          font(makeFont(context, font)),
          format(makeFormat(style)),
          box(static_cast<float>(rectangle.left), static_cast<float>(rectangle.top),
              static_cast<float>(width(rectangle)), static_cast<float>(height(rectangle))) {
        GdipCreateFromHDC(context, graphics.out());
        GdipSetTextRenderingHint(graphics.get(), Gdiplus::TextRenderingHintAntiAlias);
    }

    void draw(const GdiPlusBrush& brush, float dx, float dy) const {
        drawOn(graphics, brush, {box.X + dx, box.Y + dy, box.Width, box.Height});
    }
    void drawGlow(const GdiPlusBrush& brush, const TextEffects& effects) const;

private:
    void drawOn(const GdiPlusGraphics& target, const GdiPlusBrush& brush, const RectF& area) const {
        GdipDrawString(target.get(), text.data(), static_cast<int>(text.size()), font.get(), &area,
                       format.get(), brush.get());
    }

    std::wstring_view text;
    GdiPlusFont font;
    GdiPlusFormat format;
    GdiPlusGraphics graphics;
    RectF box;
};

// Shrinking and enlarging blurs the text.
void EffectText::drawGlow(const GdiPlusBrush& brush, const TextEffects& effects) const {
    const int w = static_cast<int>(box.Width), h = static_cast<int>(box.Height);
    if (int64_t(w) * h > GlowPixelLimit)
        return;
    const auto shrink = [&](int size) {
        return static_cast<int>(
            std::clamp(static_cast<float>(size) / effects.luminousFuzzy, 1.0f, 2.0f * size));
    };
    const int smallWidth = shrink(w), smallHeight = shrink(h);
    const GdiPlusImage big = makeBitmap(w, h), small = makeBitmap(smallWidth, smallHeight);
    if (!big || !small)
        return;
    const GdiPlusGraphics onBig = graphicsOf(big), onSmall = graphicsOf(small);
    drawOn(onBig, brush, {0, 0, box.Width, box.Height});
    for (const GdiPlusGraphics* target : {&onSmall, &onBig}) {
        GdipSetInterpolationMode(target->get(), Gdiplus::InterpolationModeHighQualityBicubic);
        GdipSetPixelOffsetMode(target->get(), Gdiplus::PixelOffsetModeNone);
    }
    GdipDrawImageRectI(onSmall.get(), big.get(), 0, 0, smallWidth, smallHeight);
    GdipGraphicsClear(onBig.get(), 0);
    GdipDrawImageRect(onBig.get(), small.get(), effects.shadowOffsetX, effects.shadowOffsetY, box.Width,
                      box.Height);
    GdipDrawImageRect(graphics.get(), big.get(), box.X, box.Y, box.Width, box.Height);
}

void drawStroke(const EffectText& drawn, uint32_t color, float length) {
    const GdiPlusBrush brush = makeBrush({0, 0}, length, color, color);
    for (const PointF& offset : {PointF(-1, 0), PointF(1, 0), PointF(0, -1), PointF(0, 1)})
        drawn.draw(brush, offset.X, offset.Y);
}

} // namespace

void drawTextWithEffects(HDC context, const RECT& rectangle, std::wstring_view text, HFONT font,
                         uint32_t color, unsigned style, const TextEffects& effects) {
    if (isEmpty(rectangle) || text.empty() || !startGdiPlus())
        return;
    const EffectText drawn(context, rectangle, text, font, style);
    const auto length =
        static_cast<float>(effects.gradientLength ? effects.gradientLength : height(rectangle));
    const PointF from(static_cast<float>(effects.gradientAngle), 0);
    const GdiPlusBrush brush = makeBrush(from, length, color, effects.secondColor);
    if (effects.luminous)
        drawn.drawGlow(brush, effects);
    if (effects.stroke && effects.strokeColor)
        drawStroke(drawn, effects.strokeColor, static_cast<float>(height(rectangle) + 2));
    if (effects.shadow && (effects.shadowColorA || effects.shadowColorB))
        drawn.draw(makeBrush(from, length, effects.shadowColorA, effects.shadowColorB), effects.shadowOffsetX,
                   effects.shadowOffsetY);
    drawn.draw(brush, 0, 0);
}

} // namespace UILib
