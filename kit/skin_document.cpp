#include "kit/skin_document.h"

#include "kit/console.h"
#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"

#include <cstdio>
#include <filesystem>

namespace kit {

using UILib::CPaintManagerUI;

std::wstring useSkinOf(const std::wstring& file, const std::wstring& languageCode) {
    const std::filesystem::path path = std::filesystem::absolute(file);
    CPaintManagerUI::SetInstance(GetModuleHandleW(nullptr));
    CPaintManagerUI::SetLanguageCode(languageCode, L"en_US");
    CPaintManagerUI::SetResourcePath(path.parent_path().wstring());
    CPaintManagerUI::LoadLanguageTable(L"multi_language.tsv");
    return path.filename().wstring();
}

void applyLanguageFont(CPaintManagerUI& manager) {
    if (const wchar_t* face = CPaintManagerUI::GetLanguageText(L"font_name"))
        manager.SetDefaultFontFamily(face);
}

SkinDocument::~SkinDocument() {
    if (window)
        DestroyWindow(window);
}

bool SkinDocument::load(const std::wstring& file, const std::wstring& languageCode) {
    const std::wstring name = useSkinOf(file, languageCode);
    if (!Create(HWND_MESSAGE, L"", 0, 0)) { // needs no display
        fprintf(stderr, "vynkit: no window\n");
        return false;
    }
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
