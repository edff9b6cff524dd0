#include "engine/layouter.h"

#include "engine/text.h"

#include <algorithm>
#include <cmath>

namespace engine {

namespace {

int attributeLength(const Node& node, std::string_view name) {
    const auto number = parseNumber(node.attribute(name));
    return number ? static_cast<int>(std::clamp(*number, 0.0f, LargestLength)) : 0;
}

// Blocks, and inline elements that hold one.
std::vector<char> findBlockLevel(const Document& document, const std::vector<Style>& styles) {
    std::vector<char> out(document.nodes.size());
    for (int node = static_cast<int>(out.size()) - 1; node >= 0; node--) {
        const Style& style = styles[node];
        if (style.display == Display::Block || style.display == Display::Flex)
            out[node] = true;
        const int parent = document.nodes[node].parent;
        if (out[node] && parent != NoNode && styles[parent].display == Display::Inline &&
            style.position != Position::Absolute)
            out[parent] = true;
    }
    return out;
}

} // namespace

Font fontOf(const Style& style) {
    return {static_cast<int>(std::lround(style.fontSize)), style.fontWeight, style.italic, style.underline};
}

Layouter::Layouter(const Document& document, const std::vector<Style>& styles, const ImageSizeOf& imageSize,
                   TextMeasurer& measurer)
    : document(document),
      styles(styles),
      imageSize(imageSize),
      measurer(measurer),
      blockLevel(findBlockLevel(document, styles)),
      preferred(document.nodes.size(), -1) {}

bool Layouter::isShown(int node) const {
    return styles[node].display != Display::None;
}

bool Layouter::isOutOfFlow(int node) const {
    return styles[node].position == Position::Absolute;
}

bool Layouter::isBlankText(int node) const {
    const Node& text = document.nodes[node];
    return text.isText() && text.text.find_first_not_of(u" \t\r\n\f") == text.text.npos;
}

bool Layouter::noteIfOutOfFlow(int node) {
    if (!isOutOfFlow(node))
        return false;
    collected.back().push_back(node);
    return true;
}

std::vector<int> Layouter::flowChildren(int node) const {
    if (document.nodes[node].isText())
        return {node};
    std::vector<int> out;
    for (const int child : document.nodes[node].children)
        if (isShown(child))
            out.push_back(child);
    return out;
}

Layouter::Insets Layouter::insetsOf(const Style& style, int containingWidth) const {
    const auto side = [&](Side edge) {
        return std::max(0, style.padding[edge].resolve(containingWidth)) +
               static_cast<int>(std::lround(style.border[edge].width));
    };
    return {side(Top), side(Right), side(Bottom), side(Left)};
}

Layouter::Insets Layouter::marginsOf(const Style& style, int containingWidth) const {
    const auto side = [&](Side edge) { return style.margin[edge].resolve(containingWidth); };
    return {side(Top), side(Right), side(Bottom), side(Left)};
}

int Layouter::clampWidth(const Style& style, int width, int containingWidth) const {
    width = std::min(width, style.maxWidth.resolve(containingWidth, width));
    return std::max({0, width, style.minWidth.resolve(containingWidth)});
}

ImageSize Layouter::imageSizeOf(int node, int containingWidth) const {
    const Style& style = styleOf(node);
    const Node& element = document.nodes[node];
    const ImageSize natural = imageSize(node).value_or(ImageSize{0, 0});
    int width = style.width.resolve(containingWidth, attributeLength(element, "width"));
    int height = style.height.resolve(0, attributeLength(element, "height"));
    if (width == 0 && height == 0)
        return {clampWidth(style, natural.width, containingWidth), natural.height};
    if (width == 0 && natural.height > 0)
        width = static_cast<int>(int64_t{height} * natural.width / natural.height);
    if (height == 0 && natural.width > 0)
        height = static_cast<int>(int64_t{width} * natural.height / natural.width);
    const int limit = static_cast<int>(LargestLength);
    return {std::clamp(clampWidth(style, width, containingWidth), 0, limit), std::clamp(height, 0, limit)};
}

int Layouter::preferredWidth(int node) {
    if (preferred[node] >= 0)
        return preferred[node];
    const Style& style = styleOf(node);
    int width = 0;
    if (isImage(node))
        width = imageSizeOf(node, 0).width;
    else if (style.width.unit == Length::Pixels && !document.nodes[node].isText())
        width = style.width.resolve(0);
    else
        width = preferredContentWidth(node) + insetsOf(style, 0).horizontal();
    return preferred[node] = std::min(clampWidth(style, width, 0x7FFF), static_cast<int>(LargestLength));
}

int Layouter::preferredContentWidth(int node) {
    const bool row = styleOf(node).display == Display::Flex;
    int widest = 0, sum = 0, line = 0, count = 0;
    for (const int child : flowChildren(node)) {
        if (isOutOfFlow(child) || (row && isBlankText(child)))
            continue;
        const int margins = marginsOf(styleOf(child), 0).horizontal();
        if (row || isBlockLevel(child)) {
            const int width = preferredWidth(child) + margins;
            sum += width;
            count++;
            widest = std::max(widest, width);
            line = 0;
        } else {
            widest = std::max(widest, preferredLineWidth(child, line));
        }
    }
    const int gaps = static_cast<int>(styleOf(node).gap) * std::max(0, count - 1);
    return row ? sum + gaps : widest;
}

int Layouter::shrunkWidth(int node, int available, int containingWidth) {
    const Style& style = styleOf(node);
    const int wanted =
        style.width.resolve(containingWidth, std::min(preferredWidth(node), std::max(0, available)));
    return clampWidth(style, wanted, containingWidth);
}

Box Layouter::layOutBox(int node, int width, int containingWidth, std::optional<int> containingHeight,
                        std::optional<int> height) {
    const Style& style = styleOf(node);
    const bool ancestor = style.position != Position::Static;
    if (ancestor)
        collected.emplace_back();
    Box box;
    box.node = node;
    const Insets insets = insetsOf(style, containingWidth);
    if (!height &&
        (style.height.unit == Length::Pixels || (style.height.unit == Length::Percent && containingHeight)))
        height = style.height.resolve(containingHeight.value_or(0));
    const Rect content = {insets.left, insets.top, std::max(0, width - insets.horizontal()), 0};
    const auto contentHeight =
        height ? std::optional(std::max(0, *height - insets.vertical())) : std::nullopt;
    const int used = layOutContent(box, content, contentHeight);
    const int least = style.minHeight.unit == Length::Percent && !containingHeight
                          ? 0
                          : style.minHeight.resolve(containingHeight.value_or(0));
    box.rect = {0, 0, width, std::max({0, height.value_or(used + insets.vertical()), least})};
    if (ancestor) {
        box.positioned = std::move(collected.back());
        collected.pop_back();
    }
    return box;
}

int Layouter::layOutContent(Box& box, const Rect& content, std::optional<int> contentHeight) {
    if (isImage(box.node)) {
        box.isImage = true;
        return imageSizeOf(box.node, content.width).height;
    }
    if (styleOf(box.node).display == Display::Flex && !document.nodes[box.node].isText())
        return layOutRow(box, content, contentHeight);
    return layOutFlow(box, content, contentHeight);
}

int Layouter::layOutFlow(Box& box, const Rect& content, std::optional<int> contentHeight) {
    std::vector<int> line; // inline children that wait for their lines
    int y = content.y;
    const auto flush = [&] {
        if (!line.empty())
            y += layOutLines(box, line, content, y);
        line.clear();
    };
    for (const int child : flowChildren(box.node)) {
        if (child != box.node && noteIfOutOfFlow(child))
            continue;
        if (!isBlockLevel(child)) {
            line.push_back(child);
            continue;
        }
        flush();
        y += layOutBlock(box, child, content, y, contentHeight);
    }
    flush();
    return y - content.y;
}

int Layouter::layOutBlock(Box& box, int node, const Rect& content, int y, std::optional<int> contentHeight) {
    const Style& style = styleOf(node);
    const Insets margins = marginsOf(style, content.width);
    const int room = content.width - margins.horizontal();
    const int width = clampWidth(style, style.width.resolve(content.width, room), content.width);
    Box child = layOutBox(node, width, content.width, contentHeight);
    int x = content.x + margins.left;
    if (style.margin[Left].isAuto())
        x += style.margin[Right].isAuto() ? (room - width) / 2 : room - width;
    child.rect = child.rect.moved(x, y + margins.top);
    const int height = child.rect.height + margins.vertical();
    if (style.position == Position::Relative)
        child.rect = child.rect.moved(style.inset[Left].resolve(content.width), style.inset[Top].resolve(0));
    box.children.push_back(std::move(child));
    return height;
}

Box Layouter::layOutRoot(int width, int height) {
    collected.emplace_back();
    Box root = layOutBox(0, width, width, height);
    if (root.rect.height < height)
        root.rect.height = height;
    root.positioned.insert(root.positioned.end(), collected.back().begin(), collected.back().end());
    collected.pop_back();
    placePositioned(root);
    return root;
}

void Layouter::placePositioned(Box& box) {
    const Style& style = styleOf(box.node);
    const auto edge = [&](Side side) { return static_cast<int>(std::lround(style.border[side].width)); };
    const Rect area = {edge(Left), edge(Top), box.rect.width - edge(Left) - edge(Right),
                       box.rect.height - edge(Top) - edge(Bottom)};
    for (const int node : std::exchange(box.positioned, {}))
        box.children.push_back(layOutPositioned(node, area));
    for (Box& child : box.children)
        placePositioned(child);
}

Box Layouter::layOutPositioned(int node, const Rect& area) {
    const Style& style = styleOf(node);
    const auto& inset = style.inset;
    const int left = inset[Left].resolve(area.width), right = inset[Right].resolve(area.width);
    const int top = inset[Top].resolve(area.height), bottom = inset[Bottom].resolve(area.height);
    const bool stretched =
        !inset[Left].isAuto() && !inset[Right].isAuto() && style.width.isAuto() && !isImage(node);
    const int room = area.width - left - right;
    const int width = isImage(node) ? imageSizeOf(node, area.width).width
                      : stretched   ? clampWidth(style, room, area.width)
                                    : shrunkWidth(node, room, area.width);
    std::optional<int> height;
    if (!inset[Top].isAuto() && !inset[Bottom].isAuto() && style.height.isAuto() && !isImage(node))
        height = std::max(0, area.height - top - bottom);
    Box box = layOutBox(node, width, area.width, area.height, height);
    const Insets margins = marginsOf(style, area.width);
    const int x = inset[Left].isAuto() && !inset[Right].isAuto() ? area.width - right - width - margins.right
                                                                 : left + margins.left;
    const int y = inset[Top].isAuto() && !inset[Bottom].isAuto()
                      ? area.height - bottom - box.rect.height - margins.bottom
                      : top + margins.top;
    box.rect = box.rect.moved(area.x + x, area.y + y);
    return box;
}

Layout layOut(const Document& document, const std::vector<Style>& styles, const ImageSizeOf& imageSize,
              TextMeasurer& measurer, int viewportWidth, int viewportHeight) {
    Layouter layouter(document, styles, imageSize, measurer);
    Layout layout{layouter.layOutRoot(viewportWidth, viewportHeight), 0};
    layout.height =
        std::clamp(layout.root.rect.height, viewportHeight, std::max(viewportHeight, limits::PageHeight));
    return layout;
}

} // namespace engine
