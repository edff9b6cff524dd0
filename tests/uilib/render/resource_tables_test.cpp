#include "render_fixture.h"

using namespace UILib;

namespace {

class Tables : public RenderFixture {
protected:
    std::wstring face(HFONT font) {
        LOGFONTW description = {};
        GetObjectW(font, sizeof description, &description);
        return description.lfFaceName;
    }

    ResourceTables other;
};

} // namespace

TEST_F(Tables, shouldFindOwnFontsBeforeSharedOnes) {
    const HFONT shared = tables.AddFont(nullptr, 103, {L"Liberation Sans", 20}, Scope::Shared);
    EXPECT_EQ(shared, other.GetFont(103));
    const HFONT own = tables.AddFont(nullptr, 103, {L"Liberation Serif", 20, true}, Scope::Own);
    EXPECT_EQ(own, tables.GetFont(103));
    EXPECT_EQ(shared, other.GetFont(103));
    EXPECT_EQ(own, tables.GetFont(FontSpec{L"Liberation Serif", 20, true}));
    EXPECT_EQ(nullptr, tables.GetFont(FontSpec{L"Liberation Serif", 20, false}));
    tables.Clear();
    EXPECT_EQ(shared, tables.GetFont(103));
}

TEST_F(Tables, shouldReplaceAFontOfTheSameId) {
    const HFONT first = tables.AddFont(nullptr, 7001, {L"Liberation Sans", 77}, Scope::Own);
    EXPECT_EQ(OBJ_FONT, static_cast<int>(GetObjectType(first)));
    const HFONT second = tables.AddFont(nullptr, 7001, {L"Liberation Serif", 77}, Scope::Own);
    EXPECT_EQ(second, tables.GetFont(7001));
    EXPECT_EQ(L"Liberation Serif", face(second));
    EXPECT_EQ(nullptr, tables.GetFont(FontSpec{L"Liberation Sans", 77}));
}

TEST_F(Tables, shouldFallBackOnTheDefaultFont) {
    const HFONT process = tables.GetDefaultFontInfo(nullptr).font.get();
    EXPECT_EQ(process, tables.GetFont(4711));
    EXPECT_EQ(process, tables.GetFont(-1));
    tables.SetDefaultFont(nullptr, {L"Liberation Mono", 15}, Scope::Own);
    EXPECT_EQ(L"Liberation Mono", face(tables.GetFont(4711)));
    EXPECT_EQ(process, other.GetFont(4711));
}

TEST_F(Tables, shouldMeasureWhenAskedFor) {
    tables.AddFont(nullptr, 7002, {L"Liberation Sans", 40}, Scope::Own);
    EXPECT_EQ(0, tables.GetFontInfo(nullptr, 7002).metrics.tmHeight);
    const FontRecord& record = tables.GetFontInfo(context(), 7002);
    EXPECT_NEAR(46, record.metrics.tmHeight, 3);
    EXPECT_EQ(&record, &tables.GetFontInfo(context(), record.font.get()));
    EXPECT_EQ(&tables.GetDefaultFontInfo(context()),
              &tables.GetFontInfo(context(), static_cast<HFONT>(nullptr)));
}

TEST_F(Tables, shouldFollowTheFontOfTheLanguageInEveryWindow) {
    tables.SetDefaultFontFamily(context(), L"Liberation Serif");
    EXPECT_EQ(L"Liberation Serif", face(other.GetFont(8)));
    EXPECT_EQ(32, other.GetFontInfo(context(), 8).spec.size);
    other.SetDefaultFontFamily(context(), L"Liberation Sans");
    EXPECT_EQ(L"Liberation Sans", face(tables.GetFont(2)));
    EXPECT_EQ(16, tables.GetFontInfo(context(), 2).spec.size);
    EXPECT_EQ(L"Liberation Sans", face(tables.GetFont(-1)));
}

TEST_F(Tables, shouldBoundTheFontsThatTagsMake) {
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const int first = tables.FindOrAddFont(nullptr, {L"Liberation Sans", 61}, 0);
    EXPECT_GE(first, 30000);
    EXPECT_EQ(first, tables.FindOrAddFont(nullptr, {L"Liberation Sans", 61}, 0));
    for (int size = 1; size < 1000; ++size)
        tables.FindOrAddFont(nullptr, {L"Liberation Mono", size}, 0);
    EXPECT_EQ(5, tables.FindOrAddFont(nullptr, {L"Liberation Mono", 2000}, 5));
    EXPECT_LT(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before + 300);
}

TEST_F(Tables, shouldShareImagesOnlyWhenAsked) {
    writeImage("a.png", 3, 3, [](int, int) { return 0xFF112233; });
    const ImagePtr own = tables.AddImage(L"a.png", nullptr, 0, SourcePixels::Keep, Scope::Own);
    ASSERT_TRUE(own);
    EXPECT_EQ(0xFF112233u, own->sourcePixels[8]);
    EXPECT_EQ(own, tables.GetImageEx(L"a.png", nullptr, 0, SourcePixels::Drop));
    EXPECT_FALSE(other.GetImage(L"a.png"));
    tables.SetForceShared(true);
    const ImagePtr shared = tables.AddImage(L"a.png", nullptr, 0, SourcePixels::Drop, Scope::Own);
    EXPECT_EQ(shared, other.GetImage(L"a.png"));
    EXPECT_FALSE(shared->sourcePixels);
    EXPECT_FALSE(tables.AddImage(L"", nullptr, 0, SourcePixels::Drop, Scope::Own));
    EXPECT_FALSE(tables.AddImage(L"none.png", nullptr, 0, SourcePixels::Drop, Scope::Own));
    EXPECT_FALSE(tables.AddImage(L"7", L"NOTYPE", 0, SourcePixels::Drop, Scope::Own));
}

TEST_F(Tables, shouldLetAReplacedImageLiveWithThoseWhoDrawIt) {
    writeImage("r.png", 2, 2, [](int, int) { return 0xFFFF0000; });
    EXPECT_TRUE(drawImage(L"r.png"));
    writeImage("r.png", 2, 2, [](int, int) { return 0xFF00FF00; });
    tables.AddImage(L"r.png", nullptr, 0, SourcePixels::Drop, Scope::Own);
    EXPECT_TRUE(CRenderEngine::DrawImage(context(), this, {0, 0, 4, 4}, {0, 0, 4, 4}, record));
    EXPECT_EQ(0xFF0000u, color(0, 0));
    EXPECT_TRUE(drawImage(L"r.png"));
    EXPECT_EQ(0x00FF00u, color(0, 0));
}

TEST_F(Tables, shouldKeepAttributesPerWindowAndShared) {
    tables.AddDefaultAttributeList(L"Button", L"height=\"1\"", Scope::Shared);
    tables.AddDefaultAttributeList(L"Button", L"height=\"2\"", Scope::Own);
    EXPECT_STREQ(L"height=\"2\"", tables.GetDefaultAttributeList(L"Button"));
    EXPECT_STREQ(L"height=\"1\"", other.GetDefaultAttributeList(L"Button"));
    EXPECT_EQ(nullptr, tables.GetDefaultAttributeList(L"button"));
    tables.AddWindowCustomAttribute(L"key", L"value");
    EXPECT_STREQ(L"value", tables.GetWindowCustomAttribute(L"key"));
    EXPECT_EQ(nullptr, other.GetWindowCustomAttribute(L"key"));
    tables.Clear();
    EXPECT_STREQ(L"height=\"1\"", tables.GetDefaultAttributeList(L"Button"));
    EXPECT_EQ(nullptr, tables.GetWindowCustomAttribute(L"key"));
}

TEST_F(Tables, shouldGroupOptions) {
    auto* one = reinterpret_cast<CControlUI*>(&tables);
    auto* two = reinterpret_cast<CControlUI*>(&other);
    EXPECT_TRUE(tables.AddOptionGroup(L"g", one));
    EXPECT_TRUE(tables.AddOptionGroup(L"g", two));
    EXPECT_FALSE(tables.AddOptionGroup(L"g", one));
    ASSERT_TRUE(tables.GetOptionGroup(L"g"));
    EXPECT_EQ(2, tables.GetOptionGroup(L"g")->GetSize());
    tables.RemoveOptionGroup(L"g", one);
    tables.RemoveOptionGroup(L"g", two);
    EXPECT_EQ(nullptr, tables.GetOptionGroup(L"g"));
    tables.RemoveOptionGroup(L"g", two);
}

TEST_F(Tables, shouldMoveSharedColoursAlongOnlyWhereTheyWereNotChanged) {
    const uint32_t before = tables.GetDefaultLinkFontColor();
    other.SetDefaultLinkFontColor(0xFF111111, Scope::Own);
    tables.SetDefaultLinkFontColor(0xFF222222, Scope::Shared);
    EXPECT_EQ(0xFF222222u, tables.GetDefaultLinkFontColor());
    other.SetDefaultLinkFontColor(0xFF333333, Scope::Shared);
    EXPECT_EQ(0xFF111111u, other.GetDefaultLinkFontColor());
    EXPECT_EQ(0xFF333333u, ResourceTables().GetDefaultLinkFontColor());
    tables.SetDefaultLinkFontColor(before, Scope::Shared);
}
