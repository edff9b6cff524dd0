#include "launcher/qzvy/version_file.h"

#include "utility/files.h"
#include "utility/log.h"
#include "utility/text.h"
#include "utility/windows.h"

using namespace utility;

bool readTextFile(const std::wstring& path, std::string& out) {
    ufile::MappedFile file;
    if (!file.open(path)) {
        common::log("readFile", __LINE__, L" openfile error %d", GetLastError());
        return false;
    }
    // An empty file is open without a view.
    out.assign(static_cast<const char*>(file.data()), file.data() ? file.getSize() : 0);
    return true;
}

int readVersionFile(const std::wstring& path) {
    std::string text;
    return readTextFile(path, text) ? toInt(text) : 0;
}

void writeVersionFile(const std::wstring& path, int version) {
    const std::wstring folder = ufile::getParentDir(path);
    if (!ufile::isExist(folder))
        ufile::makeDir(folder);
    ufile::FileHandle file;
    if (!file.create(path))
        return;
    const std::string text = std::to_string(version);
    file.write(text.data(), static_cast<uint32_t>(text.size()));
    file.close();
}
