#pragma once

#include "tests/uilib/message_loop.h"
#include "uilib/core/window_impl_base.h"

#include <gtest/gtest.h>

#include <string>

// What tests of the program's own windows share: the real skin, a plain owner window, and
// the hands of a user who sees only windows of the screen. Window thread only.

namespace windows_test {

class SkinnedWindows : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The one window of that class, or null. With frame<Frame>() as the object behind it.
    static HWND windowOf(const wchar_t* className);
    template <class Frame>
    static Frame* frame(const wchar_t* className) {
        return static_cast<Frame*>(base(windowOf(className)));
    }

    // Of a control of a skinned window; false when it is not there or not shown.
    static bool isShown(HWND window, const wchar_t* control);
    static bool isFocused(HWND window, const wchar_t* control);
    static std::wstring text(HWND window, const wchar_t* control);
    static UILib::CControlUI* control(HWND window, const wchar_t* name);

    static void click(HWND window, UILib::CControlUI* control);
    static void click(HWND window, const wchar_t* name) { click(window, control(window, name)); }
    static void key(HWND window, UINT virtualKey);

    HWND owner = nullptr;

private:
    static UILib::WindowImplBase* base(HWND window);
};

} // namespace windows_test
