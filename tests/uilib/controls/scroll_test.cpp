#include "stage.h"
#include "tests/uilib/repaint.h"
#include "tests/uilib/tree.h"
#include "uilib/controls/scroll_bar.h"

#include <random>

// Scrolling by bar, key and wheel, standing and lying. Points and places are written along
// the bar and across it.

using namespace UILib;

namespace {

// A page of 100 by 100 with 240 to show: a bar of 10 along its end, with buttons of 10 and
// between them 80, of which the thumb takes 80 * 100 / 240 = 33. Every part has a colour of
// its own in each state.
constexpr int Page = 100, Bar = 95, Range = 140, Thumb = 33;

std::wstring parts() {
    struct {
        const wchar_t* name;
        const wchar_t* colors[4]; // at rest, hot, pushed, disabled
    } const all[] = {{L"button1", {L"100000", L"110000", L"120000", L"130000"}},
                     {L"button2", {L"002000", L"002100", L"002200", L"002300"}},
                     {L"thumb", {L"000030", L"000031", L"000032", L"000033"}},
                     {L"bk", {L"404040", L"414141", L"424242", L"434343"}}};
    constexpr const wchar_t* states[] = {L"normal", L"hot", L"pushed", L"disabled"};
    std::wstring style;
    for (const auto& part : all)
        for (int i = 0; i < 4; ++i)
            style += std::wstring(part.name) + states[i] + L"image=&quot;color='#FF" + part.colors[i] +
                     L"'&quot; ";
    for (const wchar_t* state : states)
        style += std::wstring(L"rail") + state + L"image=&quot;&quot; ";
    return style;
}

std::wstring page(bool lying, const std::wstring& style, const wchar_t* more = L"") {
    const std::wstring tag = lying ? L"HBox" : L"VBox", size = lying ? L"width" : L"height",
                       other = lying ? L"height" : L"width";
    std::wstring markup = L"<" + tag +
                          L" name=\"page\" width=\"100\" height=\"100\" keyboard=\"true\" menu=\"true\" " +
                          more + (lying ? L" hscrollbarstyle=\"" : L" vscrollbarstyle=\"") + other +
                          L"=&quot;10&quot; " + parts() + style + L"\">";
    for (int i = 0; i < 4; ++i)
        markup += L"<Control name=\"c" + std::to_wstring(i) + L"\" " + size + L"=\"60\" bkcolor=\"#FF" +
                  std::to_wstring(506070 + i * 101010) + L"\"/>";
    return markup + L"</" + tag + L"><Button name=\"elsewhere\" height=\"20\" keyboard=\"true\"/>";
}

class Scrolled : public Stage {
public:
    explicit Scrolled(bool lying, const std::wstring& style = L"", const wchar_t* more = L"")
        : Stage(page(lying, style, more)), repaints(*this, manager), lying(lying) {}

    CContainerUI& box() { return get<CContainerUI>(L"page"); }
    CScrollBarUI& bar() { return *(lying ? box().GetHorizontalScrollBar() : box().GetVerticalScrollBar()); }
    int position() { return bar().GetScrollPos(); }
    POINT point(int along, int across = Bar) const {
        return lying ? POINT{along, across} : POINT{across, along};
    }
    void mouse(UINT message, int along, int across = Bar) {
        const POINT at = point(along, across);
        Stage::mouse(message, at.x, at.y);
    }
    void tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            TUIEvent event = {EventTimer, &bar()};
            event.wParam = 10;
            bar().Event(event);
        }
    }
    bool timerRuns() { return Stage::timerRuns(bar(), 10); }
    // Wheel messages bring points of the screen.
    void wheel(int delta, int along, int across) {
        POINT at = point(along, across);
        ClientToScreen(*this, &at);
        SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(at.x, at.y));
    }
    // The colour of the first button, the thumb, the second button and the ground behind it.
    std::string look() {
        const RECT& thumb = bar().GetThumbRect();
        const int middle = lying ? (thumb.left + thumb.right) / 2 : (thumb.top + thumb.bottom) / 2;
        std::string all;
        for (int along : {5, middle, 95, position() < Range / 2 ? 85 : 15}) {
            const POINT at = point(along);
            all += (all.empty() ? "" : " ") + repaints.at(at.x, at.y);
        }
        return all;
    }

    Repaints repaints;
    const bool lying;
};

constexpr char AtRest[] = "100000 000030 002000 404040";

class Scrolling : public testing::TestWithParam<bool> {};

} // namespace

INSTANTIATE_TEST_SUITE_P(Direction, Scrolling, testing::Bool(),
                         [](const auto& direction) { return direction.param ? "Lying" : "Standing"; });

// A random walk through all of them, beside a model of two lines.
TEST_P(Scrolling, GoesByTheStepOfEachWayAndStopsAtTheEnds) {
    const bool lying = GetParam();
    for (const int unit : {0, 20}) {
        Scrolled stage(lying, unit ? L"scrollunit=&quot;20&quot;" : L"");
        const int line = unit ? unit : lying ? 8 : stage.manager.GetDefaultFontInfo().metrics.tmHeight + 8;
        const auto key = [&](UINT code) { stage.SendMessage(WM_KEYDOWN, code); };
        const auto click = [&](int along) {
            stage.mouse(WM_LBUTTONDOWN, along);
            stage.mouse(WM_LBUTTONUP, along);
        };
        const struct {
            const char* name;
            std::function<void()> go;
            int step;
        } ways[] = {{"down", [&] { key(VK_DOWN); }, line},
                    {"up", [&] { key(VK_UP); }, -line},
                    {"page down", [&] { key(VK_NEXT); }, Page},
                    {"page up", [&] { key(VK_PRIOR); }, -Page},
                    {"home", [&] { key(VK_HOME); }, -1000},
                    {"end", [&] { key(VK_END); }, 1000},
                    {"wheel to us", [&] { stage.wheel(-120, 50, 50); }, line},
                    {"wheel away", [&] { stage.wheel(120, 50, 50); }, -line},
                    {"wheel on the bar", [&] { stage.wheel(-120, 50, Bar); }, line},
                    {"first button", [&] { click(2); }, -line},
                    {"second button", [&] { click(97); }, line}};
        stage.box().SetFocus();
        std::mt19937 chance(5);
        int wanted = 0;
        for (int round = 0; round < 80; ++round) {
            const auto& way = ways[chance() % std::size(ways)];
            const int old = wanted;
            wanted = std::clamp(wanted + way.step, 0, Range);
            stage.take();
            const std::string invalid = stage.repaints.by(way.go);
            ASSERT_EQ(stage.position(), wanted) << way.name << " from " << old << ", unit " << unit;
            EXPECT_EQ(stage.repaints.stale(), "") << way.name << " from " << old;
            EXPECT_TRUE(wanted == old || invalid == "0,0,100,100") << way.name << invalid;
            const POINT offset = stage.point(wanted, 0);
            CControlUI &first = stage.get(L"c0"), &last = stage.get(L"c3");
            const auto home = [&](CControlUI& child) {
                const RECT& at = child.GetPos();
                return at.left + offset.x + at.top + offset.y;
            };
            EXPECT_EQ(home(first), 0);
            EXPECT_EQ(home(last), 180);
            EXPECT_EQ(stage.take(), "") << "a scroll is told from the queue";
            pumpMessages();
            if (wanted == old)
                continue;
            EXPECT_EQ(stage.take(), "!scroll") << way.name;
            EXPECT_EQ(int(stage.last.wParam), wanted);
            EXPECT_EQ(int(stage.last.lParam), old);
        }
    }
}

TEST_P(Scrolling, PagesTowardsAPressBesideTheThumb) {
    Scrolled stage(GetParam());
    stage.mouse(WM_LBUTTONDOWN, 80);
    stage.mouse(WM_LBUTTONUP, 80);
    EXPECT_EQ(stage.position(), Page);
    stage.mouse(WM_LBUTTONDOWN, 60);
    stage.mouse(WM_LBUTTONUP, 60); // on the thumb by now
    EXPECT_EQ(stage.position(), Page);
    stage.mouse(WM_LBUTTONDBLCLK, 12);
    EXPECT_EQ(stage.position(), 0);
    stage.mouse(WM_LBUTTONUP, 12);
    EXPECT_EQ(stage.manager.GetFocus(), &stage.box()) << "a bar's focus is its page's";
}

// Shorter than a page less its margins, and the other bar takes room as well.
TEST_P(Scrolling, APageIsWhatIsSeen) {
    Scrolled stage(GetParam(), L"", L"inset=\"3,5,7,11\"");
    stage.box().SetFocus();
    stage.SendMessage(WM_KEYDOWN, VK_NEXT);
    EXPECT_EQ(stage.position(), GetParam() ? 100 - 3 - 7 : 100 - 5 - 11);
    stage.SendMessage(WM_KEYDOWN, VK_PRIOR);
    EXPECT_EQ(stage.position(), 0);
    for (int i = 0; i < 4; ++i) { // wider than the page: the other bar comes
        CControlUI& child = stage.get((L"c" + std::to_wstring(i)).c_str());
        GetParam() ? child.SetFixedHeight(300) : child.SetFixedWidth(300);
    }
    stage.box().EnableScrollBar(true, true);
    stage.repaints.settle();
    stage.SendMessage(WM_KEYDOWN, VK_HOME);
    GetParam() ? stage.box().PageRight() : stage.box().PageDown();
    EXPECT_EQ(stage.position(), (GetParam() ? 100 - 3 - 7 : 100 - 5 - 11) - 4);
    GetParam() ? stage.box().PageLeft() : stage.box().PageUp();
    EXPECT_EQ(stage.position(), 0);
    EXPECT_EQ(stage.repaints.stale(), "");
}

TEST_P(Scrolling, AHeldButtonRepeatsAfterAWhile) {
    Scrolled stage(GetParam(), L"scrollunit=&quot;10&quot;");
    for (const auto& [along, direction] : {std::pair{97, 1}, {2, -1}}) {
        const int start = direction > 0 ? 0 : 100;
        stage.box().SetScrollPos({start, start});
        for (int press = 0; press < 2; ++press) { // the second begins to count anew
            const int from = stage.position();
            stage.mouse(WM_LBUTTONDOWN, along);
            EXPECT_TRUE(stage.timerRuns());
            stage.tick(5);
            EXPECT_EQ(stage.position(), from + 10 * direction);
            stage.tick(2);
            EXPECT_EQ(stage.position(), from + 30 * direction);
            stage.mouse(WM_LBUTTONUP, along);
            EXPECT_FALSE(stage.timerRuns());
        }
    }
}

TEST_P(Scrolling, AHeldRailPagesUntilTheThumbIsUnderThePointer) {
    Scrolled stage(GetParam());
    const auto pointTo = [&](int along) { // the window goes to the pointer, which others use too
        POINT pointer = {};
        GetCursorPos(&pointer);
        const POINT at = stage.point(along);
        SetWindowPos(stage, nullptr, pointer.x - at.x, pointer.y - at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    };
    const auto press = [&](int from, int along) {
        stage.box().SetScrollPos({from, from});
        stage.mouse(WM_LBUTTONDOWN, along);
    };
    press(0, 80);
    pointTo(88);
    stage.tick(5);
    EXPECT_EQ(stage.position(), Page);
    stage.tick();
    EXPECT_EQ(stage.position(), Range);
    pointTo(11);
    stage.tick();
    EXPECT_EQ(stage.position(), Range - Page);
    stage.tick(2);
    EXPECT_EQ(stage.position(), 0);
    pointTo(10 + Thumb / 2);
    stage.tick(3);
    EXPECT_EQ(stage.position(), 0);
    stage.mouse(WM_LBUTTONUP, 80);
}

// A move only says how far; the timer takes the thumb there.
TEST_P(Scrolling, TheThumbFollowsAPressedMouseOnTheTimer) {
    Scrolled stage(GetParam());
    for (int press = 0; press < 2; ++press) {
        const int from = stage.position();
        const RECT thumb = stage.bar().GetThumbRect();
        const int at = (GetParam() ? thumb.left : thumb.top) + 10;
        stage.mouse(WM_LBUTTONDOWN, at);
        EXPECT_TRUE(stage.timerRuns());
        stage.tick();
        EXPECT_EQ(stage.position(), from) << "not moved yet";
        stage.mouse(WM_MOUSEMOVE, at + 20, 250); // far beside the bar
        EXPECT_EQ(stage.position(), from);
        stage.tick();
        EXPECT_EQ(stage.position(), from + 20 * Range / (Page - Thumb));
        EXPECT_EQ(stage.repaints.stale(), "");
        stage.mouse(WM_MOUSEMOVE, at + 1000);
        stage.tick();
        EXPECT_EQ(stage.position(), Range);
        stage.mouse(WM_MOUSEMOVE, at + 10);
        stage.tick();
        const int left = from + 10 * Range / (Page - Thumb);
        EXPECT_EQ(stage.position(), left);
        stage.mouse(WM_MOUSEMOVE, at + 30);
        stage.mouse(WM_LBUTTONUP, at + 30);
        EXPECT_FALSE(stage.timerRuns());
        stage.mouse(WM_MOUSEMOVE, at + 40);
        stage.tick();
        EXPECT_EQ(stage.position(), left) << "let go";
    }
}

TEST_P(Scrolling, ABarShowsWhichOfItsPartsIsHotAndWhichPushed) {
    Scrolled stage(GetParam());
    const std::string bar = GetParam() ? "0,90,100,100" : "90,0,100,100";
    const auto move = [&](int along, int across = Bar) {
        return [&stage, along, across] { stage.mouse(WM_MOUSEMOVE, along, across); };
    };
    const auto press = [&](int along) { return [&stage, along] { stage.mouse(WM_LBUTTONDOWN, along); }; };
    const auto release = [&](int along, int across = Bar) {
        return [&stage, along, across] { stage.mouse(WM_LBUTTONUP, along, across); };
    };
    const struct {
        const char* what;
        std::function<void()> event;
        std::string look, invalid;
    } steps[] = {
        {"enter a button", move(5), "110000 000030 002100 404040", bar},
        {"stay", move(6), "110000 000030 002100 404040", ""},
        {"onto the thumb", move(20), "110000 000031 002100 414141", bar},
        {"along the thumb", move(22), "110000 000031 002100 414141", ""},
        {"off the thumb", move(60), "110000 000030 002100 404040", bar},
        {"leave", move(60, 50), AtRest, bar},
        {"enter the thumb", move(25), "110000 000031 002100 414141", bar},
        {"press it", press(25), "110000 000032 002100 424242", bar},
        {"drag it off", move(25, 250), "110000 000032 002100 424242", ""},
        {"let go", release(25, 250), "110000 000031 002100 414141", bar},
        {"away", move(26, 250), AtRest, bar},
        {"press the first button", press(5), "120000 000030 002000 404040", bar},
        {"release it", release(5), "100000 000030 002000 404040", bar},
        {"press the thumb", press(25), "100000 000032 002000 424242", bar},
        {"the mouse is taken", [&] { stage.SendMessage(WM_CANCELMODE); }, AtRest, bar},
        {"back on a button", move(5), "110000 000030 002100 404040", bar},
        {"press it", press(5), "120000 000030 002100 404040", bar},
        {"disable", [&] { stage.bar().SetEnabled(false); }, "130000 000033 002300 434343", bar},
        {"enable", [&] { stage.bar().SetEnabled(true); }, AtRest, bar},
        {"release", release(5), AtRest, ""},
        {"disable", [&] { stage.bar().SetEnabled(false); }, "130000 000033 002300 434343", bar},
        {"press the thumb", press(25), "130000 000033 002300 434343", ""},
        {"release", release(25), "130000 000033 002300 434343", ""},
        {"over the thumb", move(26), "130000 000033 002300 434343", ""},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(stage.repaints.by(step.event), step.invalid) << step.what;
        EXPECT_EQ(stage.look(), step.look) << step.what;
        EXPECT_EQ(stage.position(), 0) << step.what;
    }
    EXPECT_FALSE(stage.timerRuns());
    stage.bar().SetEnabled(true);
    stage.mouse(WM_LBUTTONDOWN, 97);
    EXPECT_EQ(stage.look().substr(14, 6), "002200");
    stage.mouse(WM_LBUTTONUP, 97);
    EXPECT_EQ(stage.look().substr(14, 6), "002000");
}

// Nothing that a bar leaves alone is lost: it goes to the page.
TEST_P(Scrolling, ABarKeepsTheContextMenuToItself) {
    Scrolled stage(GetParam());
    const auto menuAt = [&](int across) {
        POINT at = stage.point(60, across);
        stage.mouse(WM_RBUTTONDOWN, 60, across);
        ClientToScreen(stage, &at);
        stage.SendMessage(WM_CONTEXTMENU, 0, MAKELPARAM(at.x, at.y));
        return stage.take();
    };
    EXPECT_EQ(menuAt(50), "page!menu");
    EXPECT_EQ(menuAt(Bar), "");
    stage.bar().SetMouseEnabled(false);
    EXPECT_EQ(menuAt(Bar), "page!menu");
}

// A page whose content changes: the bar comes, fits itself and goes, and nothing stays
// scrolled to where nothing is.
TEST_P(Scrolling, TheBarFollowsWhatThereIsToShow) {
    Scrolled stage(GetParam());
    const auto grow = [&](int size) {
        CControlUI& child = stage.get(L"c0");
        GetParam() ? child.SetFixedWidth(size) : child.SetFixedHeight(size);
        stage.repaints.settle();
    };
    stage.get(L"c1").SetVisible(false);
    stage.get(L"c2").SetVisible(false); // 60 and what c0 has
    std::mt19937 chance(11);
    int position = 0;
    for (int round = 0; round < 60; ++round) {
        const int size = int(chance() % 300) + 1, range = std::max(size + 60 - Page, 0);
        grow(size);
        position = std::min(position, range);
        ASSERT_EQ(stage.bar().IsVisible(), range > 0) << size;
        EXPECT_EQ(stage.bar().GetScrollRange(), range);
        EXPECT_EQ(stage.position(), position);
        const RECT& last = stage.get(L"c3").GetPos();
        EXPECT_EQ(GetParam() ? last.left : last.top, size - position);
        EXPECT_EQ(GetParam() ? last.bottom : last.right, range > 0 ? 90 : 100);
        EXPECT_EQ(stage.repaints.stale(), "") << size;
        position = int(chance() % 200);
        stage.box().SetScrollPos({position, position});
        position = std::min(position, range);
    }
}

// Without a page a bar moves its own position and tells of it.
TEST(LoneScrollBar, MovesItself) {
    for (const bool lying : {false, true}) {
        Stage stage(
            lying ? L"<ScrollBar name=\"s\" hor=\"true\" width=\"100\" height=\"10\" range=\"140\" "
                    L"linesize=\"7\"/>"
                  : L"<ScrollBar name=\"s\" width=\"10\" height=\"100\" range=\"140\" linesize=\"7\"/>");
        auto& bar = stage.get<CScrollBarUI>(L"s");
        const auto at = [&](UINT message, int along) {
            lying ? stage.mouse(message, along, 5) : stage.mouse(message, 5, along);
        };
        const auto tick = [&] {
            TUIEvent event = {EventTimer, &bar};
            event.wParam = 10;
            bar.Event(event);
        };
        int old = 0;
        for (const auto& [along, wanted] : {std::pair{97, 7}, {97, 14}, {2, 7}, {85, 107}, {12, 7}, {2, 0}}) {
            at(WM_LBUTTONDOWN, along);
            EXPECT_EQ(bar.GetScrollPos(), wanted) << along;
            at(WM_LBUTTONUP, along);
            pumpMessages();
            EXPECT_EQ(stage.take(), "s!scroll");
            EXPECT_EQ(int(stage.last.wParam), wanted);
            EXPECT_EQ(int(stage.last.lParam), old);
            old = wanted;
        }
        at(WM_LBUTTONDOWN, 20);
        at(WM_MOUSEMOVE, 40);
        tick();
        at(WM_LBUTTONUP, 40);
        EXPECT_EQ(bar.GetScrollPos(), 20 * 140 / 67);
        bar.SetLineSize(-1);
        bar.SetScrollUnit(-1);
        EXPECT_EQ(bar.GetLineSize(), 7);
        EXPECT_EQ(bar.GetScrollUnit(), 1);
        bar.SetScrollRange(-5);
        EXPECT_EQ(bar.GetScrollRange(), 0);
        EXPECT_EQ(bar.GetScrollPos(), 0);
    }
}

TEST(LoneScrollBar, RepaintsItselfWhenItChanges) {
    Stage stage(L"<HBox><ScrollBar name=\"s\" width=\"10\" height=\"100\" padding=\"20,0,0,0\"/></HBox>");
    const Repaints repaints(stage, stage.manager);
    auto& bar = stage.get<CScrollBarUI>(L"s");
    const std::string all = "20,0,30,100";
    const auto picture = [&](const wchar_t* string) {
        bar.SetPicture(CScrollBarUI::PartThumb, CScrollBarUI::PictureNormal, string);
    };
    const struct {
        const char* what;
        std::function<void()> change;
    } changes[] = {{"position", [&] { bar.SetScrollPos(50); }},
                   {"range", [&] { bar.SetScrollRange(200); }},
                   {"button 1", [&] { bar.SetShowButton1(false); }},
                   {"button 2", [&] { bar.SetShowButton2(false); }},
                   {"thumb color", [&] { bar.SetThumbColor(0xFF00FF00); }},
                   {"button 1 color", [&] { bar.SetButton1Color(0xFF00FFFF); }},
                   {"button 2 color", [&] { bar.SetButton2Color(0xFFFF00FF); }},
                   {"picture", [&] { picture(L"color='#FFFF0000'"); }}};
    for (const auto& [what, change] : changes) {
        EXPECT_EQ(repaints.by(change), all) << what;
        EXPECT_EQ(repaints.stale(), "") << what;
    }
    EXPECT_EQ(repaints.by([&] { picture(L"color='#FFFF0000'"); }), "");
    EXPECT_EQ(repaints.by([&] { bar.SetScrollPos(50); }), "");
    EXPECT_EQ(repaints.by([&] { bar.SetHorizontal(true); }), "0,0,300,200") << "its sizes change";
    EXPECT_EQ(repaints.stale(), "");
}
