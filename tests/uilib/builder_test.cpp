#include "tests/uilib/tree.h"
#include "uilib/core/paint_manager.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace UILib;

namespace {

struct Creator : IDialogBuilderCallback {
    CControlUI* CreateControl(const wchar_t* tag) override {
        asked += tag;
        return wcscmp(tag, L"Mine") == 0 ? new CControlUI : nullptr;
    }
    std::wstring asked;
};

std::wstring classesIn(CControlUI& control) {
    std::wstring text = control.GetClass();
    auto* container = static_cast<IContainerUI*>(control.GetInterface(L"IContainer"));
    if (!container || container->GetCount() == 0)
        return text;
    text += L"(";
    for (int i = 0; i < container->GetCount(); ++i)
        text += (i ? L" " : L"") + classesIn(*container->GetItemAt(i));
    return text + L")";
}

Tree buildWith(CPaintManagerUI& manager, const std::wstring& elements) {
    CDialogBuilder builder;
    return Tree(builder.Create((L"<Window>" + elements + L"</Window>").c_str(), nullptr, nullptr, &manager));
}

} // namespace

TEST(DialogBuilder, MakesControlsOfTags) {
    Creator creator;
    Tree root =
        buildTree(L"<vbox><HBOX><Control/></HBOX><Container/><Unknown><Control/></Unknown><Mine/><gifanim/>"
                  L"<MultiLanguage/></vbox>",
                  &creator);
    EXPECT_EQ(classesIn(*root), L"VerticalLayout(HorizontalLayout(Control) Container Control)");
    EXPECT_EQ(creator.asked, L"UnknownMinegifanim");
    const std::pair<const wchar_t*, const wchar_t*> tags[] = {{L"VBox", L"VerticalLayout"},
                                                              {L"VerticalLayout", L"VerticalLayout"},
                                                              {L"HBox", L"HorizontalLayout"},
                                                              {L"HorizontalLayout", L"HorizontalLayout"},
                                                              {L"TabLayout", L"TabLayout"},
                                                              {L"ScrollBar", L"ScrollBar"},
                                                              {L"Label", L"Label"},
                                                              {L"Button", L"Button"},
                                                              {L"Option", L"Option"},
                                                              {L"CheckBox", L"CheckBox"},
                                                              {L"Progress", L"Progress"},
                                                              {L"GifAnim", L"GifAnim"},
                                                              {L"Edit", L"Edit"},
                                                              {L"Combo", L"Combo"},
                                                              {L"combobox", L"Combo"},
                                                              {L"ListLabelElement", L"ListLabelElement"}};
    for (const auto& [tag, name] : tags) {
        const Tree control = buildTree(std::wstring(L"<") + tag + L"/>");
        ASSERT_NE(control, nullptr) << std::filesystem::path(tag);
        EXPECT_STREQ(control->GetClass(), name);
    }
}

TEST(DialogBuilder, DropsWhatHasNoPlaceAndKeepsTheRest) {
    EXPECT_EQ(classesIn(*buildTree(L"<VBox><Control><Control/></Control><Control/></VBox>")),
              L"VerticalLayout(Control Control)");
    Tree covered = buildTree(L"<VBox><Control cover=\"true\" name=\"over\"/><Control/></VBox>");
    EXPECT_EQ(classesIn(*covered), L"VerticalLayout(Control)");
    ASSERT_NE(covered->GetCover(), nullptr);
    EXPECT_TRUE(covered->GetCover()->GetName() == L"over");
    EXPECT_EQ(buildTree(L""), nullptr);
}

TEST(DialogBuilder, TellsWhyADocumentCannotBeRead) {
    CDialogBuilder builder;
    EXPECT_EQ(builder.Create(L"<Window><VBox x/></Window>"), nullptr);
    EXPECT_STREQ(builder.GetMarkup().GetLastErrorMessage(), L"Error while parsing attributes");
    EXPECT_EQ(builder.Create(L"no such file.xml"), nullptr);
    EXPECT_EQ(builder.Create(static_cast<const wchar_t*>(nullptr)), nullptr);
    EXPECT_EQ(builder.Create(4711u, L"XML", nullptr, nullptr, nullptr), nullptr);
}

TEST(DialogBuilder, AppliesDefaultsBeforeTheElementsOwnAttributes) {
    CPaintManagerUI manager;
    Tree root =
        buildWith(manager, L"<VBox><Control width=\"7\" odd=\"1\" odd=\"2\"/></VBox>"
                           L"<Default name=\"Control\" value=\"width=&quot;5&quot; height=&quot;6&quot;\"/>");
    const CControlUI& control = child(*root, 0);
    EXPECT_EQ(control.GetFixedWidth(), 7);
    EXPECT_EQ(control.GetFixedHeight(), 6);
    EXPECT_STREQ(control.GetCustomAttribute(L"odd"), L"1");
    EXPECT_EQ(control.GetManager(), nullptr); // until the tree is attached
    EXPECT_EQ(buildWith(manager, L"<Default value=\"x\"/><Font name=\"x\"/><Image/>"), nullptr);
}

TEST(DialogBuilder, ExpandsIncludes) {
    static const char part[] = "<Window><Control name='x'/><Control/></Window>";
    std::string document(part);
    for (char& c : document)
        c = c == '\'' ? '"' : c;
    CPaintManagerUI::AddArchiveEntry(L"test/part.xml", document.data(),
                                     static_cast<uint32_t>(document.size()));
    EXPECT_EQ(classesIn(*buildTree(L"<VBox><Include source=\"test\\part.xml\" count=\"2\"/>"
                                   L"<Include count=\"1\"/><Include source=\"none.xml\"/>"
                                   L"<Include source=\"test/part.xml\" count=\"0\"/></VBox>")),
              L"VerticalLayout(Control Control Control Control)");
}

// Neither may take the stack or the memory of the process.
TEST(DialogBuilder, SurvivesEndlessNestingAndIncludes) {
    std::wstring deep;
    for (int i = 0; i < 100000; ++i)
        deep += L"<VBox>";
    for (int i = 0; i < 100000; ++i)
        deep += L"</VBox>";
    Tree root = buildTree(deep);
    int depth = 0;
    for (CControlUI* control = root.get(); control; control = asContainer(*control).GetItemAt(0))
        ++depth;
    EXPECT_GT(depth, 100);
    EXPECT_LT(depth, 1000);

    const std::string itself =
        "<Window><VBox><Include source=\"test/loop.xml\" count=\"2000000000\"/></VBox></Window>";
    CPaintManagerUI::AddArchiveEntry(L"test/loop.xml", itself.data(), static_cast<uint32_t>(itself.size()));
    EXPECT_NE(buildTree(L"<VBox><Include source=\"test/loop.xml\"/></VBox>"), nullptr);
}

TEST(ControlAttributes, ReadTheirGrammars) {
    CControlUI control;
    control.ApplyAttributeList(
        L"pos=\"10,20,60,50\" padding=\"1 2 3 4\" visible=\"true\" enabled=\"TRUE\" "
        L"bkcolor=\"  #80FF0000\" shortcut=\"xyz\" tag=\"-2\" tooltip=\"a<n>b\" text=\"\"");
    EXPECT_EQ(control.GetFixedXY().y, 20);
    EXPECT_EQ(control.GetFixedWidth(), 50);
    EXPECT_EQ(control.GetPadding().bottom, 4);
    EXPECT_TRUE(control.IsVisible());
    EXPECT_FALSE(control.IsEnabled());
    EXPECT_EQ(control.GetBkColor(), 0x80FF0000u);
    EXPECT_EQ(control.GetShortcut(), L'x');
    EXPECT_EQ(static_cast<int>(control.GetTag()), -2);
    EXPECT_TRUE(control.GetToolTip() == L"a\r\nb");

    control.SetAttribute(L"width", L"-5"); // refused
    EXPECT_EQ(control.GetFixedWidth(), 50);
    control.SetAttribute(L"maxwidth", L"10");
    control.SetAttribute(L"minwidth", L"20");
    EXPECT_EQ(control.GetMaxWidth(), 20);
    control.SetAttribute(L"width", L"99999999999999999999"); // limited, so that sums stay sums
    EXPECT_GT(control.GetFixedWidth(), 100000);
    EXPECT_LT(control.GetFixedWidth(), 100000000);
    control.SetAttribute(L"bkcolorIndex", L"7");
    EXPECT_EQ(control.GetBkColor(), 0u);
    control.SetAttribute(L"float", L"0.5,1e99,nan,0.25");
    EXPECT_TRUE(control.IsFloat());
    EXPECT_EQ(control.GetFloatPercent().left, 0.5);
    EXPECT_EQ(control.GetFloatPercent().top, 0);
    EXPECT_EQ(control.GetFloatPercent().bottom, 0.25);
}

TEST(ControlAttributes, EveryRowHasOneNameAndADescription) {
    for (const wchar_t* tag : {L"Control", L"Container", L"VBox", L"HBox", L"TabLayout", L"ScrollBar"}) {
        Tree control = buildTree(std::wstring(L"<") + tag + L"/>");
        std::vector<std::wstring> names;
        for (const AttributeTable* table = &control->GetAttributeTable(); table; table = table->base)
            for (const Attribute& row : table->rows) {
                EXPECT_EQ(std::count(names.begin(), names.end(), row.name), 0);
                EXPECT_GT(strlen(row.description), 3u);
                names.emplace_back(row.name);
                control->SetAttribute(row.name, L""); // no row may stumble over an empty value
                control->SetAttribute(row.name, L"true");
                control->SetAttribute(row.name, L"-1,99999999999,x");
            }
    }
}
