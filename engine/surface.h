#pragma once

#include "engine/handles.h"
#include "engine/paint.h"

#include <map>
#include <string>
#include <utility>

// The picture of a page in memory that GDI and the raster both draw into, and the texts
// on it. Window thread.

namespace engine {

class Surface final : public TextMeasurer, public TextPainter {
public:
    Surface();

    // Makes the picture anew if its size changes. False when there is no memory; the old
    // picture stays.
    bool resize(int width, int height);
    const Bitmap& bitmap() const { return pixels; }
    HDC dc() const { return memory.get(); }

    // Of the page, as "ko" or "zh-tw": chooses the face.
    void setLanguage(const std::string& language);

    int width(const Font& font, std::u16string_view text) override;
    FontMetrics metrics(const Font& font) override;
    void draw(const Font& font, std::u16string_view text, int x, int y, Color color,
              const Rect& clip) override;

private:
    void select(const Font& font); // into the device context
    void forgetFonts();

    MemoryDc memory;
    GdiBitmap picture; // declared behind the context that it is selected in, so it goes first
    Bitmap pixels;
    std::wstring faceName;
    std::map<Font, GdiFont> fonts; // made so far, in the face of the language
    std::map<std::pair<Font, std::u16string>, int> widths;
    HFONT selected = nullptr; // one of fonts
};

} // namespace engine
