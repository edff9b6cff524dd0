#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The library's own choice of 4 bytes on 32-bit platforms is too little for its values,
// which hold 64-bit numbers.
#define RAPIDJSON_ALIGN(size) (((size) + 7u) & ~7u)
#include <rapidjson/document.h>

// How the program reads a JSON document that came from the network: type-strict, and
// without recursion, so that a deeply nested text cannot exhaust the stack.

namespace json {

// Far above any document of ours. The library takes 16 bytes for each byte of the worst
// text, and does not survive when they cannot be had.
inline constexpr size_t MaxDocument = 4 * 1024 * 1024;

// The parsed text; null when it is no JSON or larger than the limit.
inline rapidjson::Document parse(const std::string& text) {
    rapidjson::Document document;
    if (text.size() > MaxDocument)
        return document;
    document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if (document.HasParseError())
        document.SetNull();
    return document;
}

// Nothing when the member is missing or not an integer of 32 bits.
inline std::optional<int32_t> intMember(const rapidjson::Value& object, const char* key) {
    const auto member = object.FindMember(key);
    if (member == object.MemberEnd() || !member->value.IsInt())
        return std::nullopt;
    return member->value.GetInt();
}

// Nothing when the member is missing or not a string.
inline std::optional<std::string> stringMember(const rapidjson::Value& object, const char* key) {
    const auto member = object.FindMember(key);
    if (member == object.MemberEnd() || !member->value.IsString())
        return std::nullopt;
    return std::string(member->value.GetString(), member->value.GetStringLength());
}

} // namespace json
