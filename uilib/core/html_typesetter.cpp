#include "uilib/core/html_typesetter.h"

namespace UILib {

namespace {

bool isAsciiLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

// Never between the two halves of a surrogate pair.
size_t wholeCharacters(std::wstring_view text, size_t length) {
    const bool halves = length > 0 && length < text.size() && (text[length - 1] & 0xFC00) == 0xD800 &&
                        (text[length] & 0xFC00) == 0xDC00;
    return halves ? length - 1 : length;
}

size_t firstCharacter(std::wstring_view text) {
    return text.size() > 1 && wholeCharacters(text, 1) == 0 ? 2 : 1;
}

} // namespace

HtmlTypesetter::HtmlTypesetter(HtmlDevice& device, const Box& box, const HtmlStyle& style,
                               const HtmlDefaults& defaults)
    : device(device),
      box(box),
      style(style),
      defaults(defaults),
      fonts{defaults.font},
      colors{{defaults.color, false}},
      spacings{0},
      aligns{VerticalAlign::Bottom},
      pen(box.left),
      lineTop(box.top) {}

HtmlLayout HtmlTypesetter::set(Text text) {
    HtmlTokens tokens(text);
    HtmlToken token;
    while (!done && tokens.next(token))
        take(token);
    linkOpen = false; // a link that is never closed has no rectangle on its last line
    if (!done && (!lineIsEmpty() || pen != box.left))
        endLine();
    layout.width = std::min(layout.width, std::max(box.width(), 0));
    layout.height = lineTop - box.top;
    return std::move(layout);
}

void HtmlTypesetter::take(const HtmlToken& token) {
    switch (token.kind) {
    case HtmlToken::Text:
        placeText(token.text);
        break;
    case HtmlToken::LineFeed:
        endLine();
        break;
    case HtmlToken::Open:
        if (const Tag* tag = tagOf(token.tag))
            (this->*tag->open)(token.text);
        break;
    case HtmlToken::Close:
        if (const Tag* tag = tagOf(token.tag))
            (this->*tag->close)();
        break;
    }
}

// -- Text

void HtmlTypesetter::placeText(Text text) {
    while (!text.empty() && !done) {
        const HtmlDevice::Fit fit = fitting(text);
        size_t count = fit.count;
        if (count == text.size()) {
            put(text, fit.width);
            return;
        }
        if (endsInEllipsis()) {
            put(text.substr(0, wholeCharacters(text, count > 2 ? count - 2 : 0)));
            put(L"...");
            endLine();
            return; // the dots stand for the rest
        }
        size_t blanks = 0;
        if (style.wordBreak && !style.singleLine)
            count = breakAt(text, count, blanks);
        if (count + blanks == 0 && lineIsEmpty())
            count = firstCharacter(text);
        put(text.substr(0, count));
        text.remove_prefix(count + blanks);
        endLine();
    }
}

// Measures ever longer beginnings, so that a long text costs no more than its line.
HtmlDevice::Fit HtmlTypesetter::fitting(Text text) const {
    const int room = box.right - pen;
    if (room <= 0)
        return {};
    for (size_t length = 64;; length *= 2) {
        const Text begin = text.substr(0, length);
        const HtmlDevice::Fit fit = device.fit(fonts.back(), begin, room);
        if (fit.count < begin.size() || begin.size() == text.size())
            return {wholeCharacters(text, std::min(fit.count, begin.size())), fit.width};
    }
}

// At the last of the characters seen that is no letter. A blank there belongs to no line.
size_t HtmlTypesetter::breakAt(Text text, size_t fitting, size_t& blanks) const {
    const size_t shortest = lineIsEmpty() ? 1 : 0;
    if (!isAsciiLetter(text[fitting])) {
        blanks = text[fitting] == L' ' ? 1 : 0;
        return fitting;
    }
    for (size_t i = fitting; i > shortest; --i) {
        if (isAsciiLetter(text[i - 1]))
            continue;
        blanks = text[i - 1] == L' ' ? 1 : 0;
        return i - blanks;
    }
    const bool wordBegins = !lineIsEmpty() && !isAsciiLetter(lastCharacter);
    return wordBegins ? 0 : fitting;
}

bool HtmlTypesetter::endsInEllipsis() const {
    if (!style.endEllipsis)
        return false;
    const bool anotherLine = style.wordBreak && !style.singleLine && lineTop + 2 * lineHeight() <= box.bottom;
    return !anotherLine;
}

void HtmlTypesetter::put(Text text, int width) {
    if (text.empty())
        return;
    const int font = fonts.back();
    const HtmlDevice::Metrics metrics = device.metrics(font);
    HtmlRun run;
    run.x = pen;
    run.text = text;
    run.font = font;
    run.color = colors.back().argb;
    run.inLinkColor = colors.back().ofLink;
    run.selected = selected;
    run.linkName = linkName;
    items.push_back({false, layout.runs.size(), metrics.height, aligns.back()});
    layout.runs.push_back(run);
    pen += width;
    tallest = std::max(tallest, fontHeight());
    lastCharacter = text.back();
}

void HtmlTypesetter::putPicture(HtmlImage image) {
    const ImageSize size = device.size(image);
    const int width = size.width / image.frames;
    if (width <= 0 || size.height <= 0)
        return;
    const bool fits = pen + width <= box.right || lineIsEmpty();
    if (style.singleLine ? pen >= box.right : !fits)
        endLine();
    if (done)
        return;
    items.push_back({true, layout.pictures.size(), size.height, aligns.back()});
    layout.pictures.push_back({{pen, 0, pen + width, size.height}, std::move(image)});
    pen += width;
    tallest = std::max(tallest, size.height);
    lastCharacter = 0;
}

// -- Lines

int HtmlTypesetter::fontHeight() const {
    const HtmlDevice::Metrics metrics = device.metrics(fonts.back());
    return metrics.height + metrics.externalLeading + spacings.back();
}

int HtmlTypesetter::lineHeight() const {
    if (fixedHeight >= 0)
        return fixedHeight;
    return lineIsEmpty() ? fontHeight() : tallest;
}

void HtmlTypesetter::endLine() {
    const int height = lineHeight();
    if (linkOpen && pen > linkBegin)
        storeLink();
    for (const LineItem& item : items)
        placeItem(item, height);
    for (size_t i = firstLink; i < layout.links.size(); ++i) {
        layout.links[i].box.top = lineTop;
        layout.links[i].box.bottom = lineTop + height;
    }
    const int width = pen - box.left;
    if (!style.singleLine && (style.center || style.right))
        shiftLine(style.center ? (box.width() - width) / 2 : box.width() - width);
    layout.width = std::max(layout.width, width);
    lineTop += height;
    pen = linkBegin = box.left;
    tallest = 0;
    fixedHeight = -1;
    lastCharacter = 0;
    items.clear();
    firstLink = layout.links.size();
    done = style.singleLine || lineTop >= box.bottom;
}

void HtmlTypesetter::placeItem(const LineItem& item, int height) {
    int y = lineTop;
    if (item.align != VerticalAlign::Top)
        y += (height - item.height) / (item.align == VerticalAlign::Center ? 2 : 1);
    if (item.picture) {
        Box& picture = layout.pictures[item.index].box;
        picture.top = y;
        picture.bottom = y + item.height;
    } else {
        layout.runs[item.index].y = y;
    }
}

void HtmlTypesetter::shiftLine(int right) {
    for (const LineItem& item : items) {
        if (item.picture) {
            Box& picture = layout.pictures[item.index].box;
            picture.left += right;
            picture.right += right;
        } else {
            layout.runs[item.index].x += right;
        }
    }
    for (size_t i = firstLink; i < layout.links.size(); ++i) {
        layout.links[i].box.left += right;
        layout.links[i].box.right += right;
    }
}

void HtmlTypesetter::storeLink() {
    if (static_cast<int>(layout.links.size()) < defaults.linkLimit)
        layout.links.push_back({{linkBegin, 0, pen, 0}, linkName});
}

} // namespace UILib
