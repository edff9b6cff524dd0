#include "kit/gallery.h"
#include "tests/golden/golden.h"
#include "uilib/core/paint_manager.h"

#include <gtest/gtest.h>

TEST(Gallery, LooksAsItDid) {
    UILib::CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    const SIZE size = kit::gallerySize();
    const UILib::DibSurface sheet(nullptr, size.cx, size.cy);
    ASSERT_TRUE(sheet && kit::drawGallery(sheet));
    GdiFlush();
    EXPECT_TRUE(golden::matches(sheet.raster(), "controls"));
}
