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
constexpr size_t LeastElements = 500;

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

// What the text behind an ampersand stands for, and over it. Whatever is no entity was a
// plain ampersand, and nothing behind it is taken.
template <class Unit>
wchar_t takeEntity(const Unit*& at, const Unit* end) {
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
    // The two positions, as a value for what runs over every attribute: what is stored
    // into the text might be members, for all the compiler knows, which it would then
    // read again after every store.
    struct Cursor {
        const Unit* at;
        wchar_t* out;
    };

    bool parseElements();
    bool openElement();
    void joinTextToName(const Unit* tagEnd);
    bool closeElement();
    bool parseAttributes();
    const wchar_t* parseAttribute(Cursor& here) const;
    bool copyValue(Cursor& here) const;
    void skipDeclaration();
    uint32_t addElement();
    bool fail(const wchar_t* message);

    bool is(char c, int ahead = 0) const { return end - at > ahead && at[ahead] == static_cast<Unit>(c); }
    bool atEmptyEnd() const { return is('/') && is('>', 1); } // "/>"
    void skipBlanks() { at = scan::skipBlanks(at, end); }
    void copyIdentifier(Cursor& here) const;
    Cursor copyWideIdentifier(Cursor here) const;
    Cursor copyEntity(Cursor here) const;
    Cursor copyCharacter(Cursor here) const;
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
    Cursor here = {at, out};
    copyIdentifier(here);
    const View name(at, static_cast<size_t>(here.at - at));
    at = here.at;
    out = here.out;
    if (at == end)
        return fail(L"Error parsing element name");
    *out++ = 0;
    const bool bare = is('>');
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
    const Unit* const tagEnd = at;
    at = scan::findTag(at + 1, end);
    if (at == end && !mayEndHere())
        return fail(L"Expected end-tag start");
    if (at == end) {
        if (bare)
            joinTextToName(tagEnd);
        return true;
    }
    open.push_back({number, name});
    previous = 0;
    return true;
}

// What ends a bare name is the end of its element. Where the document breaks off before
// that, the rest of it belongs to the name: such an element is of no known class.
template <class Unit>
void MarkupParser<Unit>::joinTextToName(const Unit* tagEnd) {
    wchar_t* to = out - 1; // over the terminator
    wchar_t* const textEnd = copyText(View(tagEnd, static_cast<size_t>(end - tagEnd)), to);
    for (const wchar_t* from = to; from < textEnd; ++to) {
        const wchar_t character = *from++;
        *to = character == L'&' ? takeEntity(from, static_cast<const wchar_t*>(textEnd)) : character;
    }
    // The text shrinks in place, and blanks fill the gap but for its first character.
    if (to < textEnd)
        std::fill(to + 1, textEnd, L' ');
    *textEnd = 0;
    out = textEnd + 1;
}

template <class Unit>
bool MarkupParser<Unit>::closeElement() {
    at += 2;
    skipBlanks();
    const View name = open.back().name;
    if (static_cast<size_t>(end - at) < name.size() || !std::equal(name.begin(), name.end(), at))
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
    // Whatever ended the name. Of two wide characters the second starts no attribute.
    if (takeCharacter(at, end) >= 0x10000)
        return fail(L"Error while parsing attributes");
    skipBlanks();
    const wchar_t* error = nullptr;
    Cursor here = {at, out};
    while (!error && here.at < end && *here.at != '>' && *here.at != '/')
        error = parseAttribute(here);
    at = here.at;
    out = here.out;
    return !error || fail(error);
}

// Gives the message of what is wrong, or null.
template <class Unit>
[[gnu::always_inline]] inline const wchar_t* MarkupParser<Unit>::parseAttribute(Cursor& here) const {
    copyIdentifier(here);
    *here.out++ = 0;
    here.at = scan::skipBlanks(here.at, end);
    if (here.at == end || *here.at != '=')
        return L"Error while parsing attributes";
    here.at = scan::skipBlanks(here.at + 1, end);
    if (here.at == end || *here.at != '"')
        return L"Expected attribute value";
    ++here.at;
    if (!copyValue(here))
        return L"Error while parsing attribute string";
    here.at = scan::skipBlanks(here.at, end);
    return nullptr;
}

// Up to the closing quote and over it.
template <class Unit>
[[gnu::always_inline]] inline bool MarkupParser<Unit>::copyValue(Cursor& here) const {
    for (;;) {
        scan::copyAscii(here.at, end, here.out, scan::endsPlainValue);
        if (here.at == end)
            return false;
        if (*here.at == '"')
            break;
        here = *here.at == '&' ? copyEntity(here) : copyCharacter(here);
    }
    ++here.at;
    *here.out++ = 0;
    return true;
}

template <class Unit>
[[gnu::noinline]] typename MarkupParser<Unit>::Cursor MarkupParser<Unit>::copyEntity(Cursor here) const {
    ++here.at;
    *here.out = takeEntity(here.at, end);
    return {here.at, here.out + 1};
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
[[gnu::always_inline]] inline void MarkupParser<Unit>::copyIdentifier(Cursor& here) const {
    scan::copyAscii(here.at, end, here.out, scan::endsIdentifier);
    if (here.at < end && static_cast<std::make_unsigned_t<Unit>>(*here.at) >= 0x80)
        here = copyWideIdentifier(here);
}

// The rest of an identifier from a character beyond ASCII on.
template <class Unit>
[[gnu::noinline]] typename MarkupParser<Unit>::Cursor
MarkupParser<Unit>::copyWideIdentifier(Cursor here) const {
    while (here.at < end && static_cast<std::make_unsigned_t<Unit>>(*here.at) >= 0x80) {
        const Unit* next = here.at;
        if (!isWideLetter(takeCharacter(next, end)))
            break;
        here = copyCharacter(here);
        scan::copyAscii(here.at, end, here.out, scan::endsIdentifier);
    }
    return here;
}

// One character beyond ASCII.
template <class Unit>
[[gnu::noinline]] typename MarkupParser<Unit>::Cursor MarkupParser<Unit>::copyCharacter(Cursor here) const {
    const Unit* start = here.at;
    takeCharacter(here.at, end);
    here.out = copyText(View(start, static_cast<size_t>(here.at - start)), here.out);
    return here;
}

template <class Unit>
uint32_t MarkupParser<Unit>::addElement() {
    const uint32_t number = document.elements.add({0, 0, 0, parent(), 0});
    if (previous)
        document.elements[previous].next = number;
    else if (parent())
        document.elements[parent()].child = number;
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
    elements.reserve(source.size() / BytesPerElement + LeastElements);
    const bool parsed = MarkupParser<Unit>(*this, source, text.get()).run();
    if (!parsed)
        Release();
    return parsed;
}

template bool CMarkup::parse(std::string_view source);
template bool CMarkup::parse(std::wstring_view source);

} // namespace UILib
