#include "uilib/core/image_string.h"

#include "uilib/core/number_text.h"

namespace UILib {

namespace {

using Text = std::wstring_view;

enum class Origin { File, Resource, Color };

struct Parsed {
    ImageString image;
    Origin origin = Origin::File;
    Text resourceType;
};

void setName(Parsed& parsed, Text value, Origin origin) {
    parsed.image.name = value;
    parsed.origin = origin;
}

// What each key does with its value, which is never empty.
struct Key {
    Text name;
    void (*apply)(Parsed&, Text);
};

void applyFile(Parsed& parsed, Text value) {
    setName(parsed, value, Origin::File);
}
void applyResource(Parsed& parsed, Text value) {
    setName(parsed, value, Origin::Resource);
}
void applyColor(Parsed& parsed, Text value) {
    setName(parsed, value, Origin::Color);
}
void applyType(Parsed& parsed, Text value) {
    parsed.resourceType = value;
}
void applyFade(Parsed& parsed, Text value) {
    parsed.image.fade = static_cast<uint8_t>(std::clamp<int32_t>(readInteger(value), 0, 255));
}
void applyMask(Parsed& parsed, Text value) {
    parsed.image.mask = readColor(value);
}
template <Box ImageString::*member>
void applyBox(Parsed& parsed, Text value) {
    parsed.image.*member = readBox(value);
}
template <bool ImageString::*member>
void applyFlag(Parsed& parsed, Text value) {
    parsed.image.*member = value == L"true";
}

constexpr Key keys[] = {
    {L"file", applyFile},
    {L"res", applyResource},
    {L"restype", applyType},
    {L"color", applyColor},
    {L"dest", applyBox<&ImageString::dest>},
    {L"source", applyBox<&ImageString::source>},
    {L"corner", applyBox<&ImageString::corner>},
    {L"scale9", applyBox<&ImageString::corner>},
    {L"mask", applyMask},
    {L"fade", applyFade},
    {L"hole", applyFlag<&ImageString::hole>},
    {L"xtiled", applyFlag<&ImageString::xTiled>},
    {L"ytiled", applyFlag<&ImageString::yTiled>},
    {L"hsl", applyFlag<&ImageString::keepSource>},
};

void apply(Parsed& parsed, Text name, Text value) {
    for (const Key& key : keys)
        if (key.name == name && !value.empty())
            key.apply(parsed, value);
}

void skipBlanks(Text& text) {
    while (!text.empty() && text.front() <= L' ')
        text.remove_prefix(1);
}

bool take(Text& text, wchar_t expected) {
    if (text.empty() || text.front() != expected)
        return false;
    text.remove_prefix(1);
    return true;
}

Text takeKey(Text& text) {
    size_t length = 0;
    while (length < text.size() && text[length] != L'=' && text[length] > L' ')
        ++length;
    const Text key = text.substr(0, length);
    text.remove_prefix(length);
    return key;
}

// One item off the front; false ends the list.
bool takeItem(Text& text, Parsed& parsed) {
    skipBlanks(text);
    const Text key = takeKey(text);
    skipBlanks(text);
    if (!take(text, L'='))
        return false;
    skipBlanks(text);
    if (!take(text, L'\''))
        return false;
    const size_t end = text.find(L'\'');
    if (end == Text::npos)
        return false;
    apply(parsed, key, text.substr(0, end));
    text.remove_prefix(end + 1);
    return take(text, L' ') && !text.empty();
}

} // namespace

ImageString parseImageString(std::wstring_view text) {
    Parsed parsed;
    parsed.image.name = text;
    while (takeItem(text, parsed)) {
    }
    if (parsed.origin == Origin::Resource)
        parsed.image.type = parsed.resourceType;
    else if (parsed.origin == Origin::Color)
        parsed.image.type = ColorType;
    return std::move(parsed.image);
}

} // namespace UILib
