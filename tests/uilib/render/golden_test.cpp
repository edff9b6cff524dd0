#include "render_fixture.h"

#include "tests/golden/golden.h"

using namespace UILib;

// Sheets that an eye can check; tools/renew-golden paints them anew.

namespace {

class Sheet : public RenderFixture {
protected:
    void text(DibSurface& sheet, RECT rectangle, const wchar_t* content, unsigned style = 0, int font = 0) {
        RECT links[4];
        CUIString names[4];
        int count = 4;
        CRenderEngine::DrawHtmlText(sheet.context(), this, rectangle, content, 0xFFE0E0E8, links, names,
                                    count, font, style);
    }
    void background(DibSurface& sheet, uint32_t color) {
        const Box bounds = sheet.raster().bounds();
        raster::fill(sheet.raster(), bounds, bounds, color);
    }
};

// A frame with round translucent edges and a striped centre.
uint32_t framePixel(int x, int y) {
    const int edge = std::min(std::min(x, 23 - x), std::min(y, 23 - y));
    if (edge < 2)
        return edge == 0 ? 0x40104010 : 0xFF40C040;
    return edge < 6 ? 0xC0303060 : (x / 3 + y / 3) % 2 ? 0xFFD0A040 : 0xFF8040A0;
}

struct Language {
    const wchar_t* face;
    const wchar_t* name;
    const wchar_t* phrase;
    bool rightToLeft = false;
};

const Language languages[] = {
    {L"Liberation Sans", L"English", L"Start game – Download paused, 42 % done"},
    {L"Noto Sans CJK TC", L"繁體中文", L"開始遊戲，下載已暫停"},
    {L"Noto Sans CJK SC", L"简体中文", L"开始游戏，下载已暂停"},
    {L"Noto Sans CJK KR", L"한국어", L"게임 시작, 다운로드 일시 중지됨"},
    {L"DejaVu Sans", L"Tiếng Việt", L"Bắt đầu trò chơi, đã tạm dừng tải xuống"},
    {L"Waree", L"ไทย", L"เริ่มเกม หยุดดาวน์โหลดชั่วคราว"},
    {L"Liberation Sans", L"Indonesia", L"Mulai permainan, unduhan dijeda"},
    {L"Noto Sans CJK JP", L"日本語", L"ゲームを開始、ダウンロード一時停止中"},
    {L"Liberation Sans", L"Русский", L"Начать игру, загрузка приостановлена"},
    {L"Liberation Sans", L"Português", L"Iniciar o jogo, transferência em pausa"},
    {L"Liberation Sans", L"Español", L"Iniciar juego, descarga en pausa"},
    {L"DejaVu Sans", L"العربية", L"ابدأ اللعبة، تم إيقاف التنزيل مؤقتًا", true},
    {L"Liberation Sans", L"Türkçe", L"Oyunu başlat, indirme duraklatıldı"},
    {L"Liberation Sans", L"Français", L"Démarrer le jeu, téléchargement en pause"},
    {L"Liberation Sans", L"Deutsch", L"Spiel starten, Download angehalten – Größe"},
    {L"Liberation Sans", L"Italiano", L"Avvia gioco, download in pausa"},
    {L"DejaVu Sans", L"فارسی", L"شروع بازی، بارگیری متوقف شد", true},
    {L"Liberation Sans", L"Malaysia", L"Mula permainan, muat turun dijeda"},
    {L"Liberation Sans", L"Українська", L"Почати гру, завантаження призупинено"},
};

} // namespace

TEST_F(Sheet, nineSlices) {
    DibSurface sheet(nullptr, 420, 300);
    background(sheet, 0xFF607080);
    writeImage("frame.png", 24, 24, framePixel);
    const wchar_t* strings[] = {
        L"frame.png",
        L"file='frame.png' corner='8,8,8,8'",
        L"file='frame.png' corner='8,8,8,8' hole='true'",
        L"file='frame.png' corner='8,8,8,8' xtiled='true'",
        L"file='frame.png' corner='8,8,8,8' ytiled='true'",
        L"file='frame.png' corner='8,8,8,8' xtiled='true' ytiled='true'",
        L"file='frame.png' corner='8,8,8,8' fade='128'",
        L"file='frame.png' source='6,6,18,18' dest='10,10,90,60'",
        L"color='#80FF0000'",
    };
    int index = 0;
    for (const wchar_t* string : strings) {
        const RECT cell = {10 + index % 3 * 137, 10 + index / 3 * 97, 137 + index % 3 * 137,
                           97 + index / 3 * 97};
        DrawRecord drawn;
        drawn.drawString = string;
        EXPECT_TRUE(CRenderEngine::DrawImage(sheet.context(), this, cell, cell, drawn));
        ++index;
    }
    EXPECT_TRUE(golden::matches(sheet.raster(), "nine_slices"));
}

TEST_F(Sheet, formattedText) {
    DibSurface sheet(nullptr, 520, 420);
    background(sheet, 0xFF202030);
    tables.AddFont(nullptr, 0, {L"Liberation Sans", 16}, Scope::Own);
    tables.AddFont(nullptr, 1, {L"Liberation Serif", 28}, Scope::Own);
    tables.SetDefaultLinkFontColor(0xFF60A0FF, Scope::Own);
    tables.SetDefaultSelectedBkColor(0xFF406080, Scope::Own);
    writeImage("frames.png", 48, 16, [](int x, int) { return 0xFF000000u | 0xFFu << (x / 16 * 8); });
    const wchar_t* all =
        L"plain <b>bold</b> <i>italic</i> <u>under</u> {c #FF8040}orange{/c} <f 1>serif</f><n>"
        L"<f 1>big <v top>top</v><v center>mid</v><f 0>low</f></f> <s>selected</s> <{>raw<}> <r><b></r><n>"
        L"images <i frames.png 3 0><i frames.png 3 1><i frames.png 3 2> <x 30>pushed"
        L"<p 12>spaced <a one>a link</a> and <a two>another</a></p>";
    text(sheet, {10, 10, 510, 150}, all);
    const wchar_t* words =
        L"A longer text is broken between its words, <a x>also within a link</a> that wraps.";
    CRenderEngine::DrawColor(sheet.context(), {10, 160, 170, 260}, 0xFF303048);
    text(sheet, {10, 160, 170, 260}, words, DT_WORDBREAK);
    CRenderEngine::DrawColor(sheet.context(), {180, 160, 340, 260}, 0xFF303048);
    text(sheet, {180, 160, 340, 260}, words, DT_WORDBREAK | DT_CENTER | DT_VCENTER);
    CRenderEngine::DrawColor(sheet.context(), {350, 160, 510, 260}, 0xFF303048);
    text(sheet, {350, 160, 510, 260}, words, DT_WORDBREAK | DT_RIGHT | DT_BOTTOM);
    int top = 270;
    for (unsigned style : {0, DT_CENTER, DT_RIGHT, DT_END_ELLIPSIS, DT_CENTER | DT_END_ELLIPSIS}) {
        const RECT line = {10, top, 250, top + 24}, narrow = {260, top, 400, top + 24};
        CRenderEngine::DrawColor(sheet.context(), line, 0xFF303048);
        CRenderEngine::DrawColor(sheet.context(), narrow, 0xFF303048);
        text(sheet, line, L"one <b>single</b> line", style | DT_SINGLELINE | DT_VCENTER);
        text(sheet, narrow, L"a line that is far too long for it", style | DT_SINGLELINE | DT_VCENTER);
        top += 28;
    }
    EXPECT_TRUE(golden::matches(sheet.raster(), "formatted_text"));
}

TEST_F(Sheet, languages) {
    constexpr int row = 30;
    DibSurface sheet(nullptr, 1000, row * static_cast<int>(std::size(languages)) + 10);
    background(sheet, 0xFF202030);
    int top = 5, font = 500;
    for (const Language& language : languages) {
        tables.AddFont(nullptr, font, {language.face, 18}, Scope::Own);
        RECT name = {10, top, 140, top + row}, plain = {150, top, 560, top + row};
        const unsigned style = DT_SINGLELINE | DT_VCENTER | (language.rightToLeft ? DT_RTLREADING : 0);
        CRenderEngine::DrawText(sheet.context(), this, name, language.name, 0xFF80C0FF, font, style);
        CRenderEngine::DrawText(sheet.context(), this, plain, language.phrase, 0xFFE0E0E8, font, style);
        text(sheet, {580, top, 990, top + row}, (L"<b>" + std::wstring(language.phrase)).c_str(),
             DT_SINGLELINE | DT_VCENTER, font++);
        top += row;
    }
    EXPECT_TRUE(golden::matches(sheet.raster(), "languages"));
}
