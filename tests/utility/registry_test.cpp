#include "tests/utility/support.h"

#include "utility/registry.h"

#include <gtest/gtest.h>

namespace {

using utility::RegKeyEx;

class RegistryTest : public testing::Test {
protected:
    RegistryTest() { EXPECT_EQ(key.RegCreate(HKEY_CURRENT_USER, subkey), 0); }
    ~RegistryTest() override { RegDeleteKeyW(HKEY_CURRENT_USER, subkey.c_str()); }

    void setRaw(DWORD type, const void* data, DWORD size) {
        RegSetKeyValueW(HKEY_CURRENT_USER, subkey.c_str(), L"v", type, data, size);
    }

    LONG read() {
        value = L"before";
        return key.RegRead(L"v", value);
    }

    const std::wstring subkey = L"Software\\vyn-test-" + std::to_wstring(GetCurrentProcessId());
    RegKeyEx key;
    std::wstring value;
};

TEST_F(RegistryTest, WhatIsWrittenIsReadByAnother) {
    for (const std::wstring text : {L"", L"text", L"\x0e17\x4e2d \\ \"quoted\""}) {
        EXPECT_EQ(key.RegWrite(L"v", text), 0);
        RegKeyEx reader;
        EXPECT_EQ(reader.RegRegOpen(HKEY_CURRENT_USER, subkey, KEY_READ | KEY_WOW64_64KEY), 0);
        EXPECT_EQ(reader.RegRead(L"v", value), 0);
        EXPECT_EQ(value, text);
    }
    DWORD size = 0, type = 0;
    EXPECT_EQ(key.RegWrite(L"v", L""), 0);
    RegGetValueW(HKEY_CURRENT_USER, subkey.c_str(), L"v", RRF_RT_ANY, &type, nullptr, &size);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 2u);
}

TEST_F(RegistryTest, FailuresLeaveTheTextAlone) {
    RegKeyEx closed;
    value = L"before";
    EXPECT_EQ(closed.RegRegOpen(HKEY_CURRENT_USER, subkey + L"-none", KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(closed.RegRead(L"v", value), -1);
    EXPECT_EQ(closed.RegWrite(L"v", L"x"), -1);
    EXPECT_EQ(value, L"before");
    EXPECT_EQ(read(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(value, L"before");
    const std::vector<std::wstring> told = {L"open reg = " + subkey + L"-none, lastError = 2",
                                            L"m_hKey is null, query reg = v",
                                            L"m_hKey is null, query reg = v", L"read reg lastError = 2"};
    EXPECT_EQ(test::takeLog(), told);
}

TEST_F(RegistryTest, ReadsNoOtherTypeAsText) {
    const DWORD number = 0x00410041;
    const struct {
        DWORD type;
        const void* data;
        DWORD size;
    } cases[] = {{REG_DWORD, &number, 4}, {REG_BINARY, L"ab", 4}, {REG_MULTI_SZ, L"a\0", 6}};
    for (const auto& [type, data, size] : cases) {
        setRaw(type, data, size);
        EXPECT_EQ(read(), ERROR_INVALID_DATA) << type;
        EXPECT_EQ(value, L"before");
        EXPECT_EQ(test::takeLog(),
                  std::vector{L"read reg = v, type = " + std::to_wstring(type) + L" is not text"});
    }
}

TEST_F(RegistryTest, ReadsTextWithoutATerminatorToItsEnd) {
    EXPECT_EQ(key.RegWrite(L"v", std::wstring(1000, L'x')), 0); // what a later read must not meet
    EXPECT_EQ(read(), 0);
    setRaw(REG_SZ, L"abcdef", 6);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(value, L"abc");
    setRaw(REG_SZ, L"abcdef", 5);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(value, L"ab");
    setRaw(REG_SZ, L"ab\0cd", 12);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(value, L"ab");
}

TEST_F(RegistryTest, RefusesTextBeyondItsBuffer) {
    EXPECT_EQ(key.RegWrite(L"v", std::wstring(1022, L'x')), 0);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(value.size(), 1022u);
    EXPECT_EQ(key.RegWrite(L"v", std::wstring(1023, L'x')), 0); // 2048 bytes with its terminator
    EXPECT_EQ(read(), ERROR_MORE_DATA);
    EXPECT_EQ(value, L"before");
    EXPECT_EQ(test::takeLog(), std::vector{L"read reg lastError = " + std::to_wstring(ERROR_MORE_DATA)});
}

} // namespace
