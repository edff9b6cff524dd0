// Repeated runs of each flow leave the process with what it held before.

#include "kit/process_counts.h"
#include "tests/launcher/flow_fixture.h"

#include "utility/curl_downloader.h"

#include <future>
#include <vector>

using namespace launcher_test;

namespace {

constexpr int ServerThreads = 48; // each takes a handle with its first request

class FlowLeaks : public Flow {
protected:
    void SetUp() override {
        Flow::SetUp();
        server.publish("/warm", "{}");
        addFault("/warm", publisher::FaultKind::Slow, 4); // so that they are answered side by side
        std::vector<std::future<void>> answers;
        for (int i = 0; i < ServerThreads; ++i)
            answers.push_back(std::async(std::launch::async, [address = server.url("/warm")] {
                std::string text;
                utility::QzCurlDownloader::downloadMemory(address, text);
            }));
    }

    // The system's own pools breathe, but what every cycle leaves behind adds up: then no count
    // near the end is as low as one near the beginning.
    template <class Cycle>
    void expectNoGrowth(int cycles, Cycle cycle, unsigned tolerance = 0) {
        constexpr int warmUp = 2;
        std::vector<kit::ProcessCounts> all;
        for (int i = 0; i < warmUp + cycles; ++i) {
            ASSERT_NO_FATAL_FAILURE(cycle()) << i;
            if (i >= warmUp)
                all.push_back(counts());
        }
        for (const auto member : {&kit::ProcessCounts::handles, &kit::ProcessCounts::threads,
                                  &kit::ProcessCounts::windows, &kit::ProcessCounts::gdi}) {
            const auto highest = std::ranges::max_element(all.begin(), all.begin() + cycles / 3, {}, member);
            const auto lowest = std::ranges::min_element(all.end() - cycles / 3, all.end(), {}, member);
            EXPECT_LE((*lowest).*member, (*highest).*member + tolerance);
        }
    }

private:
    static kit::ProcessCounts counts() {
        kit::ProcessCounts counts;
        EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), counts));
        return counts;
    }
};

class PlayerLeaks : public FlowLeaks {
protected:
    void expectNoGrowthOfInstallations(int cycles, unsigned tolerance) {
        publishPlayer();
        int installed = 0;
        expectNoGrowth(
            cycles,
            [&] {
                DeleteFileW(at(Package).c_str());
                clickStart();
                ASSERT_TRUE(pumpUntilLogged(L"driverconfig.exe], param", ++installed));
                ASSERT_TRUE(pumpUntilTold(L"flow_no_client"));
                frame->resetAfterPathChange();
            },
            tolerance);
        EXPECT_EQ(requests(PackagePath), installed);
    }
};

TEST_F(PlayerLeaks, DownloadAndInstallation) {
    expectNoGrowthOfInstallations(12, 0);
}

// What the installation leaves of its seventeen processes shows at once.
TEST_F(PlayerLeaks, ProgramsOfAnInstallation) {
    test::allowErrors(L"execute exitcode");
    ASSERT_TRUE(CopyFileW(at(L"child.exe").c_str(), at(L"taskkill.exe").c_str(), FALSE));
    expectNoGrowthOfInstallations(3, 16); // fewer than one of each
    EXPECT_GT(logged(L"execute exitcode"), 80);
    EXPECT_TRUE(CopyFileW(at(L"multi_language.tsv").c_str(), at(L"taskkill.exe").c_str(), FALSE));
}

TEST_F(FlowLeaks, GamePackage) {
    publishGame(someBytes(50'000));
    int started = 0;
    expectNoGrowth(12, [&] {
        write(L"my 게임\\data\\appversion1000", "5000");
        frame->_checkGameAndAppVersion();
        clickStart();
        ASSERT_TRUE(pumpUntilLogged(L"show=0|package=com.play.vysea|apk=", ++started));
        frame->resetAfterPathChange();
    });
    EXPECT_EQ(requests(GamePath), started);
}

TEST_F(FlowLeaks, RemoteConfiguration) {
    server.publish("/vyn/config_sea.data", R"({"appminversion":5210})");
    expectNoGrowth(30, [&] { runConfigThread(model()); });
}

} // namespace
