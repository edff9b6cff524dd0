#pragma once

#include "uilib/core/html_layout.h"

#include <algorithm>

// A device on which every character is ten pixels wide: layouts can be told by counting.
// Font 0 is 16 pixels high with 4 of leading, a font of tags as high as its size says. The
// images are "pic" of 60 by 30 and none else. The traits of a font are bits of its id.

class FixedWidthDevice final : public UILib::HtmlDevice {
public:
    static constexpr int Character = 10;
    static constexpr int Bold = 1 << 16, Underline = 1 << 17, Italic = 1 << 18;

    Metrics metrics(int font) override {
        const int size = font & 0xFFFF;
        return size == 0 ? Metrics{16, 4} : Metrics{size, 0};
    }
    int width(int, std::wstring_view text) override { return Character * static_cast<int>(text.size()); }
    Fit fit(int font, std::wstring_view text, int room) override {
        measured += text.size();
        return {std::min(text.size(), static_cast<size_t>(std::max(room, 0) / Character)), width(font, text)};
    }
    int twin(int font, UILib::FontTrait trait) override {
        return font | (trait == UILib::FontTrait::Bold     ? Bold
                       : trait == UILib::FontTrait::Italic ? Italic
                                                           : Underline);
    }
    int find(const UILib::HtmlFont& font, int) override {
        return font.size | (font.bold ? Bold : 0) | (font.underline ? Underline : 0) |
               (font.italic ? Italic : 0);
    }
    int italicOverhang(int font) override { return font & Italic ? 3 : 0; }
    UILib::ImageSize size(const UILib::HtmlImage& image) override {
        return image.name == L"pic" ? UILib::ImageSize{60, 30} : UILib::ImageSize{};
    }

    size_t measured = 0; // characters that were asked about
};
