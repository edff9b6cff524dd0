#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_clip.h"
#include "uilib/core/render_engine.h"

#include <utility>

namespace UILib {

namespace {

constexpr UINT RefreshInterval = 10; // ms
constexpr unsigned OldestLayeredSystem = 6;

template <class Function>
Function user32Function(const char* name) {
    return reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"User32.dll"), name));
}

auto updateLayeredWindow() {
    static const auto function = user32Function<decltype(&UpdateLayeredWindow)>("UpdateLayeredWindow");
    return function;
}

void setExtendedStyle(HWND window, LONG bit, bool on) {
    const LONG style = GetWindowLongW(window, GWL_EXSTYLE);
    SetWindowLongW(window, GWL_EXSTYLE, on ? style | bit : style & ~bit);
}

uint32_t withAlpha(uint32_t pixel, uint32_t alpha) {
    const uint32_t r = (pixel >> 16 & 255) * alpha / 255, g = (pixel >> 8 & 255) * alpha / 255,
                   b = (pixel & 255) * alpha / 255;
    return alpha << 24 | r << 16 | g << 8 | b;
}

} // namespace

void CPaintManagerUI::SetLayered(bool on) {
    if (!window || on == layered || GetOSMajorVersion() < OldestLayeredSystem || !updateLayeredWindow() ||
        (GetWindowLongW(window, GWL_STYLE) & WS_CHILD))
        return;
    setExtendedStyle(window, WS_EX_LAYERED, on);
    if (on)
        ::SetTimer(window, LayeredRefreshTimer, RefreshInterval, nullptr);
    else
        ::KillTimer(window, LayeredRefreshTimer);
    layered = on;
    if (root)
        root->NeedUpdate();
    Invalidate();
}

void CPaintManagerUI::SetOpacity(int alpha) {
    opacity = static_cast<BYTE>(limited(alpha, 0, 255));
    if (!window || GetOSMajorVersion() < OldestLayeredSystem)
        return;
    static const auto function =
        user32Function<decltype(&SetLayeredWindowAttributes)>("SetLayeredWindowAttributes");
    if (!function)
        return;
    const bool leavesLayers = std::exchange(layered, false);
    if (leavesLayers) {
        // The system forgets the pixels' alpha only when the style goes and comes again.
        ::KillTimer(window, LayeredRefreshTimer);
        setExtendedStyle(window, WS_EX_LAYERED, false);
    }
    setExtendedStyle(window, WS_EX_LAYERED, true);
    function(window, 0, opacity, LWA_ALPHA);
    if (leavesLayers) { // what was to be composed is to be painted
        updateRect = {};
        Invalidate();
    }
}

void CPaintManagerUI::SetLayeredOpacity(int alpha) {
    opacity = static_cast<BYTE>(limited(alpha, 0, 255));
    layeredChanged = true;
    Invalidate();
}

void CPaintManagerUI::SetLayeredImage(const wchar_t* imageString) {
    const CUIString enlarge = layeredImage.enlargeString;
    layeredImage.Clear();
    layeredImage.enlargeString = enlarge;
    layeredImage.drawString = imageString;
    CRenderEngine::DrawImage(nullptr, this, {}, {}, layeredImage);
    layeredChanged = true;
    Invalidate();
}

// The system sends a layered window no paint messages: this does.
void CPaintManagerUI::refreshLayered() {
    if (!layered || isEmpty(updateRect) || !IsWindowVisible(window) || IsIconic(window))
        return;
    LRESULT result = 0;
    MessageHandler(WM_PAINT, 0, 0, result);
}

// Child windows are not composed by the system into a layered window.
void CPaintManagerUI::paintNativeWindows(const RECT& part) {
    constexpr LPARAM Everything = PRF_CHECKVISIBLE | PRF_CLIENT | PRF_CHILDREN | PRF_OWNED;
    std::erase_if(nativeWindows, [](const NativeWindow& entry) { return !IsWindow(entry.child); });
    for (const NativeWindow& entry : nativeWindows) {
        RECT place = {};
        GetWindowRect(entry.child, &place);
        MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&place), 2);
        if (!IsWindowVisible(entry.child) || !meets(place, part))
            continue;
        DibSurface picture(paintContext, width(place), height(place));
        if (!picture)
            continue;
        SendMessageW(entry.child, WM_PRINT, reinterpret_cast<WPARAM>(picture.context()), Everything);
        GdiFlush();
        for (int y = 0; y < picture.raster().height; ++y)
            for (int x = 0; x < picture.raster().width; ++x)
                if (uint32_t& pixel = picture.raster().row(y)[x])
                    pixel |= 0xFF000000;
        BitBlt(offscreen->context(), place.left, place.top, width(place), height(place), picture.context(), 0,
               0, SRCCOPY);
    }
}

void CPaintManagerUI::composeLayered(const RECT& client, const RECT& part) {
    if (layeredImage.image) {
        const bool fresh = !background;
        if (fresh)
            background = std::make_unique<DibSurface>(paintContext, width(client), height(client));
        if (*background && (fresh || layeredChanged)) {
            background->clear(client);
            CRenderClip clip;
            CRenderClip::GenerateClip(background->context(), client, clip);
            CRenderEngine::DrawImage(background->context(), this, client, client, layeredImage);
        }
        if (*background && layeredImage.image->alphaChannel)
            applyFrameAlpha(part);
    }
    RECT frame = {};
    GetWindowRect(window, &frame);
    POINT origin = {}, place = {frame.left, frame.top};
    SIZE size = {width(client), height(client)};
    BLENDFUNCTION blend = {AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
    updateLayeredWindow()(window, paintContext, &place, &size, offscreen->context(), &origin, 0, &blend,
                          ULW_ALPHA);
}

// The frame's alpha is the window's shape; the controls supply the colours.
void CPaintManagerUI::applyFrameAlpha(const RECT& part) {
    GdiFlush();
    const Raster& pixels = offscreen->raster();
    const Raster& shape = background->raster();
    const int right = std::min<int>(part.right, std::min(pixels.width, shape.width));
    const int bottom = std::min<int>(part.bottom, std::min(pixels.height, shape.height));
    for (int y = part.top; y < bottom; ++y)
        for (int x = part.left; x < right; ++x)
            pixels.row(y)[x] = withAlpha(pixels.row(y)[x], shape.row(y)[x] >> 24);
}

} // namespace UILib
