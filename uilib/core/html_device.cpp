#include "uilib/core/html_device.h"

#include "uilib/core/resource_tables.h"

namespace UILib {

void GdiHtmlDevice::select(int font) {
    const HFONT wanted = tables.GetFont(font);
    if (wanted == selected)
        return;
    SelectObject(context, wanted);
    selected = wanted;
}

HtmlDevice::Metrics GdiHtmlDevice::metrics(int font) {
    const TEXTMETRICW& metrics = tables.GetFontInfo(context, font).metrics;
    return {static_cast<int>(metrics.tmHeight), static_cast<int>(metrics.tmExternalLeading)};
}

int GdiHtmlDevice::width(int font, std::wstring_view text) {
    select(font);
    SIZE size = {};
    GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

HtmlDevice::Fit GdiHtmlDevice::fit(int font, std::wstring_view text, int room) {
    select(font);
    SIZE size = {};
    int count = 0;
    GetTextExtentExPointW(context, text.data(), static_cast<int>(text.size()), room, &count, nullptr, &size);
    return {static_cast<size_t>(count), static_cast<int>(size.cx)};
}

int GdiHtmlDevice::twin(int font, FontTrait trait) {
    FontSpec spec = tables.GetFontInfo(context, font).spec;
    spec.bold |= trait == FontTrait::Bold;
    spec.underline |= trait == FontTrait::Underline;
    spec.italic |= trait == FontTrait::Italic;
    return tables.FindOrAddFont(context, spec, font);
}

int GdiHtmlDevice::find(const HtmlFont& font, int fallback) {
    const FontSpec spec = {font.faceName, font.size, font.bold, font.underline, font.italic};
    return tables.FindOrAddFont(context, spec, fallback);
}

int GdiHtmlDevice::italicOverhang(int font) {
    if (!tables.GetFontInfo(context, font).spec.italic)
        return 0;
    select(font);
    ABC blank = {};
    GetCharABCWidthsW(context, L' ', L' ', &blank);
    return blank.abcC / 2;
}

ImageSize GdiHtmlDevice::size(const HtmlImage& image) {
    const ImagePtr found = find(image);
    return found ? ImageSize{found->width, found->height} : ImageSize{};
}

ImagePtr GdiHtmlDevice::find(const HtmlImage& image) {
    const auto [found, isNew] = images.try_emplace(image.name);
    if (isNew)
        found->second = tables.GetImageEx(
            image.name.c_str(), image.type.empty() ? nullptr : image.type.c_str(), 0, SourcePixels::Drop);
    return found->second;
}

} // namespace UILib
