// How the main window looks: its colours, its buttons, its background.

#include "launcher/qzvy/MainFrameView.h"

#include "launcher/qzvy/MainFramePalette.h"

#include <initializer_list>
#include <string>
#include <utility>

using namespace palette;

namespace {

// Places of the design.
constexpr int BandTop = 740;
constexpr RECT WordMark = {40, 60, 700, 170};

// A device context with a font, pen or brush in it for the time of a block.
class Selection {
public:
    Selection(HDC dc, HGDIOBJ object) : dc(dc), old(SelectObject(dc, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(dc, old); }

private:
    HDC dc;
    HGDIOBJ old;
};

void fill(HDC dc, const RECT& area, COLORREF color) {
    const utility::Brush brush(CreateSolidBrush(color));
    FillRect(dc, &area, brush.get());
}

void fillRounded(HDC dc, const RECT& area, COLORREF color, int radius) {
    const utility::Brush brush(CreateSolidBrush(color));
    const Selection brushSelection(dc, brush.get());
    const Selection penSelection(dc, GetStockObject(NULL_PEN));
    RoundRect(dc, area.left, area.top, area.right + 1, area.bottom + 1, radius, radius);
}

TRIVERTEX corner(LONG x, LONG y, COLORREF color) {
    const auto wide = [](BYTE value) { return static_cast<COLOR16>(value << 8); };
    return {x, y, wide(GetRValue(color)), wide(GetGValue(color)), wide(GetBValue(color)), 0};
}

void fillGradient(HDC dc, const RECT& area, COLORREF top, COLORREF bottom) {
    TRIVERTEX corners[] = {corner(area.left, area.top, top), corner(area.right, area.bottom, bottom)};
    GRADIENT_RECT rectangle = {0, 1};
    GradientFill(dc, corners, 2, &rectangle, 1, GRADIENT_FILL_RECT_V);
}

void drawText(HDC dc, RECT area, const std::wstring& text, COLORREF color, UINT format) {
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format | DT_SINGLELINE | DT_NOPREFIX);
}

void drawLines(HDC dc, std::initializer_list<std::pair<POINT, POINT>> lines) {
    const utility::Pen pen(CreatePen(PS_SOLID, 2, White));
    const Selection selection(dc, pen.get());
    for (const auto& [from, to] : lines) {
        MoveToEx(dc, from.x, from.y, nullptr);
        LineTo(dc, to.x, to.y);
    }
}

void drawTriangle(HDC dc, LONG x, LONG y, LONG size) {
    const POINT points[] = {{x - size / 2, y - size}, {x - size / 2, y + size}, {x + size, y}};
    const Selection brush(dc, GetStockObject(WHITE_BRUSH));
    const Selection pen(dc, GetStockObject(NULL_PEN));
    Polygon(dc, points, 3);
}

void drawGlyph(HDC dc, const RECT& area, int id, bool paused) {
    const LONG x = (area.left + area.right) / 2;
    const LONG y = (area.top + area.bottom) / 2;
    const LONG size = (area.bottom - area.top) / 6;
    switch (id) {
    case MainFrameView::CloseButton:
        return drawLines(
            dc, {{{x - size, y - size}, {x + size, y + size}}, {{x - size, y + size}, {x + size, y - size}}});
    case MainFrameView::MinimiseButton:
        return drawLines(dc, {{{x - size, y}, {x + size, y}}});
    case MainFrameView::BrowseButton:
        return drawText(dc, area, L"...", White, DT_CENTER | DT_VCENTER);
    case MainFrameView::PauseButton:
        if (paused)
            return drawTriangle(dc, x, y, size);
        fill(dc, {x - size, y - size, x - size / 3, y + size}, White);
        return fill(dc, {x + size / 3, y - size, x + size, y + size}, White);
    }
}

void drawWordMark(HDC dc, const RECT& place) {
    const utility::Font font(makeFont((place.bottom - place.top) / 2, FW_BOLD));
    const Selection selection(dc, font.get());
    drawText(dc, place, L"VYN", White, DT_LEFT | DT_VCENTER);
}

std::wstring textOf(HWND window) {
    wchar_t text[128];
    return {text, static_cast<size_t>(GetWindowTextW(window, text, std::size(text)))};
}

} // namespace

void MainFrameView::paint() {
    PAINTSTRUCT painting;
    const HDC dc = BeginPaint(hWnd, &painting);
    RECT client;
    GetClientRect(hWnd, &client);
    fill(dc, {0, 0, client.right, scaled(TitleHeight)}, TitleColor);
    fillGradient(dc, {0, scaled(TitleHeight), client.right, scaled(BandTop)}, BodyTop, BodyBottom);
    fill(dc, {0, scaled(BandTop), client.right, client.bottom}, BandColor);
    const auto icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IconResource),
                                                    IMAGE_ICON, scaled(24), scaled(24), LR_SHARED));
    DrawIconEx(dc, scaled(16), scaled(8), icon, scaled(24), scaled(24), 0, nullptr, DI_NORMAL);
    drawWordMark(
        dc, {scaled(WordMark.left), scaled(WordMark.top), scaled(WordMark.right), scaled(WordMark.bottom)});
    EndPaint(hWnd, &painting);
}

LRESULT MainFrameView::colorText(HDC dc, HWND child) const {
    const bool title = GetDlgCtrlID(child) == TitleText;
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetDlgCtrlID(child) == PathText ? SoftText : White);
    return reinterpret_cast<LRESULT>(title ? titleBrush.get() : bandBrush.get());
}

void MainFrameView::drawButton(const DRAWITEMSTRUCT& item) const {
    const bool pushed = item.itemState & ODS_SELECTED;
    const int id = static_cast<int>(item.CtlID);
    if (id == CloseButton || id == MinimiseButton) {
        fill(item.hDC, item.rcItem, pushed ? TitleHot : TitleColor);
        return drawGlyph(item.hDC, item.rcItem, id, pausedShown);
    }
    fill(item.hDC, item.rcItem, BandColor);
    const int radius = item.rcItem.bottom / 3;
    const bool disabled = item.itemState & ODS_DISABLED;
    fillRounded(item.hDC, item.rcItem,
                disabled ? DisabledColor
                : pushed ? AccentPushed
                         : AccentColor,
                radius);
    const Selection font(item.hDC, id == StartButton ? buttonFont.get() : textFont.get());
    if (id == StartButton)
        return drawText(item.hDC, item.rcItem, textOf(item.hwndItem), White, DT_CENTER | DT_VCENTER);
    drawGlyph(item.hDC, item.rcItem, id, pausedShown);
}
