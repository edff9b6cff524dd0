#include "kit/gallery_sheet.h"
#include "tests/golden/golden.h"

TEST(Gallery, LooksAsItDid) {
    kit::GallerySheet sheet;
    ASSERT_TRUE(sheet.open()) << "needs a display";
    UILib::DibSurface surface(nullptr, kit::GallerySheet::Width, kit::GallerySheet::Height);
    ASSERT_TRUE(surface);
    sheet.paint(surface);
    EXPECT_TRUE(golden::matches(surface.raster(), "gallery"));
}
