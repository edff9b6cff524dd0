#include "uilib/core/dib_surface.h"

#include "uilib/core/gdi_values.h"
#include "uilib/core/render_engine.h"

#include <algorithm>
#include <vector>

namespace UILib {

namespace {

// The few surfaces that live: the buffers of the open windows.
std::vector<const DibSurface*>& livingSurfaces() {
    static auto& surfaces = *new std::vector<const DibSurface*>;
    return surfaces;
}

} // namespace

DibSurface::DibSurface(HDC compatible, int width, int height) : memory(CreateCompatibleDC(compatible)) {
    uint32_t* bits = nullptr;
    dib = CRenderEngine::CreateARGB32Bitmap(compatible, width, height, &bits);
    if (!memory || !dib)
        return;
    selection.emplace(memory.get(), dib.get());
    pixels = {bits + std::ptrdiff_t{width} * (height - 1), width, height, -width};
    livingSurfaces().push_back(this);
}

DibSurface::~DibSurface() {
    std::erase(livingSurfaces(), this);
}

void DibSurface::clear(const RECT& part) {
    GdiFlush();
    const Box area = intersect(toBox(part), pixels.bounds());
    for (int y = area.top; y < area.bottom && area.left < area.right; ++y)
        std::fill(pixels.row(y) + area.left, pixels.row(y) + area.right, 0u);
}

utility::Bitmap DibSurface::takeBitmap() {
    std::erase(livingSurfaces(), this);
    selection.reset();
    return std::move(dib);
}

const Raster* DibSurface::behind(HDC context) {
    for (const DibSurface* surface : livingSurfaces())
        if (surface->context() == context)
            return &surface->pixels;
    return nullptr;
}

} // namespace UILib
