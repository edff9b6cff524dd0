#include "stage.h"
#include "uilib/controls/combo.h"
#include "uilib/controls/edit.h"
#include "uilib/controls/option.h"

using namespace UILib;

namespace {

// A form as a settings window has it.
constexpr wchar_t Form[] =
    L"<Edit name=\"path\" height=\"24\" keyboard=\"true\"/>"
    L"<Option name=\"tray\" height=\"24\" group=\"close\" selected=\"true\" keyboard=\"true\"/>"
    L"<Option name=\"exit\" height=\"24\" group=\"close\" keyboard=\"true\"/>"
    L"<Label name=\"text\" height=\"24\" text=\"no stop\"/>"
    L"<Combo name=\"language\" height=\"24\" keyboard=\"true\" itemheight=\"20\">"
    L"<ListLabelElement text=\"a\" selected=\"true\"/><ListLabelElement text=\"b\"/><ListLabelElement "
    L"text=\"c\"/>"
    L"</Combo><Button name=\"ok\" height=\"24\" keyboard=\"true\"/>";

class FormStage : public Stage {
public:
    FormStage() : Stage(Form) {}

    void tab(const wchar_t* target) {
        key(VK_TAB);
        EXPECT_EQ(manager.GetFocus(), &get(target)) << testing::PrintToString(std::wstring(target));
    }
    void type(wchar_t character) {
        PostMessageW(::GetFocus(), WM_CHAR, character, 1);
        pumpMessages();
    }
};

} // namespace

// Each key goes where the focus of the system is, as a user's would.
TEST(Keyboard, FillsInAForm) {
    FormStage stage;
    stage.tab(L"path");
    stage.type(L'D');
    stage.type(L':');
    EXPECT_EQ(stage.get(L"path").GetText(), L"D:");
    stage.take();
    stage.tab(L"tray");
    EXPECT_EQ(stage.get<CEditUI>(L"path").GetText(), L"D:");
    stage.tab(L"exit");
    stage.key(VK_SPACE);
    EXPECT_EQ(stage.take(), "exit!click exit!selectchanged");
    EXPECT_FALSE(stage.get<COptionUI>(L"tray").IsSelected());

    stage.tab(L"language");
    auto& language = stage.get<CComboUI>(L"language");
    stage.key(VK_F4);
    ASSERT_TRUE(language.IsOpen());
    stage.key(VK_DOWN);
    stage.key(VK_DOWN);
    stage.key(VK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return !language.IsOpen(); }));
    EXPECT_EQ(language.GetText(), L"a");
    stage.key(VK_F4);
    stage.key(VK_DOWN);
    stage.key(VK_RETURN);
    EXPECT_TRUE(pumpUntil([&] { return !language.IsOpen(); }));
    EXPECT_EQ(language.GetText(), L"b");
    EXPECT_EQ(stage.manager.GetFocus(), &language);
    stage.take();

    stage.tab(L"ok");
    stage.key(VK_RETURN);
    EXPECT_EQ(stage.take(), "ok!click");
    stage.tab(L"path");
}

// A skin can make the focus seen on every kind of control, by its border.
TEST(Keyboard, TheFocusIsSeen) {
    FormStage stage;
    for (const wchar_t* name : {L"path", L"tray", L"exit", L"language", L"ok"}) {
        CControlUI& control = stage.get(name);
        control.SetAttribute(L"bordersize", L"1");
        control.SetAttribute(L"bordercolor", L"#FF0000FF");
        control.SetAttribute(L"focusbordercolor", L"#FFFF8000");
        const RECT& place = control.GetPos();
        EXPECT_EQ(stage.pixel(control, place.left, place.top), 0x0000FFu);
        stage.tab(name);
        EXPECT_EQ(stage.pixel(control, place.left, place.top), 0xFF8000u);
    }
}
