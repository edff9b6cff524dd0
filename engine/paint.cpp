#include "engine/paint.h"

#include <cmath>

namespace engine {

namespace {

constexpr Color Paper = 0xFFFFFFFF;

class Painter {
public:
    Painter(const Bitmap& target, const Document& document, const std::vector<Style>& styles,
            const ImageOf& imageOf, TextPainter& texts)
        : raster(target), document(document), styles(styles), imageOf(imageOf), texts(texts) {}

    void paintPaper(const Rect& area, const Layout& layout) {
        raster.fill(area, 0, Paper);
        // The colour of the body fills the window, as far as it is longer than the page.
        for (const Box& child : layout.root.children)
            if (document.nodes[child.node].tag == "body")
                raster.fill(area, 0, styles[child.node].background);
    }

    // x and y: of the border edge of the parent in the bitmap.
    void paint(const Box& box, int x, int y) {
        const Style& style = styles[box.node];
        const Rect area = box.rect.moved(x, y);
        const Rect clip = raster.clip();
        if (style.clips)
            raster.setClip(intersection(clip, area));
        if (!style.hidden && !document.nodes[box.node].isText())
            paintSelf(box, style, area);
        for (const Box& child : box.children)
            paint(child, area.x, area.y);
        for (const Fragment& fragment : box.fragments)
            paintText(fragment, area);
        raster.setClip(clip);
    }

private:
    void paintSelf(const Box& box, const Style& style, const Rect& area) {
        if (intersection(area, raster.clip()).empty())
            return;
        const int radius = static_cast<int>(std::lround(style.radius));
        raster.fill(area, radius, style.background);
        paintPicture(box, style, area, radius);
        raster.fillGradient(area, radius, style.gradient);
        paintBorder(style, area, radius);
    }

    void paintPicture(const Box& box, const Style& style, const Rect& area, int radius) {
        if (const Image* image = imageOf(box.node))
            raster.drawImage(area, radius, *image, sourceFor(*image, area, style.imageFit == Fit::Cover));
    }

    void paintBorder(const Style& style, const Rect& area, int radius) {
        const auto& border = style.border;
        const auto width = [&](Side side) { return static_cast<int>(std::lround(border[side].width)); };
        const auto same = [&](Side side) {
            return border[side].width == border[Top].width && border[side].color == border[Top].color;
        };
        if (same(Right) && same(Bottom) && same(Left))
            return raster.frame(area, radius, width(Top), border[Top].color);
        raster.fill({area.x, area.y, area.width, width(Top)}, 0, border[Top].color);
        raster.fill({area.x, area.bottom() - width(Bottom), area.width, width(Bottom)}, 0,
                    border[Bottom].color);
        raster.fill({area.x, area.y, width(Left), area.height}, 0, border[Left].color);
        raster.fill({area.right() - width(Right), area.y, width(Right), area.height}, 0, border[Right].color);
    }

    void paintText(const Fragment& fragment, const Rect& area) {
        const Style& style = styles[fragment.node];
        const Rect place = fragment.rect.moved(area.x, area.y);
        if (!style.hidden && !intersection(place, raster.clip()).empty())
            texts.draw(fontOf(style), fragment.text, place.x, place.y, style.color, raster.clip());
    }

    Raster raster;
    const Document& document;
    const std::vector<Style>& styles;
    const ImageOf& imageOf;
    TextPainter& texts;
};

} // namespace

void paintPage(const Bitmap& target, const Document& document, const Layout& layout,
               const std::vector<Style>& styles, const ImageOf& imageOf, TextPainter& texts, int scroll) {
    Painter painter(target, document, styles, imageOf, texts);
    painter.paintPaper({0, 0, target.width, target.height}, layout);
    painter.paint(layout.root, 0, -scroll);
}

} // namespace engine
