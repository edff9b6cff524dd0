#include "uilib/controls/control.h"
#include "uilib/core/notify_pump.h"

#include <gtest/gtest.h>

// Which handler of a class and of its base a notification goes to.

using namespace UILib;

namespace {

struct Base : CNotifyPump {
    void general(TUINotify&) { heard += "base "; }
    void scroll(WPARAM wParam, LPARAM lParam) {
        heard += "scroll" + std::to_string(wParam) + "," + std::to_string(lParam) + " ";
    }
    const MessageMap* GetMessageMap() const override {
        static const Entry entries[] = {entry(L"click", L"", &Base::general),
                                        entry(L"scroll", L"", &Base::scroll),
                                        entry(L"menu", L"ok", &Base::general)};
        static const MessageMap map = {nullptr, entries};
        return &map;
    }
    std::string heard;
};

struct Derived : Base {
    void first(TUINotify&) { heard += "first "; }
    void second(TUINotify&) { heard += "second "; }
    void named(TUINotify&) { heard += "named "; }
    void hidden(TUINotify&) { heard += "hidden "; }
    const MessageMap* GetMessageMap() const override {
        static const Entry entries[] = {entry(L"click", L"", &Derived::first),
                                        entry(L"click", L"ok", &Derived::named),
                                        entry(L"click", L"", &Derived::second),
                                        entry(L"click", L"ok", &Derived::hidden),
                                        Entry{L"drop", L""}, // ends the table
                                        entry(L"timer", L"", &Derived::hidden)};
        static const MessageMap map = {&baseMap(), entries};
        return &map;
    }
    const MessageMap& baseMap() const { return *Base::GetMessageMap(); }
};

std::string heardOf(Derived& pump, const wchar_t* type, const wchar_t* sender) {
    CControlUI control;
    control.SetName(sender);
    TUINotify notification;
    notification.type = type;
    notification.sender = &control;
    notification.wParam = 3;
    notification.lParam = -4;
    pump.heard.clear();
    const bool taken = pump.NotifyPump(notification);
    return pump.heard + (taken ? "taken" : "left");
}

} // namespace

TEST(NotifyPump, ANameBeatsNoneAndTheOwnTableThatOfTheBase) {
    Derived pump;
    EXPECT_EQ(heardOf(pump, L"click", L"ok"), "named taken");
    EXPECT_EQ(heardOf(pump, L"click", L"other"), "second taken");
    EXPECT_EQ(heardOf(pump, L"click", L"OK"), "second taken") << "names are compared with their case";
    EXPECT_EQ(heardOf(pump, L"scroll", L"any"), "scroll3,-4 taken");
    EXPECT_EQ(heardOf(pump, L"menu", L"ok"), "base taken");
    EXPECT_EQ(heardOf(pump, L"menu", L"other"), "left");
    EXPECT_EQ(heardOf(pump, L"timer", L"any"), "left") << "beyond the end of the table";
    EXPECT_EQ(heardOf(pump, L"Click", L"ok"), "left");
    TUINotify nobody;
    nobody.type = L"click";
    pump.heard.clear();
    EXPECT_TRUE(pump.NotifyPump(nobody));
    EXPECT_EQ(pump.heard, "second ");
}

TEST(NotifyPump, VirtualWindowsAreAddedAndRemovedByName) {
    Derived pump, page;
    EXPECT_FALSE(pump.AddVirtualWnd(L"page", nullptr));
    EXPECT_TRUE(pump.AddVirtualWnd(L"page", &page));
    EXPECT_FALSE(pump.AddVirtualWnd(L"page", &pump)) << "there is one";
    TUINotify notification;
    notification.type = L"click";
    notification.virtualWindow = L"other";
    EXPECT_TRUE(pump.NotifyPump(notification));
    EXPECT_EQ(std::exchange(pump.heard, ""), "second ") << "of no object: its own";
    notification.virtualWindow = L"page";
    EXPECT_TRUE(pump.NotifyPump(notification));
    EXPECT_EQ(page.heard, "second ");
    EXPECT_EQ(pump.heard, "");
    EXPECT_TRUE(pump.RemoveVirtualWnd(L"page"));
    EXPECT_FALSE(pump.RemoveVirtualWnd(L"page"));
}
