#include "engine/layout.h"

namespace engine {

namespace {

// x and y are relative to the parent of the box.
int hitBox(const Box& box, const std::vector<Style>& styles, int x, int y) {
    const Style& style = styles[box.node];
    const bool inside = box.rect.contains(x, y);
    if (style.clips && !inside)
        return NoNode;
    x -= box.rect.x;
    y -= box.rect.y;
    for (const Fragment& fragment : box.fragments)
        if (fragment.rect.contains(x, y))
            return fragment.node;
    for (auto child = box.children.rbegin(); child != box.children.rend(); ++child)
        if (const int hit = hitBox(*child, styles, x, y); hit != NoNode)
            return hit;
    return inside && !style.hidden ? box.node : NoNode;
}

} // namespace

int nodeAt(const Layout& layout, const std::vector<Style>& styles, int x, int y) {
    return hitBox(layout.root, styles, x, y);
}

} // namespace engine
