#pragma once

#include <string_view>

// Splits formatted text into runs of plain text, line feeds and tags. A tag is <x ...> or
// {x ...} with one lower-case letter, both brackets alike and mixed at will, </x> ends it.
// <{> <}> {<} {>} are single brackets. Any other bracket is text. Nothing is copied: the
// views point into the text. Time in proportion to its length. Free of Windows.

namespace UILib {

struct HtmlToken {
    enum Kind { Text, LineFeed, Open, Close };

    Kind kind = Text;
    wchar_t tag = 0;        // letter of Open and Close
    std::wstring_view text; // the run, or what stands behind the letter of Open
};

class HtmlTokens {
public:
    explicit HtmlTokens(std::wstring_view text) : rest(text) {}

    bool next(HtmlToken& token); // false at the end

private:
    bool takeLiteral(HtmlToken& token);
    bool takeOpen(HtmlToken& token);
    bool takeClose(HtmlToken& token);
    void takeText(HtmlToken& token);
    bool atMarkup() const;

    std::wstring_view rest;
    bool raw = false; // inside <r>: only </r> is markup
};

} // namespace UILib
