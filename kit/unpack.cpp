#include "archive/extract.h"
#include "kit/command.h"
#include "kit/console.h"
#include "utility/files.h"

#include <algorithm>
#include <cstdio>

namespace kit {

extern const Command unpackCommand;

namespace {

uint32_t crc32(const void* bytes, uint32_t size) {
    auto next = static_cast<const uint8_t*>(bytes);
    uint32_t crc = ~0u;
    for (const uint8_t* end = next + size; next != end; ++next) {
        crc ^= *next;
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (0xEDB88320u & (0u - (crc & 1)));
    }
    return ~crc;
}

void printEntry(const wchar_t* name, const void* bytes, uint32_t size) {
    printf("%s %u %08x\n", toUtf8(name).c_str(), size, crc32(bytes, size));
}

int unpackFromMemory(const std::wstring& archivePath) {
    utility::ufile::MappedFile file;
    if (!file.open(archivePath))
        return archive::InputEnd;
    return archive::extractArchiveFromMemory(file.data(), file.getSize(), printEntry);
}

int runUnpack(const Arguments& arguments) {
    Arguments paths = arguments;
    const bool inMemory = std::erase(paths, L"--memory") > 0;
    if (paths.size() > 2 || paths.size() < (inMemory ? 1 : 2))
        return wrongUsage(unpackCommand, "wants an archive and a folder");
    const int result =
        inMemory ? unpackFromMemory(paths[0]) : archive::extractArchive(paths[0], paths[1], nullptr);
    printf("result %d %s\n", result, archive::resultName(result));
    return result == archive::Ok ? 0 : 1;
}

} // namespace

constexpr Command unpackCommand = {
    "unpack",
    "ARCHIVE DIR [--memory]",
    "unpack a 7z archive into a folder, or list it through the memory path",
    "The last line of the output is 'result CODE NAME'; the exit code is 0 only for code 0.\n"
    "With --memory nothing is written and DIR may be left out: each entry with data gives a\n"
    "line 'NAME SIZE CRC', the CRC-32 in hexadecimal.\n",
    runUnpack,
};

} // namespace kit
