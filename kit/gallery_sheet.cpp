#include "kit/gallery_sheet.h"

#include "kit/console.h"
#include "kit/control_state.h"
#include "kit/gallery_markup.h"
#include "kit/gif.h"
#include "kit/png.h"
#include "uilib/controls/combo.h"
#include "uilib/core/dialog_builder.h"

#include <cstdio>

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

static CControlUI* applyNamedState(CControlUI* control, void*) {
    const wchar_t* state = control->GetCustomAttribute(L"state");
    if (!state)
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
    CControlUI* root = builder.Create(galleryMarkup, nullptr, nullptr, &paintManager, nullptr);
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
    paintPopup(surface);
    GdiFlush();
}

// The list of an open combo, below it: the popup is a window of its own.
void GallerySheet::paintPopup(DibSurface& surface) {
    auto* combo = static_cast<CComboUI*>(paintManager.FindControl(L"opened")->GetInterface(L"Combo"));
    combo->Activate();
    const HWND popup = FindWindowW(L"ComboWnd", nullptr);
    if (!popup)
        return;
    applyState(*combo->GetItemAt(2), L"hot");
    RECT client = {};
    GetClientRect(popup, &client);
    DibSurface picture(nullptr, client.right, client.bottom);
    SendMessageW(popup, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.context()), PRF_CLIENT);
    BitBlt(surface.context(), combo->GetPos().left, combo->GetPos().bottom + 4, client.right, client.bottom,
           picture.context(), 0, 0, SRCCOPY);
    combo->SetEnabled(false); // closes it
    combo->SetEnabled(true);
}

} // namespace kit
