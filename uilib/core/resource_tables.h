#pragma once

#include "uilib/core/containers.h"
#include "uilib/core/image.h"
#include "uilib/core/platform.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

// What markup and controls draw with, by name: fonts by number, images, default
// attributes by tag, default colours, custom attributes and option groups. Each manager
// owns one ResourceTables; fonts, images, default attributes and the default font exist a
// second time for the whole process. Every look-up asks the manager's own table first and
// the shared one then. Shared tables are never cleared. Window thread only.
//
// A paint context is the manager's, or null before it has one; with it a font is measured
// as soon as it is made, without it when somebody asks for its measures.

namespace UILib {

class CControlUI;

enum class Scope { Own, Shared };
enum class SourcePixels { Drop, Keep };

struct FontSpec {
    CUIString faceName; // the first 31 characters count
    int size = 12;      // handed to lfHeight with a minus sign
    bool bold = false;
    bool underline = false;
    bool italic = false;

    bool operator==(const FontSpec& other) const = default;
};

struct FontRecord {
    utility::Font font;
    FontSpec spec;
    mutable TEXTMETRICW metrics = {}; // empty until measured
    mutable bool measured = false;
};

// The colours that a window uses where a control names none, all 32-bit ARGB.
struct DefaultColors {
    uint32_t disabled = 0xFFA7A6AA;
    uint32_t text = 0xFF000000;
    uint32_t link = 0xFF0000FF;
    uint32_t linkHover = 0xFFD3215F;
    uint32_t selectedBackground = 0xFFBAE4FF;
};

class ResourceTables {
public:
    ResourceTables();
    ResourceTables(const ResourceTables&) = delete;
    ResourceTables& operator=(const ResourceTables&) = delete;

    // Sends everything that is added to the shared tables, whatever scope is asked for.
    void SetForceShared(bool force) { forceShared = force; }
    bool IsForceShared() const { return forceShared; }

    // Empties the own tables: fonts, images, default attributes, custom attributes, groups.
    void Clear();

    // -- Fonts. Handles stay the tables': do not delete or keep them.

    // Null when the font cannot be made; then nothing has changed. An id that exists is
    // replaced and its font deleted.
    HFONT AddFont(HDC paintContext, int id, const FontSpec& spec, Scope scope);
    HFONT GetFont(int id) const;               // never null: the default font stands in
    HFONT GetFont(const FontSpec& spec) const; // null when no table has it
    const FontRecord& GetFontInfo(HDC paintContext, int id) const;
    const FontRecord& GetFontInfo(HDC paintContext, HFONT font) const;
    void SetDefaultFont(HDC paintContext, const FontSpec& spec, Scope scope);
    const FontRecord& GetDefaultFontInfo(HDC paintContext) const;
    // The window font of a language: the shared default font and the shared ids 0 to 8.
    void SetDefaultFontFamily(HDC paintContext, const wchar_t* faceName);
    // The id of that font, made under a fresh id in the own table when it is missing;
    // fallback when it cannot be made or the window holds too many such fonts already.
    int FindOrAddFont(HDC paintContext, const FontSpec& spec, int fallback);

    // -- Images.

    // Null for an empty name and for an image that cannot be had. type: null for a file,
    // "*COLOR*" for a colour, else a type of resource.
    ImagePtr AddImage(const wchar_t* name, const wchar_t* type, uint32_t mask, SourcePixels source,
                      Scope scope);
    ImagePtr GetImage(const wchar_t* name) const; // null when it was not added
    ImagePtr GetImageEx(const wchar_t* name, const wchar_t* type, uint32_t mask, SourcePixels source);

    // -- Attributes.

    void AddDefaultAttributeList(const wchar_t* tag, const wchar_t* list, Scope scope);
    const wchar_t* GetDefaultAttributeList(const wchar_t* tag) const; // null without one
    void AddWindowCustomAttribute(const wchar_t* name, const wchar_t* value);
    const wchar_t* GetWindowCustomAttribute(const wchar_t* name) const; // null without one

    // -- Option groups. They do not own their controls.

    bool AddOptionGroup(const wchar_t* group, CControlUI* control); // false: it is in the group already
    CUIPtrArray* GetOptionGroup(const wchar_t* group);              // null without one
    void RemoveOptionGroup(const wchar_t* group, CControlUI* control);

    // -- Default colours. Scope::Shared always changes the value of the process, and this
    //    window's too while it still equals the old one.

    void SetDefaultDisabledColor(uint32_t color, Scope scope);
    void SetDefaultFontColor(uint32_t color, Scope scope);
    void SetDefaultLinkFontColor(uint32_t color, Scope scope);
    void SetDefaultLinkHoverFontColor(uint32_t color, Scope scope);
    void SetDefaultSelectedBkColor(uint32_t color, Scope scope);
    uint32_t GetDefaultDisabledColor() const { return colors.disabled; }
    uint32_t GetDefaultFontColor() const { return colors.text; }
    uint32_t GetDefaultLinkFontColor() const { return colors.link; }
    uint32_t GetDefaultLinkHoverFontColor() const { return colors.linkHover; }
    uint32_t GetDefaultSelectedBkColor() const { return colors.selectedBackground; }

private:
    using FontTable = std::map<int, FontRecord>;
    using ImageTable = std::map<std::wstring, ImagePtr, std::less<>>;
    using TextTable = std::map<std::wstring, CUIString, std::less<>>;

    struct Tables { // those that exist twice
        FontTable fonts;
        ImageTable images;
        TextTable defaultAttributes;
        FontRecord defaultFont; // a manager's has an empty face name until it is set
    };

    static constexpr int NoFont = -1;

    static Tables& shared();
    static DefaultColors& sharedColors();
    Tables& target(Scope scope) { return forceShared || scope == Scope::Shared ? shared() : own; }
    std::array<const Tables*, 2> both() const { return {&own, &shared()}; } // in the order of look-up
    template <class Table, class Key>
    const typename Table::mapped_type* lookUp(Table Tables::*member, const Key& key) const;
    const FontRecord* findFont(int id) const; // null for an unknown one
    const FontRecord& fontOrDefault(int id) const;
    const FontRecord& defaultFont() const;
    int findFontId(const FontSpec& spec) const; // or NoFont
    void setColor(uint32_t DefaultColors::*which, uint32_t color, Scope scope);

    Tables own;
    bool forceShared = false;
    int tagFonts = 0; // made by FindOrAddFont
    DefaultColors colors;
    TextTable customAttributes;
    std::map<std::wstring, CUIPtrArray, std::less<>> optionGroups;
};

} // namespace UILib
