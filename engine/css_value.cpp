#include "engine/css_value.h"

#include "engine/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>

namespace engine {

namespace {

struct NamedColor {
    std::string_view name;
    Color color;
};

constexpr NamedColor NamedColors[] = {
    {"transparent", 0x00000000}, {"black", 0xFF000000},  {"white", 0xFFFFFFFF}, {"gray", 0xFF808080},
    {"silver", 0xFFC0C0C0},      {"red", 0xFFFF0000},    {"green", 0xFF008000}, {"blue", 0xFF0000FF},
    {"yellow", 0xFFFFFF00},      {"orange", 0xFFFFA500}, {"gold", 0xFFFFD700},  {"purple", 0xFF800080},
};

std::optional<Color> hexColor(std::string_view digits) {
    uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    if (digits.size() == 3)
        return 0xFF000000 | (value >> 8 & 15) * 0x110000 | (value >> 4 & 15) * 0x1100 | (value & 15) * 0x11;
    if (digits.size() == 6)
        return 0xFF000000 | value;
    return digits.size() == 8 ? std::optional(value << 24 | value >> 8) : std::nullopt;
}

uint32_t toByte(float value) {
    return static_cast<uint32_t>(std::clamp(value, 0.0f, 255.0f) + 0.5f);
}

// What stands in NAME(...), if it is that function.
std::optional<std::string_view> argumentsOf(std::string_view text, std::string_view name) {
    text = trimmed(text);
    if (text.size() < name.size() + 2 || lowered(text.substr(0, name.size())) != name ||
        text[name.size()] != '(' || text.back() != ')')
        return std::nullopt;
    return trimmed(text.substr(name.size() + 1, text.size() - name.size() - 2));
}

std::optional<Color> rgbColor(std::string_view text) {
    auto arguments = argumentsOf(text, "rgba");
    if (!arguments)
        arguments = argumentsOf(text, "rgb");
    if (!arguments)
        return std::nullopt;
    const auto parts = splitValue(*arguments, ',');
    if (parts.size() != 3 && parts.size() != 4)
        return std::nullopt;
    float channels[4] = {0, 0, 0, 1};
    for (size_t i = 0; i < parts.size(); i++) {
        const auto number = parseNumber(parts[i]);
        if (!number)
            return std::nullopt;
        channels[i] = *number;
    }
    return toByte(channels[3] * 255) << 24 | toByte(channels[0]) << 16 | toByte(channels[1]) << 8 |
           toByte(channels[2]);
}

std::optional<float> directionOf(std::string_view text) {
    static constexpr std::pair<std::string_view, float> Sides[] = {
        {"to top", 0},        {"to right", 90},         {"to bottom", 180},      {"to left", 270},
        {"to top right", 45}, {"to bottom right", 135}, {"to bottom left", 225}, {"to top left", 315},
    };
    for (const auto& [name, degrees] : Sides)
        if (text == name)
            return degrees;
    return text.ends_with("deg") ? parseNumber(text.substr(0, text.size() - 3)) : std::nullopt;
}

std::optional<Gradient::Stop> parseStop(std::string_view text, float place) {
    const auto parts = splitValue(text, ' ');
    if (parts.empty() || parts.size() > 2)
        return std::nullopt;
    const auto color = parseColor(parts[0]);
    if (!color)
        return std::nullopt;
    if (parts.size() == 2) {
        const auto length = parseLength(parts[1], 0);
        if (!length || length->unit != Length::Percent)
            return std::nullopt;
        place = length->value / 100;
    }
    return Gradient::Stop{place, *color};
}

} // namespace

int Length::resolve(int base, int fallback) const {
    if (unit == Auto)
        return fallback;
    const float pixels = unit == Percent ? value * static_cast<float>(base) / 100 : value;
    return static_cast<int>(std::lround(std::clamp(pixels, -LargestLength, LargestLength)));
}

std::optional<float> parseNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    float value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<Length> parseLength(std::string_view text, float fontSize) {
    text = trimmed(text);
    if (text == "auto")
        return Length{};
    static constexpr std::pair<std::string_view, Length::Unit> Units[] = {
        {"px", Length::Pixels}, {"rem", Length::Pixels}, {"em", Length::Pixels}, {"%", Length::Percent}};
    for (const auto& [name, unit] : Units) {
        if (!text.ends_with(name))
            continue;
        const auto number = parseNumber(text.substr(0, text.size() - name.size()));
        if (!number)
            return std::nullopt;
        const float factor = name == "em" ? fontSize : name == "rem" ? 16 : 1;
        return Length{unit, std::clamp(*number * factor, -LargestLength, LargestLength)};
    }
    const auto number = parseNumber(text);
    return number && *number == 0 ? std::optional(Length{Length::Pixels, 0}) : std::nullopt;
}

std::optional<Color> parseColor(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('#'))
        return hexColor(text.substr(1));
    const std::string name = lowered(text);
    for (const NamedColor& each : NamedColors)
        if (name == each.name)
            return each.color;
    return rgbColor(text);
}

std::optional<Gradient> parseGradient(std::string_view text) {
    const auto arguments = argumentsOf(text, "linear-gradient");
    if (!arguments)
        return std::nullopt;
    auto parts = splitValue(*arguments, ',');
    Gradient gradient;
    if (!parts.empty())
        if (const auto direction = directionOf(parts[0])) {
            gradient.degrees = *direction;
            parts.erase(parts.begin());
        }
    if (parts.size() < 2 || parts.size() > 8)
        return std::nullopt;
    for (size_t i = 0; i < parts.size(); i++) {
        const auto stop = parseStop(parts[i], static_cast<float>(i) / static_cast<float>(parts.size() - 1));
        if (!stop || (i > 0 && stop->at < gradient.stops.back().at))
            return std::nullopt;
        gradient.stops.push_back(*stop);
    }
    return gradient;
}

std::optional<std::string_view> parseUrl(std::string_view text) {
    auto address = argumentsOf(text, "url");
    if (address && address->size() >= 2 && (address->front() == '"' || address->front() == '\'') &&
        address->front() == address->back())
        address = address->substr(1, address->size() - 2);
    return address;
}

std::vector<std::string_view> splitValue(std::string_view text, char separator) {
    std::vector<std::string_view> out;
    int depth = 0;
    char quote = 0;
    size_t start = 0;
    const auto cut = [&](size_t end) {
        const auto piece = trimmed(text.substr(start, end - start));
        if (separator != ' ' || !piece.empty())
            out.push_back(piece);
        start = end + 1;
    };
    for (size_t at = 0; at < text.size(); at++) {
        const char letter = text[at];
        if (quote)
            quote = letter == quote ? 0 : quote;
        else if (letter == '"' || letter == '\'')
            quote = letter;
        else if (letter == '(')
            depth++;
        else if (letter == ')')
            depth--;
        else if (depth <= 0 && (letter == separator || (separator == ' ' && isBlank(letter))))
            cut(at);
    }
    if (!text.empty())
        cut(text.size());
    return out;
}

} // namespace engine
