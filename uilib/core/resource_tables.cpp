#include "uilib/core/resource_tables.h"

#include "uilib/core/render_engine.h"
#include "utility/log.h"

#include <algorithm>
#include <cwchar>

namespace UILib {

namespace {

constexpr int BoldWeight = 700;
constexpr int FontSizeLimit = 1000;
constexpr int OptionGroupCapacity = 6;
constexpr size_t FaceNameLimit = LF_FACESIZE - 1;

LOGFONTW stockFont() {
    LOGFONTW description = {};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
    description.lfCharSet = DEFAULT_CHARSET;
    return description;
}

utility::Font createFont(const FontSpec& spec) {
    LOGFONTW description = stockFont();
    const std::wstring_view face = spec.faceName.view().substr(0, FaceNameLimit);
    *std::copy(face.begin(), face.end(), description.lfFaceName) = 0;
    description.lfHeight = -std::clamp(spec.size, -FontSizeLimit, FontSizeLimit);
    if (spec.bold)
        description.lfWeight += BoldWeight;
    description.lfUnderline = spec.underline;
    description.lfItalic = spec.italic;
    return utility::Font(CreateFontIndirectW(&description));
}

void measure(HDC context, const FontRecord& record) {
    if (!context || record.measured)
        return;
    const utility::Selection selection(context, record.font.get());
    record.measured = GetTextMetricsW(context, &record.metrics);
}

FontRecord makeFont(HDC paintContext, const FontSpec& spec) {
    FontRecord record{createFont(spec), spec};
    if (record.font)
        measure(paintContext, record);
    return record;
}

bool copyPixels(ImageRecord& image) {
    const size_t count = static_cast<size_t>(image.width) * static_cast<size_t>(image.height);
    image.sourcePixels.reset(new (std::nothrow) uint32_t[count]);
    if (image.sourcePixels)
        std::copy_n(image.pixels, count, image.sourcePixels.get());
    return image.sourcePixels != nullptr;
}

const wchar_t* textOrNull(const CUIString* text) {
    return text ? text->GetData() : nullptr;
}

} // namespace

// Never destroyed: windows may still paint while static objects go.
ResourceTables::Tables& ResourceTables::shared() {
    static Tables& tables = *new Tables;
    return tables;
}

template <class Table, class Key>
const typename Table::mapped_type* ResourceTables::lookUp(Table Tables::*member, const Key& key) const {
    for (const Tables* tables : both())
        if (auto found = (tables->*member).find(key); found != (tables->*member).end())
            return &found->second;
    return nullptr;
}

DefaultColors& ResourceTables::sharedColors() {
    static DefaultColors colors;
    return colors;
}

ResourceTables::ResourceTables() : colors(sharedColors()) {
    FontRecord& standard = shared().defaultFont;
    if (standard.font)
        return;
    const LOGFONTW description = stockFont();
    standard.spec = {description.lfFaceName, std::abs(static_cast<int>(description.lfHeight)),
                     description.lfWeight >= BoldWeight, description.lfUnderline != 0,
                     description.lfItalic != 0};
    standard.font.reset(CreateFontIndirectW(&description));
}

void ResourceTables::Clear() {
    own.fonts.clear();
    own.images.clear();
    own.defaultAttributes.clear();
    customAttributes.clear();
    optionGroups.clear();
    tagFonts = 0;
}

// -- Fonts

HFONT ResourceTables::AddFont(HDC paintContext, int id, const FontSpec& spec, Scope scope) {
    FontRecord record = makeFont(paintContext, spec);
    if (!record.font)
        return nullptr;
    const HFONT font = record.font.get();
    target(scope).fonts[id] = std::move(record);
    return font;
}

const FontRecord* ResourceTables::findFont(int id) const {
    return lookUp(&Tables::fonts, id);
}

const FontRecord& ResourceTables::fontOrDefault(int id) const {
    const FontRecord* record = findFont(id);
    return record ? *record : defaultFont();
}

const FontRecord& ResourceTables::defaultFont() const {
    return own.defaultFont.spec.faceName.IsEmpty() ? shared().defaultFont : own.defaultFont;
}

HFONT ResourceTables::GetFont(int id) const {
    return fontOrDefault(id).font.get();
}

HFONT ResourceTables::GetFont(const FontSpec& spec) const {
    const int id = findFontId(spec);
    return id == NoFont ? nullptr : findFont(id)->font.get();
}

int ResourceTables::findFontId(const FontSpec& spec) const {
    for (const Tables* tables : both())
        for (const auto& [id, record] : tables->fonts)
            if (record.spec == spec && findFont(id) == &record)
                return id;
    return NoFont;
}

const FontRecord& ResourceTables::GetFontInfo(HDC paintContext, int id) const {
    const FontRecord& record = fontOrDefault(id);
    measure(paintContext, record);
    return record;
}

const FontRecord& ResourceTables::GetFontInfo(HDC paintContext, HFONT font) const {
    for (const Tables* tables : both())
        for (const auto& [id, record] : tables->fonts)
            if (record.font.get() == font) {
                measure(paintContext, record);
                return record;
            }
    return GetDefaultFontInfo(paintContext);
}

void ResourceTables::SetDefaultFont(HDC paintContext, const FontSpec& spec, Scope scope) {
    FontRecord record = makeFont(paintContext, spec);
    if (record.font)
        (scope == Scope::Shared ? shared() : own).defaultFont = std::move(record);
}

const FontRecord& ResourceTables::GetDefaultFontInfo(HDC paintContext) const {
    measure(paintContext, defaultFont());
    return defaultFont();
}

void ResourceTables::SetDefaultFontFamily(HDC paintContext, const wchar_t* faceName) {
    constexpr int defaultSize = 12;
    constexpr int sizes[] = {12, 14, 16, 18, 20, 22, 24, 28, 32}; // of the ids from 0
    SetDefaultFont(paintContext, {faceName, defaultSize}, Scope::Shared);
    int id = 0;
    for (int size : sizes)
        AddFont(paintContext, id++, {faceName, size}, Scope::Shared);
}

int ResourceTables::FindOrAddFont(HDC paintContext, const FontSpec& spec, int fallback) {
    static int nextId = 30000;        // apart from all ids that skins use
    constexpr int mostTagFonts = 200; // a process has 10000 GDI objects in all
    if (const int found = findFontId(spec); found != NoFont)
        return found;
    if (tagFonts == mostTagFonts)
        return fallback;
    if (!AddFont(paintContext, nextId, spec, Scope::Own))
        return fallback;
    if (++tagFonts == mostTagFonts)
        common::log("ResourceTables::FindOrAddFont", __LINE__, L"tags have made %d fonts, no more are made",
                    tagFonts);
    return nextId++;
}

// -- Images

ImagePtr ResourceTables::AddImage(const wchar_t* name, const wchar_t* type, uint32_t mask,
                                  SourcePixels source, Scope scope) {
    if (!name || !*name)
        return nullptr;
    std::shared_ptr<ImageRecord> image = CRenderEngine::LoadImage(name, type, mask);
    if (!image)
        return nullptr;
    image->keepSource = source == SourcePixels::Keep;
    if (type)
        image->resourceType = type;
    if (image->keepSource && !copyPixels(*image))
        return nullptr;
    target(scope).images[name] = image;
    return image;
}

ImagePtr ResourceTables::GetImage(const wchar_t* name) const {
    const ImagePtr* image = lookUp(&Tables::images, std::wstring_view(name));
    return image ? *image : nullptr;
}

ImagePtr ResourceTables::GetImageEx(const wchar_t* name, const wchar_t* type, uint32_t mask,
                                    SourcePixels source) {
    if (ImagePtr image = GetImage(name))
        return image;
    return AddImage(name, type, mask, source, Scope::Own);
}

// -- Attributes

void ResourceTables::AddDefaultAttributeList(const wchar_t* tag, const wchar_t* list, Scope scope) {
    target(scope).defaultAttributes[tag] = list;
}

const wchar_t* ResourceTables::GetDefaultAttributeList(const wchar_t* tag) const {
    return textOrNull(lookUp(&Tables::defaultAttributes, std::wstring_view(tag)));
}

void ResourceTables::AddWindowCustomAttribute(const wchar_t* name, const wchar_t* value) {
    if (name && *name && value && *value)
        customAttributes.try_emplace(name, value); // the first value of a name stays
}

const wchar_t* ResourceTables::GetWindowCustomAttribute(const wchar_t* name) const {
    auto found = customAttributes.find(std::wstring_view(name));
    return found == customAttributes.end() ? nullptr : found->second.GetData();
}

// -- Option groups

bool ResourceTables::AddOptionGroup(const wchar_t* group, CControlUI* control) {
    CUIPtrArray& controls = optionGroups.try_emplace(group, OptionGroupCapacity).first->second;
    return controls.Find(control) < 0 && controls.Add(control);
}

CUIPtrArray* ResourceTables::GetOptionGroup(const wchar_t* group) {
    auto found = optionGroups.find(std::wstring_view(group));
    return found == optionGroups.end() ? nullptr : &found->second;
}

void ResourceTables::RemoveOptionGroup(const wchar_t* group, CControlUI* control) {
    auto found = optionGroups.find(std::wstring_view(group));
    if (found == optionGroups.end())
        return;
    found->second.RemoveItem(control);
    if (found->second.IsEmpty())
        optionGroups.erase(found);
}

// -- Colours

void ResourceTables::setColor(uint32_t DefaultColors::*which, uint32_t color, Scope scope) {
    uint32_t& process = sharedColors().*which;
    if (scope == Scope::Own || colors.*which == process)
        colors.*which = color;
    if (scope == Scope::Shared)
        process = color;
}

void ResourceTables::SetDefaultDisabledColor(uint32_t color, Scope scope) {
    setColor(&DefaultColors::disabled, color, scope);
}

void ResourceTables::SetDefaultFontColor(uint32_t color, Scope scope) {
    setColor(&DefaultColors::text, color, scope);
}

void ResourceTables::SetDefaultLinkFontColor(uint32_t color, Scope scope) {
    setColor(&DefaultColors::link, color, scope);
}

void ResourceTables::SetDefaultLinkHoverFontColor(uint32_t color, Scope scope) {
    setColor(&DefaultColors::linkHover, color, scope);
}

void ResourceTables::SetDefaultSelectedBkColor(uint32_t color, Scope scope) {
    setColor(&DefaultColors::selectedBackground, color, scope);
}

} // namespace UILib
