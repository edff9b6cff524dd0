#include "kit/skin_document.h"

#include "kit/console.h"
#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"

#include <cstdio>
#include <filesystem>

namespace kit {

using UILib::CPaintManagerUI;

void useSkin(const std::wstring& skin, const std::wstring& languageCode) {
    CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    CPaintManagerUI::SetLanguageCode(languageCode, L"en_US");
    CPaintManagerUI::SetResourcePath(std::filesystem::absolute(skin).wstring());
    CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
}

// The nearest folder above that has a language table, else the file's own.
static std::filesystem::path skinFolderOf(const std::filesystem::path& file) {
    for (auto folder = file.parent_path(); folder.has_relative_path(); folder = folder.parent_path())
        if (std::filesystem::exists(folder / L"multi_language.tsv"))
            return folder;
    return file.parent_path();
}

std::wstring useSkinOf(const std::wstring& file, const std::wstring& languageCode) {
    const std::filesystem::path path = std::filesystem::absolute(file), skin = skinFolderOf(path);
    useSkin(skin.wstring(), languageCode);
    return path.lexically_relative(skin).wstring();
}

void applyLanguageFont(CPaintManagerUI& manager) {
    if (const wchar_t* face = CPaintManagerUI::GetLanguageText(L"font_name"))
        manager.SetDefaultFontFamily(face);
}

// Needs no display. Under Wine on a busy machine the first window of all may fail: the
// process that makes the desktop comes up too late, and a later try finds it there.
bool SkinDocument::makeWindow() {
    constexpr int tries = 3;
    for (int i = 0; i < tries; ++i)
        if (Create(HWND_MESSAGE, L"", 0, 0))
            return true;
    fprintf(stderr, "vynkit: no window, error %lu\n", GetLastError());
    return false;
}

SkinDocument::~SkinDocument() {
    if (window)
        DestroyWindow(window);
}

bool SkinDocument::load(const std::wstring& file, const std::wstring& languageCode) {
    const std::filesystem::path path = std::filesystem::absolute(file), skin = skinFolderOf(path);
    return loadFrom(skin.wstring(), path.lexically_relative(skin).wstring(), languageCode);
}

bool SkinDocument::loadFrom(const std::wstring& skin, const std::wstring& name,
                            const std::wstring& languageCode) {
    useSkin(skin, languageCode);
    if (!makeWindow())
        return false;
    paintManager.Init(window);
    applyLanguageFont(paintManager);
    UILib::CDialogBuilder builder;
    UILib::CControlUI* tree = builder.Create(name.c_str(), nullptr, nullptr, &paintManager, nullptr);
    if (!tree) {
        fprintf(stderr, "error: %s\nlocation: %s\n",
                toUtf8(builder.GetMarkup().GetLastErrorMessage()).c_str(),
                toUtf8(builder.GetMarkup().GetLastErrorLocation()).c_str());
        return false;
    }
    return paintManager.AttachDialog(tree);
}

void SkinDocument::layout(int width, int height) {
    root()->SetPos({0, 0, width, height}, false);
}

int readSize(const std::wstring& argument) {
    wchar_t* end;
    const long size = std::wcstol(argument.c_str(), &end, 10);
    return *end == 0 && size > 0 && size <= 16384 ? static_cast<int>(size) : 0;
}

} // namespace kit
