#pragma once

#include "uilib/core/render_host.h"
#include "uilib/core/resource_tables.h"

// The resource tables of a manager under the manager's own operations, with its paint
// context filled in. What each means stands in resource_tables.h.

namespace UILib {

class ResourceHost : public IRenderHost {
public:
    ResourceTables& GetResourceTables() override { return tables; }

    void SetForceShared(bool force) { tables.SetForceShared(force); }

    HFONT AddFont(int id, const wchar_t* face, int size, bool bold, bool underline, bool italic,
                  bool shared) {
        return tables.AddFont(GetPaintDC(), id, {face, size, bold, underline, italic}, scopeOf(shared));
    }
    HFONT GetFont(int id) const { return tables.GetFont(id); }
    HFONT GetFont(const wchar_t* face, int size, bool bold, bool underline, bool italic) const {
        return tables.GetFont({face, size, bold, underline, italic});
    }
    const FontRecord& GetFontInfo(int id) { return tables.GetFontInfo(GetPaintDC(), id); }
    const FontRecord& GetFontInfo(HFONT font) { return tables.GetFontInfo(GetPaintDC(), font); }
    void SetDefaultFont(const wchar_t* face, int size, bool bold, bool underline, bool italic, bool shared) {
        tables.SetDefaultFont(GetPaintDC(), {face, size, bold, underline, italic}, scopeOf(shared));
    }
    const FontRecord& GetDefaultFontInfo() { return tables.GetDefaultFontInfo(GetPaintDC()); }
    void SetDefaultFontFamily(const wchar_t* face) { tables.SetDefaultFontFamily(GetPaintDC(), face); }

    ImagePtr AddImage(const wchar_t* name, const wchar_t* type, uint32_t mask, bool keepSource, bool shared) {
        return tables.AddImage(name, type, mask, sourceOf(keepSource), scopeOf(shared));
    }
    ImagePtr GetImage(const wchar_t* name) const { return tables.GetImage(name); }
    ImagePtr GetImageEx(const wchar_t* name, const wchar_t* type, uint32_t mask, bool keepSource) {
        return tables.GetImageEx(name, type, mask, sourceOf(keepSource));
    }

    void AddDefaultAttributeList(const wchar_t* tag, const wchar_t* list, bool shared) {
        tables.AddDefaultAttributeList(tag, list, scopeOf(shared));
    }
    const wchar_t* GetDefaultAttributeList(const wchar_t* tag) const {
        return tables.GetDefaultAttributeList(tag);
    }
    void AddWindowCustomAttribute(const wchar_t* name, const wchar_t* value) {
        tables.AddWindowCustomAttribute(name, value);
    }
    const wchar_t* GetWindowCustomAttribute(const wchar_t* name) const {
        return tables.GetWindowCustomAttribute(name);
    }

    bool AddOptionGroup(const wchar_t* group, CControlUI* control) {
        return tables.AddOptionGroup(group, control);
    }
    CUIPtrArray* GetOptionGroup(const wchar_t* group) { return tables.GetOptionGroup(group); }
    void RemoveOptionGroup(const wchar_t* group, CControlUI* control) {
        tables.RemoveOptionGroup(group, control);
    }

    void SetDefaultDisabledColor(uint32_t color, bool shared = false) {
        tables.SetDefaultDisabledColor(color, scopeOf(shared));
    }
    void SetDefaultFontColor(uint32_t color, bool shared = false) {
        tables.SetDefaultFontColor(color, scopeOf(shared));
    }
    void SetDefaultLinkFontColor(uint32_t color, bool shared = false) {
        tables.SetDefaultLinkFontColor(color, scopeOf(shared));
    }
    void SetDefaultLinkHoverFontColor(uint32_t color, bool shared = false) {
        tables.SetDefaultLinkHoverFontColor(color, scopeOf(shared));
    }
    void SetDefaultSelectedBkColor(uint32_t color, bool shared = false) {
        tables.SetDefaultSelectedBkColor(color, scopeOf(shared));
    }
    uint32_t GetDefaultDisabledColor() const { return tables.GetDefaultDisabledColor(); }
    uint32_t GetDefaultFontColor() const { return tables.GetDefaultFontColor(); }
    uint32_t GetDefaultLinkFontColor() const { return tables.GetDefaultLinkFontColor(); }
    uint32_t GetDefaultLinkHoverFontColor() const { return tables.GetDefaultLinkHoverFontColor(); }
    uint32_t GetDefaultSelectedBkColor() const { return tables.GetDefaultSelectedBkColor(); }

protected:
    ~ResourceHost() = default;

    ResourceTables tables;

private:
    static Scope scopeOf(bool shared) { return shared ? Scope::Shared : Scope::Own; }
    static SourcePixels sourceOf(bool keep) { return keep ? SourcePixels::Keep : SourcePixels::Drop; }
};

} // namespace UILib
