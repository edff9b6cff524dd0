#include "engine/surface.h"

#include <string_view>

namespace engine {

namespace {

constexpr size_t MostFonts = 32;
constexpr size_t MostWidths = 8192;

struct LanguageFace {
    std::string_view language; // or its beginning
    const wchar_t* name;
};

// Faces that come with Windows 7 and later.
constexpr LanguageFace Faces[] = {
    {"zh-tw", L"Microsoft JhengHei"},
    {"zh-hk", L"Microsoft JhengHei"},
    {"zh", L"Microsoft YaHei"},
    {"ko", L"Malgun Gothic"},
    {"ja", L"Yu Gothic"},
    {"th", L"Leelawadee UI"},
    {"vi", L"Tahoma"},
};

const wchar_t* faceOf(std::string_view language) {
    for (const LanguageFace& each : Faces)
        if (language.starts_with(each.language))
            return each.name;
    return L"Segoe UI";
}

const wchar_t* wide(std::u16string_view text) {
    return reinterpret_cast<const wchar_t*>(text.data());
}

COLORREF toColorRef(Color color) {
    return RGB(color >> 16 & 255, color >> 8 & 255, color & 255);
}

} // namespace

Surface::Surface() : memory(CreateCompatibleDC(nullptr)), faceName(faceOf({})) {
    SetBkMode(memory.get(), TRANSPARENT);
}

bool Surface::resize(int width, int height) {
    if (width <= 0 || height <= 0 || (width == pixels.width && height == pixels.height))
        return pixels.pixels != nullptr;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    GdiBitmap larger(CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!larger)
        return false;
    SelectObject(memory.get(), larger.get());
    picture = std::move(larger);
    pixels = {static_cast<Color*>(bits), width, height};
    return true;
}

void Surface::setLanguage(const std::string& language) {
    faceName = faceOf(language);
    forgetFonts();
    widths.clear();
}

void Surface::forgetFonts() {
    SelectObject(memory.get(), GetStockObject(SYSTEM_FONT));
    selected = nullptr;
    fonts.clear();
}

void Surface::select(const Font& font) {
    if (fonts.size() > MostFonts)
        forgetFonts();
    GdiFont& made = fonts[font];
    if (!made)
        made.reset(CreateFontW(-font.size, 0, 0, 0, font.weight, font.italic, font.underline, FALSE,
                               DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                               DEFAULT_PITCH, faceName.c_str()));
    if (selected == made.get())
        return;
    selected = made.get();
    SelectObject(memory.get(), selected);
}

FontMetrics Surface::metrics(const Font& font) {
    select(font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(memory.get(), &metrics);
    return {metrics.tmAscent, metrics.tmDescent};
}

int Surface::width(const Font& font, std::u16string_view text) {
    if (widths.size() > MostWidths)
        widths.clear();
    const auto [entry, isNew] = widths.try_emplace({font, std::u16string(text)}, 0);
    if (isNew) {
        select(font);
        SIZE size{};
        GetTextExtentPoint32W(memory.get(), wide(text), static_cast<int>(text.size()), &size);
        entry->second = size.cx;
    }
    return entry->second;
}

void Surface::draw(const Font& font, std::u16string_view text, int x, int y, Color color, const Rect& clip) {
    select(font);
    SetTextColor(memory.get(), toColorRef(color));
    const RECT area = {clip.x, clip.y, clip.right(), clip.bottom()};
    ExtTextOutW(memory.get(), x, y, ETO_CLIPPED, &area, wide(text), static_cast<UINT>(text.size()), nullptr);
    GdiFlush(); // the raster writes the same pixels next
}

} // namespace engine
