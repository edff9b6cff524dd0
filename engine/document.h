#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// A parsed page: a tree of elements and texts, held in one list in the order of the page.
// A node is named by its place in that list; a parent always stands before its children.
// Node 0 is the root element and is always there. A plain value, not changed after parsing.

namespace engine {

inline constexpr int NoNode = -1;

struct Node {
    int parent = NoNode;
    std::string tag; // lower case; empty for a text
    std::string id;
    std::vector<std::string> classes;
    std::vector<std::pair<std::string, std::string>> attributes; // names in lower case
    std::u16string text;
    std::vector<int> children;

    bool isText() const { return tag.empty(); }

    // Empty if it is missing.
    std::string_view attribute(std::string_view name) const {
        for (const auto& [key, value] : attributes)
            if (key == name)
                return value;
        return {};
    }
};

struct Document {
    std::vector<Node> nodes;
    std::string language;             // of the root's lang, lower case; may be empty
    std::string styles;               // all style elements, joined
    std::vector<std::string> scripts; // sources in the page, in order
};

// What a page may hold at most. The rest of a larger page is left out.
namespace limits {
inline constexpr size_t PageBytes = 1024 * 1024;
inline constexpr size_t Nodes = 4000;
inline constexpr size_t Depth = 48;
inline constexpr size_t Characters = 32 * 1024;   // of all texts together, in UTF-16 units
inline constexpr size_t SourceBytes = 128 * 1024; // of all styles, and of all scripts
inline constexpr size_t Attributes = 24;          // of one element
} // namespace limits

// Never fails: a page that cannot be read is an empty one. Any thread, one at a time over
// the whole process, which it sees to itself.
Document parsePage(std::string_view bytes);

} // namespace engine
