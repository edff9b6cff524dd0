#include "stage.h"
#include "tests/uilib/repaint.h"
#include "uilib/controls/tab_layout.h"

using namespace UILib;

// The page that comes takes the focus to its first stop, and the window is told from where.
TEST(TabLayout, TellsOfATurnedPageAndTakesTheFocusThere) {
    Stage stage(L"<TabLayout name=\"t\"><VBox name=\"p0\"><Button name=\"b0\" keyboard=\"true\" "
                L"bkcolor=\"#FFFF0000\"/></VBox>"
                L"<VBox name=\"p1\"><Label height=\"20\"/><Button name=\"b1\" keyboard=\"true\" "
                L"bkcolor=\"#FF00FF00\"/></VBox>"
                L"<Button name=\"p2\" keyboard=\"true\" bkcolor=\"#FF0000FF\"/></TabLayout>");
    const Repaints repaints(stage, stage.manager);
    auto& tabs = stage.get<CTabLayoutUI>(L"t");
    const std::pair<int, const wchar_t*> turns[] = {{1, L"b1"}, {2, L"p2"}, {0, L"b0"}};
    int old = 0;
    for (const auto& [page, focus] : turns) {
        EXPECT_TRUE(tabs.SelectItem(page));
        EXPECT_EQ(stage.take(), "t!tabselect");
        EXPECT_EQ(int(stage.last.wParam), page);
        EXPECT_EQ(int(stage.last.lParam), old);
        EXPECT_EQ(repaints.stale(), "") << page;
        EXPECT_EQ(stage.manager.GetFocus(), &stage.get(focus)) << page;
        EXPECT_TRUE(tabs.SelectItem(page));
        EXPECT_EQ(stage.take(), "") << "it is there already";
        for (int i = 0; i < tabs.GetCount(); ++i)
            EXPECT_EQ(tabs.GetItemAt(i)->IsVisible(), i == page);
        old = page;
    }
    EXPECT_TRUE(tabs.SelectItem(&stage.get(L"p1"), Notification::Skip));
    EXPECT_EQ(stage.take(), "");
    EXPECT_FALSE(tabs.SelectItem(&stage.get(L"b1")));
    for (const int wrong : {-1, 3})
        EXPECT_FALSE(tabs.SelectItem(wrong));
    EXPECT_EQ(tabs.GetCurSel(), 1);
    tabs.RemoveAt(1);
    EXPECT_EQ(repaints.stale(), "");
    EXPECT_EQ(repaints.at(5, 5), "FF0000") << "the first page takes its place";
}
