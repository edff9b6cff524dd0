#include "update/UpdateDocument.h"

#include <gtest/gtest.h>

TEST(UpdateDocument, readsItsKeys) {
    UpdateDocument document = parseUpdateDocument(
        R"({"ver":10100,"strVer":"1.1.0","url":"http://h/a.exe","content":"notes","forceVer":10050,
            "noiceVer":10060,"th":"\u0e02\u0e48\u0e32\u0e27","other":[1,2]})",
        "th");
    EXPECT_EQ(document.ver, 10100);
    EXPECT_EQ(document.forceVer, 10050);
    EXPECT_EQ(document.noiceVer, 10060);
    EXPECT_EQ(document.strVer, L"1.1.0");
    EXPECT_EQ(document.url, L"http://h/a.exe");
    EXPECT_EQ(document.content, L"\x0E02\x0E48\x0E32\x0E27");
}

TEST(UpdateDocument, whatHasTheWrongTypeIsAbsent) {
    UpdateDocument document = parseUpdateDocument(
        R"({"ver":"10100","strVer":7,"url":null,"content":"notes","forceVer":10050.0,"noiceVer":1e4,
            "Ver":10100,"en":false})",
        "en");
    EXPECT_EQ(document.ver, 0);
    EXPECT_EQ(document.forceVer, 0);
    EXPECT_EQ(document.noiceVer, 0);
    EXPECT_EQ(document.strVer, L"");
    EXPECT_EQ(document.url, L"");
    EXPECT_EQ(document.content, L"notes");
    EXPECT_EQ(parseUpdateDocument(R"({"ver":99999999999})", "en").ver, 0);
}

TEST(UpdateDocument, hostileBodiesGiveNothing) {
    std::string deep(2000000, '[');
    std::string deepObjects = R"({"ver":10100)";
    for (int level = 0; level < 200000; ++level)
        deepObjects += R"(,"a":{"a":1)";
    std::string large = R"({"ver":10100,"content":")" + std::string(5000000, 'x') + "\"}";
    std::string notClosed = R"({"ver":10100)";
    for (const std::string& body : {std::string(), std::string("[]"), std::string("null"), notClosed,
                                    std::string("\0{}", 3), deep, deepObjects, large})
        EXPECT_EQ(parseUpdateDocument(body, "en").ver, 0) << body.substr(0, 20);
}

TEST(UpdateDecision, comparesStrictlyWithTheLocalVersion) {
    struct Row {
        int ver, forceVer, noiceVer;
        bool silent;
        UpdateKind expected;
    };
    const Row rows[] = {
        {10000, 99999, 99999, false, UpdateKind::None}, {10001, 0, 0, false, UpdateKind::Offered},
        {10100, 0, 0, true, UpdateKind::None},          {10100, 0, 10000, true, UpdateKind::None},
        {10100, 0, 10001, true, UpdateKind::Offered},   {10100, 10000, 0, false, UpdateKind::Offered},
        {10100, 10001, 0, true, UpdateKind::Forced},    {10100, 10001, 0, false, UpdateKind::Forced},
        {-1, 10001, 10001, false, UpdateKind::None},
    };
    for (const Row& row : rows) {
        UpdateDocument document;
        document.ver = row.ver;
        document.forceVer = row.forceVer;
        document.noiceVer = row.noiceVer;
        EXPECT_EQ(decideUpdate(document, row.silent), row.expected)
            << row.ver << " " << row.forceVer << " " << row.noiceVer << " " << row.silent;
    }
}

TEST(DownloadPercent, neverSaysThatAllIsInPlace) {
    EXPECT_EQ(downloadPercent(0, 1000), 0);
    EXPECT_EQ(downloadPercent(509, 1000), 50);
    EXPECT_EQ(downloadPercent(1000, 1000), 99);
    EXPECT_EQ(downloadPercent(999999, 1000000), 99);
    EXPECT_EQ(downloadPercent(1, 0), 99);
    EXPECT_EQ(downloadPercent(0x80000000, 0xFFFFFFFF), 50);
}
