#include "launcher/qzvy/QzVyModel.h"

#include "launcher/qzvy/ChannelMessages.h"
#include "launcher/qzvy/system_language.h"
#include "utility/files.h"
#include "utility/handles.h"
#include "utility/log.h"
#include "utility/registry.h"
#include "utility/system.h"

using namespace utility;

namespace {

constexpr wchar_t LauncherKey[] = L"Software\\wexlane\\VYN";
constexpr wchar_t RunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t RunValue[] = L"VYN";

// The 64-bit view, where the launcher's key lies on every system.
constexpr REGSAM ReadAccess = KEY_READ | KEY_WOW64_64KEY;

// Empty when the key or the value is missing or unreadable.
std::wstring readValue(const wchar_t* name) {
    std::wstring value;
    RegKeyEx key;
    if (key.RegRegOpen(HKEY_CURRENT_USER, LauncherKey, ReadAccess) == ERROR_SUCCESS)
        key.RegRead(name, value);
    return value;
}

} // namespace

QzVyModel& QzVyModel::instance() {
    // Never destroyed: workers that outlive the message loop still read it.
    static QzVyModel& model = *new QzVyModel;
    return model;
}

void QzVyModel::init() {
    language = systemLanguageCode();
    languageLong = systemLocaleCode();
    loadLanguage();
    loadPathDir();
    auto* task = new common::MemberFuncRunable(this, &QzVyModel::_threadConfig);
    if (!configThread.start(task))
        task->release();
}

void QzVyModel::loadLanguage() {
    if (const std::wstring stored = readValue(L"Language"); !stored.empty())
        language = stored;
}

void QzVyModel::loadPathDir() {
    if (const std::wstring stored = readValue(L"pathDir"); !stored.empty())
        pathDir = stored;
    if (!pathDir.empty())
        return;
    pathDir = ufile::getModuleDir() + L"game\\";
    if (!ufile::isExist(pathDir))
        ufile::makeDir(pathDir);
}

void QzVyModel::setPathDir(const std::wstring& path) {
    pathDir = path;
    RegKeyEx key;
    if (key.RegCreate(HKEY_CURRENT_USER, LauncherKey) == ERROR_SUCCESS)
        key.RegWrite(L"pathDir", pathDir);
}

void QzVyModel::setLanguage(const std::wstring& localeCode) {
    fillMarketByLocale(localeCode, market);
    language = market.shortCode;
    RegKeyEx key;
    if (key.RegCreate(HKEY_CURRENT_USER, LauncherKey) != ERROR_SUCCESS)
        return;
    key.RegWrite(L"Language", language);
    key.RegWrite(L"LanguageLong", localeCode);
}

void QzVyModel::setAutoRun(bool on) {
    Key key;
    if (RegOpenKeyW(HKEY_CURRENT_USER, RunKey, key.out()) != ERROR_SUCCESS)
        return;
    if (!on) {
        RegDeleteValueW(key.get(), RunValue);
        return;
    }
    const std::wstring command = L"\"" + ufile::getModuleDir() + L"tkvyn.exe\" autorun";
    RegSetValueExW(key.get(), RunValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(command.c_str()),
                   static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t)));
}

void QzVyModel::addMessage() {
    for (const UINT message : AdmittedMessages)
        if (!usystem::admitMessage(message)) {
            common::log("QzVyModel::addMessage", __LINE__, L"ChangeWindowMessageFilter error");
            return;
        }
}
