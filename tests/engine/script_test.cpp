#include "engine/script.h"

#include "engine/text.h"

#include <gtest/gtest.h>

using engine::Script;

namespace {

class Scripts : public testing::Test {
protected:
    std::vector<std::string> calls;
    Script script{{{"PCOpenUrl", 1, [this](const std::vector<std::u16string>& arguments) {
                        calls.push_back(arguments.empty() ? "(none)" : engine::toUtf8(arguments[0]));
                    }}}};
};

} // namespace

TEST_F(Scripts, callsWhatIsBound) {
    EXPECT_TRUE(script.run("var home = 'http://a.example';"));
    EXPECT_TRUE(script.runHandler("PCOpenUrl(home + '/x', 2); return false"));
    EXPECT_TRUE(script.run("window.PCOpenUrl(); PCOpenUrl(7); PCOpenUrl('\xED\x95\x9C \xF0\x9F\x8C\x8A')"));
    EXPECT_EQ(calls, (std::vector<std::string>{"http://a.example/x", "(none)", "7",
                                               "\xED\x95\x9C \xF0\x9F\x8C\x8A"}));
}

TEST_F(Scripts, endsWhatNeverWouldAndGoesOn) {
    const char* const hostile[] = {
        "for(;;);",
        "for(;;) try { for(;;); } catch (e) {}",
        "(function f() { f(); })()",
        "var s = 'x'; for(;;) s += s;",
        "var a = []; for(;;) a.push({});",
        "[].indexOf.call({length: 4294967295}, 1)",
        "/(x+x+)+y/.test('xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx')",
        "PCOpenUrl({toString: function() { for(;;); }})",
        "throw 1",
        "}{",
    };
    for (const char* source : hostile) {
        EXPECT_FALSE(script.run(source)) << source; // ends at all
        EXPECT_TRUE(script.run("PCOpenUrl('still here')")) << source;
    }
    const std::string brackets(100000, '(');
    EXPECT_FALSE(script.run(brackets));
    EXPECT_EQ(calls.size(), std::size(hostile));
}

TEST_F(Scripts, openOnlySoManyAddresses) {
    using engine::limits::NativeCalls;
    EXPECT_FALSE(script.run("for(;;) PCOpenUrl('x')"));
    EXPECT_EQ(calls.size(), NativeCalls);
    EXPECT_FALSE(script.run("for(;;) try { PCOpenUrl('x') } catch (e) {}"));
    EXPECT_EQ(calls.size(), 2 * NativeCalls);
    script.runTogether({"for(;;) PCOpenUrl('x')", "PCOpenUrl('x')"});
    EXPECT_EQ(calls.size(), 3 * NativeCalls);
}

// The second script needs a small part of the time, but longer than the interpreter's steps
// between two looks at the clock.
TEST_F(Scripts, ofOnePageShareItsTime) {
    script.runTogether({"for(;;);", "for (var i = 0; i < 300000; i++); PCOpenUrl('late')"});
    EXPECT_EQ(calls, std::vector<std::string>{});
    script.runTogether({"throw 1", "PCOpenUrl('next')"});
    EXPECT_EQ(calls, std::vector<std::string>{"next"});
}

TEST(ScriptsWithin, doNotRunInsideOfOneAnother) {
    Script* self = nullptr;
    bool inner = true;
    Script script({{"again", 0, [&](const auto&) { inner = self->run("1"); }}});
    self = &script;
    EXPECT_TRUE(script.run("again()"));
    EXPECT_FALSE(inner);
}
