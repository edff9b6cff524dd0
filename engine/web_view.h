#pragma once

#include "engine/abi.h"
#include "engine/page.h"
#include "engine/page_load.h"
#include "engine/script.h"
#include "engine/surface.h"

#include <memory>
#include <string>

// One panel: a child window that loads, shows and runs a page. Made with its window and
// gone with it; what still arrives for a handle of the past finds nothing. Window thread.

namespace engine {

class WebView {
public:
    // Hidden at first. Null when the window cannot be made.
    static ViewHandle create(const WindowRecord& record);

    // Null once the window is gone.
    static WebView* find(ViewHandle handle);

    ViewHandle handle() { return reinterpret_cast<ViewHandle>(this); }

    void show(bool visible);
    void move(const Rect& place); // in the parent's client area
    void setUserAgent(const char* agent);
    void load(const std::wstring& address);
    void setDocumentReady(DocumentReady callback, void* parameter);
    void setLoadUrlBegin(LoadUrlBegin callback, void* parameter);

private:
    explicit WebView(uint32_t color) : color(color) {}

    static void registerClass();
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    bool mayLoad(const std::wstring& address);
    void onNews();
    void showDocument(LoadedDocument loaded);
    void orderImages();

    void paint();
    void redraw();
    void resize(int width, int height);
    void onMouseMove(int x, int y);
    void onMouseLeave();
    void onClick(int x, int y);
    void perform(const ClickAction& action);
    void scrollTo(int row);
    int furthestScroll() const;
    Rect scrollThumb() const; // empty when the page fits

    HWND window = nullptr;
    uint32_t color; // 0xRRGGBB
    std::wstring userAgent;
    DocumentReady documentReady = nullptr;
    void* documentReadyParameter = nullptr;
    LoadUrlBegin loadUrlBegin = nullptr;
    void* loadUrlBeginParameter = nullptr;

    Surface surface;
    std::shared_ptr<PageLoad> loading; // of the page that is shown or awaited
    std::wstring address;              // of the page that is shown
    std::unique_ptr<Page> page;        // null before the first one
    std::shared_ptr<Script> script;    // shared with a run that may replace it
    bool dirty = true;                 // the surface is not up to date
    bool tracking = false;             // the system tells when the pointer leaves
    int scroll = 0;
};

} // namespace engine
