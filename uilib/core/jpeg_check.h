#pragma once

#include <cstdint>
#include <string_view>

// Looks over a JPEG before the decoder gets it, for what the decoder does not survive: a
// Huffman table of more codes than there are (the release of stb_image that we build with
// writes beyond its own table then), and scan after scan, each of which costs the time of
// the whole image however short it is.

namespace UILib {

// True also for everything that is no JPEG.
bool isSafeForJpegDecoder(std::string_view bytes);

} // namespace UILib
