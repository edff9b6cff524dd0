#include "tests/net/net_fixture.h"
#include "tests/support/log_watch.h"
#include "update/QzHubUpdateModel.h"
#include "utility/encoding.h"
#include "utility/files.h"

namespace {

struct CheckResult {
    std::wstring version;
    std::wstring content;
    bool force = false;
};

// The window thread is the test's: results arrive when it pumps its messages.
class UpdateModel : public NetTest {
protected:
    void SetUp() override {
        NetTest::SetUp();
        common::startServices();
        test::watchLog();
        updateFolder = utility::ufile::getModuleDir() + L"update";
        model = std::make_unique<QzHubUpdateModel>(url("/vyn/update_en.data"));
        model->onCheckResult = [this](const std::wstring& version, const std::wstring& content, bool force) {
            results.push_back({version, content, force});
        };
        model->onDownloadPercent = [this](int percent) { percents.push_back(percent); };
        model->onDownloadFailed = [this] { ++failures; };
    }

    void TearDown() override {
        model->checkClient.stop();
        model->downloadClient.stop();
        common::stopServices();
        EXPECT_TRUE(!utility::ufile::isExist(updateFolder) || utility::ufile::removeDir(updateFolder));
        NetTest::TearDown();
    }

    // version: also a file name's part. Further members may be appended.
    void publishDocument(const std::string& version, const std::string& more = {}) {
        server.publish("/vyn/update_en.data", R"({"ver":10100,"strVer":")" + version + R"(","url":")" +
                                                  server.url("/file") + R"(","content":"notes")" + more +
                                                  "}");
    }

    bool pumpUntil(const std::function<bool()>& condition) {
        return waitFor([&] {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
            return condition();
        });
    }

    CheckResult check(bool silent) {
        results.clear();
        model->checkVersion(silent);
        EXPECT_TRUE(pumpUntil([this] { return !results.empty(); }));
        return results.empty() ? CheckResult{} : results.front();
    }

    std::wstring program() const { return updateFolder + L"\\vyn_1.1.0.exe"; }
    std::wstring partial() const { return program() + L".tmp"; }

    std::wstring updateFolder;
    std::unique_ptr<QzHubUpdateModel> model;
    std::vector<CheckResult> results;
    std::vector<int> percents;
    int failures = 0;
    std::string body = patternBytes(500000);
};

} // namespace

TEST_F(UpdateModel, reportsWhatTheDocumentSays) {
    publishDocument("1.1.0");
    EXPECT_EQ(check(true).version, L"");
    CheckResult asked = check(false);
    EXPECT_EQ(asked.version, L"1.1.0");
    EXPECT_EQ(asked.content, L"notes");
    EXPECT_FALSE(asked.force);

    publishDocument("1.1.0", R"(,"forceVer":10001,"en":"english notes")");
    CheckResult forced = check(true);
    EXPECT_EQ(forced.version, L"1.1.0");
    EXPECT_EQ(forced.content, L"english notes");
    EXPECT_TRUE(forced.force);
}

TEST_F(UpdateModel, refusesAVersionThatIsNoPlainWord) {
    for (const char* version : {"..\\\\..\\\\evil", "1/2", "a:b", "con\\u0000", "1 0", ""}) {
        publishDocument(version);
        EXPECT_EQ(check(false).version, L"") << version;
    }
    EXPECT_EQ(logged(L"update refused"), 6);
}

TEST_F(UpdateModel, aServerThatFailsThreeTimesMeansNoUpdate) {
    publishDocument("1.1.0");
    server.addFault("/vyn/update_en.data", {publisher::FaultKind::Status, 500, {}, 3});
    model->checkVersion(false);
    model->checkVersion(false); // dropped: one is in flight
    ASSERT_TRUE(pumpUntil([this] { return !results.empty(); }));
    EXPECT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].version, L"");
    EXPECT_EQ(server.requests().size(), 3u);

    server.addFault("/vyn/update_en.data", {publisher::FaultKind::Cut, 30, {}, 1});
    EXPECT_EQ(check(false).version, L"1.1.0") << "the piece of the failed round is forgotten";
}

TEST_F(UpdateModel, putsTheNewProgramInPlace) {
    server.publish("/file", body);
    spoil("cut,100000,1");
    publishDocument("1.1.0");
    check(false);
    ASSERT_TRUE(utility::ufile::makeDir(updateFolder));
    writeFile(program(), "old program");
    writeFile(partial(), std::string(900000, 'o'));

    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return !percents.empty() && percents.back() == 100; }));
    EXPECT_TRUE(model->needUpdate);
    EXPECT_EQ(model->getPackagePath(), program());
    EXPECT_TRUE(readFile(program()) == body);
    EXPECT_FALSE(utility::ufile::isExist(partial()));
    ASSERT_GE(percents.size(), 2u);
    EXPECT_EQ(percents[percents.size() - 2], 99);
    EXPECT_EQ(std::count(percents.begin(), percents.end(), 100), 1);
    EXPECT_EQ(logged(L"update: download error 0"), 1);
}

TEST_F(UpdateModel, aStoppedDownloadReportsNothing) {
    server.publish("/file", body);
    spoil("slow,300000");
    publishDocument("1.1.0");
    check(false);
    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return utility::ufile::isExist(partial()); }));
    model->downloadClient.stop();
    EXPECT_EQ(logged(L"update: download error 0"), 1);
    EXPECT_EQ(logged(L"update: download error 1"), 0);
    EXPECT_FALSE(model->needUpdate);
    EXPECT_FALSE(utility::ufile::isExist(program()));

    server.clearFaults();
    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return model->needUpdate.load(); }));
    EXPECT_TRUE(readFile(program()) == body);
}

TEST_F(UpdateModel, aDownloadThatFailsThreeTimesSaysSoAndMayBeTriedAgain) {
    server.publish("/file", body);
    spoil("status,500,3");
    publishDocument("1.1.0");
    check(false);
    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return failures > 0; }));
    EXPECT_EQ(logged(L"update: download error"), 3);
    EXPECT_FALSE(model->needUpdate);

    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return model->needUpdate.load(); }));
    EXPECT_EQ(failures, 1);
    EXPECT_TRUE(readFile(program()) == body);

    spoil("hang");
    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return !utility::ufile::isExist(program()); }));
    EXPECT_FALSE(model->needUpdate) << "there is nothing to hand over to";
}

TEST_F(UpdateModel, doesNotWriteIntoTheDownloadOfAnotherSession) {
    server.publish("/file", body);
    publishDocument("1.1.0");
    check(false);
    ASSERT_TRUE(utility::ufile::makeDir(updateFolder));
    utility::ufile::FileHandle other;
    ASSERT_TRUE(other.create(partial()));
    EXPECT_TRUE(other.write("half", 4));
    model->startDownload();
    EXPECT_TRUE(pumpUntil([this] { return failures > 0; }));
    test::allowErrors(L"removeFile file from"); // the other session holds it open
    EXPECT_FALSE(model->needUpdate);
    EXPECT_EQ(server.requests().size(), 1u) << "of the document alone";
    other.close();
    EXPECT_EQ(readFile(partial()), "half");
    model->startDownload();
    EXPECT_TRUE(pumpUntil([this] { return model->needUpdate.load(); }));
}

TEST_F(UpdateModel, aCancelledDownloadTellsNobodyAndACancelledCheckIsOver) {
    server.publish("/file", body);
    spoil("slow,300000");
    publishDocument("1.1.0");
    check(false);
    model->startDownload();
    ASSERT_TRUE(pumpUntil([this] { return utility::ufile::isExist(partial()); }));
    server.addFault("/vyn/update_en.data", {publisher::FaultKind::Hang, 0, {}, 1});
    results.clear();
    model->checkVersion(false);
    ASSERT_TRUE(pumpUntil([this] { return server.requests().size() == 3; }));
    percents.clear();
    test::allowErrors(L"update: download error"); // what a stop looks like
    model->cancel();
    ASSERT_TRUE(pumpUntil([this] { return !results.empty(); })) << "who waits for the check is told";
    EXPECT_EQ(results[0].version, L"");
    EXPECT_TRUE(percents.empty());
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(model->needUpdate);
    EXPECT_EQ(check(false).version, L"1.1.0") << "the next check is not taken for a second one";
}
