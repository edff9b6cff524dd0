#include "archive/input_stream.h"

#include "utility/log.h"

#include <algorithm>
#include <cstring>

namespace archive {

InputStream::InputStream() : table{{onRead, onSeek}, this} {}

SRes InputStream::onRead(ISeekInStreamPtr calls, void* buffer, size_t* size) {
    return reinterpret_cast<const Table*>(calls)->owner->read(buffer, *size);
}

SRes InputStream::onSeek(ISeekInStreamPtr calls, Int64* position, ESzSeek origin) {
    return reinterpret_cast<const Table*>(calls)->owner->seek(*position, origin);
}

SRes InputStream::read(void* buffer, size_t& wanted) {
    const uint64_t end = size();
    const uint64_t left = position < end ? end - position : 0;
    wanted = static_cast<size_t>(std::min<uint64_t>(wanted, left));
    if (wanted == 0)
        return SZ_OK;
    if (!readAt(position, buffer, wanted))
        return SZ_ERROR_READ;
    position += wanted;
    return SZ_OK;
}

SRes InputStream::seek(Int64& offset, ESzSeek origin) {
    const uint64_t base = origin == SZ_SEEK_SET ? 0 : origin == SZ_SEEK_CUR ? position : size();
    Int64 target = 0;
    if (__builtin_add_overflow(offset, base, &target) || target < 0)
        return SZ_ERROR_READ;
    position = static_cast<uint64_t>(target);
    offset = target;
    return SZ_OK;
}

MemoryInput::MemoryInput(const void* bytes, uint32_t count)
    : bytes(static_cast<const uint8_t*>(bytes)), count(count) {}

bool MemoryInput::readAt(uint64_t position, void* buffer, size_t& size) {
    memcpy(buffer, bytes + position, size);
    return true;
}

bool FileInput::open(const std::wstring& path) {
    const unsigned failure = file.open(path, length);
    if (failure)
        common::log("FileInput::open", __LINE__, L"%s error %u", path.c_str(), failure);
    return failure == 0;
}

bool FileInput::readAt(uint64_t position, void* buffer, size_t& size) {
    const unsigned failure = file.readAt(position, buffer, size);
    if (failure)
        common::log("FileInput::readAt", __LINE__, L"error %u at %llu", failure,
                    static_cast<unsigned long long>(position));
    return failure == 0;
}

} // namespace archive
