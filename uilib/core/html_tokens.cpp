#include "uilib/core/html_tokens.h"

namespace UILib {

namespace {

using Text = std::wstring_view;

bool opens(wchar_t c) {
    return c == L'<' || c == L'{';
}

bool closes(wchar_t c) {
    return c == L'>' || c == L'}';
}

bool isTagLetter(wchar_t c) {
    return c >= L'a' && c <= L'z';
}

wchar_t at(Text text, size_t index) {
    return index < text.size() ? text[index] : L'\0';
}

bool isLiteral(Text text) {
    const bool angle =
        at(text, 0) == L'<' && (at(text, 1) == L'{' || at(text, 1) == L'}') && at(text, 2) == L'>';
    const bool curly =
        at(text, 0) == L'{' && (at(text, 1) == L'<' || at(text, 1) == L'>') && at(text, 2) == L'}';
    return angle || curly;
}

bool isOpen(Text text) {
    return opens(at(text, 0)) && isTagLetter(at(text, 1)) && (at(text, 2) == L' ' || closes(at(text, 2)));
}

bool isClose(Text text) {
    return opens(at(text, 0)) && at(text, 1) == L'/' && isTagLetter(at(text, 2)) && closes(at(text, 3));
}

} // namespace

bool HtmlTokens::next(HtmlToken& token) {
    while (at(rest, 0) == L'\r')
        rest.remove_prefix(1);
    if (rest.empty())
        return false;
    if (rest.front() == L'\n') {
        token = {HtmlToken::LineFeed, 0, {}};
        rest.remove_prefix(1);
    } else if (!takeLiteral(token) && !takeOpen(token) && !takeClose(token)) {
        takeText(token);
    }
    return true;
}

bool HtmlTokens::takeLiteral(HtmlToken& token) {
    if (raw || !isLiteral(rest))
        return false;
    token = {HtmlToken::Text, 0, rest.substr(1, 1)};
    rest.remove_prefix(3);
    return true;
}

bool HtmlTokens::takeOpen(HtmlToken& token) {
    if (raw || !isOpen(rest))
        return false;
    const wchar_t tag = rest[1];
    rest.remove_prefix(2);
    const size_t end = rest.find_first_of(L">}");
    Text attribute = rest.substr(0, end);
    if (!attribute.empty())
        attribute.remove_prefix(1); // the blank behind the letter
    token = {HtmlToken::Open, tag, attribute};
    rest.remove_prefix(end == Text::npos ? rest.size() : end + 1);
    raw = tag == L'r';
    return true;
}

bool HtmlTokens::takeClose(HtmlToken& token) {
    if (!isClose(rest) || (raw && rest[2] != L'r'))
        return false;
    token = {HtmlToken::Close, rest[2], {}};
    rest.remove_prefix(4);
    raw = false;
    return true;
}

bool HtmlTokens::atMarkup() const {
    if (rest.front() == L'\n' || rest.front() == L'\r')
        return true;
    if (raw)
        return isClose(rest) && rest[2] == L'r';
    return isLiteral(rest) || isOpen(rest) || isClose(rest);
}

void HtmlTokens::takeText(HtmlToken& token) {
    const wchar_t* begin = rest.data();
    do
        rest.remove_prefix(1);
    while (!rest.empty() && !atMarkup());
    token = {HtmlToken::Text, 0, Text(begin, static_cast<size_t>(rest.data() - begin))};
}

} // namespace UILib
