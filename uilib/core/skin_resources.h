#pragma once

#include "uilib/core/platform.h"
#include "uilib/core/ui_string.h"

#include <cstdint>
#include <memory>

// What all windows of the process read: the skin's files, the language table and the
// installation's colours. Start-up order: SetInstance, SetLanguageCode, SetResourcePath,
// LoadResourceArchive; then windows may be made. Window thread only. Callers name it
// CPaintManagerUI, which derives from it.

namespace UILib {

class SkinResources {
public:
    // -- Where skin files come from. A loose file of the skin folder beats the archive.

    static void SetInstance(HINSTANCE instance); // also applies colors.ini
    static HINSTANCE GetInstance();
    static CUIString GetInstancePath(); // ends in a backslash; empty without an instance
    static HINSTANCE GetResourceDll();
    static void SetResourcePath(const CUIString& path); // a missing folder means none
    static CUIString GetResourcePath();                 // ends in a separator, or empty

    // Opens the archive in resource "ZIPRES" of that number, then loads the table.
    static void LoadResourceArchive(unsigned resourceNumber, const wchar_t* languageFile);
    static void AddArchiveEntry(const wchar_t* name, const void* bytes, uint32_t size);

    // The single way to read a skin file. Null, and size 0, when there is none.
    static std::unique_ptr<unsigned char[]> LoadFileBytes(const wchar_t* name, uint32_t& size);

    static unsigned GetOSMajorVersion();

    // -- The table of visible texts, in one language.

    static void SetLanguageCode(const CUIString& primary, const CUIString& fallback);
    static CUIString GetLanguageCode();
    static void LoadLanguageTable(const wchar_t* fileName);
    static void ParseLanguageTable(const void* bytes, uint32_t size);
    static const wchar_t* GetLanguageText(const CUIString& key); // null when the key is unknown
    static void AddLanguageText(const CUIString& key, const CUIString& text);
    static void ResolveLanguageKey(CUIString& text); // "@key" becomes the key's text
    static int GetLanguageCount();
    static void GetLanguageInfo(int index, CUIString& code, CUIString& name);

    // -- Colours that an installation can override.

    static void LoadCustomColors();
    static uint32_t GetCustomColor(int index); // ARGB; 0 past the end
};

// The text of a key for code that shows it without a control. A key that the table
// lacks is its own text, and is remembered as such.
const wchar_t* languageText(const char* key);

} // namespace UILib
