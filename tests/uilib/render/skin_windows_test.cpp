#include "kit/control_state.h"
#include "kit/skin_document.h"
#include "tests/golden/window_picture.h"
#include "uilib/controls/control.h"
#include "uilib/core/dib_surface.h"
#include "uilib/core/image_decode.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <tuple>

// The windows of the shipped skin (the message box and the menu get their rows from code: see
// tests/windows) in a language of Latin, of Thai and of Chinese script, whose
// faces the set-up maps to installed ones; each language shows another page or state.

using namespace UILib;

namespace {

struct Language {
    const char* name;
    const wchar_t* code;
};
constexpr Language Languages[] = {{"en", L"en_US"}, {"th", L"th_TH"}, {"cn", L"zh_CN"}};

struct Skin {
    const char* name;
    const wchar_t* file;
    int width, height;
};
constexpr Skin Skins[] = {
    {"main", L"xml_mainframe.xml", 1642, 977},    {"small", L"xml_mainframe_small.xml", 1189, 708},
    {"settings", L"xm_setupframe.xml", 816, 700}, {"updatecheck", L"updatecheckframe.xml", 400, 230},
    {"update", L"updateframe.xml", 400, 230},
};

// What the program does to a window of that name, in one language or in any. The attribute
// "state" is one of those that the workbench knows.
struct Change {
    const char* skins;
    const char* language;
    const wchar_t* control;
    const wchar_t* attribute;
    const wchar_t* value;
};
constexpr Change Changes[] = {
    // The scenery would be most of every file; it has a test of its own.
    {"main small", "", L"launchBGControl", L"bkimage", L""},
    {"main small", "", L"launchBGControl", L"bkcolor", L"#FF34588C"},
    {"main small", "", L"pathEdit", L"text", L"D:\\Games\\VYN"},
    {"main small", "en", L"pathTab", L"selectedid", L"0"},
    {"main", "en", L"rightbgControl", L"bkimage", L"vyn\\right_bg_en.png"},
    {"main small", "en", L"homeBtn", L"state", L"hot"},
    {"main small", "th", L"pathTab", L"selectedid", L"1"},
    {"main small", "th", L"downloadprogressControl", L"value", L"37"},
    {"main", "th", L"loadingSpaceControl", L"width", L"361"},
    {"small", "th", L"loadingSpaceControl", L"width", L"231"},
    {"main small", "th", L"startBtn", L"state", L"disabled"},
    {"main small", "th", L"pauseBtn", L"state", L"pushed"},
    {"main", "th", L"rightbgControl", L"bkimage", L"vyn\\right_bg_th.png"},
    {"main small", "cn", L"pathTab", L"selectedid", L"2"},
    {"main small", "cn", L"installprogressControl", L"value", L"100"},
    {"main small", "cn", L"startBtn", L"state", L"hot"},
    {"main small", "cn", L"closebtn", L"state", L"pushed"},
    {"main", "cn", L"buyBtn", L"visible", L"true"},
    {"settings", "", L"pathEdit", L"text", L"D:\\Games\\VYN"},
    {"settings", "", L"versionLabel", L"text", L"1.0.0.1234"},
    {"settings", "", L"autoRunOnOpt", L"state", L"selected"},
    {"settings", "", L"exstgameNotTopOpt", L"state", L"selected"},
    {"settings", "en", L"checkUpdateBtn", L"state", L"focused"},
    {"settings", "th", L"closeExistOpt", L"state", L"selected"},
    {"settings", "th", L"chanagePathBtn", L"state", L"pushed"},
    {"settings", "cn", L"closeMinOpt", L"state", L"focused"},
    {"settings", "cn", L"minbtn", L"state", L"hot"},
    {"updatecheck", "th", L"maintab", L"selectedid", L"1"},
    {"update", "", L"updateVersionLabel", L"text", L"2.0.1"},
    {"update", "", L"oldVersionLabel", L"text", L"1.9.0"},
    {"update", "th", L"updateBtn", L"visible", L"false"},
    {"update", "th", L"progressLabel", L"visible", L"true"},
    {"update", "th", L"updateprogress", L"visible", L"true"},
    {"update", "th", L"updateprogress", L"value", L"62"},
    {"update", "cn", L"failedLabel", L"visible", L"true"},
    {"update", "cn", L"updateBtn", L"state", L"focused"},
};

bool names(const std::string& list, const std::string& name) {
    return (" " + list + " ").find(" " + name + " ") != list.npos;
}

bool apply(kit::SkinDocument& document, const Change& change) {
    CControlUI* control = document.manager().FindControl(change.control);
    if (!control)
        return false;
    if (wcscmp(change.attribute, L"state") == 0)
        return kit::applyState(*control, change.value);
    control->SetAttribute(change.attribute, change.value);
    return true;
}

class SkinWindows : public testing::TestWithParam<std::tuple<Skin, Language>> {
protected:
    void TearDown() override { CPaintManagerUI::SetResourcePath(L""); }
};

std::string nameOf(const testing::TestParamInfo<std::tuple<Skin, Language>>& info) {
    return std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).name;
}

} // namespace

TEST_P(SkinWindows, LookAsTheyDid) {
    const auto& [skin, language] = GetParam();
    kit::SkinDocument document;
    ASSERT_TRUE(document.loadFrom(SKIN_FOLDER, skin.file, language.code));
    document.layout(skin.width, skin.height);
    for (const Change& change : Changes) {
        if (!names(change.skins, skin.name) ||
            (*change.language && language.name != std::string(change.language)))
            continue;
        EXPECT_TRUE(apply(document, change)) << "no control for change " << &change - Changes;
    }
    document.layout(skin.width, skin.height);
    EXPECT_TRUE(
        golden::windowMatches(*document.root(), std::string("windows/") + skin.name + "_" + language.name));
}

INSTANTIATE_TEST_SUITE_P(All, SkinWindows,
                         testing::Combine(testing::ValuesIn(Skins), testing::ValuesIn(Languages)), nameOf);

// The picture has exactly the place's size, so that not one pixel of it is computed.
TEST(SkinPictures, TheSceneryFillsTheMainWindowPixelForPixel) {
    kit::SkinDocument document;
    ASSERT_TRUE(document.loadFrom(SKIN_FOLDER, L"xml_mainframe.xml", L"en_US"));
    document.layout(1642, 977);
    DibSurface surface(nullptr, 1642, 977);
    document.root()->DoPaint(surface.context(), {0, 0, 1642, 977}, nullptr);
    GdiFlush();
    std::ifstream file(std::filesystem::path(SKIN_FOLDER) / "vyn/launch_bg.png", std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const DecodedImage scenery = decodeImage(bytes.data(), bytes.size());
    ASSERT_EQ(scenery.width, 1642);
    const RECT place = document.manager().FindControl(L"launchBGControl")->GetPos();
    EXPECT_EQ(height(place), scenery.height);
    int differing = 0;
    for (int y = 0; y < 400; ++y)
        for (int x = 820; x < 1560; ++x) { // between the panels and the tools nothing covers it
            const uint8_t* rgba = scenery.rgba.get() + (y * scenery.width + x) * 4;
            const uint32_t wanted = rgba[0] << 16 | rgba[1] << 8 | rgba[2];
            differing += (surface.raster().row(place.top + y)[x] & 0xFFFFFF) != wanted;
        }
    EXPECT_EQ(differing, 0);
    CPaintManagerUI::SetResourcePath(L"");
}
