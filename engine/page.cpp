#include "engine/page.h"

#include <algorithm>

namespace engine {

Page::Page(Document parsed, TextMeasurer& measurer)
    : document(std::move(parsed)), sheet(parseStyleSheet(document.styles)), measurer(measurer) {
    layOutAgain();
}

void Page::resize(int newWidth, int newHeight) {
    if (newWidth == width && newHeight == viewportHeight)
        return;
    width = newWidth;
    viewportHeight = newHeight;
    layOutAgain();
}

void Page::layOutAgain() {
    styles = computeStyles(document, sheet, hovered);
    const ImageSizeOf sizeOf = [this](int node) -> std::optional<ImageSize> {
        const Image* image = imageOf(node);
        return image ? std::optional(ImageSize{image->width, image->height}) : std::nullopt;
    };
    layout = layOut(document, styles, sizeOf, measurer, width, viewportHeight);
}

std::string_view Page::imageAddressOf(int node) const {
    const Node& element = document.nodes[node];
    return element.tag == "img" ? element.attribute("src") : std::string_view(styles[node].image);
}

const Image* Page::imageOf(int node) const {
    const auto found = images.find(imageAddressOf(node));
    return found == images.end() ? nullptr : &found->second;
}

std::vector<std::string> Page::imageAddresses() const {
    std::vector<std::string> out;
    for (int node = 0; node < static_cast<int>(document.nodes.size()) && out.size() < limits::Images;
         node++) {
        std::string address(imageAddressOf(node));
        if (!address.empty() && std::find(out.begin(), out.end(), address) == out.end())
            out.push_back(std::move(address));
    }
    return out;
}

void Page::addImage(const std::string& address, Image image) {
    imagePixels += image.pixels.size();
    if (imagePixels > limits::PagePixels || images.size() == limits::Images)
        return;
    images.insert_or_assign(address, std::move(image));
    layOutAgain();
}

bool Page::pointAt(int x, int y) {
    std::set<int> nodes;
    innermost = nodeAt(layout, styles, x, y);
    for (int node = innermost; node != NoNode; node = document.nodes[node].parent)
        nodes.insert(node);
    return setHovered(std::move(nodes));
}

bool Page::pointNowhere() {
    innermost = NoNode;
    return setHovered({});
}

bool Page::setHovered(std::set<int> nodes) {
    if (nodes == hovered)
        return false;
    hovered = std::move(nodes);
    if (!sheet.usesHover)
        return false;
    layOutAgain();
    return true;
}

bool Page::showsHand() const {
    return innermost != NoNode && styles[innermost].pointer;
}

ClickAction Page::actionAt(int x, int y) const {
    for (int node = nodeAt(layout, styles, x, y); node != NoNode; node = document.nodes[node].parent) {
        const Node& element = document.nodes[node];
        if (const auto script = element.attribute("onclick"); !script.empty())
            return {std::string(script), {}};
        if (const auto address = element.attribute("href"); element.tag == "a" && !address.empty())
            return {{}, std::string(address)};
    }
    return {};
}

void Page::paint(const Bitmap& target, TextPainter& texts, int scroll) const {
    paintPage(
        target, document, layout, styles, [this](int node) { return imageOf(node); }, texts, scroll);
}

} // namespace engine
