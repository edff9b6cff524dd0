#include "launcher/qzvy/MarketRecord.h"

#include "utility/endpoints.h"

namespace {

struct Market {
    const wchar_t* key;
    const wchar_t* shortCode;
    const wchar_t* localeCode;
    const wchar_t* reports; // first part of the paths on the reporting service
    const wchar_t* survey1; // pages of the content host
    const wchar_t* survey2;
    const wchar_t* fontName;
    const wchar_t* fontFile;
};

constexpr Market ByShortCode[] = {
    {L"tw", L"tw", L"zh_TW", L"tw", L"tw", L"tw", L"方正兰亭圆_GBK_中粗", L"FZLANTYK_ZHONGCU.ttf"},
    {L"cn", L"cn", L"zh_CN", L"tw", L"tw", L"tw", L"Arial", L"FZY4JW.TTF"},
    {L"kr", L"kr", L"ko_KR", L"kr", L"kr1", L"kr2", L"Arial", L"kr.otf"},
    {L"jp", L"jp", L"ja_JP", L"jp", L"jp1", L"jp2", L"Arial", L""},
    {L"vn", L"vn", L"vi_VN", L"vn", L"vn1", L"vn2", L"Arial", L"Vf-Futura.ttf"},
    {L"th", L"th", L"th_TH", L"th", L"th1", L"th2", L"Arial", L"Prompt-Medium.ttf"},
    {L"pt", L"pt", L"pt_PT", L"br", L"br1", L"br2", L"Arial", L"Prompt-Medium.ttf"},
    {L"br", L"pt", L"pt_PT", L"br", L"br1", L"br2", L"Arial", L"Prompt-Medium.ttf"},
    {L"id", L"id", L"in_ID", L"vn", L"vn1", L"vn2", L"Arial", L"FZY4JW.TTF"},
};

constexpr Market ByLocale[] = {
    {L"zh_CN", L"cn", L"zh_CN", L"tw", L"tw", L"tw", L"Arial", L"FZY4JW.TTF"},
    {L"zh_TW", L"tw", L"zh_TW", L"tw", L"tw", L"tw", L"Arial", L"FZLANTYK_ZHONGCU.ttf"},
    {L"ko_KR", L"kr", L"ko_KR", L"kr", L"kr1", L"kr2", L"Arial", L"kr.otf"},
    {L"ja_JP", L"jp", L"ja_JP", L"jp", L"jp1", L"jp2", L"Arial", L""},
    {L"vi_VN", L"vn", L"vi_VN", L"vn", L"vn1", L"vn2", L"Arial", L"Vf-Futura.ttf"},
    {L"th_TH", L"th", L"th_TH", L"th", L"th1", L"th2", L"Arial", L"Prompt-Medium.ttf"},
    {L"pt_PT", L"pt", L"pt_PT", L"br", L"br1", L"br2", L"Arial", L""},
    {L"in_ID", L"id", L"in_ID", L"br", L"br1", L"br2", L"Arial", L"FZY4JW.TTF"},
};

constexpr Market English = {L"", L"en", L"en_US", L"en", L"en1", L"en2", L"Arial", L"FZY4JW.TTF"};

template <size_t Count>
const Market& findMarket(const Market (&markets)[Count], const std::wstring& key) {
    for (const Market& market : markets)
        if (key == market.key)
            return market;
    return English;
}

std::wstring surveyLink(const wchar_t* page) {
    return utility::endpoints::contentHost() + L"/survey/" + page;
}

void fill(const Market& market, MarketRecord& record) {
    const std::wstring log = std::wstring(market.reports) + L"/log/";
    record = {
        .shortCode = market.shortCode,
        .localeCode = market.localeCode,
        .surveyLink1 = surveyLink(market.survey1),
        .surveyLink2 = surveyLink(market.survey2),
        .dauPath = log + L"dau",
        .installPath = log + L"install/qzplayer",
        .uninstallPath = log + L"uninstall",
        .startPath = log + L"start/qzplayer",
        .fontName = market.fontName,
        .fontFile = market.fontFile,
    };
}

} // namespace

void fillMarketByShortCode(const std::wstring& key, MarketRecord& record) {
    fill(findMarket(ByShortCode, key), record);
}

void fillMarketByLocale(const std::wstring& key, MarketRecord& record) {
    fill(findMarket(ByLocale, key), record);
}
