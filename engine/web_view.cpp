#include "engine/web_view.h"

#include "engine/http_fetch.h"
#include "engine/js_bindings.h"
#include "engine/text.h"

#include <windowsx.h>

#include <algorithm>
#include <set>

namespace engine {

namespace {

constexpr wchar_t ClassName[] = L"VynEnginePanel";
constexpr UINT NewsMessage = WM_APP + 1;
constexpr int WheelRows = 60; // pixels for one notch
constexpr Rect NoRect{};
constexpr Color ThumbColor = 0x60808890;

std::set<WebView*>& liveViews() {
    static std::set<WebView*> views;
    return views;
}

HINSTANCE engineInstance() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       ClassName, &module);
    return module;
}

std::wstring toWide(std::string_view utf8) {
    const std::u16string text = toUtf16(utf8);
    return {text.begin(), text.end()};
}

std::string toNarrow(const std::wstring& text) {
    return toUtf8(std::u16string(text.begin(), text.end()));
}

} // namespace

void WebView::registerClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = engineInstance();
    windowClass.lpszClassName = ClassName;
    RegisterClassExW(&windowClass); // the second panel finds the class registered
}

ViewHandle WebView::create(const WindowRecord& record) {
    registerClass();
    auto* view = new WebView(record.color);
    liveViews().insert(view);
    CreateWindowExW(record.styleEx, ClassName, L"", record.style | WS_CLIPSIBLINGS, record.x, record.y,
                    record.width, record.height, record.parent, nullptr, engineInstance(), view);
    if (WebView* made = find(view->handle()); made && made->window)
        return made->handle();
    if (liveViews().erase(view)) // otherwise its window was there for a moment and took it along
        delete view;
    return nullptr;
}

WebView* WebView::find(ViewHandle handle) {
    auto* view = reinterpret_cast<WebView*>(handle);
    return liveViews().contains(view) ? view : nullptr;
}

LRESULT CALLBACK WebView::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* view = static_cast<WebView*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        view->window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(view));
    }
    auto* view = reinterpret_cast<WebView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCDESTROY && view) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        if (view->loading)
            view->loading->cancel();
        liveViews().erase(view);
        delete view;
        return 0;
    }
    return view ? view->handleMessage(message, wParam, lParam)
                : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT WebView::handleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const int x = GET_X_LPARAM(lParam), y = GET_Y_LPARAM(lParam);
    switch (message) {
    case NewsMessage:
        onNews();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        paint();
        return 0;
    case WM_SIZE:
        resize(x, y);
        return 0;
    case WM_MOUSEMOVE:
        onMouseMove(x, y);
        return 0;
    case WM_MOUSELEAVE:
        onMouseLeave();
        return 0;
    case WM_LBUTTONDOWN:
        SetFocus(window); // so that the wheel comes here
        return 0;
    case WM_LBUTTONUP:
        onClick(x, y);
        return 0;
    case WM_MOUSEWHEEL:
        scrollTo(scroll - GET_WHEEL_DELTA_WPARAM(wParam) * WheelRows / WHEEL_DELTA);
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) != HTCLIENT)
            break;
        SetCursor(LoadCursorW(nullptr, page && page->showsHand() ? IDC_HAND : IDC_ARROW));
        return TRUE;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void WebView::show(bool visible) {
    ShowWindow(window, visible ? SW_SHOWNA : SW_HIDE);
}

void WebView::move(const Rect& place) {
    MoveWindow(window, place.x, place.y, place.width, place.height, TRUE);
}

void WebView::setUserAgent(const char* agent) {
    userAgent = toWide(agent ? agent : "");
}

void WebView::setDocumentReady(DocumentReady callback, void* parameter) {
    documentReady = callback;
    documentReadyParameter = parameter;
}

void WebView::setLoadUrlBegin(LoadUrlBegin callback, void* parameter) {
    loadUrlBegin = callback;
    loadUrlBeginParameter = parameter;
}

bool WebView::mayLoad(const std::wstring& target) {
    return !loadUrlBegin || !loadUrlBegin(handle(), loadUrlBeginParameter, toNarrow(target).c_str(), nullptr);
}

// The page that is shown stays until the new one is there.
void WebView::load(const std::wstring& target) {
    if (!mayLoad(target))
        return;
    if (loading)
        loading->cancel();
    loading = std::make_shared<PageLoad>(window, NewsMessage, userAgent);
    loading->fetchDocument(target);
}

void WebView::onNews() {
    if (!loading)
        return;
    if (auto loaded = loading->takeDocument())
        return showDocument(std::move(*loaded));
    auto images = loading->takeImages();
    if (!page || images.empty())
        return;
    for (auto& [name, image] : images)
        page->addImage(name, std::move(image));
    redraw();
}

// Callbacks and scripts of the page may destroy the window, so they come last.
void WebView::showDocument(LoadedDocument loaded) {
    address = std::move(loaded.address);
    surface.setLanguage(loaded.document.language);
    page = std::make_unique<Page>(std::move(loaded.document), surface);
    script = std::make_shared<Script>(boundFunctions());
    RECT client{};
    GetClientRect(window, &client);
    page->resize(client.right, client.bottom);
    scroll = 0;
    redraw();
    orderImages();
    const ViewHandle self = handle();
    const std::shared_ptr<Script> running = script;
    running->runTogether(std::vector(page->scripts()));
    if (find(self) && script == running && documentReady)
        documentReady(self, documentReadyParameter);
}

void WebView::orderImages() {
    std::vector<ImageOrder> orders;
    for (std::string& name : page->imageAddresses()) {
        std::wstring target = resolveAddress(address, toWide(name));
        if (!target.empty() && mayLoad(target))
            orders.push_back({std::move(name), std::move(target)});
    }
    if (!orders.empty())
        loading->fetchImages(std::move(orders));
}

void WebView::redraw() {
    dirty = true;
    scroll = std::clamp(scroll, 0, furthestScroll());
    InvalidateRect(window, nullptr, FALSE);
}

void WebView::resize(int width, int height) {
    if (page)
        page->resize(width, height);
    redraw();
}

void WebView::paint() {
    PAINTSTRUCT painting;
    const HDC dc = BeginPaint(window, &painting);
    RECT client{};
    GetClientRect(window, &client);
    if (dirty && surface.resize(client.right, client.bottom)) {
        const Bitmap& bitmap = surface.bitmap();
        if (page)
            page->paint(bitmap, surface, scroll);
        else
            Raster(bitmap).fill({0, 0, bitmap.width, bitmap.height}, 0, 0xFF000000 | color);
        Raster(bitmap).fill(scrollThumb(), 3, ThumbColor);
        dirty = false;
    }
    BitBlt(dc, 0, 0, client.right, client.bottom, surface.dc(), 0, 0, SRCCOPY);
    EndPaint(window, &painting);
}

int WebView::furthestScroll() const {
    RECT client{};
    GetClientRect(window, &client);
    return page ? std::max(0, page->height() - static_cast<int>(client.bottom)) : 0;
}

Rect WebView::scrollThumb() const {
    const int furthest = furthestScroll();
    if (furthest == 0)
        return NoRect;
    RECT client{};
    GetClientRect(window, &client);
    const int length = std::max(24, MulDiv(client.bottom, client.bottom, page->height()));
    return {static_cast<int>(client.right) - 8, MulDiv(scroll, client.bottom - length, furthest), 6, length};
}

void WebView::scrollTo(int row) {
    row = std::clamp(row, 0, furthestScroll());
    if (row == scroll)
        return;
    scroll = row;
    redraw();
}

void WebView::onMouseMove(int x, int y) {
    if (!tracking) {
        TRACKMOUSEEVENT wish = {sizeof(wish), TME_LEAVE, window, 0};
        tracking = TrackMouseEvent(&wish);
    }
    if (page && page->pointAt(x, y + scroll))
        redraw();
}

void WebView::onMouseLeave() {
    tracking = false;
    if (page && page->pointNowhere())
        redraw();
}

void WebView::onClick(int x, int y) {
    if (page)
        perform(page->actionAt(x, y + scroll));
}

void WebView::perform(const ClickAction& action) {
    constexpr std::string_view ScriptScheme = "javascript:";
    const std::shared_ptr<Script> running = script; // a script may lead to the end of the view
    if (!action.script.empty())
        running->runHandler(action.script);
    else if (action.address.starts_with(ScriptScheme))
        running->run(std::string_view(action.address).substr(ScriptScheme.size()));
    else if (const std::wstring target = resolveAddress(address, toWide(action.address)); !target.empty())
        load(target);
}

} // namespace engine
