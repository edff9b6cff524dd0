#include "kit/gif.h"
#include "stage.h"
#include "uilib/controls/gif_anim.h"

#include <psapi.h>

using namespace UILib;

namespace {

void addFile(const wchar_t* name, const std::vector<uint8_t>& bytes) {
    CPaintManagerUI::AddArchiveEntry(name, bytes.data(), static_cast<uint32_t>(bytes.size()));
}

const std::vector<kit::GifFrame> ThreeFrames = {{0xFF0000, 2}, {0x00FF00, 0}, {0x0000FF, 3}};

std::wstring animation(const wchar_t* attributes) {
    return std::wstring(L"<GifAnim name=\"g\" ") + attributes + L"/>";
}

SIZE_T privateBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    return counters.PrivateUsage;
}

} // namespace

TEST(GifAnim, PlaysInTheFilesOrderAndStartsAgainWhenShown) {
    addFile(L"three.gif", encodeGif(8, 8, ThreeFrames));
    Stage stage(animation(L"bkimage=\"three.gif\" autosize=\"true\""));
    CGifAnimUI& g = stage.get<CGifAnimUI>(L"g");
    EXPECT_EQ(g.GetFixedWidth(), 8);
    EXPECT_EQ(g.GetFrameCount(), 3u);
    EXPECT_TRUE(g.IsPlaying());
    unsigned seen = 0;
    EXPECT_TRUE(pumpUntil([&] { return (seen |= 1u << g.GetFrameIndex()) == 7; }));
    g.SetVisible(false);
    EXPECT_FALSE(g.IsPlaying());
    g.SetVisible(true);
    EXPECT_EQ(g.GetFrameIndex(), 0u);
    EXPECT_EQ(stage.pixel(g, 4, 4), 0xFF0000u);
    EXPECT_TRUE(g.IsPlaying());
}

TEST(GifAnim, ShowsTheFirstFrameUntilItIsPlayed) {
    addFile(L"three.gif", encodeGif(8, 8, ThreeFrames));
    Stage stage(animation(L"bkimage=\"three.gif\" width=\"8\" height=\"8\" autoplay=\"false\""));
    CGifAnimUI& g = stage.get<CGifAnimUI>(L"g");
    EXPECT_FALSE(g.IsPlaying());
    EXPECT_EQ(stage.pixel(g, 4, 4), 0xFF0000u);
    g.PlayGif();
    EXPECT_TRUE(pumpUntil([&] { return g.GetFrameIndex() == 1; }));
}

TEST(GifAnim, ShowsNothingOfABadFile) {
    std::vector<uint8_t> cut = encodeGif(8, 8, ThreeFrames);
    cut.resize(20);
    std::vector<uint8_t> huge = encodeGif(8, 8, ThreeFrames);
    for (size_t i = 6; i < 10; ++i)
        huge[i] = 0xFF;
    addFile(L"cut.gif", cut);
    addFile(L"huge.gif", huge);
    addFile(L"text.gif", {'n', 'o', 'p', 'e'});
    for (const wchar_t* name : {L"cut.gif", L"huge.gif", L"text.gif", L"missing.gif"}) {
        Stage stage(animation(L"width=\"8\" height=\"8\""));
        CGifAnimUI& g = stage.get<CGifAnimUI>(L"g");
        g.SetBkImage(name);
        g.DoInit();
        EXPECT_EQ(stage.pixel(g, 4, 4), 0u) << testing::PrintToString(std::wstring(name));
    }
}

TEST(GifAnim, NeedsTheMemoryOfOneFrame) {
    constexpr int Side = 256; // a frame decoded: 256 KiB
    constexpr unsigned Count = 400;
    std::vector<kit::GifFrame> frames;
    for (uint32_t i = 0; i < Count; ++i)
        frames.push_back({i * 0x010203, 1});
    addFile(L"long.gif", kit::encodeGif(Side, Side, frames));
    Stage stage(animation(L"width=\"64\" height=\"64\" autoplay=\"false\""));
    CGifAnimUI& g = stage.get<CGifAnimUI>(L"g");
    g.SetAutoPlay(false);
    const SIZE_T before = privateBytes();
    g.SetBkImage(L"long.gif");
    g.DoInit();
    EXPECT_EQ(g.GetFrameCount(), Count);
    for (unsigned i = 0; i < Count; ++i) {
        TUIEvent tick = {EventTimer, &g};
        tick.wParam = 100;
        g.Event(tick);
        stage.pixel(g, 4, 4);
    }
    EXPECT_LT(privateBytes() - before, SIZE_T{64} << 20); // all frames would be 100 MiB, the file is 27
}
