#include "uilib/core/image_string.h"

#include <gtest/gtest.h>

using namespace UILib;

TEST(ImageString, shouldTakeAPlainNameWhole) {
    for (const wchar_t* name : {L"vyn\\a.png", L"a=b.png", L" a.png", L"file=a.png", L"file='a.png"}) {
        const ImageString image = parseImageString(name);
        EXPECT_EQ(std::wstring_view(name), image.name);
        EXPECT_TRUE(image.type.empty());
    }
}

TEST(ImageString, shouldReadEveryItem) {
    const ImageString image = parseImageString(
        L"file='a b.png' dest='1,2,3,4' source='5,6,7,8' corner='9,10,11,12' mask='#FFFF00FF' fade='128' "
        L"hole='true' xtiled='true' ytiled='true' hsl='true'");
    EXPECT_EQ(L"a b.png", image.name);
    EXPECT_EQ((Box{1, 2, 3, 4}), image.dest);
    EXPECT_EQ((Box{5, 6, 7, 8}), image.source);
    EXPECT_EQ((Box{9, 10, 11, 12}), image.corner);
    EXPECT_EQ(0xFFFF00FFu, image.mask);
    EXPECT_EQ(128, image.fade);
    EXPECT_TRUE(image.hole && image.xTiled && image.yTiled && image.keepSource);
    EXPECT_EQ((Box{1, 1, 1, 1}), parseImageString(L"scale9='1,1,1,1'").corner);
    EXPECT_FALSE(parseImageString(L"file='a' hole='TRUE'").hole);
    EXPECT_EQ(255, parseImageString(L"file='a' fade='999'").fade);
}

TEST(ImageString, shouldGiveATypeOnlyToResourcesAndColours) {
    EXPECT_EQ(L"PNG", parseImageString(L"res='101' restype='PNG'").type);
    EXPECT_EQ(L"PNG", parseImageString(L"restype='PNG' res='101'").type);
    EXPECT_TRUE(parseImageString(L"file='a.png' restype='PNG'").type.empty());
    EXPECT_EQ(ColorType, parseImageString(L"color='#FF00FF00'").type);
    EXPECT_EQ(L"#FF00FF00", parseImageString(L"color='#FF00FF00'").name);
}

TEST(ImageString, shouldEndTheListAtWhatBreaksTheGrammar) {
    struct {
        const wchar_t* text;
        int fade;
    } cases[] = {
        {L"file='a'  fade='7'", 7},          {L"file='a'\tfade='7'", 255},   {L"file='a',fade='7'", 255},
        {L"file = 'a' fade\t=\n'7'", 7},     {L"file='a' fade=7", 255},      {L"file='a' fade '7'", 255},
        {L"file='a' other='x' fade='7'", 7}, {L"file='a' fade=''", 255},     {L"file='a' fade='7", 255},
        {L"file='a' FADE='7'", 255},         {L"file='a' ='x' fade='7'", 7},
    };
    for (const auto& test : cases) {
        const ImageString image = parseImageString(test.text);
        EXPECT_EQ(L"a", image.name);
        EXPECT_EQ(test.fade, image.fade) << std::string(test.text, test.text + wcslen(test.text));
    }
}
