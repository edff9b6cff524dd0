#pragma once

#include "engine/page.h"
#include "engine/text.h"

#include <algorithm>
#include <chrono>
#include <ctime>

#ifdef _WIN32
#include <windows.h>
#endif

// What this process has had of the processor. The time on the wall grows with what else runs.
inline std::chrono::milliseconds processorTime() {
#ifdef _WIN32               // where std::clock tells the time on the wall
    uint64_t spent[4] = {}; // made, ended, in the system, in the program; units of 100 ns
    GetProcessTimes(GetCurrentProcess(), reinterpret_cast<FILETIME*>(&spent[0]),
                    reinterpret_cast<FILETIME*>(&spent[1]), reinterpret_cast<FILETIME*>(&spent[2]),
                    reinterpret_cast<FILETIME*>(&spent[3]));
    return std::chrono::milliseconds((spent[2] + spent[3]) / 10000);
#else
    return std::chrono::milliseconds(std::clock() * 1000 / CLOCKS_PER_SEC);
#endif
}

// Letters as wide as half their em, 0.8 of it above the baseline: layouts that can be
// worked out by hand.
class SquareLetters : public engine::TextMeasurer, public engine::TextPainter {
public:
    int width(const engine::Font& font, std::u16string_view text) override {
        return font.size / 2 * static_cast<int>(text.size());
    }
    engine::FontMetrics metrics(const engine::Font& font) override {
        return {font.size * 4 / 5, font.size - font.size * 4 / 5};
    }
    void draw(const engine::Font&, std::u16string_view, int, int, engine::Color,
              const engine::Rect&) override {
        draws++;
    }
    int draws = 0;
};

// A page laid out, and its boxes by id.
struct LaidOut {
    explicit LaidOut(std::string_view html, int width = 200, int height = 100)
        : document(engine::parsePage(html)),
          styles(engine::computeStyles(document, engine::parseStyleSheet(document.styles), {})),
          layout(engine::layOut(
              document, styles,
              [](int) {
                  return std::optional(engine::ImageSize{40, 20});
              },
              letters, width, height)) {}

    engine::Rect place(std::string_view id) const {
        engine::Rect found{-1, -1, -1, -1};
        search(layout.root, 0, 0, id, found);
        return found;
    }
    // Lines of the box: "text@x,y", joined by blanks; places within the box.
    std::string lines(std::string_view id) const {
        engine::Rect found;
        const engine::Box* box = search(layout.root, 0, 0, id, found);
        std::string out;
        for (size_t i = 0; box && i < box->fragments.size(); i++) {
            const engine::Fragment& line = box->fragments[i];
            out += (i ? " " : "") + engine::toUtf8(line.text) + "@" + std::to_string(line.rect.x) + "," +
                   std::to_string(line.rect.y);
        }
        return out;
    }

    SquareLetters letters;
    engine::Document document;
    std::vector<engine::Style> styles;
    engine::Layout layout;

private:
    const engine::Box* search(const engine::Box& box, int x, int y, std::string_view id,
                              engine::Rect& found) const {
        const engine::Rect area = box.rect.moved(x, y);
        if (document.nodes[box.node].id == id) {
            found = area;
            return &box;
        }
        for (const engine::Box& child : box.children)
            if (const auto* hit = search(child, area.x, area.y, id, found))
                return hit;
        return nullptr;
    }
};
