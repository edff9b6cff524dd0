#include "uilib/controls/control.h"
#include "uilib/core/paint_manager.h"
#include "uilib/core/render_engine.h"

#include <algorithm>
#include <vector>

namespace UILib {

namespace {

constexpr uint32_t Black = 0xFF000000;

// BeginPaint and EndPaint, which validate what was invalid.
class PaintScope {
public:
    explicit PaintScope(HWND window) : window(window) { BeginPaint(window, &paint); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    ~PaintScope() { EndPaint(window, &paint); }
    const RECT& rectangle() const { return paint.rcPaint; }
    HDC context() const { return paint.hdc; }

private:
    HWND window;
    PAINTSTRUCT paint = {};
};

// Puts a context back as it was.
class SavedContext {
public:
    explicit SavedContext(HDC context) : context(context), state(SaveDC(context)) {}
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;
    ~SavedContext() { RestoreDC(context, state); }

private:
    HDC context;
    int state;
};

CControlUI* collectPending(CControlUI* control, void* data) {
    if (!control->IsUpdateNeeded())
        return nullptr;
    static_cast<std::vector<CControlUI*>*>(data)->push_back(control);
    return control;
}

} // namespace

void CPaintManagerUI::NeedUpdate() {
    checkThread(L"NeedUpdate");
    updateNeeded = true;
}

void CPaintManagerUI::Invalidate(RECT area) {
    checkThread(L"Invalidate");
    area.left = std::max(area.left, 0L);
    area.top = std::max(area.top, 0L);
    area.right = std::max(area.right, area.left);
    area.bottom = std::max(area.bottom, area.top);
    if (layered)
        updateRect = join(updateRect, area);
    else if (window)
        InvalidateRect(window, &area, FALSE);
}

void CPaintManagerUI::Invalidate() {
    checkThread(L"Invalidate");
    if (layered) {
        const SIZE client = GetClientSize();
        updateRect = join(updateRect, {0, 0, client.cx, client.cy});
    } else if (window) {
        InvalidateRect(window, nullptr, FALSE);
    }
}

void CPaintManagerUI::PaintTree(HDC context, const RECT& part, CControlUI* control) {
    if (CControlUI* painted = control ? control : root)
        painted->DoPaint(context, part, nullptr);
}

void CPaintManagerUI::dropBuffers() {
    offscreen.reset();
    background.reset();
}

void CPaintManagerUI::paintEmpty() {
    const PaintScope paint(window);
    CRenderEngine::DrawColor(paint.context(), paint.rectangle(), Black);
}

// The part of the client area that has to be painted; false when there is none.
bool CPaintManagerUI::takePaintRect(const RECT& client, RECT& part) {
    if (!layered)
        return GetUpdateRect(window, &part, FALSE);
    part = intersect(updateRect, client); // nothing of it need be inside: a layout may wait
    return !isEmpty(updateRect);
}

void CPaintManagerUI::onPaint() {
    if (!root) {
        paintEmpty();
        return;
    }
    const SIZE size = GetClientSize();
    const RECT client = {0, 0, size.cx, size.cy};
    RECT part = {};
    if (!takePaintRect(client, part)) {
        if (layered)
            PaintScope validate(window);
        return;
    }
    if (focusNeeded)
        SetNextTabControl(Tab::Forward);
    painting = true;
    if (!layout(client)) {
        painting = false;
        return;
    }
    // The layout may have invalidated more, and what follows validates everything.
    takePaintRect(client, part);
    updateRect = {};
    paintOffscreen(client, part);
    painting = false;
    layeredChanged = false;
    if (updateNeeded || focusNeeded) // the focus waits for a paint after the layout
        Invalidate();
}

// False when this paint has to be given up because another one follows.
bool CPaintManagerUI::layout(const RECT& client) {
    if (updateNeeded) {
        updateNeeded = false;
        if (isEmpty(client))
            return true;
        if (root->IsUpdateNeeded()) {
            dropBuffers();
            root->SetPos(client, true);
        } else {
            layoutPending();
        }
        return !firstLayout || announceFirstLayout();
    }
    if (layered && layeredChanged) {
        if (offscreen)
            offscreen->clear(client);
        root->SetPos(client, true);
    }
    return true;
}

// Lays out the topmost controls that asked for it, so that one changed text does not
// cost a layout of the whole tree.
void CPaintManagerUI::layoutPending() {
    std::vector<CControlUI*> pending;
    root->FindControl(collectPending, &pending, FindVisible | FindUpdateTest | FindMeFirst);
    for (CControlUI* control : pending)
        control->SetPos(control->IsFloat() ? control->GetRelativePos() : control->GetPos(), true);
}

bool CPaintManagerUI::announceFirstLayout() {
    firstLayout = false;
    SendNotify(root, L"windowinit");
    if (!layered || !layeredChanged)
        return true;
    Invalidate();
    return false;
}

void CPaintManagerUI::paintOffscreen(const RECT& client, const RECT& part) {
    if (!offscreen && !isEmpty(client))
        offscreen = std::make_unique<DibSurface>(paintContext, width(client), height(client));
    const PaintScope paint(window);
    if (!offscreen || !*offscreen) { // no memory for it: straight to the window
        offscreen.reset();
        const SavedContext saved(paintContext);
        root->DoPaint(paintContext, part, nullptr);
        return;
    }
    {
        const SavedContext saved(offscreen->context());
        if (layered && !layeredImage.image)
            offscreen->clear(part);
        root->DoPaint(offscreen->context(), part, nullptr);
        if (layered)
            paintNativeWindows(part);
        for (size_t i = 0; i < postPaint.size(); ++i)
            postPaint[i]->DoPostPaint(offscreen->context(), part);
    }
    if (layered) {
        composeLayered(client, part);
        return;
    }
    BitBlt(paint.context(), part.left, part.top, width(part), height(part), offscreen->context(), part.left,
           part.top, SRCCOPY);
    if (showDirty)
        drawDirty(paint.context(), part);
}

void CPaintManagerUI::drawDirty(HDC context, const RECT& part) {
    static const utility::Pen red(CreatePen(PS_SOLID, 1, RGB(220, 0, 0)));
    const utility::Selection pen(context, red.get());
    const utility::Selection brush(context, GetStockObject(HOLLOW_BRUSH));
    Rectangle(context, part.left, part.top, part.right, part.bottom);
}

void CPaintManagerUI::onPrintClient(HDC context, LPARAM flags) {
    const SIZE size = GetClientSize();
    {
        const SavedContext saved(context);
        PaintTree(context, {0, 0, size.cx, size.cy}, nullptr);
    }
    if (!(flags & PRF_CHILDREN))
        return;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT place = {};
        GetWindowRect(child, &place);
        MapWindowPoints(HWND_DESKTOP, window, reinterpret_cast<POINT*>(&place), 2);
        POINT origin = {};
        OffsetWindowOrgEx(context, -place.left, -place.top, &origin);
        SendMessageW(child, WM_PRINT, reinterpret_cast<WPARAM>(context), flags & ~PRF_CHECKVISIBLE);
        SetWindowOrgEx(context, origin.x, origin.y, nullptr);
    }
}

} // namespace UILib
