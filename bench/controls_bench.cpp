#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/window.h"

#include <benchmark/benchmark.h>

#include <string>

// Painting a hundred controls of one kind, beside the bare calls that put the same pixels
// there.

using namespace UILib;

namespace {

constexpr int Count = 100, Columns = 5, CellWidth = 150, CellHeight = 24;
constexpr int Width = Columns * CellWidth, Height = Count / Columns * CellHeight;
constexpr RECT Whole = {0, 0, Width, Height};
constexpr COLORREF TextColor = RGB(0xE0, 0xE8, 0xF0);
constexpr wchar_t Text[] = L"Some words of text";

class Sheet : public CWindowWnd {
public:
    explicit Sheet(const std::wstring& element) {
        CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
        Create(HWND_MESSAGE, L"", 0, 0);
        manager.Init(window);
        std::wstring markup = L"<Window><Font id=\"0\" name=\"Liberation Sans\" size=\"14\"/><VBox>";
        for (int row = 0; row < Count / Columns; ++row) {
            markup += L"<HBox height=\"24\">";
            for (int column = 0; column < Columns; ++column)
                markup += element;
            markup += L"</HBox>";
        }
        CDialogBuilder builder;
        manager.AttachDialog(
            builder.Create((markup + L"</VBox></Window>").c_str(), nullptr, nullptr, &manager));
        manager.GetRoot()->SetPos(Whole, false);
    }
    ~Sheet() override { DestroyWindow(window); }

    CPaintManagerUI manager;

private:
    const wchar_t* GetWindowClassName() const override { return L"vynbench controls"; }
};

void paintControls(benchmark::State& state, const wchar_t* element) {
    Sheet sheet(element);
    DibSurface surface(nullptr, Width, Height);
    for (auto _ : state) {
        sheet.manager.PaintTree(surface.context(), Whole, nullptr);
        GdiFlush();
    }
}

template <class Work>
void paintCells(benchmark::State& state, Work work) {
    DibSurface surface(nullptr, Width, Height);
    for (auto _ : state) {
        for (int i = 0; i < Count; ++i) {
            const LONG left = i % Columns * CellWidth, top = i / Columns * CellHeight;
            work(surface.context(), RECT{left, top, left + CellWidth, top + CellHeight});
        }
        GdiFlush();
    }
}

void labels(benchmark::State& state) {
    paintControls(state,
                  L"<Label width=\"150\" font=\"0\" textcolor=\"#FFE0E8F0\" text=\"Some words of text\"/>");
}

void formattedLabels(benchmark::State& state) {
    paintControls(state, L"<Label width=\"150\" font=\"0\" textcolor=\"#FFE0E8F0\" showhtml=\"true\" "
                         L"text=\"Some {b}words{/b} of {c #FF8040}text{/c}\"/>");
}

void nineSliceButtons(benchmark::State& state) {
    paintControls(state, L"<Button width=\"150\" normalimage=\"file='bench.bmp' corner='6,6,6,6'\"/>");
}

void bareDrawText(benchmark::State& state) {
    const utility::Font font(
        CreateFontW(-14, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Liberation Sans"));
    paintCells(state, [&](HDC context, RECT cell) {
        const utility::Selection selected(context, font.get());
        SetBkMode(context, TRANSPARENT);
        SetTextColor(context, TextColor);
        DrawTextW(context, Text, -1, &cell, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    });
}

// The runs of the formatted label, measured and drawn one by one.
void bareTextRuns(benchmark::State& state) {
    const auto make = [](int weight) {
        return utility::Font(
            CreateFontW(-14, 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Liberation Sans"));
    };
    const utility::Font plain = make(FW_NORMAL), bold = make(FW_BOLD);
    struct Run {
        std::wstring text;
        HFONT font;
        COLORREF color;
    } const runs[] = {{L"Some ", plain.get(), TextColor},
                      {L"words", bold.get(), TextColor},
                      {L" of ", plain.get(), TextColor},
                      {L"text", plain.get(), RGB(0xFF, 0x80, 0x40)}};
    paintCells(state, [&](HDC context, RECT cell) {
        SetBkMode(context, TRANSPARENT);
        for (const Run& run : runs) {
            const utility::Selection selected(context, run.font);
            const int length = static_cast<int>(run.text.size());
            SIZE size = {};
            GetTextExtentPoint32W(context, run.text.c_str(), length, &size);
            SetTextColor(context, run.color);
            TextOutW(context, cell.left, cell.top + 4, run.text.c_str(), length);
            cell.left += size.cx;
        }
    });
}

// Nine calls a button: the corners copied, the rest stretched.
void bareNineSlices(benchmark::State& state) {
    constexpr int Side = 24, Corner = 6;
    DibSurface plate(nullptr, Side, Side);
    raster::fill(plate.raster(), plate.raster().bounds(), plate.raster().bounds(), 0xFF304878);
    paintCells(state, [&](HDC context, RECT cell) {
        const int from[] = {0, Corner, Side - Corner, Side};
        const int xs[] = {cell.left, cell.left + Corner, cell.right - Corner, cell.right};
        const int ys[] = {cell.top, cell.top + Corner, cell.bottom - Corner, cell.bottom};
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 3; ++x)
                StretchBlt(context, xs[x], ys[y], xs[x + 1] - xs[x], ys[y + 1] - ys[y], plate.context(),
                           from[x], from[y], from[x + 1] - from[x], from[y + 1] - from[y], SRCCOPY);
    });
}

// An opaque 24-bit picture of 24 by 24 pixels, for the buttons.
const bool pictureAdded = [] {
    constexpr int Side = 24;
    std::string bytes(54 + Side * Side * 3, '\x50');
    auto* file = reinterpret_cast<BITMAPFILEHEADER*>(bytes.data());
    auto* info = reinterpret_cast<BITMAPINFOHEADER*>(bytes.data() + 14);
    *file = {0x4D42, static_cast<DWORD>(bytes.size()), 0, 0, 54};
    *info = {sizeof *info, Side, Side, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    CPaintManagerUI::AddArchiveEntry(L"bench.bmp", bytes.data(), static_cast<uint32_t>(bytes.size()));
    return true;
}();

} // namespace

BENCHMARK(labels)->Name("100_labels")->Unit(benchmark::kMicrosecond);
BENCHMARK(bareDrawText)->Name("100_labels/bare_DrawText")->Unit(benchmark::kMicrosecond);
BENCHMARK(formattedLabels)->Name("100_formatted_labels")->Unit(benchmark::kMicrosecond);
BENCHMARK(bareTextRuns)->Name("100_formatted_labels/bare_TextOut")->Unit(benchmark::kMicrosecond);
BENCHMARK(nineSliceButtons)->Name("100_nine_slice_buttons")->Unit(benchmark::kMicrosecond);
BENCHMARK(bareNineSlices)->Name("100_nine_slice_buttons/bare_StretchBlt")->Unit(benchmark::kMicrosecond);
