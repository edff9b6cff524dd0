#pragma once

#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/window.h"

// Every control in every state on one sheet, on a hidden window: what "vynkit gallery"
// shows and the golden images hold fast. It brings its own pictures and fonts.

namespace kit {

class GallerySheet : private UILib::CWindowWnd {
public:
    static constexpr int Width = 880, Height = 720;

    GallerySheet();
    ~GallerySheet() override;

    bool open(); // false, with the reason on the error output, without a window or a tree
    void paint(UILib::DibSurface& surface);
    UILib::CPaintManagerUI& manager() { return paintManager; }

private:
    const wchar_t* GetWindowClassName() const override { return L"vynkit gallery"; }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paintPopup(UILib::DibSurface& surface);

    UILib::CPaintManagerUI paintManager;
};

} // namespace kit
