#include "uilib/core/html_typesetter.h"

#include "uilib/core/image_string.h"
#include "uilib/core/number_text.h"

// What the tags of formatted text do.

namespace UILib {

namespace {

using Text = std::wstring_view;

// Texts in this colour stand on a table with fixed columns.
constexpr uint32_t TableTextColor = 0xFF17171A;

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

Text takeWord(Text& text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    size_t length = 0;
    while (length < text.size() && !isBlank(text[length]))
        ++length;
    const Text word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

bool isNumber(Text word) {
    return !word.empty() && word.find_first_not_of(L"0123456789") == Text::npos;
}

bool equalAnyCase(Text word, Text lower) {
    return std::equal(word.begin(), word.end(), lower.begin(), lower.end(),
                      [](wchar_t a, wchar_t b) { return (a >= L'A' && a <= L'Z' ? a | 0x20 : a) == b; });
}

// FACE [SIZE] and the words bold, underline, italic in any order and case.
HtmlFont parseFont(Text attribute) {
    HtmlFont font;
    font.faceName = takeWord(attribute);
    for (Text word = takeWord(attribute); !word.empty(); word = takeWord(attribute)) {
        if (isNumber(word))
            font.size = readCoordinate(word);
        else if (equalAnyCase(word, L"bold"))
            font.bold = true;
        else if (equalAnyCase(word, L"underline"))
            font.underline = true;
        else if (equalAnyCase(word, L"italic"))
            font.italic = true;
    }
    return font;
}

// NAME [FRAMES [INDEX]], or an image string.
HtmlImage parseImage(Text attribute) {
    HtmlImage image;
    if (attribute.find(L"file='") != Text::npos || attribute.find(L"res='") != Text::npos) {
        ImageString parsed = parseImageString(attribute);
        image.name = std::move(parsed.name);
        image.type = std::move(parsed.type);
        return image;
    }
    image.name = takeWord(attribute);
    image.frames = std::max(readCoordinate(attribute), 1);
    const int frame = readCoordinate(attribute);
    image.frame = frame >= 0 && frame < image.frames ? frame : 0;
    return image;
}

template <class Stack>
void popAboveDefault(Stack& stack) {
    if (stack.size() > 1)
        stack.pop_back();
}

} // namespace

const HtmlTypesetter::Tag* HtmlTypesetter::tagOf(wchar_t letter) {
    using T = HtmlTypesetter;
    struct Entry {
        wchar_t letter;
        Tag tag;
    };
    static constexpr Entry entries[] = {
        {L'a', {&T::openLink, &T::closeLink}},           {L'b', {&T::openBold, &T::closeFont}},
        {L'c', {&T::openColor, &T::closeColor}},         {L'f', {&T::openFont, &T::closeFont}},
        {L'h', {&T::penTo322, &T::ignoreClose}},         {L'i', {&T::openItalicOrPicture, &T::closeFont}},
        {L'n', {&T::breakLine, &T::ignoreClose}},        {L'p', {&T::openParagraph, &T::closeParagraph}},
        {L's', {&T::openSelection, &T::closeSelection}}, {L'u', {&T::openUnderline, &T::closeFont}},
        {L'v', {&T::openAlign, &T::closeAlign}},         {L'x', {&T::penBy, &T::ignoreClose}},
        {L'y', {&T::fixHeight, &T::ignoreClose}},        {L'z', {&T::penTo354, &T::ignoreClose}},
    };
    for (const Entry& entry : entries)
        if (entry.letter == letter)
            return &entry.tag;
    return nullptr;
}

void HtmlTypesetter::openLink(Text name) {
    closeLink();
    linkOpen = true;
    linkName = name;
    linkBegin = pen;
    pushTwin(FontTrait::Underline);
    colors.push_back({defaults.linkColor, true});
}

void HtmlTypesetter::closeLink() {
    if (!linkOpen)
        return;
    storeLink();
    linkOpen = false;
    linkName = {};
    closeFont();
    closeColor();
}

void HtmlTypesetter::pushTwin(FontTrait trait) {
    fonts.push_back(device.twin(fonts.back(), trait));
}

void HtmlTypesetter::openBold(Text) {
    pushTwin(FontTrait::Bold);
}

void HtmlTypesetter::openUnderline(Text) {
    pushTwin(FontTrait::Underline);
}

void HtmlTypesetter::openItalicOrPicture(Text attribute) {
    if (attribute.find_first_not_of(L" \t") == Text::npos)
        pushTwin(FontTrait::Italic);
    else
        putPicture(parseImage(attribute));
}

void HtmlTypesetter::openFont(Text attribute) {
    Text rest = attribute;
    Text word = takeWord(rest);
    if (word.empty())
        fonts.push_back(fonts.back());
    else if (isNumber(word))
        fonts.push_back(readInteger(word));
    else
        fonts.push_back(device.find(parseFont(attribute), fonts.back()));
}

void HtmlTypesetter::closeFont() {
    if (fonts.size() == 1)
        return;
    pen += device.italicOverhang(fonts.back());
    fonts.pop_back();
}

void HtmlTypesetter::openColor(Text attribute) {
    while (!attribute.empty() && isBlank(attribute.front()))
        attribute.remove_prefix(1);
    if (!attribute.empty() && attribute.front() == L'#')
        attribute.remove_prefix(1);
    colors.push_back({static_cast<uint32_t>(readInteger(attribute, 16)) | 0xFF000000, false});
}

void HtmlTypesetter::closeColor() {
    popAboveDefault(colors);
}

void HtmlTypesetter::openParagraph(Text attribute) {
    if (!lineIsEmpty())
        endLine();
    spacings.push_back(std::max(readCoordinate(attribute), 0));
}

void HtmlTypesetter::closeParagraph() {
    popAboveDefault(spacings);
}

void HtmlTypesetter::openSelection(Text) {
    selected = true;
}

void HtmlTypesetter::closeSelection() {
    selected = false;
}

void HtmlTypesetter::openAlign(Text attribute) {
    const Text word = takeWord(attribute);
    aligns.push_back(word == L"center" ? VerticalAlign::Center
                     : word == L"top"  ? VerticalAlign::Top
                                       : VerticalAlign::Bottom);
}

void HtmlTypesetter::closeAlign() {
    popAboveDefault(aligns);
}

void HtmlTypesetter::breakLine(Text) {
    endLine();
}

void HtmlTypesetter::penTo(Text attribute, int column) {
    layout.movable = false;
    pen = defaults.color == TableTextColor ? column : readCoordinate(attribute);
}

void HtmlTypesetter::penTo322(Text attribute) {
    penTo(attribute, 322);
}

void HtmlTypesetter::penTo354(Text attribute) {
    penTo(attribute, 354);
}

void HtmlTypesetter::penBy(Text attribute) {
    layout.movable = false;
    pen = std::clamp(pen + readCoordinate(attribute), -CoordinateLimit, CoordinateLimit);
}

void HtmlTypesetter::fixHeight(Text attribute) {
    fixedHeight = std::max(readCoordinate(attribute), 0);
}

} // namespace UILib
