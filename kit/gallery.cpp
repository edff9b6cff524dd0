#include "kit/command.h"
#include "kit/console.h"
#include "kit/gallery_sheet.h"
#include "kit/png.h"

#include <cstdio>

namespace kit {

extern const Command galleryCommand;

static int run(const Arguments& arguments) {
    if (arguments.size() != 1)
        return wrongUsage(galleryCommand, "the picture to write, please");
    GallerySheet sheet;
    UILib::DibSurface surface(nullptr, GallerySheet::Width, GallerySheet::Height);
    if (!surface || !sheet.open())
        return 1;
    sheet.paint(surface);
    if (writeFile(arguments[0], encodePng(surface.raster(), Alpha::Drop)))
        return 0;
    fprintf(stderr, "vynkit gallery: cannot write %s\n", toUtf8(arguments[0]).c_str());
    return 1;
}

const Command galleryCommand = {
    "gallery", "OUT.png", "draw every control in every state on one sheet", "Needs a display.\n", run,
};

} // namespace kit
