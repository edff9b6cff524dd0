#pragma once

#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

// The bytes behind one path: a text in memory or a file. Read by one answer at a time.

namespace publisher {

class Resource {
public:
    explicit Resource(std::shared_ptr<const std::string> text) : text(std::move(text)) {}

    // The file at path below folder. Nothing if there is none, or if path leaves it.
    static std::optional<Resource> openFile(const std::string& folder, const std::string& path);

    uint64_t size() const { return text ? text->size() : fileSize; }

    // False if the bytes cannot be had.
    bool read(uint64_t offset, char* buffer, size_t length);

private:
    Resource(std::ifstream file, uint64_t size) : file(std::move(file)), fileSize(size) {}

    std::shared_ptr<const std::string> text;
    std::ifstream file;
    uint64_t fileSize = 0;
};

bool isFolder(const std::string& path);

// By the ending of path.
std::string contentTypeOf(const std::string& path);

} // namespace publisher
