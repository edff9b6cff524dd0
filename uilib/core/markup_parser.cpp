#include "uilib/core/markup.h"
#include "uilib/core/markup_scan.h"
#include "uilib/core/utf8.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <vector>

namespace UILib {

namespace {

struct Entity {
    std::string_view name;
    wchar_t character;
};
constexpr Entity Entities[] = {
    {"amp;", L'&'}, {"lt;", L'<'}, {"gt;", L'>'}, {"quot;", L'"'}, {"apos;", L'\''}};

// What a skin has as a rule; a guess too low costs a copy of the table, one too high only
// address space.
constexpr size_t BytesPerElement = 100;
constexpr size_t GrowthRecords = 500;

// A document may be bytes of UTF-8 or wide characters already.
char32_t takeCharacter(const char*& at, const char* end) {
    return takeUtf8(at, end);
}
char32_t takeCharacter(const wchar_t*& at, const wchar_t*) {
    return static_cast<char32_t>(*at++);
}

wchar_t* copyText(std::string_view from, wchar_t* to) {
    return decodeUtf8(from, to);
}
wchar_t* copyText(std::wstring_view from, wchar_t* to) {
    return std::copy(from.begin(), from.end(), to);
}

// A letter or digit beyond ASCII, of those that one wide character can hold.
bool isWideLetter(char32_t c) {
    return c >= 0x80 && c < 0x10000 && std::iswalnum(static_cast<wint_t>(c));
}

} // namespace

// One run over one document. Levels are followed with a list of open elements, so the
// depth of a document costs no stack.
template <class Unit>
class MarkupParser {
public:
    using View = std::basic_string_view<Unit>;

    // out: room for one character more than the source has.
    MarkupParser(CMarkup& document, View source, wchar_t* out)
        : document(document), at(source.data()), end(at + source.size()), out(out) {}

    bool run() {
        addElement();
        skipBlanks();
        return parseElements();
    }

private:
    struct Open {
        uint32_t element;
        View name;
    };

    bool parseElements();
    bool openElement();
    bool closeElement();
    bool parseAttributes();
    bool parseValue();
    void skipDeclaration();
    wchar_t takeEntity();
    uint32_t addElement();
    bool fail(const wchar_t* message);

    bool is(char c, int ahead = 0) const { return end - at > ahead && at[ahead] == static_cast<Unit>(c); }
    bool atEmptyEnd() const { return is('/') && is('>', 1); } // "/>"
    void skipBlanks() { at = scan::skipBlanks(at, end); }
    View copyIdentifier();
    void copyCharacter();
    uint32_t parent() const { return open.empty() ? 0 : open.back().element; }
    bool mayEndHere() const { return parent() <= 1; } // the root's own end tag may be missing

    CMarkup& document;
    const Unit* at;
    const Unit* end;
    wchar_t* out;           // where the next name or value goes
    std::vector<Open> open; // elements whose children are being read
    uint32_t previous = 0;  // the child read last
};

template <class Unit>
bool MarkupParser<Unit>::parseElements() {
    for (;;) {
        if (at == end && mayEndHere())
            return true;
        skipBlanks();
        if (!is('<'))
            return fail(L"Expected start tag");
        if (is('/', 1)) {
            if (open.empty())
                return true;
            if (!closeElement())
                return false;
            continue;
        }
        ++at;
        skipBlanks();
        if (is('!') || is('?'))
            skipDeclaration();
        else if (!openElement())
            return false;
    }
}

// Reads a start tag and the text behind it. An element that stays open becomes the
// parent of what follows.
template <class Unit>
bool MarkupParser<Unit>::openElement() {
    const uint32_t number = addElement();
    document.elements[number].start = static_cast<uint32_t>(out - document.text.get());
    const View name = copyIdentifier();
    if (at == end)
        return fail(L"Error parsing element name");
    *out++ = 0;
    if (!parseAttributes())
        return false;
    document.elements[number].data = static_cast<uint32_t>(out - document.text.get());
    skipBlanks();
    if (atEmptyEnd()) {
        at += 2;
        skipBlanks();
        return true;
    }
    if (!is('>'))
        return fail(L"Expected start-tag closing");
    at = scan::findTag(at + 1, end);
    if (at == end)
        return mayEndHere() || fail(L"Expected end-tag start");
    open.push_back({number, name});
    previous = 0;
    return true;
}

template <class Unit>
bool MarkupParser<Unit>::closeElement() {
    at += 2;
    skipBlanks();
    const View name = open.back().name;
    if (!View(at, static_cast<size_t>(end - at)).starts_with(name))
        return fail(L"Unmatched closing tag");
    at += name.size();
    skipBlanks();
    if (!is('>'))
        return fail(L"Unmatched closing tag");
    ++at;
    previous = open.back().element;
    open.pop_back();
    skipBlanks();
    return true;
}

template <class Unit>
bool MarkupParser<Unit>::parseAttributes() {
    if (is('>') || atEmptyEnd())
        return true;
    takeCharacter(at, end); // whatever ended the name
    skipBlanks();
    while (at < end && *at != '>' && *at != '/') {
        copyIdentifier();
        *out++ = 0;
        skipBlanks();
        if (!is('='))
            return fail(L"Error while parsing attributes");
        ++at;
        skipBlanks();
        if (!is('"'))
            return fail(L"Expected attribute value");
        ++at;
        if (!parseValue())
            return false;
        skipBlanks();
    }
    return true;
}

// Leaves the position behind the closing quote.
template <class Unit>
bool MarkupParser<Unit>::parseValue() {
    for (;;) {
        scan::copyAscii(at, end, out, scan::isPlainValue);
        if (at == end)
            return fail(L"Error while parsing attribute string");
        if (*at == '"')
            break;
        if (*at == '&')
            ++at, *out++ = takeEntity();
        else
            copyCharacter();
    }
    ++at;
    *out++ = 0;
    return true;
}

// The character of the entity behind an ampersand. Whatever is no entity was a plain
// ampersand, and nothing is taken.
template <class Unit>
wchar_t MarkupParser<Unit>::takeEntity() {
    for (const Entity& entity : Entities) {
        const size_t length = entity.name.size();
        if (static_cast<size_t>(end - at) >= length &&
            std::equal(entity.name.begin(), entity.name.end(), at)) {
            at += length;
            return entity.character;
        }
    }
    return L'&';
}

// Passes over <!...-> or <?...?>.
template <class Unit>
void MarkupParser<Unit>::skipDeclaration() {
    const char first = is('!') ? '-' : '?';
    while (at < end && !(is(first) && is('>', 1)))
        ++at;
    if (at < end)
        at += 2;
    skipBlanks();
}

template <class Unit>
std::basic_string_view<Unit> MarkupParser<Unit>::copyIdentifier() {
    const Unit* start = at;
    scan::copyAscii(at, end, out, scan::isIdentifier);
    while (at < end && static_cast<std::make_unsigned_t<Unit>>(*at) >= 0x80) {
        const Unit* next = at;
        if (!isWideLetter(takeCharacter(next, end)))
            break;
        copyCharacter();
        scan::copyAscii(at, end, out, scan::isIdentifier);
    }
    return View(start, static_cast<size_t>(at - start));
}

// One character beyond ASCII.
template <class Unit>
void MarkupParser<Unit>::copyCharacter() {
    const Unit* start = at;
    takeCharacter(at, end);
    out = copyText(View(start, static_cast<size_t>(at - start)), out);
}

template <class Unit>
uint32_t MarkupParser<Unit>::addElement() {
    auto& elements = document.elements;
    if (elements.size() == elements.capacity())
        elements.reserve(elements.capacity() + elements.capacity() / 2 + GrowthRecords);
    const auto number = static_cast<uint32_t>(elements.size());
    elements.push_back({0, 0, 0, parent(), 0});
    if (previous)
        elements[previous].next = number;
    else if (parent())
        elements[parent()].child = number;
    previous = number;
    return number;
}

template <class Unit>
bool MarkupParser<Unit>::fail(const wchar_t* message) {
    constexpr size_t LongestLocation = std::extent_v<decltype(CMarkup::errorLocation)> - 1;
    *std::copy_n(message, std::wcslen(message), document.errorMessage) = 0;
    wchar_t text[4 * LongestLocation];
    const size_t count = std::min(static_cast<size_t>(end - at), 4 * LongestLocation);
    const wchar_t* last = copyText(View(at, count), text);
    const size_t length = std::min(static_cast<size_t>(last - text), LongestLocation);
    *std::copy_n(text, length, document.errorLocation) = 0;
    return false;
}

template <class Unit>
bool CMarkup::parse(std::basic_string_view<Unit> source) {
    Release();
    errorMessage[0] = errorLocation[0] = 0;
    // Not the runtime's search: it goes byte by byte here.
    const Unit* end = scan::findZero(source.data(), source.data() + source.size());
    source = source.substr(0, static_cast<size_t>(end - source.data()));
    // A name or value in the document is followed by at least one character that is not
    // part of it: its terminator has room.
    text = std::make_unique_for_overwrite<wchar_t[]>(source.size() + 1 + scan::CopySlack);
    elements.reserve(source.size() / BytesPerElement + GrowthRecords);
    const bool parsed = MarkupParser<Unit>(*this, source, text.get()).run();
    if (!parsed)
        Release();
    return parsed;
}

template bool CMarkup::parse(std::string_view source);
template bool CMarkup::parse(std::wstring_view source);

} // namespace UILib
