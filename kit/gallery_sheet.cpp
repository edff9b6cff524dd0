#include "kit/gallery_sheet.h"

#include "kit/console.h"
#include "kit/control_state.h"
#include "kit/gallery_skin.h"
#include "kit/gif.h"
#include "kit/png.h"
#include "uilib/controls/combo.h"
#include "uilib/core/dialog_builder.h"

#include <cstdio>
#include <vector>

namespace kit {

using namespace UILib;

static constexpr int Tile = 24;
static constexpr UINT FadeTimer = 11;

// A plate with round corners and a bright rim.
static uint32_t platePixel(int x, int y, uint32_t rgb) {
    const int dx = std::min(x, Tile - 1 - x), dy = std::min(y, Tile - 1 - y);
    if (dx + dy < 3)
        return 0;
    const uint32_t rim = (rgb >> 1 & 0x7F7F7F) + 0x606060;
    return 0xFF000000 | (dx + dy < 5 || dx == 0 || dy == 0 ? rim : rgb);
}

static void addPicture(const wchar_t* name, const std::vector<uint32_t>& plates) {
    const int width = Tile * static_cast<int>(plates.size());
    std::vector<uint32_t> pixels;
    for (int y = 0; y < Tile; ++y)
        for (int x = 0; x < width; ++x)
            pixels.push_back(platePixel(x % Tile, y, plates[static_cast<size_t>(x / Tile)]));
    const auto png = encodePng({pixels.data(), width, Tile, width}, Alpha::Keep);
    CPaintManagerUI::AddArchiveEntry(name, png.data(), static_cast<uint32_t>(png.size()));
}

static void addPictures() {
    addPicture(L"normal.png", {0x304878});
    addPicture(L"hot.png", {0x4070B0});
    addPicture(L"pushed.png", {0x203050});
    addPicture(L"focused.png", {0x506030});
    addPicture(L"disabled.png", {0x404448});
    addPicture(L"mark.png", {0xE02020});
    addPicture(L"strip.png", {0x304878, 0x4070B0, 0x203050, 0x404448});
    const auto gif = encodeGif(32, 32, {{0xE08030, 10}, {0x30A060, 10}, {0x4060E0, 10}});
    CPaintManagerUI::AddArchiveEntry(L"anim.gif", gif.data(), static_cast<uint32_t>(gif.size()));
}

static void addSkin() {
    for (const SkinFile& file : gallerySkin())
        CPaintManagerUI::AddArchiveEntry(file.name, file.markup.data(),
                                         static_cast<uint32_t>(file.markup.size()));
}

static bool hasState(const CControlUI& control, const wchar_t* wanted) {
    const wchar_t* state = control.GetCustomAttribute(L"state");
    return state && wcscmp(state, wanted) == 0;
}

// Shown with the focus, of which there is one, or with a window of its own.
static bool isLive(const CControlUI& control) {
    return hasState(control, L"open") || hasState(control, L"openabove") || hasState(control, L"focused");
}

static CControlUI* collectLive(CControlUI* control, void* found) {
    if (isLive(*control))
        static_cast<std::vector<CControlUI*>*>(found)->push_back(control);
    return nullptr;
}

static CControlUI* applyNamedState(CControlUI* control, void*) {
    const wchar_t* state = control->GetCustomAttribute(L"state");
    if (!state || isLive(*control))
        return nullptr;
    if (wcscmp(state, L"fading") != 0) {
        applyState(*control, state);
        return nullptr;
    }
    applyState(*control, L"hot");
    for (int tick = 0; tick < 2; ++tick) {
        TUIEvent event = {EventTimer, control};
        event.wParam = FadeTimer;
        control->Event(event);
    }
    return nullptr;
}

GallerySheet::GallerySheet() {
    CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    addSkin();
    addPictures();
}

GallerySheet::~GallerySheet() {
    if (window)
        DestroyWindow(window);
}

LRESULT GallerySheet::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (paintManager.MessageHandler(message, wParam, lParam, result))
        return result;
    return CWindowWnd::HandleMessage(message, wParam, lParam);
}

bool GallerySheet::open() {
    if (!Create(nullptr, L"", WS_POPUP, 0, 0, 0, Width, Height)) {
        fprintf(stderr, "gallery: no window\n");
        return false;
    }
    paintManager.Init(window);
    CDialogBuilder builder;
    CControlUI* root = builder.Create(L"gallery.xml", nullptr, nullptr, &paintManager, nullptr);
    if (!root || !paintManager.AttachDialog(root)) {
        fprintf(stderr, "gallery: %s\n", toUtf8(builder.GetMarkup().GetLastErrorMessage()).c_str());
        return false;
    }
    for (int round = 0; round < 2; ++round) // a picture's own size counts from the second on
        root->SetPos({0, 0, Width, Height}, false);
    root->FindControl(applyNamedState, nullptr, 0);
    return true;
}

void GallerySheet::paint(DibSurface& surface) {
    paintManager.GetRoot()->DoPaint(surface.context(), {0, 0, Width, Height}, nullptr);
    std::vector<CControlUI*> live;
    paintManager.GetRoot()->FindControl(collectLive, &live, 0);
    for (CControlUI* control : live)
        paintLive(surface, *control);
    GdiFlush();
}

void GallerySheet::paintLive(DibSurface& surface, CControlUI& control) {
    if (hasState(control, L"focused"))
        paintFocused(surface, control);
    else
        paintOpenCombo(surface, control);
    control.SetEnabled(false); // closes what it has opened
    control.SetEnabled(true);
    paintManager.SetFocus(nullptr, FocusWindow::Yes);
}

void GallerySheet::paintOpenCombo(DibSurface& surface, CControlUI& combo) {
    if (hasState(combo, L"openabove"))
        moveUntilAtBottom(combo);
    applyState(combo, L"pushed");
    const HWND popup = FindWindowW(L"ComboWnd", nullptr);
    if (!popup)
        return;
    const auto* list = static_cast<CComboUI*>(combo.GetInterface(L"Combo"));
    for (int i = 0; i < list->GetCount(); ++i)
        if (hasState(*list->GetItemAt(i), L"hotitem"))
            applyState(*list->GetItemAt(i), L"hot");
    paintAgain(surface, combo);
    print(surface, popup);
}

void GallerySheet::paintFocused(DibSurface& surface, CControlUI& control) {
    control.SetFocus();
    paintAgain(surface, control);
    if (const HWND native = control.GetNativeWindow())
        print(surface, native);
}

void GallerySheet::paintAgain(DibSurface& surface, CControlUI& control) {
    paintManager.GetRoot()->DoPaint(surface.context(), control.GetPos(), nullptr);
}

// A window that belongs to ours, at its place.
void GallerySheet::print(DibSurface& surface, HWND part) {
    RECT place = {};
    GetWindowRect(part, &place);
    MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&place), 2);
    const DibSurface picture(nullptr, UILib::width(place), UILib::height(place));
    SendMessageW(part, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.context()),
                 PRF_CLIENT | PRF_ERASEBKGND);
    BitBlt(surface.context(), place.left, place.top, UILib::width(place), UILib::height(place),
           picture.context(), 0, 0, SRCCOPY);
}

// Where a list has no room below.
void GallerySheet::moveUntilAtBottom(const CControlUI& control) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    SetWindowPos(window, nullptr, 0, monitor.rcWork.bottom - control.GetPos().bottom, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace kit
