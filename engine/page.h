#pragma once

#include "engine/layout.h"
#include "engine/paint.h"
#include "engine/stylesheet.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

// A page that is shown: its document, its pictures as they come in, its layout for the
// window's size, and what is under the pointer. Places are pixels of the page, not of the
// window. Knows no window; used by one thread.

namespace engine {

// What a click does. Both empty: nothing.
struct ClickAction {
    std::string script;  // source of an onclick
    std::string address; // of a link, as the page gives it
};

class Page {
public:
    // measurer is not owned and outlives the page.
    Page(Document document, TextMeasurer& measurer);
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    const std::vector<std::string>& scripts() const { return document.scripts; }

    void resize(int width, int height);
    int height() const { return layout.height; }

    // Addresses of all pictures, as the page gives them, each once; at most limits::Images.
    std::vector<std::string> imageAddresses() const;
    void addImage(const std::string& address, Image image);

    // True when the page looks different now.
    bool pointAt(int x, int y);
    bool pointNowhere();
    bool showsHand() const; // under the pointer is something to click

    ClickAction actionAt(int x, int y) const;

    void paint(const Bitmap& target, TextPainter& texts, int scroll) const;

private:
    bool setHovered(std::set<int> nodes);
    void layOutAgain();
    std::string_view imageAddressOf(int node) const;
    const Image* imageOf(int node) const;

    Document document;
    StyleSheet sheet;
    TextMeasurer& measurer;
    std::vector<Style> styles;
    std::map<std::string, Image, std::less<>> images; // by address
    size_t imagePixels = 0;
    std::set<int> hovered; // the node under the pointer and its ancestors
    int innermost = NoNode;
    int width = 0, viewportHeight = 0;
    Layout layout;
};

} // namespace engine
