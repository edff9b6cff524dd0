#pragma once

#include "utility/wke/wke.h"

#include <string>

// The two panels of the main window that show the publisher's pages: the banner above, the
// news below. Child windows of the web engine; a panel is invisible until its page is
// there, and stays so if the page never comes or the engine is missing.
//
// Window thread. The panels go with their parent window; the object outlives it.

class WebPanels {
public:
    // Panels at the places of the design on parent's client area. market: the short code
    // that the pages take as their language. Call once.
    void create(HWND parent, const std::wstring& market);

    // Both panels move up, for windows too low for the full layout.
    void applySmallLayout();

private:
    void createBrowser1(const std::wstring& url);
    void createBrowser2(const std::wstring& url);
    wkeWebView createBrowser(const char* function, int y, int height, const std::wstring& url);

    HWND parent = nullptr;
    wkeWebView webView1 = nullptr; // null: there is no such panel
    wkeWebView webView2 = nullptr;
};

// The function that pages call with the address to open; bound as PCOpenUrl.
jsValue __cdecl CallOpenUrl(jsExecState execState, void* param);
