#include "uilib/core/markup.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <cwctype>

namespace UILib {

namespace {

enum CharacterKind : unsigned char { Blank = 1, Identifier = 2, ValueStop = 4 };

constexpr auto Kinds = [] {
    std::array<unsigned char, 128> kinds{};
    for (int c = 1; c <= 32; ++c)
        kinds[c] = Blank;
    for (int c = '0'; c <= '9'; ++c)
        kinds[c] = Identifier;
    for (int c = 'a'; c <= 'z'; ++c)
        kinds[c] = kinds[c - 32] = Identifier;
    kinds['_'] = kinds[':'] = Identifier;
    kinds[0] = kinds['"'] = kinds['&'] = ValueStop;
    return kinds;
}();

bool is(CharacterKind kind, wchar_t character) {
    return static_cast<unsigned>(character) < Kinds.size() && Kinds[static_cast<unsigned>(character)] & kind;
}

bool isIdentifier(wchar_t character) {
    return static_cast<unsigned>(character) < Kinds.size()
               ? is(Identifier, character)
               : std::iswalnum(static_cast<wint_t>(character)) != 0;
}

struct Entity {
    std::wstring_view name;
    wchar_t character;
};
constexpr Entity Entities[] = {
    {L"amp;", L'&'}, {L"lt;", L'<'}, {L"gt;", L'>'}, {L"quot;", L'"'}, {L"apos;", L'\''}};

// The character of the entity whose name starts at the position, which moves behind it.
// Whatever is no entity was a plain ampersand.
wchar_t decodeEntity(wchar_t*& at) {
    for (const Entity& entity : Entities)
        if (std::wcsncmp(at, entity.name.data(), entity.name.size()) == 0) {
            at += entity.name.size();
            return entity.character;
        }
    return L'&';
}

} // namespace

// One run over one document. Levels are followed through the parent numbers of the
// table, so the depth of a document costs no stack.
class MarkupParser {
public:
    explicit MarkupParser(CMarkup& document) : document(document), at(document.text.get()) {}

    bool run() {
        addElement();
        skipBlanks();
        return parseElements();
    }

private:
    using Element = CMarkup::Element;

    bool parseElements();
    bool openElement();
    bool closeElement();
    bool parseAttributes();
    bool parseValue();
    void skipDeclaration();
    uint32_t addElement();
    bool fail(const wchar_t* message);

    uint32_t offset() const { return static_cast<uint32_t>(at - document.text.get()); }
    void skipBlanks() {
        while (is(Blank, *at))
            ++at;
    }
    void skipIdentifier() {
        while (isIdentifier(*at))
            ++at;
    }
    bool mayEndHere() const { return parent <= 1; } // the root's own end tag may be missing

    CMarkup& document;
    wchar_t* at;
    uint32_t parent = 0;   // element whose children are being read
    uint32_t previous = 0; // its child read last
};

bool MarkupParser::parseElements() {
    for (;;) {
        if (!*at && mayEndHere())
            return true;
        skipBlanks();
        if (*at != L'<')
            return fail(L"Expected start tag");
        if (at[1] == L'/') {
            if (!parent)
                return true;
            if (!closeElement())
                return false;
            continue;
        }
        *at++ = 0;
        skipBlanks();
        if (*at == L'!' || *at == L'?') {
            skipDeclaration();
            continue;
        }
        if (!openElement())
            return false;
    }
}

// Reads a start tag and the text behind it. An element that stays open becomes the
// parent of what follows.
bool MarkupParser::openElement() {
    const uint32_t number = addElement();
    document.elements[number].start = offset();
    document.elements[number].parent = parent;
    if (previous)
        document.elements[previous].next = number;
    else if (parent)
        document.elements[parent].child = number;
    previous = number;

    skipIdentifier();
    if (!*at)
        return fail(L"Error parsing element name");
    wchar_t* nameEnd = at;
    if (!parseAttributes())
        return false;
    skipBlanks();
    if (at[0] == L'/' && at[1] == L'>') {
        document.elements[number].data = offset();
        *at = 0;
        at += 2;
        skipBlanks();
        return true;
    }
    if (*at != L'>')
        return fail(L"Expected start-tag closing");
    *nameEnd = 0;
    document.elements[number].data = offset() + 1;
    ++at;
    while (*at && *at != L'<')
        ++at;
    if (!*at)
        return mayEndHere() || fail(L"Expected end-tag start");
    parent = number;
    previous = 0;
    return true;
}

bool MarkupParser::closeElement() {
    *at = 0;
    at += 2;
    skipBlanks();
    const wchar_t* name = &document.text[document.elements[parent].start];
    const size_t length = std::wcslen(name);
    if (std::wcsncmp(at, name, length) != 0)
        return fail(L"Unmatched closing tag");
    at += length;
    skipBlanks();
    if (*at != L'>')
        return fail(L"Unmatched closing tag");
    ++at;
    previous = parent;
    parent = document.elements[parent].parent;
    skipBlanks();
    return true;
}

bool MarkupParser::parseAttributes() {
    if (*at == L'>' || (at[0] == L'/' && at[1] == L'>'))
        return true;
    *at++ = 0;
    skipBlanks();
    while (*at && *at != L'>' && *at != L'/') {
        skipIdentifier();
        wchar_t* nameEnd = at;
        skipBlanks();
        if (*at != L'=')
            return fail(L"Error while parsing attributes");
        *at++ = L' ';
        *nameEnd = 0;
        skipBlanks();
        if (*at != L'"')
            return fail(L"Expected attribute value");
        ++at;
        if (!parseValue())
            return false;
        skipBlanks();
    }
    return true;
}

// Terminates the value and leaves the position behind its closing quote. Entities make
// the value shrink in place; blanks fill the gap, for CMarkupNode::mapAttributes.
bool MarkupParser::parseValue() {
    while (!is(ValueStop, *at))
        ++at;
    wchar_t* target = at;
    while (*at && *at != L'"') {
        if (*at == L'&') {
            ++at;
            *target++ = decodeEntity(at);
        } else {
            *target++ = *at++;
        }
    }
    if (!*at)
        return fail(L"Error while parsing attribute string");
    std::fill(target, at + 1, L' ');
    *target = 0;
    ++at;
    return true;
}

// Passes over <!...-> or <?...?>.
void MarkupParser::skipDeclaration() {
    const wchar_t first = *at == L'!' ? L'-' : L'?';
    while (*at && !(at[0] == first && at[1] == L'>'))
        ++at;
    if (*at)
        at += 2;
    skipBlanks();
}

uint32_t MarkupParser::addElement() {
    auto& elements = document.elements;
    if (elements.size() == elements.capacity())
        elements.reserve(elements.capacity() + elements.capacity() / 2 + 500);
    elements.push_back({});
    return static_cast<uint32_t>(elements.size() - 1);
}

bool MarkupParser::fail(const wchar_t* message) {
    const auto keep = [](wchar_t* target, size_t size, const wchar_t* source) {
        size_t length = 0;
        for (; length + 1 < size && source[length]; ++length)
            target[length] = source[length];
        target[length] = 0;
    };
    keep(document.errorMessage, std::size(document.errorMessage), message);
    keep(document.errorLocation, std::size(document.errorLocation), at);
    return false;
}

bool CMarkup::parse() {
    errorMessage[0] = errorLocation[0] = 0;
    const bool parsed = MarkupParser(*this).run();
    if (!parsed)
        Release();
    return parsed;
}

} // namespace UILib
