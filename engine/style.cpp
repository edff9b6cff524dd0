#include "engine/style.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace engine {

namespace {

struct Context {
    Style& style;
    const Style& parent;
    std::string_view value;
};

using Setter = bool (*)(const Context&);

template <class Value>
using Words = std::span<const std::pair<std::string_view, Value>>;

template <class Value>
bool setWord(Value& target, std::string_view value, std::type_identity_t<Words<Value>> words) {
    for (const auto& [word, meaning] : words)
        if (word == value) {
            target = meaning;
            return true;
        }
    return false;
}

template <Length Style::*Member>
bool setLength(const Context& c) {
    const auto length = parseLength(c.value, c.style.fontSize);
    if (length)
        c.style.*Member = *length;
    return length.has_value();
}

template <float Style::*Member>
bool setPixels(const Context& c) {
    const auto length = parseLength(c.value, c.style.fontSize);
    if (!length || length->unit != Length::Pixels || length->value < 0)
        return false;
    c.style.*Member = length->value;
    return true;
}

// One to four values, as margin takes them.
template <std::array<Length, 4> Style::*Member>
bool setSides(const Context& c) {
    const auto parts = splitValue(c.value, ' ');
    if (parts.empty() || parts.size() > 4)
        return false;
    std::array<Length, 4> lengths;
    for (size_t i = 0; i < parts.size(); i++) {
        const auto length = parseLength(parts[i], c.style.fontSize);
        if (!length)
            return false;
        lengths[i] = *length;
    }
    const size_t last = parts.size() - 1;
    const auto& right = lengths[std::min<size_t>(1, last)];
    c.style.*
        Member = {lengths[0], right, last >= 2 ? lengths[2] : lengths[0], last == 3 ? lengths[3] : right};
    return true;
}

template <std::array<Length, 4> Style::*Member, Side Edge>
bool setSide(const Context& c) {
    const auto length = parseLength(c.value, c.style.fontSize);
    if (length)
        (c.style.*Member)[Edge] = *length;
    return length.has_value();
}

std::optional<Border> parseBorder(const Context& c) {
    Border border{0, c.style.color};
    bool none = false;
    for (const std::string_view part : splitValue(c.value, ' ')) {
        if (const auto length = parseLength(part, c.style.fontSize))
            border.width = std::clamp(length->value, 0.0f, 100.0f);
        else if (const auto color = parseColor(part))
            border.color = *color;
        else if (part == "none")
            none = true;
        else if (part != "solid")
            return std::nullopt;
    }
    return none ? Border{} : border;
}

bool setBorder(const Context& c) {
    const auto border = parseBorder(c);
    if (border)
        c.style.border.fill(*border);
    return border.has_value();
}

template <Side Edge>
bool setBorderSide(const Context& c) {
    const auto border = parseBorder(c);
    if (border)
        c.style.border[Edge] = *border;
    return border.has_value();
}

bool setBorderColor(const Context& c) {
    const auto color = parseColor(c.value);
    if (color)
        for (Border& border : c.style.border)
            border.color = *color;
    return color.has_value();
}

bool setColor(const Context& c) {
    const auto color = parseColor(c.value);
    if (color)
        c.style.color = *color;
    return color.has_value();
}

bool setFit(const Context& c) {
    return setWord<Fit>(c.style.imageFit, c.value,
                        {{{"cover", Fit::Cover}, {"contain", Fit::Contain}, {"100% 100%", Fit::Fill}}});
}

bool setImage(const Context& c) {
    if (c.value == "none") {
        c.style.image.clear();
        c.style.gradient = {};
        return true;
    }
    if (const auto address = parseUrl(c.value)) {
        c.style.image = *address;
        return true;
    }
    auto gradient = parseGradient(c.value);
    if (!gradient)
        return false;
    c.style.gradient = std::move(*gradient);
    return true;
}

bool setBackgroundColor(const Context& c) {
    const auto color = parseColor(c.value);
    if (color)
        c.style.background = *color;
    return color.has_value();
}

// The short form: a colour, a picture or gradient and a size in any order; its other words
// change nothing here.
bool setBackground(const Context& c) {
    c.style.background = 0;
    c.style.gradient = {};
    c.style.image.clear();
    bool understood = false;
    for (const std::string_view part : splitValue(c.value, ' ')) {
        const Context one{c.style, c.parent, part};
        understood |= setBackgroundColor(one) || setImage(one) || setFit(one);
    }
    return understood;
}

bool setDisplay(const Context& c) {
    return setWord<Display>(c.style.display, c.value,
                            {{{"none", Display::None},
                              {"block", Display::Block},
                              {"inline", Display::Inline},
                              {"inline-block", Display::InlineBlock},
                              {"flex", Display::Flex}}});
}

bool setPosition(const Context& c) {
    return setWord<Position>(
        c.style.position, c.value,
        {{{"static", Position::Static}, {"relative", Position::Relative}, {"absolute", Position::Absolute}}});
}

template <Align Style::*Member>
bool setAlign(const Context& c) {
    return setWord<Align>(c.style.*Member, c.value,
                          {{{"flex-start", Align::Start},
                            {"center", Align::Center},
                            {"flex-end", Align::End},
                            {"stretch", Align::Stretch},
                            {"space-between", Align::SpaceBetween}}});
}

bool setGrow(const Context& c) {
    const auto number = parseNumber(splitValue(c.value, ' ').front());
    if (!number || *number < 0 || *number > 1000)
        return false;
    c.style.grow = *number;
    return true;
}

bool setFontSize(const Context& c) {
    const auto length = parseLength(c.value, c.parent.fontSize);
    if (!length || length->isAuto() || length->value <= 0)
        return false;
    const float size =
        length->unit == Length::Percent ? c.parent.fontSize * length->value / 100 : length->value;
    c.style.fontSize = std::clamp(size, 1.0f, LargestFont);
    return true;
}

bool setFontWeight(const Context& c) {
    if (setWord<int>(c.style.fontWeight, c.value, {{{"normal", 400}, {"bold", 700}}}))
        return true;
    const auto number = parseNumber(c.value);
    if (!number || *number < 1 || *number > 1000)
        return false;
    c.style.fontWeight = static_cast<int>(*number);
    return true;
}

bool setLineHeight(const Context& c) {
    if (const auto number = parseNumber(c.value); number && *number > 0) {
        c.style.lineHeight = std::min(*number, 10.0f);
        return true;
    }
    const auto length = parseLength(c.value, c.style.fontSize);
    if (!length || length->isAuto() || length->value <= 0)
        return false;
    const float times =
        length->unit == Length::Percent ? length->value / 100 : length->value / c.style.fontSize;
    c.style.lineHeight = std::min(times, 10.0f);
    return true;
}

bool setTextAlign(const Context& c) {
    return setWord<TextAlign>(
        c.style.textAlign, c.value,
        {{{"left", TextAlign::Left}, {"center", TextAlign::Center}, {"right", TextAlign::Right}}});
}

bool setFlag(bool& flag, std::string_view value, std::string_view on, std::string_view off) {
    return setWord<bool>(flag, value, {{{on, true}, {off, false}}});
}

struct Property {
    std::string_view name;
    Setter set;
};

constexpr Property Properties[] = {
    {"align-items", setAlign<&Style::align>},
    {"background", setBackground},
    {"background-color", setBackgroundColor},
    {"background-image", setImage},
    {"background-size", setFit},
    {"border", setBorder},
    {"border-bottom", setBorderSide<Bottom>},
    {"border-color", setBorderColor},
    {"border-left", setBorderSide<Left>},
    {"border-radius", setPixels<&Style::radius>},
    {"border-right", setBorderSide<Right>},
    {"border-top", setBorderSide<Top>},
    {"bottom", setSide<&Style::inset, Bottom>},
    {"color", setColor},
    {"cursor", [](const Context& c) { return setFlag(c.style.pointer, c.value, "pointer", "default"); }},
    {"display", setDisplay},
    {"flex", setGrow},
    {"flex-grow", setGrow},
    {"font-size", setFontSize},
    {"font-style", [](const Context& c) { return setFlag(c.style.italic, c.value, "italic", "normal"); }},
    {"font-weight", setFontWeight},
    {"gap", setPixels<&Style::gap>},
    {"height", setLength<&Style::height>},
    {"justify-content", setAlign<&Style::justify>},
    {"left", setSide<&Style::inset, Left>},
    {"line-height", setLineHeight},
    {"margin", setSides<&Style::margin>},
    {"margin-bottom", setSide<&Style::margin, Bottom>},
    {"margin-left", setSide<&Style::margin, Left>},
    {"margin-right", setSide<&Style::margin, Right>},
    {"margin-top", setSide<&Style::margin, Top>},
    {"max-width", setLength<&Style::maxWidth>},
    {"min-height", setLength<&Style::minHeight>},
    {"min-width", setLength<&Style::minWidth>},
    {"overflow", [](const Context& c) { return setFlag(c.style.clips, c.value, "hidden", "visible"); }},
    {"padding", setSides<&Style::padding>},
    {"padding-bottom", setSide<&Style::padding, Bottom>},
    {"padding-left", setSide<&Style::padding, Left>},
    {"padding-right", setSide<&Style::padding, Right>},
    {"padding-top", setSide<&Style::padding, Top>},
    {"position", setPosition},
    {"right", setSide<&Style::inset, Right>},
    {"text-align", setTextAlign},
    {"text-decoration",
     [](const Context& c) { return setFlag(c.style.underline, c.value, "underline", "none"); }},
    {"text-overflow",
     [](const Context& c) { return setFlag(c.style.ellipsis, c.value, "ellipsis", "clip"); }},
    {"top", setSide<&Style::inset, Top>},
    {"vertical-align",
     [](const Context& c) { return setFlag(c.style.verticalMiddle, c.value, "middle", "baseline"); }},
    {"visibility", [](const Context& c) { return setFlag(c.style.hidden, c.value, "hidden", "visible"); }},
    {"white-space", [](const Context& c) { return setFlag(c.style.noWrap, c.value, "nowrap", "normal"); }},
    {"width", setLength<&Style::width>},
};

static_assert(std::is_sorted(std::begin(Properties), std::end(Properties),
                             [](const Property& a, const Property& b) { return a.name < b.name; }));

// Style text that each tag starts with.
constexpr std::pair<std::string_view, std::string_view> TagDefaults[] = {
    {"h1", "font-size:2em;font-weight:bold;margin:0.6em 0"},
    {"h2", "font-size:1.5em;font-weight:bold;margin:0.7em 0"},
    {"h3", "font-size:1.2em;font-weight:bold;margin:0.8em 0"},
    {"p", "margin:1em 0"},
    {"ul", "margin:1em 0;padding-left:24px"},
    {"ol", "margin:1em 0;padding-left:24px"},
    {"a", "cursor:pointer"},
    {"b", "font-weight:bold"},
    {"strong", "font-weight:bold"},
    {"i", "font-style:italic"},
    {"em", "font-style:italic"},
    {"small", "font-size:0.85em"},
};

constexpr std::string_view BlockTags[] = {"html", "body",    "div",     "p",      "h1",     "h2",    "h3",
                                          "ul",   "ol",      "li",      "header", "main",   "nav",   "footer",
                                          "form", "section", "article", "figure", "center", "table", "tr"};
constexpr std::string_view HiddenTags[] = {"head",   "script", "style",    "title",  "meta",  "link",
                                           "iframe", "object", "embed",    "video",  "audio", "template",
                                           "select", "input",  "noscript", "canvas", "svg"};

bool contains(std::span<const std::string_view> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

Style Style::inheritedFrom(const Style& parent) {
    Style style;
    style.color = parent.color;
    style.fontSize = parent.fontSize;
    style.fontWeight = parent.fontWeight;
    style.lineHeight = parent.lineHeight;
    style.textAlign = parent.textAlign;
    style.italic = parent.italic;
    style.underline = parent.underline;
    style.noWrap = parent.noWrap;
    style.ellipsis = parent.ellipsis;
    style.pointer = parent.pointer;
    style.hidden = parent.hidden;
    return style;
}

void applyTagDefaults(Style& style, std::string_view tag) {
    if (contains(HiddenTags, tag))
        style.display = Display::None;
    else if (contains(BlockTags, tag))
        style.display = Display::Block;
    else if (tag == "button")
        style.display = Display::InlineBlock;
    const Style parent = style;
    for (const auto& [name, text] : TagDefaults)
        if (name == tag)
            for (const std::string_view declaration : splitValue(text, ';'))
                applyDeclaration(style, parent, declaration.substr(0, declaration.find(':')),
                                 declaration.substr(declaration.find(':') + 1));
}

bool applyDeclaration(Style& style, const Style& parent, std::string_view name, std::string_view value) {
    const auto found =
        std::lower_bound(std::begin(Properties), std::end(Properties), name,
                         [](const Property& each, std::string_view key) { return each.name < key; });
    if (found == std::end(Properties) || found->name != name || value.empty())
        return false;
    return found->set({style, parent, value});
}

} // namespace engine
