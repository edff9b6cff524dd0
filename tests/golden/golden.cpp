#include "tests/golden/golden.h"

#include "kit/png.h"
#include "uilib/core/image_decode.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace golden {

namespace fs = std::filesystem;
using UILib::Raster;

namespace {

const fs::path Kept = u8"" GOLDEN_FOLDER;     // in the sources
const fs::path Left = u8"" GOLDEN_MISMATCHES; // in the build tree

struct Picture {
    std::vector<uint32_t> pixels;
    Raster raster;
};

Picture blank(int width, int height) {
    Picture picture;
    picture.pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0xFF000000);
    picture.raster = {picture.pixels.data(), width, height, width};
    return picture;
}

Picture read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const UILib::DecodedImage decoded = UILib::decodeImage(bytes.data(), bytes.size());
    if (!decoded)
        return {};
    Picture picture = blank(decoded.width, decoded.height);
    UILib::premultiply(decoded.rgba.get(), picture.pixels.size(), picture.pixels.data(), 0);
    return picture;
}

void write(const fs::path& path, const Raster& picture) {
    fs::create_directories(path.parent_path());
    kit::writeFile(path.wstring(), kit::encodePng(picture, kit::Alpha::Drop));
}

int distance(uint32_t a, uint32_t b) {
    int most = 0;
    for (int shift : {16, 8, 0})
        most = std::max(most,
                        std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    return most;
}

uint32_t red(int apart) {
    return 0xFF000000 | static_cast<uint32_t>(128 + apart / 2) << 16;
}

// Where letters are: the blocks in which the pictures with and without texts differ, and those
// around them.
class TextBlocks {
public:
    explicit TextBlocks(const Raster& painted)
        : columns(painted.width / TextBlock + 1), held(columns * (painted.height / TextBlock + 1)) {}
    TextBlocks(const Raster& painted, const Raster& withoutTexts) : TextBlocks(painted) {
        for (int y = 0; y < painted.height; ++y)
            for (int x = 0; x < painted.width; ++x)
                if (distance(painted.row(y)[x], withoutTexts.row(y)[x]) > 0)
                    hold(x / TextBlock, y / TextBlock);
    }
    bool holds(int x, int y) const { return held[x / TextBlock + y / TextBlock * columns]; }

private:
    void hold(int column, int row) {
        const int rows = static_cast<int>(held.size()) / columns;
        for (int y = std::max(row - 1, 0); y <= std::min(row + 1, rows - 1); ++y)
            for (int x = std::max(column - 1, 0); x <= std::min(column + 1, columns - 1); ++x)
                held[x + y * columns] = true;
    }
    int columns;
    std::vector<bool> held;
};

uint32_t meanOf(const Raster& picture, int left, int top) {
    unsigned sums[3] = {}, count = 0;
    for (int y = top; y < std::min(top + TextBlock, picture.height); ++y)
        for (int x = left; x < std::min(left + TextBlock, picture.width); ++x, ++count)
            for (int channel = 0; channel < 3; ++channel)
                sums[channel] += picture.row(y)[x] >> channel * 8 & 0xFF;
    return sums[2] / count << 16 | sums[1] / count << 8 | sums[0] / count;
}

// Paints where they differ, in red as strong as the difference; the number of places.
int difference(const Raster& a, const Raster& b, const TextBlocks& texts, const Raster& out) {
    int count = 0;
    for (int y = 0; y < out.height; ++y)
        for (int x = 0; x < out.width; ++x) {
            const bool text = texts.holds(x, y);
            const int left = x / TextBlock * TextBlock, top = y / TextBlock * TextBlock;
            const int apart = text ? distance(meanOf(a, left, top), meanOf(b, left, top))
                                   : distance(a.row(y)[x], b.row(y)[x]);
            const uint32_t grey = (a.row(y)[x] >> 8 & 0xFF) / 4;
            const bool differs = apart > (text ? TextTolerance : Tolerance);
            out.row(y)[x] = differs ? red(apart) : 0xFF000000 | grey << 16 | grey << 8 | grey;
            count += differs;
        }
    return count;
}

testing::AssertionResult compare(const Raster& painted, const TextBlocks& texts, const std::string& name) {
    const fs::path path = Kept / (name + ".png");
    if (getenv("VYN_RENEW_GOLDEN")) {
        write(path, painted);
        return testing::AssertionSuccess();
    }
    const Picture old = read(path);
    if (old.raster.width != painted.width || old.raster.height != painted.height) {
        write(Left / (name + ".png"), painted);
        return testing::AssertionFailure() << name << ": no such picture, or of another size";
    }
    Picture apart = blank(painted.width, painted.height);
    const int count = difference(painted, old.raster, texts, apart.raster);
    if (count == 0)
        return testing::AssertionSuccess();
    write(Left / (name + ".png"), painted);
    write(Left / (name + ".old.png"), old.raster);
    write(Left / (name + ".difference.png"), apart.raster);
    return testing::AssertionFailure() << name << ": " << count << " pixels differ, see " << Left;
}

} // namespace

testing::AssertionResult matches(const Raster& painted, const std::string& name) {
    return compare(painted, TextBlocks(painted), name);
}

testing::AssertionResult matches(const Raster& painted, const Raster& withoutTexts, const std::string& name) {
    return compare(painted, TextBlocks(painted, withoutTexts), name);
}

} // namespace golden
