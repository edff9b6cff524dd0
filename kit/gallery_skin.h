#pragma once

#include <string_view>
#include <vector>

// The markup files of kit/gallery, which the build puts into the program.

namespace kit {

struct SkinFile {
    const wchar_t* name;
    std::string_view markup;
};

const std::vector<SkinFile>& gallerySkin();

} // namespace kit
