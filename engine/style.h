#pragma once

#include "engine/css_value.h"

#include <array>
#include <string>
#include <string_view>

// How one element looks: the values of all style properties that the engine knows. Sizes
// count from border edge to border edge, whatever box-sizing says. Lengths in em are
// pixels here already; percentages wait for the layout.

namespace engine {

enum class Display { None, Block, Inline, InlineBlock, Flex };
enum class Position { Static, Relative, Absolute };
enum class TextAlign { Left, Center, Right };
enum class Align { Start, Center, End, Stretch, SpaceBetween };
enum class Fit { Fill, Cover, Contain };

enum Side { Top, Right, Bottom, Left };

struct Border {
    float width = 0;
    Color color = 0;
};

struct Style {
    Display display = Display::Inline;
    Position position = Position::Static;
    std::array<Length, 4> margin = {Length{Length::Pixels, 0}, Length{Length::Pixels, 0},
                                    Length{Length::Pixels, 0}, Length{Length::Pixels, 0}};
    std::array<Length, 4> padding = margin;
    std::array<Length, 4> inset; // auto: not given
    std::array<Border, 4> border;
    Length width, height, minWidth, maxWidth, minHeight; // auto: not given
    float radius = 0;
    bool clips = false; // overflow: hidden

    Color background = 0;
    Gradient gradient;
    std::string image; // address as the page gives it; empty for none
    Fit imageFit = Fit::Fill;

    Align justify = Align::Start; // of a row's children along it
    Align align = Align::Stretch; // and across it
    float gap = 0;
    float grow = 0;
    bool verticalMiddle = false; // of a picture or block within its line

    // What children take over from their parent.
    Color color = 0xFF202020;
    float fontSize = 16;
    int fontWeight = 400;
    float lineHeight = 1.35f; // times the font size
    TextAlign textAlign = TextAlign::Left;
    bool italic = false;
    bool underline = false;
    bool noWrap = false;
    bool ellipsis = false; // a line that does not fit ends in three dots
    bool pointer = false;  // the hand
    bool hidden = false;

    static Style inheritedFrom(const Style& parent);
};

inline constexpr float LargestFont = 200;

// What a tag looks like before any rule of the page.
void applyTagDefaults(Style& style, std::string_view tag);

// One declaration. False, with the style untouched, for a name or value not understood.
// The font size is to be applied before lengths that count in em.
bool applyDeclaration(Style& style, const Style& parent, std::string_view name, std::string_view value);

} // namespace engine
