#pragma once

#include "uilib/core/html_layout.h"
#include "uilib/core/image.h"
#include "uilib/core/platform.h"

#include <map>

// Measures formatted text with GDI on one device context, with the fonts and images of a
// window's resource tables. Its fonts stay selected: the owner of the context puts the old
// one back. Window thread only.

namespace UILib {

class ResourceTables;

class GdiHtmlDevice final : public HtmlDevice {
public:
    GdiHtmlDevice(HDC context, ResourceTables& tables) : context(context), tables(tables) {}

    Metrics metrics(int font) override;
    int width(int font, std::wstring_view text) override;
    Fit fit(int font, std::wstring_view text, int room) override;
    int twin(int font, FontTrait trait) override;
    int find(const HtmlFont& font, int fallback) override;
    int italicOverhang(int font) override;
    ImageSize size(const HtmlImage& image) override;

    void select(int font);
    ImagePtr find(const HtmlImage& image); // null when it cannot be had

private:
    HDC context;
    ResourceTables& tables;
    HFONT selected = nullptr;
    std::map<std::wstring, ImagePtr> images; // null for those that were looked for in vain
};

} // namespace UILib
