#include "engine/stylesheet.h"

#include "engine/text.h"

#include <algorithm>
#include <optional>

namespace engine {

namespace {

std::string withoutComments(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const size_t start = text.find("/*");
        out += text.substr(0, start);
        if (start == text.npos)
            break;
        const size_t end = text.find("*/", start + 2);
        text = end == text.npos ? std::string_view{} : text.substr(end + 2);
        out += ' ';
    }
    return out;
}

bool isNameLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '-' || letter == '_';
}

std::string takeName(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isNameLetter);
    std::string name(text.begin(), end);
    text.remove_prefix(name.size());
    return name;
}

std::optional<Compound> parseCompound(std::string_view text) {
    Compound compound;
    if (text.starts_with('*'))
        text.remove_prefix(1);
    else
        compound.tag = lowered(takeName(text));
    while (!text.empty()) {
        const char mark = text.front();
        text.remove_prefix(1);
        const std::string name = takeName(text);
        if (mark == '.' && !name.empty())
            compound.classes.push_back(name);
        else if (mark == '#' && !name.empty())
            compound.id = name;
        else if (mark == ':' && name == "hover")
            compound.hover = true;
        else
            return std::nullopt;
    }
    return compound;
}

std::optional<Rule> parseSelector(std::string_view text) {
    Rule rule;
    for (const std::string_view part : splitValue(text, ' ')) {
        auto compound = parseCompound(part);
        if (!compound || rule.selector.size() == limits::Compounds)
            return std::nullopt;
        rule.specificity += compound->id.empty() ? 0 : 100;
        rule.specificity += 10 * static_cast<int>(std::min<size_t>(compound->classes.size(), 9));
        rule.specificity += (compound->hover ? 10 : 0) + (compound->tag.empty() ? 0 : 1);
        rule.selector.push_back(std::move(*compound));
    }
    return rule.selector.empty() ? std::nullopt : std::optional(std::move(rule));
}

void addRules(StyleSheet& sheet, std::string_view selectors, std::string_view body) {
    const std::vector<Declaration> declarations = parseDeclarations(body);
    for (const std::string_view selector : splitValue(selectors, ',')) {
        if (sheet.rules.size() == limits::Rules)
            return;
        auto rule = parseSelector(selector);
        if (!rule)
            continue;
        rule->declarations = declarations;
        for (const Compound& compound : rule->selector)
            sheet.usesHover |= compound.hover;
        sheet.rules.push_back(std::move(*rule));
    }
}

// The place behind the block that opens at start.
size_t endOfBlock(std::string_view text, size_t start) {
    int depth = 0;
    for (size_t at = start; at < text.size(); at++) {
        if (text[at] == '{')
            depth++;
        else if (text[at] == '}' && --depth == 0)
            return at + 1;
    }
    return text.size();
}

bool matches(const Compound& compound, const Node& node, bool hovered) {
    if (node.isText() || (compound.hover && !hovered) ||
        (!compound.tag.empty() && compound.tag != node.tag) ||
        (!compound.id.empty() && compound.id != node.id))
        return false;
    return std::all_of(compound.classes.begin(), compound.classes.end(), [&](const std::string& name) {
        return std::find(node.classes.begin(), node.classes.end(), name) != node.classes.end();
    });
}

// Ancestors are taken greedily from the inside: with descent as the only join, the nearest
// match leaves the most room for the rest.
bool matches(const Rule& rule, const Document& document, int node, const std::set<int>& hovered) {
    auto compound = rule.selector.rbegin();
    if (!matches(*compound, document.nodes[node], hovered.contains(node)))
        return false;
    for (++compound; compound != rule.selector.rend(); ++compound) {
        do {
            node = document.nodes[node].parent;
            if (node == NoNode)
                return false;
        } while (!matches(*compound, document.nodes[node], hovered.contains(node)));
    }
    return true;
}

// Twice over the list: the font size, which em counts, has to be known for the rest.
void applyAll(Style& style, const Style& parent, const std::vector<const Declaration*>& declarations) {
    for (const Declaration* each : declarations)
        if (each->name == "font-size" || each->name == "color")
            applyDeclaration(style, parent, each->name, each->value);
    for (const Declaration* each : declarations)
        if (each->name != "font-size" && each->name != "color")
            applyDeclaration(style, parent, each->name, each->value);
}

Style styleOf(const Document& document, const StyleSheet& sheet, int number, const Style& parent,
              const std::set<int>& hovered) {
    const Node& node = document.nodes[number];
    Style style = Style::inheritedFrom(parent);
    if (node.isText())
        return style;
    applyTagDefaults(style, node.tag);
    std::vector<const Declaration*> declarations;
    for (const Rule& rule : sheet.rules)
        if (matches(rule, document, number, hovered))
            for (const Declaration& each : rule.declarations)
                declarations.push_back(&each);
    const std::vector<Declaration> own = parseDeclarations(node.attribute("style"));
    for (const Declaration& each : own)
        declarations.push_back(&each);
    applyAll(style, parent, declarations);
    return style;
}

} // namespace

std::vector<Declaration> parseDeclarations(std::string_view text) {
    std::vector<Declaration> out;
    for (const std::string_view piece : splitValue(text, ';')) {
        const size_t colon = piece.find(':');
        if (colon == piece.npos || out.size() == limits::Declarations)
            continue;
        std::string_view value = trimmed(piece.substr(colon + 1));
        value = trimmed(value.substr(0, value.find("!important")));
        out.push_back({lowered(trimmed(piece.substr(0, colon))), std::string(value)});
    }
    return out;
}

StyleSheet parseStyleSheet(std::string_view source) {
    StyleSheet sheet;
    const std::string plain = withoutComments(source);
    std::string_view text = plain;
    for (size_t open = text.find('{'); open != text.npos; open = text.find('{')) {
        const size_t end = endOfBlock(text, open);
        const std::string_view selectors = trimmed(text.substr(0, open));
        if (!selectors.starts_with('@') && end > open + 1)
            addRules(sheet, selectors, text.substr(open + 1, end - open - 2));
        text.remove_prefix(end);
    }
    std::stable_sort(sheet.rules.begin(), sheet.rules.end(),
                     [](const Rule& a, const Rule& b) { return a.specificity < b.specificity; });
    return sheet;
}

std::vector<Style> computeStyles(const Document& document, const StyleSheet& sheet,
                                 const std::set<int>& hovered) {
    std::vector<Style> styles;
    styles.reserve(document.nodes.size());
    for (int number = 0; number < static_cast<int>(document.nodes.size()); number++) {
        const int parent = document.nodes[number].parent;
        styles.push_back(
            styleOf(document, sheet, number, parent == NoNode ? Style{} : Style(styles[parent]), hovered));
    }
    return styles;
}

} // namespace engine
