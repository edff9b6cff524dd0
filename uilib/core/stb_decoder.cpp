#include "uilib/core/stb_decoder.h"

#include <cstdlib>

namespace {

// Compressed data that unpacks to far more than its header tells of ends at this.
thread_local size_t allocationLimit = 0;

// Zeroed: a damaged file makes the decoder use tables that it never filled.
void* limitedAllocate(size_t size) {
    return size <= allocationLimit ? calloc(size, 1) : nullptr;
}

void* limitedReallocate(void* old, size_t size) {
    return size <= allocationLimit ? realloc(old, size) : nullptr;
}

} // namespace

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_BMP
#define STBI_ONLY_GIF
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#define STBI_ASSERT(condition) static_cast<void>(condition)
#define STBI_MALLOC(size) limitedAllocate(size)
#define STBI_REALLOC(old, size) limitedReallocate(old, size)
#define STBI_FREE(old) free(old)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace UILib::stb {

constexpr int FourChannels = 4;
constexpr size_t HeaderLimit = 1 << 20;

static const stbi_uc* data(std::string_view bytes) {
    return reinterpret_cast<const stbi_uc*>(bytes.data());
}

static int length(std::string_view bytes) {
    return static_cast<int>(bytes.size());
}

Size readSize(std::string_view bytes) {
    Size size;
    int channels = 0;
    allocationLimit = HeaderLimit;
    if (!stbi_info_from_memory(data(bytes), length(bytes), &size.width, &size.height, &channels))
        return {};
    return size;
}

uint8_t* decode(std::string_view bytes, size_t limit) {
    int width = 0, height = 0, channels = 0;
    allocationLimit = limit;
    return stbi_load_from_memory(data(bytes), length(bytes), &width, &height, &channels, FourChannels);
}

void release(uint8_t* pixels) {
    stbi_image_free(pixels);
}

} // namespace UILib::stb
