#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <rapidjson/document.h>

// How the program reads a JSON document that came from the network: type-strict, and
// without recursion, so that a deeply nested text cannot exhaust the stack.

namespace json {

// The parsed text; null when it is no JSON.
inline rapidjson::Document parse(const std::string& text) {
    rapidjson::Document document;
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
