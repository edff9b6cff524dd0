#include "uilib/controls/container.h"
#include "uilib/core/dialog_builder.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"

#include <benchmark/benchmark.h>

#include <string>

// A tree of some ten thousand controls: making it, laying it out, and painting all of it
// or one control of it.

using namespace UILib;

namespace {

constexpr int Rows = 100, Columns = 100;
constexpr RECT Window = {0, 0, 1642, 977};

std::wstring treeMarkup() {
    std::wstring text = L"<Window><VBox bkcolor=\"#FF203040\">";
    for (int row = 0; row < Rows; ++row) {
        text += L"<HBox childpadding=\"1\">";
        for (int column = 0; column < Columns; ++column)
            text += L"<Control bkcolor=\"#FF6DABFF\" padding=\"1,1,1,1\" text=\"@key\"/>";
        text += L"</HBox>";
    }
    return text + L"</VBox></Window>";
}

CControlUI* buildTree(CPaintManagerUI* manager = nullptr) {
    static const std::wstring markup = treeMarkup();
    CDialogBuilder builder;
    return builder.Create(markup.c_str(), nullptr, nullptr, manager);
}

void buildTenThousand(benchmark::State& state) {
    for (auto _ : state)
        buildTree()->Delete();
}

void layoutTenThousand(benchmark::State& state) {
    CControlUI* root = buildTree();
    RECT place = Window;
    for (auto _ : state) {
        place.right ^= 1; // another width each time
        root->SetPos(place, false);
    }
    root->Delete();
}

// What the manager does for one changed text: the walk for pending controls, and their
// layout.
void layoutOneChange(benchmark::State& state) {
    CControlUI* root = buildTree();
    root->SetPos(Window, false);
    CControlUI* label =
        static_cast<CContainerUI*>(static_cast<CContainerUI*>(root)->GetItemAt(50))->GetItemAt(50);
    const auto layoutPending = [](CControlUI* control, void*) {
        if (!control->IsUpdateNeeded())
            return static_cast<CControlUI*>(nullptr);
        control->SetPos(control->GetPos(), true);
        return control;
    };
    int number = 0;
    for (auto _ : state) {
        label->SetText(std::to_wstring(++number).c_str());
        root->FindControl(layoutPending, nullptr, FindVisible | FindUpdateTest | FindMeFirst);
    }
    root->Delete();
}

void paint(benchmark::State& state, bool all) {
    CPaintManagerUI manager;
    CControlUI* root = buildTree();
    manager.AttachDialog(root);
    root->SetPos(Window, false);
    CControlUI* label =
        static_cast<CContainerUI*>(static_cast<CContainerUI*>(root)->GetItemAt(50))->GetItemAt(50);
    const RECT part = all ? Window : label->GetPos();
    DibSurface buffer(nullptr, Window.right, Window.bottom), window(nullptr, Window.right, Window.bottom);
    for (auto _ : state) {
        manager.PaintTree(buffer.context(), part, nullptr);
        BitBlt(window.context(), part.left, part.top, part.right - part.left, part.bottom - part.top,
               buffer.context(), part.left, part.top, SRCCOPY);
    }
}

void paintTenThousand(benchmark::State& state) {
    paint(state, true);
}

void paintOneOfTenThousand(benchmark::State& state) {
    paint(state, false);
}

} // namespace

BENCHMARK(buildTenThousand)->Unit(benchmark::kMillisecond);
BENCHMARK(layoutTenThousand)->Unit(benchmark::kMillisecond);
BENCHMARK(layoutOneChange)->Unit(benchmark::kMillisecond);
BENCHMARK(paintTenThousand)->Unit(benchmark::kMillisecond);
BENCHMARK(paintOneOfTenThousand)->Unit(benchmark::kMillisecond);
