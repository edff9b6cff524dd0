#include "uilib/controls/gif_anim.h"

#include "uilib/core/paint_manager.h"
#include "uilib/core/render_clip.h"

#include <cstring>
#include <cwchar>
#include <memory>
#include <objbase.h>

namespace UILib {

using namespace Gdiplus::DllExports;

namespace {

constexpr UINT PlayTimer = 100;
constexpr UINT DefaultDelay = 100; // ms
constexpr UINT PixelLimit = 16 << 20;
constexpr DWORD FileLimit = 64 << 20;

constexpr Attribute Rows[] = {
    attribute<&CGifAnimUI::SetBkImage>(L"bkimage", "file name of the animation"),
    attribute<&CGifAnimUI::SetAutoPlay>(L"autoplay", "plays as soon as it is loaded"),
    attribute<&CGifAnimUI::SetAutoSize>(L"autosize", "takes the size of the image"),
};

struct Bytes {
    std::unique_ptr<unsigned char[]> data;
    uint32_t size = 0;
};

Bytes readPlainFile(const wchar_t* path) {
    const utility::FileOwner file(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                              FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart == 0 || size.QuadPart > FileLimit)
        return {};
    Bytes bytes;
    const auto wanted = static_cast<DWORD>(size.QuadPart);
    bytes.data.reset(new (std::nothrow) unsigned char[wanted]);
    DWORD read = 0;
    if (!bytes.data || !ReadFile(file.get(), bytes.data.get(), wanted, &read, nullptr) || read != wanted)
        return {};
    bytes.size = wanted;
    return bytes;
}

Bytes readAnimation(const wchar_t* name) {
    Bytes bytes;
    bytes.data = CPaintManagerUI::LoadFileBytes(name, bytes.size);
    return bytes.data ? std::move(bytes) : readPlainFile(name);
}

// Width times height as the head of a GIF claims it; 0 for another file.
uint64_t claimedPixels(const Bytes& bytes) {
    if (bytes.size < 10 || std::memcmp(bytes.data.get(), "GIF8", 4) != 0)
        return 0;
    const unsigned char* b = bytes.data.get();
    return uint64_t(b[6] | b[7] << 8) * uint64_t(b[8] | b[9] << 8);
}

struct StreamRelease {
    void operator()(IStream* stream) const { stream->Release(); }
};
using Stream = std::unique_ptr<IStream, StreamRelease>;

// With a copy of the bytes, which lives as long as the stream.
Stream makeStream(const Bytes& bytes) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size);
    void* memory = block ? GlobalLock(block) : nullptr;
    if (!memory)
        return nullptr;
    std::memcpy(memory, bytes.data.get(), bytes.size);
    GlobalUnlock(block);
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(block, TRUE, &stream)))
        GlobalFree(block);
    return Stream(stream);
}

} // namespace

CGifAnimUI::~CGifAnimUI() {
    if (manager)
        manager->KillTimer(this, PlayTimer);
}

void* CGifAnimUI::GetInterface(const wchar_t* interfaceName) {
    return std::wcscmp(interfaceName, L"GifAnim") == 0 ? this : CControlUI::GetInterface(interfaceName);
}

const AttributeTable& CGifAnimUI::GetAttributeTable() const {
    static const AttributeTable table = {&CControlUI::GetAttributeTable(), Rows};
    return table;
}

void CGifAnimUI::SetBkImage(const wchar_t* fileName) {
    if (!fileName || imageName == fileName)
        return;
    imageName = fileName;
    StopGif();
    image.reset();
    frameDelays.clear();
    frameCount = frameIndex = 0;
    Invalidate();
}

void CGifAnimUI::DoInit() {
    load();
}

void CGifAnimUI::load() {
    if (imageName.IsEmpty() || !startGdiPlus() || !readImage())
        return;
    readFrames();
    if (autoSize) {
        UINT imageWidth = 0, imageHeight = 0;
        GdipGetImageWidth(image.get(), &imageWidth);
        GdipGetImageHeight(image.get(), &imageHeight);
        SetFixedWidth(static_cast<int>(imageWidth));
        SetFixedHeight(static_cast<int>(imageHeight));
    }
    if (autoPlay && !frameDelays.empty())
        PlayGif();
}

bool CGifAnimUI::readImage() {
    const Bytes bytes = readAnimation(imageName);
    if (!bytes.data || claimedPixels(bytes) > PixelLimit)
        return false;
    const Stream stream = makeStream(bytes);
    return stream && GdipLoadImageFromStream(stream.get(), image.out()) == Gdiplus::Ok && image;
}

void CGifAnimUI::readFrames() {
    constexpr PROPID DelayProperty = 0x5100;
    GUID dimension = {};
    UINT size = 0;
    if (GdipImageGetFrameDimensionsList(image.get(), &dimension, 1) == Gdiplus::Ok)
        GdipImageGetFrameCount(image.get(), &dimension, &frameCount);
    if (GdipGetPropertyItemSize(image.get(), DelayProperty, &size) != Gdiplus::Ok ||
        size < sizeof(Gdiplus::PropertyItem))
        return;
    const std::unique_ptr<unsigned char[]> block(new unsigned char[size]);
    auto* item = reinterpret_cast<Gdiplus::PropertyItem*>(block.get());
    if (GdipGetPropertyItem(image.get(), DelayProperty, size, item) != Gdiplus::Ok)
        return;
    const auto* delays = static_cast<const uint32_t*>(item->value);
    frameDelays.assign(delays, delays + item->length / sizeof *delays);
}

UINT CGifAnimUI::delayOf(unsigned index) const {
    const uint32_t hundredths = index < frameDelays.size() ? frameDelays[index] : 0;
    return hundredths ? std::min<uint32_t>(hundredths, USER_TIMER_MAXIMUM / 10) * 10 : DefaultDelay;
}

void CGifAnimUI::startTimer() {
    if (manager)
        manager->SetTimer(this, PlayTimer, delayOf(frameIndex));
}

void CGifAnimUI::PlayGif() {
    if (playing || !image)
        return;
    playing = true;
    startTimer();
}

void CGifAnimUI::StopGif() {
    if (!playing)
        return;
    playing = false;
    if (manager)
        manager->KillTimer(this, PlayTimer);
    frameIndex = 0;
    selectFrame(frameIndex);
    Invalidate();
}

void CGifAnimUI::selectFrame(unsigned index) {
    if (frameCount > 1)
        GdipImageSelectActiveFrame(image.get(), &Gdiplus::FrameDimensionTime, index);
}

void CGifAnimUI::SetVisible(bool on) {
    CControlUI::SetVisible(on);
    if (on)
        PlayGif();
    else
        StopGif();
}

void CGifAnimUI::DoEvent(TUIEvent& event) {
    if (event.kind == EventTimer && event.wParam == PlayTimer)
        nextFrame();
    else
        CControlUI::DoEvent(event);
}

void CGifAnimUI::nextFrame() {
    if (manager)
        manager->KillTimer(this, PlayTimer);
    Invalidate();
    ++frameIndex;
    if (frameIndex >= frameCount)
        --loopsLeft;
    if (loopsLeft <= 0 || !frameCount)
        return;
    frameIndex %= frameCount;
    startTimer();
}

bool CGifAnimUI::DoPaint(HDC context, const RECT& rectangle, CControlUI* stop) {
    if (stop == this)
        return false;
    paintRect = intersect(rectangle, position);
    if (isEmpty(paintRect))
        return true;
    if (!image)
        load();
    if (!image || !context)
        return true;
    CRenderClip clip;
    CRenderClip::GenerateClip(context, paintRect, clip);
    GdiPlusGraphics graphics;
    GdipCreateFromHDC(context, graphics.out());
    GdipDrawImageRectI(graphics.get(), image.get(), position.left, position.top, GetWidth(), GetHeight());
    selectFrame(std::min(frameIndex, frameCount - 1));
    return true;
}

} // namespace UILib
