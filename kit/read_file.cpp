#include "kit/read_file.h"

#include "kit/console.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kit {

bool readFile(const std::wstring& path, std::string& bytes) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) {
        fprintf(stderr, "vynkit: cannot read %s\n", toUtf8(path).c_str());
        return false;
    }
    return true;
}

} // namespace kit
