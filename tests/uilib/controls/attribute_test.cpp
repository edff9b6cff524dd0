#include "stage.h"
#include "tests/uilib/repaint.h"

#include <map>

// Every attribute of every class, given to a control that is shown already: it shows at once,
// and a value that is there already costs nothing.

using namespace UILib;

namespace {

std::pair<const wchar_t*, const wchar_t*> valuesOf(const Attribute& row) {
    static const std::map<std::wstring, std::pair<const wchar_t*, const wchar_t*>> byName = {
        {L"align", {L"left", L"right"}},
        {L"min", {L"0", L"5"}},
        {L"max", {L"100", L"200"}},
        {L"pos", {L"1,2,31,42", L"9,7,59,60"}},
        {L"valign", {L"top", L"bottom"}},
        {L"childalign", {L"left", L"right"}},
        {L"childvalign", {L"top", L"bottom"}},
        {L"text", {L"few", L"some more words"}},
        {L"value", {L"20", L"60"}},
        {L"luminousfuzzy", {L"2", L"5"}},
        {L"range", {L"50", L"300"}},
        {L"font", {L"0", L"1"}},
        {L"bordersize", {L"0", L"1"}},
        {L"borderstyle", {L"0", L"2"}},
        {L"itemfont", {L"0", L"1"}}};
    if (const auto hit = byName.find(row.name); hit != byName.end())
        return hit->second;
    switch (row.kind) {
    case AttributeKind::Flag:
        return {L"false", L"true"};
    case AttributeKind::Number:
        return {L"5", L"60"};
    case AttributeKind::Color:
        return {L"#FF112233", L"#FFDDBB44"};
    case AttributeKind::Size:
        return {L"2,2", L"12,20"};
    case AttributeKind::Rectangle:
        return {L"1,2,3,4", L"9,7,5,8"};
    case AttributeKind::Image:
        return {L"color='#FF00AA00'", L"color='#FFAA00AA'"};
    default:
        return {};
    }
}

// A picture that is not loaded is tried again; and these are rare enough to be set anew.
bool isNeverTheSame(const Attribute& row) {
    const std::wstring name = row.name;
    return row.kind == AttributeKind::Image || name == L"redFilePath" || name == L"value" ||
           name.starts_with(L"item") || name.starts_with(L"showbutton");
}

// What a class draws only with these on.
constexpr struct Tag {
    const wchar_t* name;
    const wchar_t* attributes;
} Tags[] = {
    {L"Control", L"bordersize=\"2\" bordercolor=\"#FF00FFFF\" bkcolor=\"#FF335577\""},
    {L"Label", L"text=\"words\" textcolor=\"#FFFFFFFF\" enabledeffect=\"true\" enabledstroke=\"true\" "
               L"strokecolor=\"#FF00FF00\" enabledshadow=\"true\""},
    {L"Button", L"text=\"words\" bordersize=\"2\""},
    {L"Option", L"text=\"words\" selected=\"true\""},
    {L"Edit", L"text=\"words\" bordersize=\"2\""},
    {L"Progress", L"value=\"50\" forecolor=\"#FF00FF00\""},
    {L"Combo", L"bordersize=\"2\""},
    {L"ScrollBar", L"width=\"20\" thumbcolor=\"#FF00FF00\""},
    {L"VBox", L"bkcolor=\"#FF335577\""},
    {L"HBox", L"bkcolor=\"#FF335577\""},
};

std::wstring elementOf(const wchar_t* tag, const wchar_t* attributes) {
    const std::wstring name(tag);
    std::wstring inside;
    if (name == L"Combo")
        inside = L"<ListLabelElement text=\"one\" selected=\"true\"/>";
    else if (name == L"VBox" || name == L"HBox")
        inside = L"<Button width=\"30\" height=\"20\" bkcolor=\"#FFAA0000\"/><Button width=\"40\" "
                 L"height=\"20\" bkcolor=\"#FF00AA00\"/>";
    return L"<HBox height=\"100\"><" + name + L" name=\"x\" height=\"90\" " + attributes + L">" + inside +
           L"</" + name + L"><Control width=\"50\" bkcolor=\"#FF0000AA\"/></HBox>";
}

class EveryAttribute : public testing::TestWithParam<Tag> {};

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, EveryAttribute, testing::ValuesIn(Tags), [](const auto& tag) {
    const std::wstring name(tag.param.name);
    return std::string(name.begin(), name.end());
});

TEST_P(EveryAttribute, ShowsAtOnceAndOnlyWhenItChanges) {
    Stage stage(elementOf(GetParam().name, GetParam().attributes));
    const Repaints repaints(stage, stage.manager);
    CControlUI& x = stage.get(L"x");
    stage.mouse(WM_MOUSEMOVE, 20, 20);
    for (const Attribute& row : x.GetAttributeTable().rows) {
        const auto& [first, second] = valuesOf(row);
        if (!first)
            continue;
        const std::string name = testing::PrintToString(std::wstring(row.name));
        x.SetAttribute(row.name, first);
        repaints.settle();
        x.SetAttribute(row.name, second);
        EXPECT_EQ(repaints.stale(), "") << name;
        const std::string again = repaints.by([&] { x.SetAttribute(row.name, second); });
        EXPECT_TRUE(again.empty() || isNeverTheSame(row)) << name << again;
    }
}
