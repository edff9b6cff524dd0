#include "kit/process_counts.h"
#include "tests/uilib/skin_window.h"

// Opening and closing windows leaves nothing behind.

using namespace UILib;

namespace {

// The small windows of the launcher, with their real skins.
const wchar_t* const Skins[] = {L"common\\xml_messagebox.xml", L"updatecheckframe.xml", L"updateframe.xml",
                                L"xm_setupframe.xml", L"xml_menu.xml"};

void openAndClose(const wchar_t* skin) {
    SkinWindow window(skin);
    ASSERT_TRUE(window.open());
    window.ShowWindow();
    UpdateWindow(window);
    ASSERT_TRUE(logHas(window, "windowinit"));
    DestroyWindow(window);
    ASSERT_TRUE(window.gone);
}

// Not GetGuiResources: it knows nothing here.
kit::ProcessCounts counts() {
    kit::ProcessCounts now;
    EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), now));
    return now;
}

} // namespace

TEST(Windows, AThousandLeaveNothingBehind) {
    CPaintManagerUI::SetResourcePath(SKIN_FOLDER);
    for (const wchar_t* skin : Skins) // what is made once and stays
        openAndClose(skin);
    const kit::ProcessCounts before = counts();
    ASSERT_GT(before.gdi, 0u);
    for (size_t i = 0; i < 1000 && !HasFatalFailure(); ++i)
        openAndClose(Skins[i % std::size(Skins)]);
    const kit::ProcessCounts after = counts();
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_LE(after.handles, before.handles + 2);
    CPaintManagerUI::SetResourcePath(L"");
}
