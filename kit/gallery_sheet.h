#pragma once

#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/window.h"

// Every control in every state on one sheet, on a hidden window: what "vynkit gallery"
// shows and the golden images hold fast. It brings its own skin and pictures. What is a
// window of its own, the list of an open combo and the field of a focused edit, is opened
// for the painting and shown where it opened.

namespace kit {

class GallerySheet : private UILib::CWindowWnd {
public:
    static constexpr int Width = 880, Height = 800;

    GallerySheet();
    ~GallerySheet() override;

    bool open(); // false, with the reason on the error output, without a window or a tree
    void paint(UILib::DibSurface& surface);
    UILib::CPaintManagerUI& manager() { return paintManager; }

private:
    const wchar_t* GetWindowClassName() const override { return L"vynkit gallery"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paintLive(UILib::DibSurface& surface, UILib::CControlUI& control);
    void paintOpenCombo(UILib::DibSurface& surface, UILib::CControlUI& combo);
    void paintFocused(UILib::DibSurface& surface, UILib::CControlUI& control);
    void paintAgain(UILib::DibSurface& surface, UILib::CControlUI& control);
    void print(UILib::DibSurface& surface, HWND part);
    void moveUntilAtBottom(const UILib::CControlUI& control);

    UILib::CPaintManagerUI paintManager;
};

} // namespace kit
