#include "uilib/core/gdi_values.h"
#include "uilib/core/html_device.h"
#include "uilib/core/html_layout.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_clip.h"
#include "uilib/core/render_engine.h"
#include "uilib/core/resource_tables.h"

namespace UILib {

namespace {

// The text settings of a context, put back at the end.
class TextSettings {
public:
    TextSettings(HDC context, HFONT font)
        : context(context),
          font(context, font),
          mode(SetBkMode(context, TRANSPARENT)),
          color(GetTextColor(context)),
          background(GetBkColor(context)),
          align(SetTextAlign(context, TA_LEFT | TA_TOP)) {}
    TextSettings(const TextSettings&) = delete;
    TextSettings& operator=(const TextSettings&) = delete;
    ~TextSettings() {
        SetBkMode(context, mode);
        SetTextColor(context, color);
        SetBkColor(context, background);
        SetTextAlign(context, align);
    }

private:
    HDC context;
    utility::Selection font;
    int mode;
    COLORREF color;
    COLORREF background;
    UINT align;
};

HtmlStyle htmlStyle(unsigned style) {
    HtmlStyle html;
    html.center = style & DT_CENTER;
    html.right = style & DT_RIGHT;
    html.middle = style & DT_VCENTER;
    html.bottom = style & DT_BOTTOM;
    html.singleLine = style & DT_SINGLELINE;
    html.wordBreak = style & DT_WORDBREAK;
    html.endEllipsis = style & DT_END_ELLIPSIS;
    return html;
}

// The name of the link under the mouse; false without one.
bool findHovered(const HtmlLayout& layout, POINT mouse, std::wstring_view& name) {
    for (const HtmlLink& link : layout.links)
        if (link.box.contains(mouse.x, mouse.y)) {
            name = link.name;
            return true;
        }
    return false;
}

void paintRuns(HDC context, const HtmlLayout& layout, GdiHtmlDevice& device, IRenderHost& manager) {
    const ResourceTables& tables = manager.GetResourceTables();
    SetBkColor(context, toColorRef(tables.GetDefaultSelectedBkColor()));
    std::wstring_view hovered;
    const bool hovers = findHovered(layout, manager.GetMousePos(), hovered);
    for (const HtmlRun& run : layout.runs) {
        const bool hot = run.inLinkColor && hovers && run.linkName == hovered;
        device.select(run.font);
        SetBkMode(context, run.selected ? OPAQUE : TRANSPARENT);
        SetTextColor(context, toColorRef(hot ? tables.GetDefaultLinkHoverFontColor() : run.color));
        TextOutW(context, run.x, run.y, run.text.data(), static_cast<int>(run.text.size()));
    }
}

void paintPictures(HDC context, const HtmlLayout& layout, const RECT& rectangle, GdiHtmlDevice& device) {
    for (const HtmlPicture& picture : layout.pictures) {
        const ImagePtr image = device.find(picture.image);
        if (!image)
            continue;
        const int width = image->width / picture.image.frames, left = width * picture.image.frame;
        CRenderEngine::BitmapStyle style;
        style.alphaChannel = image->alphaChannel;
        CRenderEngine::DrawBitmap(context, *image, toRect(picture.box), rectangle,
                                  {left, 0, left + width, image->height}, style);
    }
}

void giveLinks(const HtmlLayout& layout, RECT* links, CUIString* names, int& count) {
    count = static_cast<int>(layout.links.size());
    for (int i = 0; i < count; ++i) {
        links[i] = toRect(layout.links[static_cast<size_t>(i)].box);
        names[i] = CUIString(layout.links[static_cast<size_t>(i)].name);
    }
}

} // namespace

void CRenderEngine::DrawText(HDC context, IRenderHost* manager, RECT& rectangle, const wchar_t* text,
                             uint32_t color, int font, unsigned style) {
    if (!text || !manager)
        return;
    CUIString resolved(text);
    CPaintManagerUI::ResolveLanguageKey(resolved);
    const TextSettings settings(context, manager->GetResourceTables().GetFont(font));
    SetTextColor(context, toColorRef(color));
    DrawTextW(context, resolved, resolved.GetLength(), &rectangle, style | DT_NOPREFIX);
}

void CRenderEngine::DrawHtmlText(HDC context, IRenderHost* manager, RECT& rectangle, const wchar_t* text,
                                 uint32_t color, RECT* links, CUIString* linkNames, int& linkCount, int font,
                                 unsigned style) {
    const int linkLimit = linkCount;
    linkCount = 0;
    if (!text || !manager)
        return;
    CUIString resolved(text);
    CPaintManagerUI::ResolveLanguageKey(resolved);
    ResourceTables& tables = manager->GetResourceTables();
    const TextSettings settings(context, tables.GetFont(font));
    GdiHtmlDevice device(context, tables);
    const HtmlDefaults defaults = {font, color, tables.GetDefaultLinkFontColor(), linkLimit};
    const Box box = toBox(rectangle);
    if (style & DT_CALCRECT) {
        const HtmlLayout size = measureHtml(device, resolved.view(), box, htmlStyle(style), defaults);
        rectangle.right = rectangle.left + size.width;
        rectangle.bottom = rectangle.top + size.height;
        return;
    }
    const HtmlLayout layout = layoutHtml(device, resolved.view(), box, htmlStyle(style), defaults);
    CRenderClip clip;
    CRenderClip::GenerateClip(context, rectangle, clip);
    paintRuns(context, layout, device, *manager);
    paintPictures(context, layout, rectangle, device);
    giveLinks(layout, links, linkNames, linkCount);
}

} // namespace UILib
