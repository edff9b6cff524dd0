#include "kit/command.h"
#include "kit/console.h"
#include "kit/gallery.h"
#include "kit/png.h"
#include "uilib/core/paint_manager.h"

#include <cstdio>

namespace kit {

extern const Command galleryCommand;

static int run(const Arguments& arguments) {
    if (arguments.size() != 1)
        return wrongUsage(galleryCommand, "the picture to write, please");
    UILib::CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    const SIZE size = gallerySize();
    const UILib::DibSurface sheet(nullptr, size.cx, size.cy);
    if (!sheet || !drawGallery(sheet))
        return 1;
    GdiFlush();
    if (!writeFile(arguments[0], encodePng(sheet.raster(), Alpha::Drop))) {
        fprintf(stderr, "vynkit gallery: cannot write %s\n", toUtf8(arguments[0]).c_str());
        return 1;
    }
    return 0;
}

const Command galleryCommand = {
    "gallery",
    "OUT.png",
    "draw every control in every state on one sheet",
    "One row a kind of control, one column a state.\n",
    run,
};

} // namespace kit
