#include <7zCrc.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

// Keeps mutated archives past the door: the decoder looks at nothing behind a wrong CRC
// of the header, so that without repair no mutation of a header would be seen.

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace {

constexpr size_t startHeaderSize = 32;

template <class Number>
Number read(const uint8_t* from) {
    Number value;
    memcpy(&value, from, sizeof value);
    return value;
}

template <class Number>
void store(uint8_t* to, Number value) {
    memcpy(to, &value, sizeof value);
}

void repair(uint8_t* data, size_t size) {
    const uint64_t behind = size - startHeaderSize;
    const uint64_t offset = std::min(read<uint64_t>(data + 12), behind);
    const uint64_t length = behind - offset; // a header always ends the archive
    memcpy(data, "7z\xBC\xAF\x27\x1C", 7);
    store(data + 12, offset);
    store(data + 20, length);
    store(data + 28, CrcCalc(data + startHeaderSize + offset, length));
    store(data + 8, CrcCalc(data + 12, 20));
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
    CrcGenerateTable();
    size = LLVMFuzzerMutate(data, size, maxSize);
    if (size >= startHeaderSize && seed % 16 != 0)
        repair(data, size);
    return size;
}
