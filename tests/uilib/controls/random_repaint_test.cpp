#include "random_tree.h"
#include "stage.h"
#include "tests/uilib/repaint.h"
#include "uilib/controls/option.h"
#include "uilib/controls/progress.h"
#include "uilib/controls/scroll_bar.h"
#include "uilib/controls/tab_layout.h"

// Two rules for whatever happens to whatever tree: to paint what became invalid is enough, and
// to lay out what asked for it is enough.

using namespace UILib;

namespace {

class RandomStage : public RandomTree, public Stage {
public:
    explicit RandomStage(unsigned seed, Scrolled scrolled = Scrolled::Any)
        : RandomTree(seed, scrolled), Stage(markup()), repaints(*this, manager) {}

    std::string someEvent() {
        CControlUI& control = get(someName().c_str());
        const auto name = [&](const char* what) {
            const std::wstring wide(control.GetName());
            return std::string(wide.begin(), wide.end()) + " " + what;
        };
        const int kind = below(24);
        if (kind < 10)
            return someInput(kind);
        if (kind < 13)
            return name(scroll(control, kind));
        return name(change(control, kind));
    }
    std::string places() {
        std::string all;
        const auto add = [](CControlUI* control, void* data) -> CControlUI* {
            const RECT& at = control->GetPos();
            const std::wstring name(control->GetName());
            auto& all = *static_cast<std::string*>(data);
            all += std::string(name.begin(), name.end()) + "@" + std::to_string(at.left) + "," +
                   std::to_string(at.top) + "," + std::to_string(at.right) + "," + std::to_string(at.bottom) +
                   " ";
            return nullptr;
        };
        manager.GetRoot()->FindControl(add, &all, FindVisible | FindMeFirst);
        return all;
    }
    void layEverythingOut() {
        const auto mark = [](CControlUI* control, void*) -> CControlUI* {
            control->NeedUpdate();
            return nullptr;
        };
        manager.GetRoot()->FindControl(mark, nullptr, FindVisible | FindMeFirst);
        repaints.settle();
    }

    Repaints repaints;

private:
    std::string someInput(int kind) {
        constexpr UINT messages[] = {WM_MOUSEMOVE, WM_MOUSEMOVE, WM_MOUSEMOVE,  WM_LBUTTONDOWN,
                                     WM_LBUTTONUP, WM_LBUTTONUP, WM_RBUTTONDOWN};
        constexpr UINT keys[] = {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END, VK_SPACE};
        const POINT at = {below(Width), below(Height)};
        const std::string where = std::to_string(at.x) + "," + std::to_string(at.y);
        if (kind < int(std::size(messages))) {
            mouse(messages[kind], at.x, at.y);
            return "message " + std::to_string(messages[kind]) + " at " + where;
        }
        if (kind == 7) {
            POINT screen = at;
            ClientToScreen(*this, &screen);
            SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, sometimes(3) ? 120 : -120),
                        MAKELPARAM(screen.x, screen.y));
            return "wheel at " + where;
        }
        if (kind == 8) {
            manager.SetNextTabControl(sometimes(2) ? Tab::Forward : Tab::Backward);
            return "tab";
        }
        const UINT key = keys[below(std::size(keys))];
        SendMessage(WM_KEYDOWN, key);
        return "key " + std::to_string(key);
    }
    const char* scroll(CControlUI& control, int kind) {
        auto* box = static_cast<CContainerUI*>(control.GetInterface(L"Container"));
        if (!box)
            return "does not scroll";
        if (kind == 10) {
            box->SetScrollPos({below(200), below(200)});
            return "scrolls";
        }
        if (auto* tab = static_cast<CTabLayoutUI*>(box->GetInterface(L"TabLayout"))) {
            tab->SelectItem(below(tab->GetCount()));
            return "turns to a page";
        }
        box->SetItemIndex(box->GetItemAt(0), below(box->GetCount()));
        return "moves a child";
    }
    const char* change(CControlUI& control, int kind) {
        switch (kind) {
        case 13:
            control.SetVisible(sometimes(2));
            return "is shown or hidden";
        case 14:
            control.SetEnabled(sometimes(2));
            return "is enabled or disabled";
        case 15:
            control.SetText(sometimes(2) ? L"short" : L"rather longer words");
            return "gets a text";
        case 16:
            control.SetFixedWidth(1 + below(150));
            return "gets a width";
        case 17:
            control.SetFixedHeight(1 + below(100));
            return "gets a height";
        case 18:
            control.SetPadding({below(9), below(9), below(9), below(9)});
            return "gets a padding";
        case 19:
            control.SetBkColor(0xFF000000 | uint32_t(below(0xFFFFFF)));
            return "gets a color";
        case 20:
            control.SetAttribute(L"bordersize", sometimes(2) ? L"0" : L"2");
            return "gets a border";
        case 21:
            control.SetFocus();
            return "gets the focus";
        case 22:
            control.SetMinHeight(below(60));
            return "gets a least height";
        default:
            return special(control);
        }
    }
    const char* special(CControlUI& control) {
        if (auto* option = static_cast<COptionUI*>(control.GetInterface(L"Option")))
            option->Selected(!option->IsSelected());
        else if (auto* progress = static_cast<CProgressUI*>(control.GetInterface(L"Progress")))
            progress->SetValue(below(100));
        else if (auto* box = static_cast<CContainerUI*>(control.GetInterface(L"Container")))
            sometimes(2) ? box->SetInset({below(9), below(9), below(9), below(9)})
                         : box->SetChildPadding(below(9));
        else
            control.SetMaxWidth(20 + below(200));
        return "changes in its own way";
    }
};

} // namespace

TEST(AnyTree, ShowsAfterAnyEventWhatAFreshPaintingWould) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        RandomStage stage(seed);
        std::string story;
        for (int step = 0; step < 30 && !HasFailure(); ++step) {
            story += stage.someEvent() + "\n";
            EXPECT_EQ(stage.repaints.stale(), "") << seed << "\n"
                                                  << story << testing::PrintToString(stage.markup());
        }
    }
}

TEST(AnyTree, LiesAfterAnyEventWhereAFreshLayoutWouldPutIt) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        RandomStage stage(seed, RandomTree::Scrolled::OnlyFixed);
        std::string story;
        for (int step = 0; step < 30 && !HasFailure(); ++step) {
            story += stage.someEvent() + "\n";
            stage.manager.Invalidate(); // what has no size asks for no paint, and waits
            stage.repaints.settle();
            const std::string places = stage.places();
            stage.layEverythingOut();
            EXPECT_EQ(places, stage.places()) << seed << "\n"
                                              << story << testing::PrintToString(stage.markup());
        }
    }
}
