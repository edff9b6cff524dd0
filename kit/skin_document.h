#pragma once

#include "kit/command.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/window.h"

// A skin file on a window that is never shown: what the commands that look at a skin
// without opening it work on.

namespace kit {

// Makes a folder the skin folder and loads its language table.
void useSkin(const std::wstring& skin, const std::wstring& languageCode);

// The same for the skin that a file belongs to: the nearest folder above it that has a
// language table, else its own. Gives the name of the file in there.
std::wstring useSkinOf(const std::wstring& file, const std::wstring& languageCode);

// The font of the chosen language, as every window of the launcher takes it.
void applyLanguageFont(UILib::CPaintManagerUI& manager);

class SkinDocument : private UILib::CWindowWnd {
public:
    ~SkinDocument() override;

    // False, with the reason on the error output, when there is no tree.
    bool load(const std::wstring& file, const std::wstring& languageCode);
    // The same for a file below a skin folder, by its name in there.
    bool loadFrom(const std::wstring& skin, const std::wstring& name, const std::wstring& languageCode);
    void layout(int width, int height);
    UILib::CPaintManagerUI& manager() { return paintManager; }
    UILib::CControlUI* root() { return paintManager.GetRoot(); }

private:
    const wchar_t* GetWindowClassName() const override { return L"vynkit document"; }
    bool makeWindow();

    UILib::CPaintManagerUI paintManager;
};

// A size of an argument: 1 to 16384 pixels, or 0 for anything else.
int readSize(const std::wstring& argument);

} // namespace kit
