#include "kit/png.h"
#include "tests/uilib/skin_window.h"

#include <array>
#include <filesystem>

// Layered windows on the display, judged by the pixels that the screen shows.

using namespace UILib;

namespace {

constexpr int Width = 90, Height = 40, Third = Width / 3;

// A frame of three parts: clear, half clear and opaque.
class FrameFile {
public:
    FrameFile()
        : path(std::filesystem::temp_directory_path() /
               (std::to_wstring(GetCurrentProcessId()) + L"frame.png")) {
        std::vector<uint32_t> pixels(Width * Height);
        for (size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = std::array<uint32_t, 3>{0x00000000, 0x80808080, 0xFFFFFFFF}[i % Width / Third];
        EXPECT_TRUE(kit::writeFile(path.wstring(),
                                   kit::encodePng({pixels.data(), Width, Height, Width}, kit::Alpha::Keep)));
    }
    ~FrameFile() { std::filesystem::remove(path); }
    std::wstring skin() const {
        return L"<Window size=\"90,40\" layeredimage=\"file='" + path.wstring() +
               L"'\"><VBox name=\"all\" bkcolor=\"#FFFF8040\"/></Window>";
    }

private:
    std::filesystem::path path;
};

COLORREF onScreen(HWND window, int x, int y) {
    POINT at = {x, y};
    ClientToScreen(window, &at);
    const HDC screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, at.x, at.y);
    ReleaseDC(nullptr, screen);
    return color;
}

} // namespace

TEST(LayeredWindow, TakesItsShapeFromItsFrameImage) {
    const FrameFile frame;
    const std::wstring skin = frame.skin();
    SkinWindow below(L"<Window size=\"200,200\"><VBox bkcolor=\"#FF0000FF\"/></Window>"),
        window(skin.c_str());
    ASSERT_TRUE(below.open());
    below.ShowWindow();
    ASSERT_TRUE(pumpUntil([&] { return onScreen(below, 50, 20) == RGB(0, 0, 255); }));
    ASSERT_TRUE(window.open(below));
    EXPECT_TRUE(window.manager().IsLayered());
    EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_LAYERED);
    window.ShowWindow();
    ASSERT_TRUE(pumpUntil([&] { return logHas(window, "windowinit"); }));
    const auto shows = [&](int x, COLORREF wanted, COLORREF mask) {
        return pumpUntil([&] { return (onScreen(window, x, 20) & mask) == (wanted & mask); });
    };
    EXPECT_TRUE(shows(75, RGB(255, 128, 64), 0xFFFFFF));
    EXPECT_TRUE(shows(15, RGB(0, 0, 255), 0xFFFFFF)) << "what is below shows through";
    // How much of the blue below shows here is the compositor's affair, if there is one.
    EXPECT_TRUE(shows(45, RGB(128, 64, 0), RGB(255, 255, 0)));
    window.manager().FindControl(L"all")->SetAttribute(L"bkcolor", L"#FF008000");
    EXPECT_TRUE(shows(75, RGB(0, 128, 0), 0xFFFFFF)) << "what changes is composed again";
    EXPECT_TRUE(shows(45, RGB(0, 64, 0), RGB(255, 255, 0)));

    window.manager().SetOpacity(128); // leaves the per-pixel mode
    EXPECT_FALSE(window.manager().IsLayered());
    EXPECT_TRUE(shows(15, RGB(0, 128, 0), RGB(0, 128, 0)));
    closeAndWait(window);
    closeAndWait(below);
}
