#include "bench/alpha_blend.h"
#include "kit/png.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/image_decode.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/resource_tables.h"

#include <benchmark/benchmark.h>
#include <stb/stb_image.h>

#include <vector>

// Painting into the buffer of a window of the main window's size. The yardstick is the
// system's AlphaBlend of the whole buffer: the counter "of_blend" is the time in its ratio.

using namespace UILib;

namespace {

constexpr int Width = 1642, Height = 977;
constexpr RECT Window = {0, 0, Width, Height};

ImageRecord makeImage(int width, int height, bool alphaChannel) {
    ImageRecord image;
    image.bitmap = CRenderEngine::CreateARGB32Bitmap(nullptr, width, height, &image.pixels);
    image.width = width;
    image.height = height;
    image.alphaChannel = alphaChannel;
    for (int i = 0; i < width * height; ++i) {
        const auto alpha = alphaChannel ? 64 + static_cast<uint32_t>(i % 128) : 255u;
        image.pixels[i] =
            alpha << 24 | (alpha / 2) << 16 | (alpha / 3) << 8 | static_cast<uint32_t>(i) % (alpha / 4);
    }
    return image;
}

template <class Work>
void measure(benchmark::State& state, Work work) {
    DibSurface surface(nullptr, Width, Height);
    for (auto _ : state)
        work(surface.context());
    compareWithAlphaBlend(state, Width, Height);
}

void systemAlphaBlend(benchmark::State& state) {
    DibSurface from(nullptr, Width, Height);
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    measure(state, [&](HDC target) {
        AlphaBlend(target, 0, 0, Width, Height, from.context(), 0, 0, Width, Height, blend);
    });
}
BENCHMARK(systemAlphaBlend)->Unit(benchmark::kMillisecond);

void fillOpaque(benchmark::State& state) {
    measure(state, [](HDC target) { CRenderEngine::DrawColor(target, Window, 0xFF204060); });
}
BENCHMARK(fillOpaque)->Unit(benchmark::kMillisecond);

void fillTranslucent(benchmark::State& state) {
    measure(state, [](HDC target) { CRenderEngine::DrawColor(target, Window, 0x80204060); });
}
BENCHMARK(fillTranslucent)->Unit(benchmark::kMillisecond);

void gradient(benchmark::State& state) {
    measure(state, [](HDC target) {
        CRenderEngine::DrawGradient(target, Window, 0xFF204060, 0xFF806040, Direction::Vertical);
    });
}
BENCHMARK(gradient)->Unit(benchmark::kMillisecond);

// The image of that kind over the whole window.
void imageOverWindow(benchmark::State& state, int width, int height, CRenderEngine::BitmapStyle style) {
    const ImageRecord image = makeImage(width, height, style.alphaChannel);
    measure(state, [&](HDC target) {
        CRenderEngine::DrawBitmap(target, image, Window, Window, {0, 0, width, height}, style);
    });
}
BENCHMARK_CAPTURE(imageOverWindow, opaque, Width, Height, {})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(imageOverWindow, blended, Width, Height, {{}, true})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(imageOverWindow, nine_slice, 32, 32, {{8, 8, 8, 8}})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(imageOverWindow, nine_slice_blended, 32, 32, {{8, 8, 8, 8}, true})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(imageOverWindow, tiled, 32, 32, {{}, false, 255, false, true, true})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(imageOverWindow, enlarged, Width / 2, Height / 2, {})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(imageOverWindow, shrunk, Width * 2, Height * 2, {})->Unit(benchmark::kMillisecond);

// A button of the usual size, of which a window has dozens.
void nineSliceButton(benchmark::State& state) {
    const ImageRecord image = makeImage(32, 32, true);
    measure(state, [&](HDC target) {
        CRenderEngine::DrawBitmap(target, image, {100, 100, 260, 140}, Window, {0, 0, 32, 32},
                                  {{8, 8, 8, 8}, true});
    });
}
BENCHMARK(nineSliceButton)->Unit(benchmark::kMicrosecond);

const std::vector<uint8_t>& fullScreenPng() {
    static const std::vector<uint8_t> bytes = [] {
        const ImageRecord image = makeImage(1920, 1080, true);
        return kit::encodePng({image.pixels, 1920, 1080, 1920}, kit::Alpha::Keep);
    }();
    return bytes;
}

void decodeBare(benchmark::State& state) {
    const std::vector<uint8_t>& png = fullScreenPng();
    for (auto _ : state) {
        int width = 0, height = 0, channels = 0;
        stbi_image_free(
            stbi_load_from_memory(png.data(), static_cast<int>(png.size()), &width, &height, &channels, 4));
    }
}
BENCHMARK(decodeBare)->Unit(benchmark::kMillisecond);

void decodeToRecord(benchmark::State& state) {
    const std::vector<uint8_t>& png = fullScreenPng();
    std::vector<uint32_t> pixels(1920 * 1080);
    for (auto _ : state) {
        const DecodedImage image = decodeImage(png.data(), png.size());
        benchmark::DoNotOptimize(premultiply(image.rgba.get(), pixels.size(), pixels.data(), 0));
    }
}
BENCHMARK(decodeToRecord)->Unit(benchmark::kMillisecond);

} // namespace
