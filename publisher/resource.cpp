#include "publisher/resource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <string_view>

namespace publisher {

namespace {

std::filesystem::path fromUtf8(std::string_view text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

bool staysBelow(const std::string& path) {
    return path.find("..") == path.npos && path.find_first_of("\\:") == path.npos;
}

} // namespace

std::optional<Resource> Resource::openFile(const std::string& folder, const std::string& path) {
    if (folder.empty() || !staysBelow(path))
        return std::nullopt;
    std::filesystem::path full = fromUtf8(folder + path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(full, error))
        return std::nullopt;
    uint64_t size = std::filesystem::file_size(full, error);
    std::ifstream file(full, std::ios::binary);
    if (error || !file)
        return std::nullopt;
    return Resource(std::move(file), size);
}

bool Resource::read(uint64_t offset, char* buffer, size_t length) {
    if (text) {
        std::memcpy(buffer, text->data() + offset, length);
        return true;
    }
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(buffer, static_cast<std::streamsize>(length));
    return static_cast<size_t>(file.gcount()) == length;
}

bool isFolder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(fromUtf8(path), error);
}

std::string contentTypeOf(const std::string& path) {
    using Row = std::pair<std::string_view, const char*>;
    static constexpr std::array<Row, 8> types = {{{".html", "text/html; charset=utf-8"},
                                                  {".css", "text/css"},
                                                  {".js", "text/javascript"},
                                                  {".json", "application/json"},
                                                  {".png", "image/png"},
                                                  {".jpg", "image/jpeg"},
                                                  {".gif", "image/gif"},
                                                  {".data", "application/json"}}};
    auto row = std::find_if(types.begin(), types.end(),
                            [&](const Row& each) { return std::string_view(path).ends_with(each.first); });
    return row == types.end() ? "application/octet-stream" : row->second;
}

} // namespace publisher
