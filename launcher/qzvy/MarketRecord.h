#pragma once

#include <string>

// What differs between the markets that the launcher serves. A market is chosen by its
// short code ("en", "kr"), the key that the registry keeps, or by its locale code
// ("en_US", "ko_KR"), the column of the language table.

struct MarketRecord {
    std::wstring shortCode;
    std::wstring localeCode;
    std::wstring surveyLink1;
    std::wstring surveyLink2;
    std::wstring dauPath; // paths on the reporting service
    std::wstring installPath;
    std::wstring uninstallPath;
    std::wstring startPath;
    std::wstring fontName;
    std::wstring fontFile; // in the folder fonts beside the program; empty for none
};

// Both overwrite every field; an unknown key, compared exactly, gives the English market.
void fillMarketByShortCode(const std::wstring& key, MarketRecord& record);
void fillMarketByLocale(const std::wstring& key, MarketRecord& record);
