#include "publisher/fault.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace publisher {

namespace {

enum class Value { None, Number, Text };

struct KindRow {
    std::string_view name;
    FaultKind kind;
    Value value;
    std::string_view help;
};

constexpr std::array<KindRow, 11> Kinds = {{
    {"slow", FaultKind::Slow, Value::Number, "VALUE bytes a second"},
    {"cut", FaultKind::Cut, Value::Number, "closes after VALUE bytes of the body"},
    {"ignore-range", FaultKind::IgnoreRange, Value::None, "answers a range with the whole body"},
    {"wrong-range", FaultKind::WrongRange, Value::Number, "begins a range VALUE bytes too early"},
    {"chunked", FaultKind::Chunked, Value::None, "sends chunks, without a length"},
    {"no-length", FaultKind::NoLength, Value::None, "ends the body by closing, without a length"},
    {"wrong-length", FaultKind::WrongLength, Value::Number, "announces VALUE bytes too many"},
    {"status", FaultKind::Status, Value::Number, "answers with status VALUE"},
    {"redirect", FaultKind::Redirect, Value::Text, "redirects to the address VALUE"},
    {"redirect-loop", FaultKind::RedirectLoop, Value::None, "redirects to itself"},
    {"hang", FaultKind::Hang, Value::None, "never answers"},
}};

template <class Number>
bool parseNumber(std::string_view text, Number& number) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::string_view takeField(std::string_view& rest) {
    size_t comma = std::min(rest.find(','), rest.size());
    std::string_view field = rest.substr(0, comma);
    rest.remove_prefix(std::min(comma + 1, rest.size()));
    return field;
}

} // namespace

std::optional<Fault> parseFault(std::string_view kind, std::string_view value, std::string_view times) {
    auto row =
        std::find_if(Kinds.begin(), Kinds.end(), [&](const KindRow& each) { return each.name == kind; });
    if (row == Kinds.end())
        return std::nullopt;
    Fault fault{.kind = row->kind, .number = 0, .text = {}, .times = 0};
    if (row->value == Value::Number && !parseNumber(value, fault.number))
        return std::nullopt;
    if (row->value == Value::Text)
        fault.text = value;
    if (!times.empty() && !parseNumber(times, fault.times))
        return std::nullopt;
    return fault;
}

std::optional<FaultRule> parseFaultRule(std::string_view text) {
    std::string_view path = takeField(text);
    std::string_view kind = takeField(text);
    std::string_view value = takeField(text);
    std::optional<Fault> fault = parseFault(kind, value, takeField(text));
    if (path.empty() || !fault)
        return std::nullopt;
    return FaultRule{std::string(path), *fault};
}

std::string describeFaults() {
    std::string text;
    for (const KindRow& row : Kinds) {
        text += "  " + std::string(row.name);
        text.append(16 - row.name.size(), ' ');
        text += std::string(row.help) + "\n";
    }
    return text;
}

} // namespace publisher
