// What the pages may ask of the launcher, by an engine of the test's own.

#include "launcher/qzvy/WebPanels.h"
#include "tests/launcher/support.h"
#include "tests/support/log_watch.h"

namespace {

const wchar_t* given = nullptr; // the engine's text of the page's argument

class WebPanel : public launcher_test::Stage {
protected:
    void SetUp() override {
        Stage::SetUp();
        jsArg = [](jsExecState, int) -> jsValue { return 0; };
        jsToStringW = [](jsExecState, jsValue) { return given; };
        jsUndefined = []() -> jsValue { return 0; };
    }
};

TEST_F(WebPanel, OpensWebAddressesOnly) {
    for (const wchar_t* text : {static_cast<const wchar_t*>(nullptr), L"", L"file:///c:/a.exe", L"c:\\a.exe",
                                L"httpx://a.example", L" http://a.example"}) {
        given = text;
        CallOpenUrl(nullptr, nullptr);
    }
    EXPECT_EQ(logged(L"web jump refused"), 6);
    test::allowErrors(L"web jump refused");
}

} // namespace
