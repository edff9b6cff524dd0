#include "stage.h"
#include "tests/uilib/repaint.h"
#include "uilib/controls/combo.h"
#include "uilib/controls/option.h"

// What controls make of the mouse, the focus and their own switches: the state that they show
// after each event, and that no more than they themselves is painted for it.

using namespace UILib;

namespace {

constexpr wchar_t States[] = L"width=\"100\" height=\"40\" padding=\"20,10,0,0\" bkcolor=\"#FF000001\" "
                             L"normalimage=\"color='#FF000002'\" hotimage=\"color='#FF000003'\" "
                             L"focusedimage=\"color='#FF000005'\" disabledimage=\"color='#FF000006'\" ";
constexpr wchar_t Pushed[] = L"pushedimage=\"color='#FF000004'\" ";
constexpr wchar_t Selected[] = L"selectedimage=\"color='#FF000007'\" selectedhotimage=\"color='#FF000008'\" "
                               L"selecteddisabledimage=\"color='#FF000009'\" ";

const std::map<std::string, std::string> Colors = {
    {"000002", "normal"},       {"000003", "hot"},
    {"000004", "pushed"},       {"000005", "focused"},
    {"000006", "disabled"},     {"000007", "selected"},
    {"000008", "selected hot"}, {"000009", "selected disabled"}};

constexpr POINT Inside = {60, 30}, Edge = {21, 11}, Outside = {60, 120};
constexpr char Place[] = "20,10,120,50";

class Mouse : public Stage {
public:
    explicit Mouse(const std::wstring& element) : Stage(element), repaints(*this, manager) {}

    std::string state() {
        const std::string color = repaints.at(Edge.x, Edge.y);
        const auto known = Colors.find(color);
        return known == Colors.end() ? color : known->second;
    }
    std::function<void()> send(UINT message, POINT at) {
        return [this, message, at] { mouse(message, at.x, at.y); };
    }
    std::function<void()> enter() { return send(WM_MOUSEMOVE, Inside); }
    std::function<void()> leave() { return send(WM_MOUSEMOVE, Outside); }
    std::function<void()> press() { return send(WM_LBUTTONDOWN, Inside); }
    std::function<void()> release() { return send(WM_LBUTTONUP, Inside); }
    std::function<void()> enable(bool on) {
        return [this, on] { get(L"x").SetEnabled(on); };
    }
    std::function<void()> blur() {
        return [this] { manager.SetFocus(nullptr, FocusWindow::No); };
    }

    struct Step {
        const char* what;
        std::function<void()> event;
        const char* state;
        bool repaints = true; // the control, and nothing else
        const char* told = "";
    };
    void follow(const std::vector<Step>& steps) {
        for (size_t i = 0; i < steps.size(); ++i) {
            const Step& step = steps[i];
            EXPECT_EQ(repaints.by(step.event), step.repaints ? Place : "") << i << ": " << step.what;
            EXPECT_EQ(state(), step.state) << i << ": " << step.what;
            EXPECT_EQ(take(), step.told) << i << ": " << step.what;
            EXPECT_EQ(repaints.stale(), "") << i << ": " << step.what;
        }
    }

    Repaints repaints;
};

std::wstring element(const wchar_t* tag, const std::wstring& attributes) {
    return std::wstring(L"<") + tag + L" name=\"x\" " + States + attributes + L"/>";
}

} // namespace

TEST(MouseState, OfAButton) {
    Mouse m(element(L"Button", Pushed));
    m.follow({
        {"enter", m.enter(), "hot"},
        {"stay", m.send(WM_MOUSEMOVE, Edge), "hot", false},
        {"press", m.press(), "pushed"},
        {"drag out", m.leave(), "hot"},
        {"drag in", m.enter(), "pushed"},
        {"drag out", m.leave(), "hot"},
        {"release there", m.send(WM_LBUTTONUP, Outside), "hot"},
        {"move on", m.leave(), "focused"},
        {"blur", m.blur(), "normal"},
        {"press", m.press(), "pushed"},
        {"release", m.release(), "focused", true, "x!click"},
        {"again", m.release(), "focused", false},
        {"move", m.enter(), "hot"},
        {"double click", m.send(WM_LBUTTONDBLCLK, Inside), "pushed"},
        {"taken away", [&] { m.SendMessage(WM_CANCELMODE); }, "hot"},
        {"release", m.release(), "hot", false},
        {"press", m.press(), "pushed"},
        {"disable", m.enable(false), "disabled"},
        {"drag", m.leave(), "disabled", false},
        {"release", m.release(), "disabled", false},
        {"press", m.press(), "disabled", false},
        {"release", m.release(), "disabled", false},
        {"leave", m.leave(), "disabled", false},
        {"enter", m.enter(), "disabled", false},
        {"leave", m.leave(), "disabled", false},
        {"enable", m.enable(true), "focused"},
        {"right button", m.send(WM_RBUTTONDOWN, Inside), "focused", false, "x!rightbuttondown"},
    });
    constexpr UINT fade = 11;
    EXPECT_FALSE(m.timerRuns(m.get(L"x"), fade)) << "without a fade there is nothing to wait for";
}

TEST(MouseState, OfAnOption) {
    Mouse m(element(L"Option", std::wstring(Pushed) + Selected));
    m.follow({
        {"enter", m.enter(), "hot"},
        {"press", m.press(), "hot"},
        {"release", m.release(), "selected hot", true, "x!click x!selectchanged"},
        {"leave", m.leave(), "selected"},
        {"disable", m.enable(false), "selected disabled"},
        {"press", m.press(), "selected disabled", false},
        {"release", m.release(), "selected disabled", false},
        {"enable", m.enable(true), "selected"},
        {"deselect", [&] { m.get<COptionUI>(L"x").Selected(false); }, "focused", true, "x!selectchanged"},
        {"again", [&] { m.get<COptionUI>(L"x").Selected(false); }, "focused", false},
        {"select", [&] { m.get<COptionUI>(L"x").Selected(true, false); }, "selected"},
        {"blur", m.blur(), "selected"},
    });
}

TEST(MouseState, OfAnEdit) {
    Mouse m(element(L"Edit", L""));
    m.follow({
        {"enter", m.enter(), "hot"},
        {"leave", m.leave(), "normal"},
        {"right button", m.send(WM_RBUTTONDOWN, Inside), "focused"},
        {"release", m.send(WM_RBUTTONUP, Inside), "focused", false},
        {"enter", m.enter(), "focused"},
        {"blur",
         [&] {
             m.manager.SetFocus(nullptr, FocusWindow::Yes);
             pumpMessages(); // which paints
         },
         "hot", false},
        {"disable", m.enable(false), "disabled"},
        {"press", m.press(), "disabled", false},
        {"release", m.release(), "disabled", false},
        {"leave", m.leave(), "disabled", false},
        {"enable", m.enable(true), "normal"},
    });
}

// A list stays pushed while it is open, wherever the mouse goes.
TEST(MouseState, OfACombo) {
    Mouse m(L"<Combo name=\"x\" showtext=\"false\" " + std::wstring(States) + Pushed +
            L"><ListLabelElement/><ListLabelElement/></Combo>");
    const auto close = [&] {
        SendMessageW(FindWindowW(L"ComboWnd", nullptr), WM_CLOSE, 0, 0);
        EXPECT_FALSE(m.get<CComboUI>(L"x").IsOpen());
    };
    m.follow({
        {"enter", m.enter(), "hot"},
        {"press", m.press(), "pushed", true, "x!dropdown"},
        {"release", m.release(), "pushed"},
        {"leave", m.leave(), "pushed"},
        {"close", close, "focused"},
        {"enter", m.enter(), "hot"},
        {"press", m.press(), "pushed", true, "x!dropdown"},
        {"dismissed", [&] { m.get<CComboUI>(L"x").RemoveAll(); }, "hot"},
        {"release", m.release(), "hot"},
        {"disable", m.enable(false), "disabled"},
        {"press", m.press(), "disabled", false},
        {"enable", m.enable(true), "focused"},
    });
}

// Hidden while it is pressed it neither clicks nor comes back pushed.
TEST(MouseState, IsNotPushedByAPressThatOutlivedIt) {
    for (const bool throughParent : {false, true}) {
        Mouse m(L"<VBox name=\"page\">" + element(L"Button", Pushed) + L"</VBox>");
        CControlUI& hidden = m.get(throughParent ? L"page" : L"x");
        m.enter()();
        m.press()();
        ASSERT_EQ(m.state(), "pushed");
        hidden.SetVisible(false);
        m.repaints.settle();
        m.release()();
        EXPECT_EQ(m.take(), "");
        m.leave()();
        hidden.SetVisible(true);
        EXPECT_NE(m.state(), "pushed");
        EXPECT_EQ(m.repaints.stale(), "");
        m.blur()();
        EXPECT_EQ(m.state(), "normal");
    }
}

// What lies over a control hides the mouse from it only until the mouse has left both.
TEST(MouseState, StaysHotUnderWhatLiesOverItUntilTheMouseIsOutside) {
    for (const wchar_t* tag : {L"Button", L"Option", L"Edit", L"Combo"}) {
        Mouse m(
            L"<Button name=\"over\" float=\"true\" pos=\"50,20,80,40\" bkcolor=\"#FF00FF00\"/><Container>" +
            element(tag, L"") + L"</Container>");
        CControlUI& over = m.get(L"over");
        m.get<CContainerUI>(L"root").SetItemIndex(&over, 1);
        m.get(L"x").SetFloat(true);
        m.get(L"x").SetAttribute(L"pos", L"20,10,120,50");
        m.repaints.settle();
        const std::string name = testing::PrintToString(std::wstring(tag));
        m.send(WM_MOUSEMOVE, Edge)();
        EXPECT_EQ(m.state(), "hot") << name;
        m.enter()(); // onto what lies there
        EXPECT_EQ(m.state(), "hot") << name;
        m.send(WM_MOUSEMOVE, Edge)();
        EXPECT_EQ(m.state(), "hot") << name;
        m.enter()();
        m.leave()();
        EXPECT_EQ(m.state(), "normal") << name;
        m.enter()();
        m.leave()();
        EXPECT_EQ(m.state(), "normal") << name;
        EXPECT_EQ(m.repaints.stale(), "") << name;
    }
}

// A control that takes no mouse leaves it to what it lies in.
TEST(MouseState, GoesToTheParentOfAControlThatTakesNone) {
    for (const wchar_t* tag : {L"Button", L"Option", L"Edit", L"Combo", L"VBox"}) {
        Mouse m(L"<Container name=\"page\" menu=\"true\">" + element(tag, L"mouse=\"false\" menu=\"true\"") +
                L"</Container>");
        CControlUI& x = m.get(L"x");
        for (const EventKind kind : {EventMouseEnter, EventButtonDown, EventMouseMove, EventDoubleClick}) {
            TUIEvent event = {kind, &x};
            event.mouse = Inside;
            EXPECT_EQ(m.repaints.by([&] { x.Event(event); }), "");
        }
        TUIEvent menu = {EventContextMenu, &x};
        menu.mouse = Inside;
        x.Event(menu);
        EXPECT_EQ(m.take(), "page!menu") << testing::PrintToString(std::wstring(tag));
    }
}

TEST(MouseState, AFadeRunsFromOneEndToTheOtherAndStops) {
    constexpr UINT fade = 11;
    Mouse m(element(L"Button", L"fadedelta=\"100\""));
    CControlUI& x = m.get(L"x");
    const auto tick = [&] {
        TUIEvent event = {EventTimer, &x};
        event.wParam = fade;
        x.Event(event);
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_FALSE(m.timerRuns(x, fade));
        m.enter()();
        EXPECT_TRUE(m.timerRuns(x, fade));
        EXPECT_EQ(m.state(), "normal");
        EXPECT_EQ(m.repaints.by(tick), Place);
        EXPECT_EQ(m.repaints.by(tick), Place);
        EXPECT_TRUE(m.timerRuns(x, fade));
        EXPECT_EQ(m.repaints.by(tick), Place);
        EXPECT_EQ(m.state(), "hot");
        EXPECT_FALSE(m.timerRuns(x, fade));
        m.leave()();
        EXPECT_TRUE(m.timerRuns(x, fade));
        EXPECT_EQ(m.state(), "hot");
        tick();
        tick();
        EXPECT_TRUE(m.timerRuns(x, fade));
        EXPECT_EQ(m.repaints.by(tick), Place);
        EXPECT_EQ(m.state(), "normal");
    }
    EXPECT_EQ(m.repaints.stale(), "");
}
