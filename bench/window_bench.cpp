#include "bench/alpha_blend.h"
#include "kit/skin_document.h"
#include "uilib/controls/control.h"
#include "uilib/controls/tab_layout.h"
#include "uilib/core/dib_surface.h"

// The main window as it stands while it downloads, with the real skin: all of it
// repainted, or one label, and brought from the buffer to the window as a paint does.

using namespace UILib;

namespace {

constexpr RECT Window = {0, 0, 1642, 977};
constexpr int DownloadPage = 1;

class MainWindow {
public:
    MainWindow() {
        document.loadFrom(SKIN_FOLDER, L"xml_mainframe.xml", L"en_US");
        CPaintManagerUI& manager = document.manager();
        manager.FindControl(L"rightbgControl")->SetBkImage(L"vyn\\right_bg_en.png");
        static_cast<CTabLayoutUI*>(manager.FindControl(L"pathTab"))->SelectItem(DownloadPage);
        document.layout(Window.right, Window.bottom);
    }

    void paint(const RECT& part) {
        document.manager().PaintTree(buffer.context(), part, nullptr);
        BitBlt(window.context(), part.left, part.top, part.right - part.left, part.bottom - part.top,
               buffer.context(), part.left, part.top, SRCCOPY);
        GdiFlush();
    }

    const RECT& placeOf(const wchar_t* name) { return document.manager().FindControl(name)->GetPos(); }

private:
    kit::SkinDocument document;
    DibSurface buffer{nullptr, Window.right, Window.bottom};
    DibSurface window{nullptr, Window.right, Window.bottom}; // stands for the screen
};

void repaint(benchmark::State& state, const wchar_t* name) {
    MainWindow window;
    const RECT part = name ? window.placeOf(name) : Window;
    for (auto _ : state)
        window.paint(part);
    compareWithAlphaBlend(state, Window.right, Window.bottom);
}

void repaintMainWindow(benchmark::State& state) {
    repaint(state, nullptr);
}

void repaintOneLabel(benchmark::State& state) {
    repaint(state, L"downloadLabel");
}

} // namespace

BENCHMARK(repaintMainWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintOneLabel)->Unit(benchmark::kMillisecond);
