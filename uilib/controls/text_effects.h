#pragma once

#include "uilib/core/platform.h"

#include <cstdint>
#include <string_view>

// Text drawn through GDI+ with a gradient, an outline, a shadow and a glow. Colours are
// 32-bit ARGB. Window thread only.

namespace UILib {

constexpr uint32_t NoSecondColor = 0xFFFFFFFF; // the gradient stays in its first colour

struct TextEffects {
    uint32_t secondColor = NoSecondColor;
    int gradientLength = 0; // pixels; 0: as high as the text rectangle
    int gradientAngle = 0;  // x of the gradient's first point
    bool luminous = false;
    float luminousFuzzy = 3.0f; // the glow is shrunk by this and enlarged again
    bool stroke = false;
    uint32_t strokeColor = 0; // 0: no outline
    bool shadow = false;
    uint32_t shadowColorA = 0xFF000000;
    uint32_t shadowColorB = NoSecondColor;
    float shadowOffsetX = 0; // pixels, of shadow and glow
    float shadowOffsetY = 0;
};

// style: of its flags only the alignment counts.
void drawTextWithEffects(HDC context, const RECT& rectangle, std::wstring_view text, HFONT font,
                         uint32_t color, unsigned style, const TextEffects& effects);

} // namespace UILib
