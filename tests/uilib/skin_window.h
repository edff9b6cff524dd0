#pragma once

#include "tests/uilib/message_loop.h"
#include "tests/uilib/probe.h"
#include "uilib/core/window_impl_base.h"

#include <gtest/gtest.h>

// A skinned window on the display that writes down what it hears.

inline const wchar_t PlainSkin[] =
    L"<Window size=\"300,200\" caption=\"0,0,0,40\" sizebox=\"4,4,4,4\" roundcorner=\"6,6\" "
    L"mininfo=\"120,90\"><VBox name=\"root\" bkcolor=\"#FF204060\">"
    L"<HBox height=\"40\"><Probe name=\"bar\" bkcolor=\"#FF800000\"/>"
    L"<Probe name=\"still\" mouse=\"false\" width=\"20\"/><Button name=\"closebtn\" width=\"40\"/></HBox>"
    L"<Probe name=\"body\" bkcolor=\"#FF00FF00\" tooltip=\"tip\"/></VBox></Window>";

class SkinWindow : public UILib::WindowImplBase {
public:
    explicit SkinWindow(const wchar_t* skin = PlainSkin) : skin(skin) {
        UILib::CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    }
    bool open(HWND owner = nullptr, DWORD style = WS_POPUP) {
        const POINT at = awayFromPointer();
        return Create(owner, L"skin window", style, 0, at.x, at.y, 0, 0) != nullptr;
    }

    UILib::CPaintManagerUI& manager() { return paintManager; }
    std::vector<std::string>& log() { return creator.log; }
    bool gone = false;
    int closed = 0;

protected:
    const wchar_t* GetWindowClassName() const override { return L"uilib test window"; }
    UILib::CUIString GetSkinFolder() override { return L""; }
    UILib::CUIString GetSkinFile() override { return skin; }
    void InitWindow() override { creator.log.push_back("InitWindow"); }
    void OnFinalMessage(HWND handle) override {
        UILib::WindowImplBase::OnFinalMessage(handle);
        gone = true;
    }
    UILib::CControlUI* CreateControl(const wchar_t* tag) override {
        if (wcscmp(tag, L"Button") == 0)
            return new Probe(creator.log, L"Button", 0);
        return creator.CreateControl(tag);
    }
    void onWindowInit(UILib::TUINotify&) { creator.log.push_back("windowinit"); }
    void onCloseButton(WPARAM wParam, LPARAM) { closed = static_cast<int>(wParam); }
    void onOtherClick(UILib::TUINotify& notification) {
        creator.log.push_back("general");
        OnClick(notification);
    }
    const MessageMap* GetMessageMap() const override {
        static const Entry entries[] = {entry(L"windowinit", L"", &SkinWindow::onWindowInit),
                                        entry(L"click", L"", &SkinWindow::onOtherClick),
                                        entry(L"click", L"closebtn", &SkinWindow::onCloseButton)};
        static const MessageMap map = {&UILib::WindowImplBase::messageMap, entries};
        return &map;
    }

private:
    const wchar_t* skin;
    ProbeCreator creator;
};

inline void closeAndWait(SkinWindow& window) {
    window.Close();
    EXPECT_TRUE(pumpUntil([&] { return window.gone; }));
}

inline bool logHas(SkinWindow& window, const char* line) {
    return std::find(window.log().begin(), window.log().end(), line) != window.log().end();
}
