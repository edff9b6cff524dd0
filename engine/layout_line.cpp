#include "engine/layouter.h"
#include "engine/line_break.h"

#include <algorithm>
#include <cmath>

namespace engine {

// Fills the lines of one block with text and atoms (pictures and inline blocks), and puts
// finished lines into the box.
class LineBuilder {
public:
    LineBuilder(Layouter& layouter, Box& box, const Rect& content, int y)
        : layouter(layouter), box(box), style(layouter.styleOf(box.node)), content(content), y(y) {}

    void addSegment(int node, const Segment& segment) {
        const Style& own = layouter.styleOf(node);
        Item item;
        item.node = node;
        item.text = segment.text;
        item.width = layouter.measurer.width(fontOf(own), item.text);
        item.spaceWidth = space || segment.spaceBefore ? layouter.measurer.width(fontOf(own), u" ") : 0;
        add(std::move(item), (segment.breakBefore || space || afterAtom) && !own.noWrap);
        afterAtom = false;
    }

    void addAtom(Box atom) {
        Item item;
        item.node = atom.node;
        item.margins = layouter.marginsOf(layouter.styleOf(atom.node), content.width);
        item.width = atom.rect.width + item.margins.horizontal();
        item.spaceWidth = space ? layouter.measurer.width(fontOf(style), u" ") : 0;
        item.atom = std::move(atom);
        add(std::move(item), !style.noWrap);
        afterAtom = true;
    }

    void addSpace() { space = true; }

    void breakLine() {
        if (line.empty())
            y += strut().height();
        flush();
    }

    // The height of all lines.
    int finish() {
        flush();
        return y - start;
    }

private:
    struct Item {
        int node = NoNode;
        std::u16string text;
        int width = 0;
        int spaceWidth = 0; // before it, unless it begins the line
        std::optional<Box> atom;
        Layouter::Insets margins; // of the atom
    };

    // How far something reaches above and below the baseline.
    struct Extent {
        int above = 0, below = 0;
        int height() const { return above + below; }
    };

    Extent extentOf(const Style& of) const {
        const FontMetrics metrics = layouter.measurer.metrics(fontOf(of));
        const int height = static_cast<int>(std::lround(of.fontSize * of.lineHeight));
        const int above = (height - metrics.ascent - metrics.descent) / 2 + metrics.ascent;
        return {above, height - above};
    }

    Extent strut() const { return extentOf(style); }

    int heightOf(const Item& item) const { return item.atom->rect.height + item.margins.vertical(); }
    bool isMiddle(const Item& item) const { return item.atom && layouter.styleOf(item.node).verticalMiddle; }

    void add(Item item, bool mayBreak) {
        if (!line.empty() && mayBreak && width + item.spaceWidth + item.width > content.width)
            flush();
        if (line.empty())
            item.spaceWidth = 0;
        width += item.spaceWidth + item.width;
        space = false;
        line.push_back(std::move(item));
    }

    Extent extentOfLine() const {
        Extent extent;
        int middle = 0;
        for (const Item& item : line) {
            if (isMiddle(item)) {
                middle = std::max(middle, heightOf(item));
                continue;
            }
            const Extent own = item.atom ? Extent{heightOf(item), 0} : extentOf(layouter.styleOf(item.node));
            extent = {std::max(extent.above, own.above), std::max(extent.below, own.below)};
        }
        const int missing = std::max(0, middle - extent.height());
        return {extent.above + missing / 2, extent.below + missing - missing / 2};
    }

    // Cuts the line to the width of the block and ends it in three dots.
    void shorten() {
        while (!line.empty() && width > content.width) {
            Item& last = line.back();
            const Font font = fontOf(layouter.styleOf(last.node));
            const int others = width - last.width;
            std::u16string text = last.text;
            while (!text.empty() && others + layouter.measurer.width(font, text + u"…") > content.width)
                text.pop_back();
            if (!last.atom && !text.empty()) {
                last.text = text + u"…";
                last.width = layouter.measurer.width(font, last.text);
                width = others + last.width;
                return;
            }
            width -= last.width + last.spaceWidth;
            line.pop_back();
        }
    }

    void flush() {
        if (style.ellipsis && style.noWrap)
            shorten();
        const Extent extent = extentOfLine();
        const int free = content.width - width;
        int x = content.x;
        if (free > 0 && style.textAlign != TextAlign::Left)
            x += style.textAlign == TextAlign::Center ? free / 2 : free;
        bool first = true;
        for (Item& item : line) {
            place(item, x, extent, first);
            x += item.spaceWidth + item.width;
            first = false;
        }
        y += extent.height();
        line.clear();
        width = 0;
        space = false;
    }

    void place(Item& item, int x, const Extent& extent, bool first) {
        if (!item.atom)
            return placeText(item, x, extent, first);
        const int height = heightOf(item);
        const int top = isMiddle(item) ? y + (extent.height() - height) / 2 : y + extent.above - height;
        item.atom->rect =
            item.atom->rect.moved(x + item.spaceWidth + item.margins.left, top + item.margins.top);
        box.children.push_back(std::move(*item.atom));
        lastTextLine = -1;
    }

    // Neighbours of one text become one fragment again, which draws and shapes better.
    void placeText(const Item& item, int x, const Extent& extent, bool first) {
        const FontMetrics metrics = layouter.measurer.metrics(fontOf(layouter.styleOf(item.node)));
        if (!first && lastTextLine == y && box.fragments.back().node == item.node) {
            Fragment& before = box.fragments.back();
            if (item.spaceWidth > 0)
                before.text += u' ';
            before.text += item.text;
            before.rect.width += item.spaceWidth + item.width;
            return;
        }
        const Rect rect = {x + item.spaceWidth, y + extent.above - metrics.ascent, item.width,
                           metrics.ascent + metrics.descent};
        box.fragments.push_back({item.node, item.text, rect, metrics.ascent});
        lastTextLine = y;
    }

    Layouter& layouter;
    Box& box;
    const Style& style;
    const Rect content;
    int y;
    const int start = y;
    std::vector<Item> line;
    int width = 0;      // of the line so far
    bool space = false; // white space was met since the last item
    bool afterAtom = false;
    int lastTextLine = -1; // top of the line that the last fragment stands in, if it ends it
};

int Layouter::layOutLines(Box& box, const std::vector<int>& nodes, const Rect& content, int y) {
    LineBuilder lines(*this, box, content, y);
    for (const int node : nodes)
        addInline(lines, node, content.width);
    return lines.finish();
}

void Layouter::addInline(LineBuilder& lines, int node, int width) {
    const Node& element = document.nodes[node];
    if (element.isText())
        return addText(lines, node);
    if (element.tag == "br")
        return lines.breakLine();
    if (isImage(node) || styleOf(node).display != Display::Inline)
        return lines.addAtom(layOutAtom(node, width));
    for (const int child : flowChildren(node))
        if (!noteIfOutOfFlow(child))
            addInline(lines, child, width);
}

void Layouter::addText(LineBuilder& lines, int node) {
    bool trailingSpace = false;
    for (const Segment& segment : splitText(document.nodes[node].text, trailingSpace))
        lines.addSegment(node, segment);
    if (trailingSpace)
        lines.addSpace();
}

Box Layouter::layOutAtom(int node, int width) {
    const int own = isImage(node)
                        ? imageSizeOf(node, width).width
                        : shrunkWidth(node, width - marginsOf(styleOf(node), width).horizontal(), width);
    return layOutBox(node, own, width, std::nullopt);
}

int Layouter::preferredLineWidth(int node, int& line) {
    const Node& element = document.nodes[node];
    int widest = 0;
    if (element.tag == "br") {
        line = 0;
    } else if (element.isText()) {
        bool trailingSpace = false;
        const Font font = fontOf(styleOf(node));
        const int space = measurer.width(font, u" ");
        for (const Segment& segment : splitText(element.text, trailingSpace))
            line += (segment.spaceBefore ? space : 0) + measurer.width(font, segment.text);
        line += trailingSpace ? space : 0;
    } else if (isImage(node) || styleOf(node).display != Display::Inline) {
        line += preferredWidth(node) + marginsOf(styleOf(node), 0).horizontal();
    } else {
        for (const int child : flowChildren(node))
            if (!isOutOfFlow(child))
                widest = std::max(widest, preferredLineWidth(child, line));
    }
    return std::max(widest, line);
}

} // namespace engine
