#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// stb_image behind a limit on the memory that it takes. It checks little of what it reads
// itself: only image_decode calls this, with bytes that it has looked over. Any thread.

namespace UILib::stb {

struct Size {
    int width = 0;
    int height = 0;
};

// From the header alone; zero when there is none that it knows.
Size readSize(std::string_view bytes);

// Four bytes a pixel, red first, rows from the top; null on failure. No single piece of
// memory on the way is larger than limit. The result goes back through release().
uint8_t* decode(std::string_view bytes, size_t limit);
void release(uint8_t* pixels);

} // namespace UILib::stb
