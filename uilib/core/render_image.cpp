#include "uilib/core/gdi_values.h"
#include "uilib/core/image_decode.h"
#include "uilib/core/image_string.h"
#include "uilib/core/number_text.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/resource_tables.h"

#include <cwchar>
#include <vector>

namespace UILib {

namespace {

constexpr DWORD ImageFileLimit = 64 * 1024 * 1024;
constexpr int ButtonStates = 4;

struct Bytes {
    std::unique_ptr<unsigned char[]> own;
    const void* data = nullptr;
    DWORD size = 0;
};

Bytes skinFile(const wchar_t* name) {
    Bytes bytes;
    uint32_t size = 0;
    bytes.own = CPaintManagerUI::LoadFileBytes(name, size);
    bytes.size = size;
    bytes.data = bytes.own.get();
    return bytes;
}

Bytes moduleResource(const wchar_t* name, const wchar_t* type) {
    const HINSTANCE module = CPaintManagerUI::GetResourceDll();
    const bool numbered = *name >= L'0' && *name <= L'9';
    const wchar_t* key = numbered ? MAKEINTRESOURCEW(wcstoul(name, nullptr, 10)) : name;
    const HRSRC found = FindResourceW(module, key, type);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    Bytes bytes;
    if (loaded) {
        bytes.data = LockResource(loaded);
        bytes.size = SizeofResource(module, found);
    }
    return bytes;
}

Bytes plainFile(const wchar_t* path) {
    const utility::FileOwner file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                              FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart == 0 || size.QuadPart > ImageFileLimit)
        return {};
    Bytes bytes;
    const auto wanted = static_cast<DWORD>(size.QuadPart);
    bytes.own.reset(new (std::nothrow) unsigned char[wanted]);
    if (!bytes.own || !ReadFile(file.get(), bytes.own.get(), wanted, &bytes.size, nullptr) ||
        bytes.size != wanted)
        return {};
    bytes.data = bytes.own.get();
    return bytes;
}

Bytes imageBytes(const wchar_t* name, const wchar_t* type) {
    Bytes bytes = type ? moduleResource(name, type) : skinFile(name);
    return bytes.data ? std::move(bytes) : plainFile(name);
}

utility::Bitmap topDownBitmap(int width, int height, uint32_t** pixels) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return utility::Bitmap(
        CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(pixels), nullptr, 0));
}

std::shared_ptr<ImageRecord> makeRecord(const uint8_t* rgba, int width, int height, uint32_t mask) {
    auto record = std::make_shared<ImageRecord>();
    record->bitmap = topDownBitmap(width, height, &record->pixels);
    if (!record->bitmap)
        return nullptr;
    record->width = width;
    record->height = height;
    record->mask = mask;
    const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
    record->alphaChannel = premultiply(rgba, count, record->pixels, mask);
    return record;
}

std::shared_ptr<ImageRecord> makeColor(uint32_t argb, uint32_t mask) {
    const uint8_t rgba[] = {static_cast<uint8_t>(argb >> 16), static_cast<uint8_t>(argb >> 8),
                            static_cast<uint8_t>(argb), static_cast<uint8_t>(argb >> 24)};
    return makeRecord(rgba, 1, 1, mask);
}

enum class SourcePart { FromString, OfState };

// Parses and loads once; what failed stays failed until the record is cleared.
bool load(IRenderHost* manager, DrawRecord& record, SourcePart part) {
    if (record.loaded)
        return record.image != nullptr;
    if (!manager)
        return false;
    record.loaded = true;
    if (record.drawString.IsEmpty())
        return false;
    const ImageString parsed = parseImageString(record.drawString.view());
    record.imageName = parsed.name;
    record.destOffset = toRect(parsed.dest);
    record.corner = toRect(parsed.corner);
    record.fade = parsed.fade;
    record.hole = parsed.hole;
    record.xTiled = parsed.xTiled;
    record.yTiled = parsed.yTiled;
    record.image = manager->GetResourceTables().GetImageEx(
        parsed.name.c_str(), parsed.type.empty() ? nullptr : parsed.type.c_str(), parsed.mask,
        parsed.keepSource ? SourcePixels::Keep : SourcePixels::Drop);
    if (!record.image)
        return false;
    const Box whole = {0, 0, record.image->width, record.image->height};
    if (part == SourcePart::FromString)
        record.sourcePart = toRect(parsed.source.isZero() ? whole : parsed.source);
    return true;
}

// The part of a drawing rectangle that an image string names by dest.
Box targetOf(const Box& rectangle, const Box& offset) {
    if (offset.isZero())
        return rectangle;
    return {rectangle.left + offset.left, rectangle.top + offset.top,
            std::min(rectangle.left + offset.right, rectangle.right),
            std::min(rectangle.top + offset.bottom, rectangle.bottom)};
}

void drawLoaded(HDC context, const RECT& rectangle, const RECT& paint, DrawRecord& record) {
    record.sourcePart.right = std::min<LONG>(record.sourcePart.right, record.image->width);
    record.sourcePart.bottom = std::min<LONG>(record.sourcePart.bottom, record.image->height);
    if (!context)
        return;
    const Box target = targetOf(toBox(rectangle), toBox(record.destOffset));
    if (!meets(target, toBox(rectangle)) || !meets(target, toBox(paint)))
        return;
    const CRenderEngine::BitmapStyle style = {
        record.corner, record.image->alphaChannel, record.fade, record.hole, record.xTiled, record.yTiled};
    CRenderEngine::DrawBitmap(context, *record.image, toRect(target), paint, record.sourcePart, style);
}

} // namespace

std::shared_ptr<ImageRecord> CRenderEngine::LoadImage(const wchar_t* name, const wchar_t* type,
                                                      uint32_t mask) {
    if (type && std::wstring_view(type) == ColorType)
        return makeColor(readColor(name), mask);
    const Bytes bytes = imageBytes(name, type);
    if (!bytes.data)
        return nullptr;
    const DecodedImage decoded = decodeImage(bytes.data, bytes.size);
    return decoded ? makeRecord(decoded.rgba.get(), decoded.width, decoded.height, mask) : nullptr;
}

bool CRenderEngine::DrawImage(HDC context, IRenderHost* manager, const RECT& rectangle, const RECT& paint,
                              DrawRecord& record) {
    if (!load(manager, record, SourcePart::FromString))
        return false;
    drawLoaded(context, rectangle, paint, record);
    return true;
}

bool CRenderEngine::DrawStateImage(HDC context, IRenderHost* manager, const RECT& rectangle,
                                   const RECT& paint, DrawRecord& record, int state) {
    if (!load(manager, record, SourcePart::OfState))
        return false;
    const int width = record.image->width;
    record.sourcePart = {width * state / ButtonStates, 0, width * (state + 1) / ButtonStates,
                         record.image->height};
    drawLoaded(context, rectangle, paint, record);
    return true;
}

} // namespace UILib
