#pragma once

#include "engine/layout.h"

// The work of one layout, divided over three files: boxes (layout_box.cpp), lines
// (layout_line.cpp) and rows (layout_row.cpp). Every element is measured and laid out a
// fixed number of times, so that the time is in proportion to the page.

namespace engine {

class LineBuilder;

class Layouter {
public:
    Layouter(const Document& document, const std::vector<Style>& styles, const ImageSizeOf& imageSize,
             TextMeasurer& measurer);

    Box layOutRoot(int width, int height);

private:
    friend class LineBuilder;

    // Border and padding of an element together, by side; percentages count the width.
    struct Insets {
        int top = 0, right = 0, bottom = 0, left = 0;
        int horizontal() const { return left + right; }
        int vertical() const { return top + bottom; }
    };
    struct Child; // of a row

    const Style& styleOf(int node) const { return styles[node]; }
    bool isShown(int node) const;     // takes part in the flow
    bool isOutOfFlow(int node) const; // positioned: noted for its ancestor instead
    bool isBlockLevel(int node) const { return blockLevel[node]; }
    bool isBlankText(int node) const;
    bool isImage(int node) const { return document.nodes[node].tag == "img"; }
    std::vector<int> flowChildren(int node) const; // a text is its own child
    bool noteIfOutOfFlow(int node);

    Insets insetsOf(const Style& style, int containingWidth) const;
    Insets marginsOf(const Style& style, int containingWidth) const;
    int clampWidth(const Style& style, int width, int containingWidth) const;
    ImageSize imageSizeOf(int node, int containingWidth) const;

    // Border width that the content would like to have, without a line divided in it.
    int preferredWidth(int node);
    int preferredContentWidth(int node);
    int preferredLineWidth(int node, int& line); // line: of the line so far, goes on
    int shrunkWidth(int node, int available, int containingWidth);

    // width is of the border box. height: of the border box where it is fixed from outside.
    // containingHeight: what percentages count, if it is known.
    Box layOutBox(int node, int width, int containingWidth, std::optional<int> containingHeight,
                  std::optional<int> height = std::nullopt);
    // These fill a box and give the height of the content.
    int layOutContent(Box& box, const Rect& content, std::optional<int> contentHeight);
    int layOutFlow(Box& box, const Rect& content, std::optional<int> contentHeight);
    int layOutBlock(Box& box, int node, const Rect& content, int y, std::optional<int> contentHeight);
    int layOutLines(Box& box, const std::vector<int>& nodes, const Rect& content, int y);
    void addInline(LineBuilder& lines, int node, int width);
    void addText(LineBuilder& lines, int node);
    Box layOutAtom(int node, int width);

    int layOutRow(Box& box, const Rect& content, std::optional<int> contentHeight);
    std::vector<Child> rowChildren(int node, int width);
    void shareWidth(std::vector<Child>& row, int free) const;
    void placeRow(Box& box, std::vector<Child>& row, const Rect& content, int height, int free, int gap);

    void placePositioned(Box& box);
    Box layOutPositioned(int node, const Rect& area);

    const Document& document;
    const std::vector<Style>& styles;
    const ImageSizeOf& imageSize;
    TextMeasurer& measurer;
    std::vector<char> blockLevel;            // by node
    std::vector<int> preferred;              // by node; -1 before it is known
    std::vector<std::vector<int>> collected; // positioned elements of the open ancestors
};

} // namespace engine
