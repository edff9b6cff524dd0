#pragma once

#include "utility/handles.h"

// Colours, type and measures that the main window's parts share.

namespace palette {

inline constexpr COLORREF TitleColor = RGB(0x6D, 0xAB, 0xFF);
inline constexpr COLORREF TitleHot = RGB(0x80, 0xBC, 0xFF);
inline constexpr COLORREF BodyTop = RGB(0x24, 0x3B, 0x6B);
inline constexpr COLORREF BodyBottom = RGB(0x14, 0x20, 0x3C);
inline constexpr COLORREF BandColor = RGB(0x10, 0x19, 0x30);
inline constexpr COLORREF AccentColor = RGB(0xF2, 0x8C, 0x38);
inline constexpr COLORREF AccentPushed = RGB(0xC9, 0x6C, 0x1E);
inline constexpr COLORREF DisabledColor = RGB(0x5A, 0x63, 0x78);
inline constexpr COLORREF TroughColor = RGB(0x2A, 0x38, 0x58);
inline constexpr COLORREF SoftText = RGB(0xBC, 0xBF, 0xC1);
inline constexpr COLORREF White = RGB(0xFF, 0xFF, 0xFF);

inline constexpr int IconResource = 107;
inline constexpr int TitleHeight = 41; // of the design

// height: of the letters' em, in pixels.
inline utility::Font makeFont(int height, int weight) {
    return utility::Font(CreateFontW(-height, 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                     CLEARTYPE_QUALITY, 0, L"Microsoft YaHei"));
}

} // namespace palette
