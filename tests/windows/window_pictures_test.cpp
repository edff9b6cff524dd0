#include "shell/MessageBox.h"
#include "shell/XrMenuWnd.h"
#include "tests/golden/window_picture.h"
#include "tests/windows/skinned_window.h"
#include "uilib/controls/control.h"

// The windows whose buttons and rows come from code, in a language of Latin, of Thai and of
// Chinese script. See tests/uilib/render/skin_windows_test.cpp for those that are all skin.

using namespace UILib;

namespace {

struct Language {
    const char* name;
    const wchar_t* code;
};

class WindowPictures : public windows_test::SkinnedWindows, public testing::WithParamInterface<Language> {
protected:
    void SetUp() override {
        SkinnedWindows::SetUp();
        CPaintManagerUI::SetLanguageCode(GetParam().code, L"en_US");
        CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
    }
    static std::string picture(const char* window) {
        return std::string("windows/") + window + "_" + GetParam().name;
    }
    // A box that is laid out and has the focus where it will stay.
    static CPaintManagerUI* shownBox() {
        const HWND box = windowOf(L"MessageBoxWindow");
        CControlUI* title = control(box, L"titlelabel");
        if (!title)
            return nullptr;
        CPaintManagerUI* manager = title->GetManager();
        const bool ready = pumpUntil([&] { return title->GetWidth() > 0 && manager->GetFocus(); });
        return ready ? manager : nullptr;
    }
};

} // namespace

TEST_P(WindowPictures, ANoticeWithTwoButtons) {
    msg::showConfirmBox(owner, {languageText("restart_now"), {}, true},
                        {languageText("restart_later"), {}, false}, languageText("prompt"),
                        languageText("change_restart"));
    CPaintManagerUI* box = shownBox();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(golden::windowMatches(*box->GetRoot(), picture("notice")));
    DestroyWindow(box->GetPaintWindow());
}

TEST_P(WindowPictures, AMessageWithOneButton) {
    msg::IMessageBox* message = msg::createMessageBox(owner, msg::skinForIcon(L""));
    ASSERT_NE(message, nullptr);
    message->setTitle(languageText("update_title2"));
    message->setContent(languageText("flow_not_unpacked"));
    message->addRemoteSelection({languageText("confirm"), {}, false});
    CPaintManagerUI* box = shownBox();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(golden::windowMatches(*box->GetRoot(), picture("message")));
    DestroyWindow(box->GetPaintWindow());
}

TEST_P(WindowPictures, TheMenuOfTheIcon) {
    XrMenuWnd::style = {.rowHeight = 40,
                        .rowWidth = 120,
                        .rowColor = 0xFFFFFFFF,
                        .hotColor = 0xFFE3E5E8,
                        .textColor = 0xFF000000,
                        .hotTextColor = 0xFF000000};
    XrMenuWnd::addMenuItem(owner, L"SHOW", languageText("menu_showmain"), L"", L"");
    XrMenuWnd::addMenuItem(owner, L"EXIT", languageText("menu_exit"), L"", L"");
    ASSERT_NE(XrMenuWnd::current, nullptr);
    CControlUI* root = XrMenuWnd::current->GetPaintManager().GetRoot();
    root->SetPos({0, 0, XrMenuWnd::style.rowWidth, 2 * XrMenuWnd::style.rowHeight}, false);
    EXPECT_TRUE(golden::windowMatches(*root, picture("menu")));
    DestroyWindow(XrMenuWnd::current->GetHWND());
}

INSTANTIATE_TEST_SUITE_P(All, WindowPictures,
                         testing::Values(Language{"en", L"en_US"}, Language{"th", L"th_TH"},
                                         Language{"cn", L"zh_CN"}),
                         [](const auto& info) { return info.param.name; });
