#include "uilib/core/skin_resources.h"

#include "archive/extract.h"
#include "uilib/core/language_table.h"
#include "utility/handles.h"
#include "utility/log.h"

#include <algorithm>
#include <cwchar>
#include <map>
#include <string>
#include <vector>

namespace UILib {

namespace {

constexpr uint32_t LanguageFileLimit = 4 * 1024 * 1024;
constexpr uint32_t SkinFileLimit = 256 * 1024 * 1024;
constexpr uint32_t SmallestLanguageTable = 10; // bytes that must be exceeded

struct Resources {
    HINSTANCE instance = nullptr;
    HINSTANCE resourceModule = nullptr;
    unsigned osMajorVersion = 0;
    CUIString path;
    CUIString languageCode;
    LanguageTable language;
    std::map<CUIString, std::string> archive; // whole entries by name, "/" between folders
    std::vector<std::wstring> colors = {L"FF16171F", L"FF20203A", L"FF21212E", L"FF2E3956",
                                        L"FFF5F5F5", L"FFEAEAEB", L"FFEAEAEB"};
};

// Never destroyed: windows may still paint while static objects go.
Resources& resources() {
    static Resources& all = *new Resources;
    return all;
}

CUIString directoryOf(HINSTANCE module) {
    std::wstring path(0x7FFF, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

struct FileContent {
    bool opened = false;
    std::unique_ptr<unsigned char[]> bytes; // null unless the whole file was read
    uint32_t size = 0;
};

FileContent readFile(const wchar_t* path, uint32_t limit) {
    FileContent content;
    const utility::FileOwner file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                              FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return content;
    content.opened = true;
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size) || size.QuadPart == 0 || size.QuadPart > limit)
        return content;
    const auto wanted = static_cast<DWORD>(size.QuadPart);
    auto bytes = std::make_unique<unsigned char[]>(wanted);
    DWORD got = 0;
    if (ReadFile(file.get(), bytes.get(), wanted, &got, nullptr) && got == wanted) {
        content.bytes = std::move(bytes);
        content.size = wanted;
    }
    return content;
}

FileContent readLooseFile(const wchar_t* name) {
    if (name[0] && name[1] == L':')
        return readFile(name, SkinFileLimit);
    if (resources().path.IsEmpty())
        return {};
    return readFile(resources().path + name, SkinFileLimit);
}

bool isSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

bool pathExists(const wchar_t* path) {
    WIN32_FIND_DATAW found;
    return static_cast<bool>(utility::FindHandle(FindFirstFileW(path, &found)));
}

struct ColorKey {
    const wchar_t* name;
    const wchar_t* fallback; // when the file lacks the key
};
constexpr ColorKey ColorKeys[] = {{L"mainToolbar", L"FF06061F"},      {L"mainContent", L"FF20203A"},
                                  {L"mainToolbarPopup", L"FF1F1F39"}, {L"toolbar", L"FF06061F"},
                                  {L"content", L"FF20203A"},          {L"setupLeftBar", L"FF20203A"},
                                  {L"setupBottomBar", L"FF36364D"}};

} // namespace

void SkinResources::SetInstance(HINSTANCE instance) {
    resources().instance = instance;
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (GetVersionExW(&version))
        resources().osMajorVersion = version.dwMajorVersion;
    LoadCustomColors();
}

HINSTANCE SkinResources::GetInstance() {
    return resources().instance;
}

CUIString SkinResources::GetInstancePath() {
    return resources().instance ? directoryOf(resources().instance) : CUIString();
}

HINSTANCE SkinResources::GetResourceDll() {
    return resources().resourceModule ? resources().resourceModule : resources().instance;
}

unsigned SkinResources::GetOSMajorVersion() {
    return resources().osMajorVersion;
}

void SkinResources::SetResourcePath(const CUIString& path) {
    resources().path.Empty();
    if (path.IsEmpty() || !pathExists(path))
        return;
    resources().path = path;
    if (!isSeparator(path.GetAt(path.GetLength() - 1)))
        resources().path += L'\\';
}

CUIString SkinResources::GetResourcePath() {
    return resources().path;
}

void SkinResources::LoadResourceArchive(unsigned resourceNumber, const wchar_t* languageFile) {
    const HINSTANCE module = GetResourceDll();
    if (HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(resourceNumber), L"ZIPRES")) {
        const DWORD size = SizeofResource(module, found);
        const void* bytes = LockResource(LoadResource(module, found));
        if (bytes && size)
            archive::extractArchiveFromMemory(bytes, size, &SkinResources::AddArchiveEntry);
    }
    LoadLanguageTable(languageFile);
}

void SkinResources::AddArchiveEntry(const wchar_t* name, const void* bytes, uint32_t size) {
    resources().archive[name].assign(static_cast<const char*>(bytes), size);
}

std::unique_ptr<unsigned char[]> SkinResources::LoadFileBytes(const wchar_t* name, uint32_t& size) {
    size = 0;
    if (!name || !*name)
        return nullptr;
    FileContent loose = readLooseFile(name);
    if (loose.bytes) {
        size = loose.size;
        return std::move(loose.bytes);
    }
    CUIString key(name);
    key.Replace(L"\\", L"/");
    const auto entry = resources().archive.find(key);
    if (entry == resources().archive.end())
        return nullptr;
    const std::string& bytes = entry->second;
    auto copy = std::make_unique<unsigned char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy.get());
    size = static_cast<uint32_t>(bytes.size());
    return copy;
}

void SkinResources::SetLanguageCode(const CUIString& primary, const CUIString& fallback) {
    resources().languageCode = primary.IsEmpty() ? fallback : primary;
}

CUIString SkinResources::GetLanguageCode() {
    return resources().languageCode;
}

void SkinResources::LoadLanguageTable(const wchar_t* fileName) {
    // A table beside the program is the only candidate once it opens, usable or not.
    const FileContent beside = readFile(GetInstancePath() + fileName, LanguageFileLimit);
    if (beside.opened) {
        if (beside.bytes)
            ParseLanguageTable(beside.bytes.get(), beside.size);
        else
            common::log("CPaintManagerUI::LoadLanguageTable", __LINE__, L"unusable language file %s",
                        fileName);
        return;
    }
    uint32_t size;
    const auto bytes = LoadFileBytes(fileName, size);
    if (size > SmallestLanguageTable)
        ParseLanguageTable(bytes.get(), size);
}

void SkinResources::ParseLanguageTable(const void* bytes, uint32_t size) {
    parseLanguageTable({static_cast<const char*>(bytes), size}, resources().languageCode,
                       resources().language);
}

const wchar_t* SkinResources::GetLanguageText(const CUIString& key) {
    const auto& texts = resources().language.texts;
    const auto hit = texts.find(key);
    return hit == texts.end() ? nullptr : hit->second.GetData();
}

void SkinResources::AddLanguageText(const CUIString& key, const CUIString& text) {
    resources().language.texts[key] = text;
}

void SkinResources::ResolveLanguageKey(CUIString& text) {
    if (text.GetLength() < 2 || text.GetAt(0) != L'@')
        return;
    if (const wchar_t* found = GetLanguageText(text.Mid(1)))
        text = found;
}

int SkinResources::GetLanguageCount() {
    return resources().language.languageCount();
}

void SkinResources::GetLanguageInfo(int index, CUIString& code, CUIString& name) {
    const LanguageTable& table = resources().language;
    const size_t field = static_cast<size_t>(index) + 2;
    if (index < 0 || field >= table.codes.size() || field >= table.names.size())
        return;
    code = table.codes[field];
    name = table.names[field];
}

void SkinResources::LoadCustomColors() {
    const CUIString path = directoryOf(nullptr) + L"colors.ini";
    if (GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES)
        return;
    auto& colors = resources().colors;
    colors.clear();
    for (const ColorKey& key : ColorKeys) {
        wchar_t value[1024];
        GetPrivateProfileStringW(L"setting", key.name, L"", value, 1024, path);
        colors.emplace_back(*value ? value : key.fallback);
    }
}

uint32_t SkinResources::GetCustomColor(int index) {
    const auto& colors = resources().colors;
    if (index < 0 || static_cast<size_t>(index) >= colors.size())
        return 0;
    return std::wcstoul(colors[static_cast<size_t>(index)].c_str(), nullptr, 16);
}

const wchar_t* languageText(const char* key) {
    wchar_t wide[128];
    size_t length = 0;
    for (; key[length] && length + 1 < std::size(wide); ++length)
        wide[length] = static_cast<unsigned char>(key[length]);
    const CUIString name(wide, static_cast<int>(length));
    if (const wchar_t* text = SkinResources::GetLanguageText(name))
        return text;
    SkinResources::AddLanguageText(name, name);
    return SkinResources::GetLanguageText(name);
}

} // namespace UILib
