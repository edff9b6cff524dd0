#include "engine/layouter.h"

#include <algorithm>

namespace engine {

struct Layouter::Child {
    int node;
    int width; // of the border box
    Insets margins;
    Box box;
};

std::vector<Layouter::Child> Layouter::rowChildren(int node, int width) {
    std::vector<Child> row;
    for (const int child : flowChildren(node)) {
        if (noteIfOutOfFlow(child) || isBlankText(child))
            continue;
        const Style& style = styleOf(child);
        int base = preferredWidth(child);
        if (isImage(child))
            base = imageSizeOf(child, width).width;
        else if (!document.nodes[child].isText())
            base = style.width.resolve(width, style.grow > 0 ? 0 : base);
        row.push_back({child, clampWidth(style, base, width), marginsOf(style, width), {}});
    }
    return row;
}

// free: what the children leave of the row; below 0 they have to give way.
void Layouter::shareWidth(std::vector<Child>& row, int free) const {
    float grow = 0;
    int widths = 0;
    for (const Child& child : row) {
        grow += styleOf(child.node).grow;
        widths += child.width;
    }
    for (Child& child : row) {
        const Style& style = styleOf(child.node);
        const float share = free > 0 && grow > 0     ? style.grow / grow
                            : free < 0 && widths > 0 ? float(child.width) / float(widths)
                                                     : 0;
        const int given = static_cast<int>(float(free) * share);
        if (free > 0 || style.width.unit != Length::Pixels)
            child.width = std::max(0, child.width + given);
    }
}

int Layouter::layOutRow(Box& box, const Rect& content, std::optional<int> contentHeight) {
    std::vector<Child> row = rowChildren(box.node, content.width);
    const int gap = static_cast<int>(styleOf(box.node).gap);
    const auto freeWidth = [&] {
        int used = gap * std::max(0, static_cast<int>(row.size()) - 1);
        for (const Child& child : row)
            used += child.width + child.margins.horizontal();
        return content.width - used;
    };
    shareWidth(row, freeWidth());
    int height = contentHeight.value_or(0);
    for (Child& child : row) {
        child.box = layOutBox(child.node, child.width, content.width, contentHeight);
        if (!contentHeight)
            height = std::max(height, child.box.rect.height + child.margins.vertical());
    }
    placeRow(box, row, content, height, std::max(0, freeWidth()), gap);
    return height;
}

void Layouter::placeRow(Box& box, std::vector<Child>& row, const Rect& content, int height, int free,
                        int gap) {
    const Style& style = styleOf(box.node);
    int x = content.x;
    if (style.justify == Align::Center)
        x += free / 2;
    else if (style.justify == Align::End)
        x += free;
    if (style.justify == Align::SpaceBetween && row.size() > 1)
        gap += free / static_cast<int>(row.size() - 1);
    for (Child& child : row) {
        const int room = height - child.margins.vertical() - child.box.rect.height;
        int y = content.y + child.margins.top;
        if (style.align == Align::Center)
            y += room / 2;
        else if (style.align == Align::End)
            y += room;
        else if (style.align == Align::Stretch && styleOf(child.node).height.isAuto() && room > 0 &&
                 !child.box.isImage)
            child.box.rect.height += room;
        child.box.rect = child.box.rect.moved(x + child.margins.left, y);
        x += child.width + child.margins.horizontal() + gap;
        box.children.push_back(std::move(child.box));
    }
}

} // namespace engine
