#include "launcher/qzvy/WebPanels.h"

#include "utility/endpoints.h"
#include "utility/files.h"
#include "utility/log.h"
#include "utility/system.h"

using namespace utility;

namespace {

constexpr char InitFunction[] = "QzVyMainFrame::InitWindow";
constexpr char UserAgent[] = "Mozilla/5.0 (Windows NT 6.1) AppleWebKit/537.36 (KHTML, like Gecko) "
                             "Chrome/69.0.2228.0 Safari/537.36";

// Pixels of the client area.
constexpr int Left = 42, Width = 752;
constexpr int BannerTop = 187, BannerHeight = 344, SmallBannerTop = 63;
constexpr int NewsTop = 545, NewsHeight = 132, SmallNewsTop = 421;
constexpr uint32_t FrameColor = 0xBBD5F4;

void __cdecl showPanel(wkeWebView view, void*) {
    wkeShowWindow(view, true);
}

// The engine loads everything itself.
bool __cdecl keepFromLoading(wkeWebView, void*, const char*, void*) {
    return false;
}

void setCallbacks(wkeWebView view, HWND window) {
    wkeOnDidCreateScriptContext(view, nullptr, nullptr);
    wkeOnWindowClosing(view, nullptr, nullptr);
    wkeOnWindowDestroy(view, nullptr, nullptr);
    wkeOnDocumentReady(view, showPanel, window);
    wkeOnTitleChanged(view, nullptr, nullptr);
    wkeOnCreateView(view, nullptr, nullptr);
    wkeOnLoadUrlBegin(view, keepFromLoading, nullptr);
    wkeOnLoadUrlEnd(view, nullptr, nullptr);
}

// A page may not start a program or open a file of this machine, with our rights at that.
bool isWebAddress(const std::wstring& url) {
    return _wcsnicmp(url.c_str(), L"http://", 7) == 0 || _wcsnicmp(url.c_str(), L"https://", 8) == 0;
}

bool loadEngine() {
    // Held for good: the engine's path is read by pointer.
    static const std::wstring path = ufile::getModuleDir() + L"\\node.dll";
    wkeLibraryPath = path.c_str();
    common::log(InitFunction, __LINE__, L"wkeInitialize start");
    const int result = wkeInitialize();
    common::log(InitFunction, __LINE__, L"wkeInitialize ret %d", result);
    return result != 0 && wkeHasAllCalled();
}

} // namespace

jsValue __cdecl CallOpenUrl(jsExecState execState, void*) {
    const wchar_t* text = jsToStringW(execState, jsArg(execState, 0));
    const std::wstring url = text ? text : L"";
    common::log("CallOpenUrl", __LINE__, L"web jump: %s", url.c_str());
    if (isWebAddress(url))
        usystem::openUrl(url);
    else
        common::log("CallOpenUrl", __LINE__, L"web jump refused: no web address");
    return jsUndefined();
}

void WebPanels::create(HWND window, const std::wstring& market) {
    parent = window;
    const std::wstring query = L"?language=" + market;
    const std::wstring index = endpoints::contentHost() + L"/PCpic" + query;
    const std::wstring news = endpoints::contentHost() + L"/PCpic/news" + query;
    common::log(InitFunction, __LINE__, L"real urlIndex is:%s", index.c_str());
    common::log(InitFunction, __LINE__, L"real urlNews is:%s", news.c_str());
    if (!loadEngine())
        return;
    createBrowser1(index);
    createBrowser2(news);
}

void WebPanels::createBrowser1(const std::wstring& url) {
    webView1 = createBrowser("QzVyMainFrame::createBrowser1", BannerTop, BannerHeight, url);
}

void WebPanels::createBrowser2(const std::wstring& url) {
    webView2 = createBrowser("QzVyMainFrame::createBrowser2", NewsTop, NewsHeight, url);
}

wkeWebView WebPanels::createBrowser(const char* function, int y, int height, const std::wstring& url) {
    RECT client{};
    GetClientRect(parent, &client);
    const wkeWindowCreateInfo info = {sizeof(info),   parent, WS_CHILD, 0,         client.left + Left,
                                      client.top + y, Width,  height,   FrameColor};
    const wkeWebView view = wkeCreateWebCustomWindow(&info);
    if (!view) {
        common::log(function, __LINE__, L"wkeCreateWebWindow error");
        return nullptr;
    }
    setCallbacks(view, parent);
    wkeJsBindFunction("PCOpenUrl", CallOpenUrl, this, 1);
    wkeSetUserAgent(view, UserAgent);
    wkeLoadURLW(view, url.c_str());
    return view;
}

void WebPanels::applySmallLayout() {
    if (webView1)
        wkeMoveWindow(webView1, Left, SmallBannerTop, Width, BannerHeight);
    if (webView2)
        wkeMoveWindow(webView2, Left, SmallNewsTop, Width, NewsHeight);
}
