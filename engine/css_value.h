#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// The values of style rules as pure parse functions: text in, value out, nothing for what
// is not understood. Lengths are pixels of the page.

namespace engine {

using Color = uint32_t; // 0xAARRGGBB, not premultiplied

struct Length {
    enum Unit { Auto, Pixels, Percent };
    Unit unit = Auto;
    float value = 0;

    bool isAuto() const { return unit == Auto; }

    // base: what 100 percent are. Auto gives fallback.
    int resolve(int base, int fallback = 0) const;
};

// A straight change of colours over a rectangle; degrees as in CSS, 0 upwards, clockwise.
struct Gradient {
    struct Stop {
        float at; // 0 to 1
        Color color;
    };
    float degrees = 180;
    std::vector<Stop> stops; // in order, at least two; empty for no gradient
};

inline constexpr float LargestLength = 20000; // pixels, either sign

std::optional<float> parseNumber(std::string_view text);
std::optional<Length> parseLength(std::string_view text, float fontSize); // em counts fontSize
std::optional<Color> parseColor(std::string_view text);
std::optional<Gradient> parseGradient(std::string_view text);

// The text between the brackets of url(...), without quotes.
std::optional<std::string_view> parseUrl(std::string_view text);

// Splits at a separator outside of brackets and quotes; a blank stands for any run of
// white space. Pieces come trimmed.
std::vector<std::string_view> splitValue(std::string_view text, char separator);

} // namespace engine
