#include "tests/golden/window_picture.h"

#include "uilib/controls/control.h"
#include "uilib/core/dib_surface.h"

namespace golden {

using UILib::CControlUI;

namespace {

CControlUI* clearText(CControlUI* control, void*) {
    control->SetText(L"");
    return nullptr;
}

void paint(CControlUI& root, const UILib::DibSurface& surface) {
    root.DoPaint(surface.context(), {0, 0, root.GetWidth(), root.GetHeight()}, nullptr);
    GdiFlush();
}

} // namespace

testing::AssertionResult windowMatches(CControlUI& root, const std::string& name) {
    const UILib::DibSurface painted(nullptr, root.GetWidth(), root.GetHeight());
    const UILib::DibSurface withoutTexts(nullptr, root.GetWidth(), root.GetHeight());
    if (!painted || !withoutTexts)
        return testing::AssertionFailure() << name << ": no memory";
    paint(root, painted);
    root.FindControl(clearText, nullptr, UILib::FindMeFirst);
    paint(root, withoutTexts);
    return matches(painted.raster(), withoutTexts.raster(), name);
}

} // namespace golden
