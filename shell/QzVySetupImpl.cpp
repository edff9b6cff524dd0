#include "shell/QzVySetupImpl.h"

#include "shell/settings_text.h"
#include "utility/files.h"
#include "utility/handles.h"
#include "utility/log.h"
#include "utility/windows.h"

using namespace utility;

namespace {

std::wstring configPath() {
    return ufile::getModuleDir() + L"config.data";
}

// The window thread and the configuration thread may save at once: each writes a file of
// its own, and the last replacement wins whole.
std::wstring temporaryPath() {
    return configPath() + L"." + std::to_wstring(GetCurrentThreadId()) + L".tmp";
}

// Those of a program that was killed while it saved.
void removeLeftovers() {
    WIN32_FIND_DATAW found;
    const FindHandle search(FindFirstFileW((configPath() + L".*.tmp").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found))
        ufile::removeFile(ufile::getModuleDir() + found.cFileName);
}

bool writeWhole(const std::wstring& path, const std::string& text) {
    ufile::FileHandle file;
    if (!file.create(path))
        return false;
    const bool written = file.write(text.data(), static_cast<uint32_t>(text.size()));
    file.close();
    return written;
}

} // namespace

QzVySetupImpl& QzVySetupImpl::instance() {
    static QzVySetupImpl settings;
    return settings;
}

void QzVySetupImpl::loadConfig() {
    removeLeftovers();
    ufile::MappedFile file;
    if (!file.open(configPath())) {
        common::log("QzVySetupImpl::loadConfig", __LINE__, L"open config file error %d", GetLastError());
        return;
    }
    if (file.getSize() != 0)
        parseSettings({static_cast<const char*>(file.data()), file.getSize()}, *this);
}

void QzVySetupImpl::saveConfig() {
    const std::wstring temporary = temporaryPath();
    const bool saved = writeWhole(temporary, formatSettings(*this)) &&
                       ufile::moveFile(temporary, configPath(), ufile::MoveReplaceAndCopy);
    if (!saved && ufile::isExist(temporary))
        ufile::removeFile(temporary);
}
