#pragma once

#include "kit/png.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/resource_tables.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// A host without a window, a surface to paint into, and a skin folder of its own that goes
// with the test.

class RenderFixture : public testing::Test, public UILib::IRenderHost {
protected:
    static constexpr int Width = 64, Height = 48;

    RenderFixture()
        : folder(std::filesystem::temp_directory_path() /
                 ("vyn-render-" + std::to_string(GetCurrentProcessId()))) {
        std::filesystem::create_directories(folder);
        UILib::CPaintManagerUI::SetResourcePath(folder.wstring());
        fillSurface(0xFF000000);
    }
    ~RenderFixture() override {
        UILib::CPaintManagerUI::SetResourcePath(L"");
        std::filesystem::remove_all(folder);
    }

    UILib::ResourceTables& GetResourceTables() override { return tables; }
    HDC GetPaintDC() const override { return nullptr; }
    POINT GetMousePos() const override { return mouse; }
    void PaintTree(HDC context, const RECT& part, UILib::CControlUI*) override {
        if (paintTree)
            paintTree(context, part);
    }

    using Painter = std::function<uint32_t(int x, int y)>; // premultiplied

    void writeImage(const char* name, int width, int height, const Painter& pixel) {
        std::vector<uint32_t> pixels;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                pixels.push_back(pixel(x, y));
        kit::writeFile((folder / name).wstring(),
                       kit::encodePng({pixels.data(), width, height, width}, kit::Alpha::Keep));
    }
    void fillSurface(uint32_t color) {
        UILib::raster::fill(surface.raster(), surface.raster().bounds(), surface.raster().bounds(), color);
    }
    uint32_t at(int x, int y) const {
        GdiFlush();
        return surface.raster().row(y)[x];
    }
    uint32_t color(int x, int y) const { return at(x, y) & 0xFFFFFF; }
    HDC context() const { return surface.context(); }

    bool drawImage(const wchar_t* text, RECT rectangle = {0, 0, Width, Height},
                   RECT paint = {0, 0, Width, Height}) {
        record.Clear();
        record.drawString = text;
        return UILib::CRenderEngine::DrawImage(context(), this, rectangle, paint, record);
    }

    std::filesystem::path folder;
    UILib::ResourceTables tables;
    UILib::DibSurface surface{nullptr, Width, Height};
    UILib::DrawRecord record;
    POINT mouse = {-1, -1};
    std::function<void(HDC, const RECT&)> paintTree;
};
