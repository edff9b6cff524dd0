#include "kit/process_counts.h"
#include "shell/MessageBox.h"
#include "shell/MessageBoxWindow.h"
#include "tests/windows/skinned_window.h"
#include "uilib/controls/container.h"

#include <vector>

using namespace msg;
using namespace UILib;

namespace {

constexpr wchar_t BoxClass[] = L"MessageBoxWindow";

class MessageBoxTest : public windows_test::SkinnedWindows {
protected:
    // Two buttons that write their letter down.
    void ask(const std::wstring& content = L"sure?") {
        showConfirmBox(owner, {L"Yes", [this] { answer("y"); }, true},
                       {L"No", [this] { answer("n"); }, false}, L"Notice", content);
    }
    void answer(const char* letter) {
        answers += letter;
        parentWasEnabled = IsWindowEnabled(owner);
        boxWasHidden = !windowOf(BoxClass) || !IsWindowVisible(windowOf(BoxClass));
    }
    static CControlUI* button(HWND box, int number) {
        auto* bar = static_cast<IContainerUI*>(control(box, L"bottombar")->GetInterface(L"IContainer"));
        return bar->GetItemAt(1 + number); // behind the spacer on the left
    }
    static HWND box() { return windowOf(BoxClass); }
    static bool gone() {
        return pumpUntil([] { return !windowOf(BoxClass); });
    }
    static int boxCount() {
        int count = 0;
        for (HWND at = nullptr; (at = FindWindowExW(nullptr, at, BoxClass, nullptr));)
            ++count;
        return count;
    }

    std::string answers;
    bool parentWasEnabled = false;
    bool boxWasHidden = false;
};

} // namespace

TEST(MessageBoxRules, TheTypeGivesIconAndSkin) {
    const struct {
        int type;
        const wchar_t* icon;
        const wchar_t* skin;
    } cases[] = {
        {0, L"common/msg_noice48.png", L"common/xml_messagebox.xml"},
        {2, L"common/msg_noice48.png", L"common/xml_messagebox.xml"},
        {3, L"common/msg_ok.png", L"common/xml_messagebox.xml"},
        {4, L"", L"common/xml_messagebox_noicon.xml"},
        {-1, L"", L"common/xml_messagebox_noicon.xml"},
    };
    for (const auto& [type, icon, skin] : cases) {
        EXPECT_EQ(iconOfType(type), icon) << type;
        EXPECT_EQ(skinForIcon(iconOfType(type)), skin) << type;
    }
}

TEST_F(MessageBoxTest, EachButtonAnswersWithTheParentFreeAndTheBoxOutOfTheWay) {
    for (const int number : {0, 1}) {
        ask();
        ASSERT_NE(box(), nullptr);
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(text(box(), L"titlelabel"), L"Notice");
        EXPECT_EQ(text(box(), L"descriptlabel"), L"sure?");
        EXPECT_EQ(GetWindowLongW(box(), GWL_EXSTYLE) & (WS_EX_TOPMOST | WS_EX_TOOLWINDOW),
                  WS_EX_TOPMOST | WS_EX_TOOLWINDOW);
        answers.clear();
        click(box(), button(box(), number));
        EXPECT_TRUE(gone());
        EXPECT_EQ(answers, number == 0 ? "y" : "n");
        EXPECT_TRUE(parentWasEnabled);
        EXPECT_TRUE(boxWasHidden);
        EXPECT_TRUE(IsWindowEnabled(owner));
    }
}

TEST_F(MessageBoxTest, KeysAloneAreEnough) {
    ask();
    ASSERT_TRUE(pumpUntil([] { return button(box(), 0)->IsFocused(); }))
        << "the main button waits for Return";
    key(box(), VK_RETURN);
    EXPECT_TRUE(gone());
    EXPECT_EQ(answers, "y");

    ask();
    ASSERT_TRUE(pumpUntil([] { return button(box(), 0)->IsFocused(); }));
    key(box(), VK_TAB);
    ASSERT_TRUE(pumpUntil([] { return button(box(), 1)->IsFocused(); }));
    key(box(), VK_SPACE);
    EXPECT_TRUE(gone());
    EXPECT_EQ(answers, "yn");

    ask();
    key(box(), VK_ESCAPE);
    EXPECT_TRUE(gone());
    EXPECT_EQ(answers, "yn") << "Escape chooses nothing";
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(MessageBoxTest, TheCloseButtonRunsItsOwnAction) {
    IMessageBox* made = createMessageBox(owner, L"common/xml_messagebox_noicon.xml");
    ASSERT_NE(made, nullptr);
    made->addSelection({L"Yes", [this] { answer("y"); }, true});
    made->addRemoteSelection({L"Far", nullptr, false});
    made->setIcon(L""); // this skin has none
    made->setCloseAction([this] { answer("c"); });
    click(box(), L"closebtn");
    EXPECT_TRUE(gone());
    EXPECT_EQ(answers, "c");
    EXPECT_TRUE(parentWasEnabled);
}

TEST_F(MessageBoxTest, TheSameContentIsNotAskedTwiceAtATime) {
    ask();
    ask();
    EXPECT_EQ(boxCount(), 1);
    ask(L"something else?");
    EXPECT_EQ(boxCount(), 2);
    key(box(), VK_ESCAPE);
    EXPECT_TRUE(pumpUntil([] { return boxCount() == 1; }));
    key(box(), VK_ESCAPE);
    EXPECT_TRUE(gone());
    ask();
    EXPECT_EQ(boxCount(), 1) << "after its end it may be asked again";
}

TEST_F(MessageBoxTest, AnActionMayOpenAnotherBoxButNotItsOwnAgain) {
    showConfirmBox(owner,
                   {L"Yes",
                    [this] {
                        ask(L"first");
                        ask(L"second");
                    },
                    true},
                   {L"No", nullptr, false}, L"Notice", L"first");
    click(box(), button(box(), 0));
    ASSERT_TRUE(pumpUntil([] { return box() && text(box(), L"descriptlabel") == L"second"; }));
    ASSERT_TRUE(pumpUntil([] { return boxCount() == 1; }));
    click(box(), button(box(), 1));
    EXPECT_TRUE(gone());
    EXPECT_EQ(answers, "n");
    EXPECT_TRUE(IsWindowEnabled(owner));
}

// The launcher's one box, in every language of the table.
TEST_F(MessageBoxTest, HoldsItsButtonsInEveryLanguage) {
    for (int i = 0; i < CPaintManagerUI::GetLanguageCount(); ++i) {
        CUIString code, name;
        CPaintManagerUI::GetLanguageInfo(i, code, name);
        CPaintManagerUI::SetLanguageCode(code, code);
        CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
        showConfirmBox(owner, {languageText("restart_now"), nullptr, true},
                       {languageText("restart_later"), nullptr, false}, languageText("prompt"),
                       languageText("change_restart"));
        ASSERT_TRUE(pumpUntil([] { return button(box(), 0)->IsFocused(); }));
        const RECT first = button(box(), 0)->GetPos(), second = button(box(), 1)->GetPos();
        constexpr int margin = 8; // pixels to the frame
        EXPECT_GE(first.left, margin) << code.GetData();
        EXPECT_LT(first.right, second.left) << code.GetData();
        EXPECT_LE(second.right, 400 - margin) << code.GetData();
        EXPECT_LE(first.bottom, 230 - margin) << code.GetData();
        key(box(), VK_ESCAPE);
        ASSERT_TRUE(gone());
    }
}

TEST_F(MessageBoxTest, GoesWithItsParent) {
    ask();
    DestroyWindow(owner);
    EXPECT_EQ(box(), nullptr);
    owner = nullptr;
    ask();
    EXPECT_NE(box(), nullptr) << "the content of the lost box is free again";
    key(box(), VK_ESCAPE);
    EXPECT_TRUE(gone());
}

TEST_F(MessageBoxTest, ManyBoxesLeaveNothingBehind) {
    const auto openAndClose = [this] {
        ask();
        ASSERT_TRUE(pumpUntil([] { return button(box(), 0)->IsFocused(); })); // painted
        key(box(), VK_ESCAPE);
        ASSERT_TRUE(gone());
    };
    openAndClose();
    kit::ProcessCounts before, after;
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), before));
    for (int i = 0; i < 20; ++i)
        openAndClose();
    ASSERT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), after));
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.handles, before.handles + 2);
    EXPECT_EQ(after.windows, before.windows);
}
