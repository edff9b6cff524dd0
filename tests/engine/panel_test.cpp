#include "publisher/publisher.h"
#include "utility/wke/wke.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

// The true library, bound by name, in a window of the test, against a publisher in this
// process.

namespace {

std::vector<std::wstring> opened; // what pages asked to open

jsValue __cdecl keepAddress(jsExecState state, void*) {
    opened.push_back(jsToStringW(state, jsArg(state, 0)));
    return jsUndefined();
}

void __cdecl countReady(wkeWebView, void* count) {
    ++*static_cast<int*>(count);
}

bool __cdecl refuseSecret(wkeWebView, void*, const char* url, void*) {
    return std::string(url).find("secret") != std::string::npos;
}

bool pumpUntil(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

class Panel : public testing::Test {
protected:
    void SetUp() override {
        static const int bound = wkeInitialize();
        ASSERT_EQ(bound, 1);
        ASSERT_TRUE(server.start());
        opened.clear();
        parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                                 nullptr, nullptr);
        const wkeWindowCreateInfo info = {sizeof(info), parent, WS_CHILD, 0, 10, 20, 300, 200, 0xBBD5F4};
        view = wkeCreateWebCustomWindow(&info);
        ASSERT_TRUE(view);
        window = GetWindow(parent, GW_CHILD);
        wkeOnDocumentReady(view, countReady, &ready);
        wkeOnLoadUrlBegin(view, refuseSecret, nullptr);
        wkeJsBindFunction("PCOpenUrl", keepAddress, nullptr, 1);
        wkeSetUserAgent(view, "TestAgent/1");
    }
    void TearDown() override { DestroyWindow(parent); }

    void load(const std::string& path) {
        const std::string url = server.url(path);
        wkeLoadURLW(view, std::wstring(url.begin(), url.end()).c_str());
    }
    bool loadAndWait(const std::string& path) {
        const int before = ready;
        load(path);
        return pumpUntil([&] { return ready > before; });
    }
    bool asked(const std::string& path) const {
        for (const auto& request : server.requests())
            if (request.path == path)
                return true;
        return false;
    }
    void click(int x, int y) {
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    COLORREF pixel(int x, int y) const {
        InvalidateRect(window, nullptr, FALSE);
        UpdateWindow(window);
        const HDC dc = GetDC(window);
        const COLORREF color = GetPixel(dc, x, y);
        ReleaseDC(window, dc);
        return color;
    }

    publisher::Publisher server;
    HWND parent = nullptr;
    HWND window = nullptr;
    wkeWebView view = nullptr;
    int ready = 0;
};

} // namespace

TEST_F(Panel, isHiddenAtItsPlaceUntilItIsShownAndMoves) {
    RECT place;
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(place.left == 10 && place.top == 20 && place.right == 310 && place.bottom == 220);
    EXPECT_FALSE(IsWindowVisible(window));
    wkeShowWindow(view, true);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(pixel(5, 5), RGB(0xBB, 0xD5, 0xF4));
    wkeMoveWindow(view, 30, 40, 100, 50);
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(place.left == 30 && place.top == 40 && place.right == 130 && place.bottom == 90);
}

TEST_F(Panel, loadsDrawsAndRunsAPage) {
    server.publish("/page",
                   "<body style='background:#102030'><div style='height:50px;background:#ff0000' "
                   "onclick=\"PCOpenUrl(base+'/a')\"></div><a href=\"javascript:PCOpenUrl()\">link</a>"
                   "<script>var base = 'http://game.example'; PCOpenUrl('at once');</script>"
                   "<script>syntax error(</script>");
    ASSERT_TRUE(loadAndWait("/page"));
    wkeShowWindow(view, true);
    EXPECT_EQ(pixel(5, 5), RGB(255, 0, 0));
    EXPECT_EQ(pixel(250, 150), RGB(0x10, 0x20, 0x30));
    click(5, 5);
    click(5, 60);
    EXPECT_EQ(opened, (std::vector<std::wstring>{L"at once", L"http://game.example/a", L""}));
    EXPECT_EQ(server.requests()[0].headers.find("User-Agent")->second, "TestAgent/1");
}

TEST_F(Panel, asksBeforeEachLoadAndFollowsLinks) {
    server.publish("/a",
                   "<a href=b>next</a><img src=/secret.png><img src=/open.png><img src=file:///c:/x.png>");
    server.publish("/b", "<a href=/secret>none</a>");
    ASSERT_TRUE(loadAndWait("/a"));
    EXPECT_TRUE(pumpUntil([&] { return asked("/open.png"); }));
    click(5, 8);
    EXPECT_TRUE(pumpUntil([&] { return ready == 2; }));
    click(5, 8);
    load("/b"); // had the link been followed, its request would stand before this one
    EXPECT_TRUE(pumpUntil([&] { return ready == 3; }));
    EXPECT_FALSE(asked("/secret"));
    EXPECT_FALSE(asked("/secret.png"));
}

TEST_F(Panel, keepsItsPageUntilAnotherIsThere) {
    server.publish("/good", "<body style='background:#00ff00'>");
    server.addFault("/bad", {publisher::FaultKind::Status, 500, {}, 0});
    ASSERT_TRUE(loadAndWait("/good"));
    wkeShowWindow(view, true);
    load("/bad");
    EXPECT_TRUE(pumpUntil([&] { return asked("/bad"); }));
    EXPECT_EQ(pixel(5, 5), RGB(0, 255, 0));
    ASSERT_TRUE(loadAndWait("/good"));
    EXPECT_EQ(ready, 2);
}

TEST_F(Panel, mayGoWhileAPageIsOnItsWay) {
    server.publish("/slow", "<p>late</p>");
    server.addFault("/slow", {publisher::FaultKind::Hang, 0, {}, 0});
    load("/slow");
    ASSERT_TRUE(pumpUntil([&] { return asked("/slow"); }));
    DestroyWindow(parent);
    server.stop(); // ends the wait of the worker, whose news find no window
    wkeShowWindow(view, true);
    wkeLoadURLW(view, L"http://127.0.0.1/");
    EXPECT_EQ(ready, 0);
}
