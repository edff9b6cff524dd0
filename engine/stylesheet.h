#pragma once

#include "engine/document.h"
#include "engine/style.h"

#include <set>
#include <string>
#include <vector>

// The rules of a page's style elements: selectors of tags, classes, ids and :hover, joined
// by descent ("ul .card:hover a"). What a rule says otherwise is passed over, and so are
// at-rules. A plain value; any thread.

namespace engine {

struct Declaration {
    std::string name; // lower case
    std::string value;
};

// One element of a selector; empty parts match any.
struct Compound {
    std::string tag;
    std::string id;
    std::vector<std::string> classes;
    bool hover = false;
};

struct Rule {
    std::vector<Compound> selector; // the element itself last, before it ancestors from outside in
    int specificity = 0;
    std::vector<Declaration> declarations;
};

struct StyleSheet {
    std::vector<Rule> rules; // ascending by specificity, then by place in the page
    bool usesHover = false;
};

namespace limits {
inline constexpr size_t Rules = 400;
inline constexpr size_t Compounds = 8;     // of one selector
inline constexpr size_t Declarations = 64; // of one rule
} // namespace limits

StyleSheet parseStyleSheet(std::string_view text);
std::vector<Declaration> parseDeclarations(std::string_view text);

// Styles of all nodes, by node. hovered: the element under the pointer and its ancestors.
std::vector<Style> computeStyles(const Document& document, const StyleSheet& sheet,
                                 const std::set<int>& hovered);

} // namespace engine
