#pragma once

#include "launcher/qzvy/MainFrameView.h"

#include <optional>
#include <span>

// The controls of the main window: what each is, where it stands in the 1642 by 977
// design, and on which page.

struct MainFrameControl {
    MainFrameView::Id id;
    const wchar_t* windowClass;
    DWORD style;
    RECT place; // left, top, right, bottom
    std::optional<Page> page;
};

std::span<const MainFrameControl> mainFrameControls();
