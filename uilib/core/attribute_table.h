#pragma once

#include "uilib/core/platform.h"
#include "uilib/core/ui_string.h"

#include <cstdint>
#include <span>
#include <type_traits>

// The attributes that a class of controls reads from markup. Each class has one table in
// its own file; SetAttribute, the inspector and the tests all read it. A row is mostly
// made from a setter, whose parameter says how the value is read:
//
//     attribute<&CControlUI::SetPadding>(L"padding", "outer margins")

namespace UILib {

class CControlUI;

enum class AttributeKind { Text, Flag, Number, Color, Size, Rectangle, Image, List };

const char* attributeKindName(AttributeKind kind);

struct Attribute {
    const wchar_t* name; // compared exactly
    AttributeKind kind;
    void (*set)(CControlUI& control, const wchar_t* value);
    const char* description;
};

struct AttributeTable {
    const AttributeTable* base; // of the base class, null at the end
    std::span<const Attribute> rows;

    const Attribute* find(const wchar_t* name) const; // here and in the bases
};

// The grammars of values. Damaged numbers read as 0, coordinates stay within a limit
// that keeps their sums in an int.
bool readFlag(const wchar_t* value); // "true", and nothing else, is true
int readNumber(const wchar_t* value);
SIZE readSize(const wchar_t* value);
RECT readRectangle(const wchar_t* value);
uint32_t readColorValue(const wchar_t* value); // leading blanks and a '#' are passed over

// Marks the parameter of a setter that takes a colour.
struct Color {
    uint32_t argb = 0;
    constexpr Color() = default;
    constexpr Color(uint32_t argb) : argb(argb) {}
    constexpr operator uint32_t() const { return argb; }
};

namespace detail {

template <class Member>
struct SetterOf;
template <class Class, class Result, class Parameter>
struct SetterOf<Result (Class::*)(Parameter)> {
    using Owner = Class;
    using Value = std::remove_cvref_t<Parameter>;
};

template <class Value>
constexpr AttributeKind kindOf() {
    if constexpr (std::is_same_v<Value, bool>)
        return AttributeKind::Flag;
    else if constexpr (std::is_same_v<Value, Color>)
        return AttributeKind::Color;
    else if constexpr (std::is_same_v<Value, SIZE>)
        return AttributeKind::Size;
    else if constexpr (std::is_same_v<Value, RECT>)
        return AttributeKind::Rectangle;
    else if constexpr (std::is_integral_v<Value>)
        return AttributeKind::Number;
    else
        return AttributeKind::Text;
}

template <auto Setter>
void callSetter(CControlUI& control, const wchar_t* value) {
    using Traits = SetterOf<decltype(Setter)>;
    auto& owner = static_cast<typename Traits::Owner&>(control);
    constexpr AttributeKind Kind = kindOf<typename Traits::Value>();
    if constexpr (Kind == AttributeKind::Flag)
        (owner.*Setter)(readFlag(value));
    else if constexpr (Kind == AttributeKind::Color)
        (owner.*Setter)(readColorValue(value));
    else if constexpr (Kind == AttributeKind::Size)
        (owner.*Setter)(readSize(value));
    else if constexpr (Kind == AttributeKind::Rectangle)
        (owner.*Setter)(readRectangle(value));
    else if constexpr (Kind == AttributeKind::Number)
        (owner.*Setter)(static_cast<typename Traits::Value>(readNumber(value)));
    else
        (owner.*Setter)(value);
}

} // namespace detail

template <auto Setter>
constexpr Attribute attribute(const wchar_t* name, const char* description) {
    using Value = typename detail::SetterOf<decltype(Setter)>::Value;
    return {name, detail::kindOf<Value>(), &detail::callSetter<Setter>, description};
}

// A setter of text that is an image string.
template <auto Setter>
constexpr Attribute imageAttribute(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Image, &detail::callSetter<Setter>, description};
}

} // namespace UILib
