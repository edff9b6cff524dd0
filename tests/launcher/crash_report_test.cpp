// The crash reporter beside the program, and its absence.

#include "launcher/qzvy/CrashReport.h"
#include "tests/launcher/support.h"
#include "tests/support/log_watch.h"

namespace {

class CrashReport : public launcher_test::Stage {
protected:
    void TearDown() override {
        // A library that stays loaded can be moved away, not deleted.
        if (loaded())
            FreeLibrary(loaded());
        DeleteFileW(at(L"crashreport.dll").c_str());
        Stage::TearDown();
    }
    static HMODULE loaded() { return GetModuleHandleW(L"crashreport.dll"); }
    static void place(const wchar_t* library) {
        ASSERT_TRUE(CopyFileW(at(library).c_str(), at(L"crashreport.dll").c_str(), FALSE));
    }
};

TEST_F(CrashReport, IsToldOfTheProgram) {
    place(L"reporter.dll");
    initCrashReport();
    ASSERT_NE(loaded(), nullptr) << "it watches to the end";
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    using Calls = const wchar_t*(__cdecl*)();
    const auto calls = reinterpret_cast<Calls>(GetProcAddress(loaded(), "TakenCalls"));
    ASSERT_NE(calls, nullptr);
    EXPECT_EQ(calls(), L"init qzvy 1.0.0 vy\nshow 0\nrestart " + std::wstring(program) + L"\nfile " +
                           at(L"log\\vynmain.log") + L"\n");
    EXPECT_EQ(logged(L"initCrashReport ret 1"), 1);
}

TEST_F(CrashReport, MayBeMissingOrOfAnotherKind) {
    test::allowErrors(L"initCrashReport error");
    initCrashReport();
    EXPECT_EQ(logged(L"initCrashReport error 1"), 1);
    EXPECT_EQ(loaded(), nullptr);
    wchar_t other[MAX_PATH] = {};
    GetSystemDirectoryW(other, MAX_PATH);
    ASSERT_TRUE(
        CopyFileW((other + std::wstring(L"\\version.dll")).c_str(), at(L"crashreport.dll").c_str(), FALSE));
    initCrashReport();
    EXPECT_EQ(logged(L"initCrashReport error 2"), 1);
}

} // namespace
