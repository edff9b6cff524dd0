#include "engine/document.h"
#include "engine/text.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>

namespace engine {

namespace {

constexpr size_t PieceBytes = 4096; // the limits are looked at between two pieces

const char* chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> out;
    while (!(text = trimmed(text)).empty()) {
        const auto end = std::find_if(text.begin(), text.end(), isBlank);
        out.emplace_back(text.begin(), end);
        text.remove_prefix(static_cast<size_t>(end - text.begin()));
    }
    return out;
}

// Builds the tree from the parser's events. An element that is too deep, or one too many,
// is left out with all that it holds.
class TreeBuilder {
public:
    TreeBuilder() {
        document.nodes.reserve(64);
        document.nodes.emplace_back().tag = "html";
        open.push_back(0);
    }

    void startElement(std::string_view name, const xmlChar** attributes) {
        if (name == "html")
            return startRoot(attributes);
        if (skipped > 0 || open.size() >= limits::Depth || full()) {
            skipped++;
            return;
        }
        const int number = append();
        Node& node = document.nodes[number];
        node.tag = lowered(name);
        readAttributes(node, attributes);
        open.push_back(number);
        if (node.tag == "script" && node.attribute("src").empty())
            document.scripts.emplace_back();
    }

    void endElement(std::string_view name) {
        if (name == "html")
            return;
        if (skipped > 0)
            skipped--;
        else if (open.size() > 1)
            open.pop_back();
    }

    void characters(std::string_view text) {
        if (skipped > 0)
            return;
        const std::string& tag = document.nodes[open.back()].tag;
        if (tag == "style")
            return appendSource(document.styles, text);
        if (tag == "script") {
            if (!document.scripts.empty())
                appendSource(document.scripts.back(), text);
            return;
        }
        appendText(text);
    }

    bool full() const { return document.nodes.size() >= limits::Nodes; }

    Document document;

private:
    int append() {
        const int number = static_cast<int>(document.nodes.size());
        document.nodes.emplace_back().parent = open.back();
        document.nodes[open.back()].children.push_back(number);
        return number;
    }

    void startRoot(const xmlChar** attributes) {
        Node& root = document.nodes[0];
        if (!root.attributes.empty())
            return;
        readAttributes(root, attributes);
        document.language = lowered(root.attribute("lang"));
    }

    static void readAttributes(Node& node, const xmlChar** attributes) {
        for (; attributes && attributes[0] && node.attributes.size() < limits::Attributes; attributes += 2)
            node.attributes.emplace_back(lowered(chars(attributes[0])),
                                         attributes[1] ? chars(attributes[1]) : "");
        node.id = node.attribute("id");
        node.classes = words(node.attribute("class"));
    }

    void appendSource(std::string& source, std::string_view text) {
        const size_t count = std::min(text.size(), limits::SourceBytes - sourceBytes);
        sourceBytes += count;
        source += text.substr(0, count);
    }

    // The parser hands a long text over in pieces, which are put together again.
    void appendText(std::string_view text) {
        std::u16string wide = toUtf16(text);
        wide.resize(std::min(wide.size(), limits::Characters - characterCount));
        characterCount += wide.size();
        if (wide.empty())
            return;
        const std::vector<int>& siblings = document.nodes[open.back()].children;
        if (!siblings.empty() && document.nodes[siblings.back()].isText())
            document.nodes[siblings.back()].text += wide;
        else if (!full())
            document.nodes[append()].text = std::move(wide);
    }

    std::vector<int> open; // nodes from the root to the innermost open element
    size_t skipped = 0;    // open elements that were left out
    size_t characterCount = 0;
    size_t sourceBytes = 0;
};

TreeBuilder& builderOf(void* context) {
    return *static_cast<TreeBuilder*>(context);
}

void onStart(void* context, const xmlChar* name, const xmlChar** attributes) {
    builderOf(context).startElement(chars(name), attributes);
}

void onEnd(void* context, const xmlChar* name) {
    builderOf(context).endElement(chars(name));
}

void onText(void* context, const xmlChar* text, int length) {
    builderOf(context).characters({chars(text), static_cast<size_t>(length)});
}

xmlSAXHandler eventHandler() {
    xmlSAXHandler handler{};
    handler.startElement = onStart;
    handler.endElement = onEnd;
    handler.characters = onText;
    handler.ignorableWhitespace = onText;
    handler.cdataBlock = onText; // styles and scripts come this way
    return handler;
}

} // namespace

Document parsePage(std::string_view bytes) {
    static std::mutex parserLock; // the library is built without locks of its own
    const std::scoped_lock guard(parserLock);
    const std::string text = repairedUtf8(bytes.substr(0, limits::PageBytes));
    TreeBuilder builder;
    xmlSAXHandler handler = eventHandler();
    const std::unique_ptr<htmlParserCtxt, decltype(&htmlFreeParserCtxt)> parser(
        htmlCreatePushParserCtxt(&handler, &builder, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8),
        htmlFreeParserCtxt);
    if (!parser)
        return std::move(builder.document);
    htmlCtxtUseOptions(parser.get(),
                       HTML_PARSE_NONET | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_IGNORE_ENC);
    for (size_t at = 0; at < text.size() && !builder.full(); at += PieceBytes)
        htmlParseChunk(parser.get(), text.data() + at,
                       static_cast<int>(std::min(PieceBytes, text.size() - at)), 0);
    htmlParseChunk(parser.get(), nullptr, 0, 1);
    return std::move(builder.document);
}

} // namespace engine
