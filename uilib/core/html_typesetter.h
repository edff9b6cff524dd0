#pragma once

#include "uilib/core/html_layout.h"
#include "uilib/core/html_tokens.h"

// Sets formatted text from the top left of a rectangle; lines of a text of several lines
// are centred or put to the right one by one. What a line holds gets its vertical place
// when the line ends, since its height is known only then. One object sets one text.

namespace UILib {

class HtmlTypesetter {
public:
    HtmlTypesetter(HtmlDevice& device, const Box& box, const HtmlStyle& style, const HtmlDefaults& defaults);

    HtmlLayout set(std::wstring_view text);

private:
    using Text = std::wstring_view;

    enum class VerticalAlign { Top, Center, Bottom };

    struct Color {
        uint32_t argb;
        bool ofLink;
    };

    struct LineItem { // a run or picture whose vertical place is open
        bool picture;
        size_t index;
        int height;
        VerticalAlign align;
    };

    struct Tag {
        void (HtmlTypesetter::*open)(Text attribute);
        void (HtmlTypesetter::*close)();
    };
    static const Tag* tagOf(wchar_t letter); // null for a letter without meaning

    void take(const HtmlToken& token);

    // -- Text
    void placeText(Text text);
    HtmlDevice::Fit fitting(Text text) const;
    size_t breakAt(Text text, size_t fitting, size_t& blanks) const;
    bool endsInEllipsis() const;
    void put(Text text) { put(text, device.width(fonts.back(), text)); }
    void put(Text text, int width);
    void putPicture(HtmlImage image);

    // -- Lines
    bool lineIsEmpty() const { return items.empty(); }
    int lineHeight() const;
    int fontHeight() const;
    void endLine();
    void placeItem(const LineItem& item, int height);
    void shiftLine(int right);
    void storeLink();

    // -- Tags
    void openLink(Text name);
    void closeLink();
    void openBold(Text);
    void openUnderline(Text);
    void openItalicOrPicture(Text attribute);
    void openFont(Text attribute);
    void closeFont();
    void openColor(Text attribute);
    void closeColor();
    void openParagraph(Text attribute);
    void closeParagraph();
    void openSelection(Text);
    void closeSelection();
    void openAlign(Text attribute);
    void closeAlign();
    void breakLine(Text);
    void penTo322(Text attribute);
    void penTo354(Text attribute);
    void penBy(Text attribute);
    void fixHeight(Text attribute);
    void ignoreClose() {}
    void penTo(Text attribute, int column);
    void pushTwin(FontTrait trait);

    HtmlDevice& device;
    const Box box;
    const HtmlStyle style;
    const HtmlDefaults defaults;
    HtmlLayout layout;

    // The first entry of each stack is the default and stays.
    std::vector<int> fonts;
    std::vector<Color> colors;
    std::vector<int> spacings;
    std::vector<VerticalAlign> aligns;
    bool selected = false;
    bool linkOpen = false;
    Text linkName;
    int linkBegin = 0; // x, on this line

    int pen = 0;     // x of what comes next
    int lineTop = 0; // y
    int tallest = 0; // of what is on the line
    int fixedHeight = -1;
    wchar_t lastCharacter = 0; // on this line
    std::vector<LineItem> items;
    size_t firstLink = 0; // of this line
    bool done = false;
};

} // namespace UILib
