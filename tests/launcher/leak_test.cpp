// Many runs of each flow leave the process with what it held before.

#include "kit/process_counts.h"
#include "tests/launcher/flow_fixture.h"

using launcher_test::Flow;
using launcher_test::Package;
using launcher_test::PackagePath;
using launcher_test::someBytes;

namespace {

constexpr int WarmUp = 3;
constexpr int ServerThreads = 48; // each takes a handle with its first request
// The system's own pools breathe; a leak would show once a cycle.
constexpr unsigned Breath = 10;

class FlowLeaks : public Flow {
protected:
    void SetUp() override {
        Flow::SetUp();
        server.publish("/vyn/config_sea.data", "{}");
        for (int i = 0; i < 2 * ServerThreads; ++i)
            runConfigThread(model());
    }

    template <class Cycle>
    void expectNoGrowth(int cycles, Cycle cycle) {
        for (int i = 0; i < WarmUp; ++i)
            ASSERT_NO_FATAL_FAILURE(cycle());
        const kit::ProcessCounts before = counts();
        for (int i = 0; i < cycles; ++i)
            ASSERT_NO_FATAL_FAILURE(cycle()) << i;
        const kit::ProcessCounts after = counts();
        printf("handles %u to %u, threads %u to %u, windows %u to %u, GDI objects %u to %u\n", before.handles,
               after.handles, before.threads, after.threads, before.windows, after.windows, before.gdi,
               after.gdi);
        EXPECT_LT(after.handles, before.handles + Breath);
        EXPECT_LT(after.threads, before.threads + Breath);
        EXPECT_LT(after.windows, before.windows + Breath);
        EXPECT_LT(after.gdi, before.gdi + Breath);
    }

private:
    static kit::ProcessCounts counts() {
        kit::ProcessCounts counts;
        EXPECT_TRUE(kit::readProcessCounts(GetCurrentProcessId(), counts));
        return counts;
    }
};

TEST_F(FlowLeaks, PlayerDownloadAndInstallation) {
    constexpr int cycles = 100; // each starts some twenty programs: the slow one
    server.publish(PackagePath, read(L"player.7z"));
    int installed = 0;
    expectNoGrowth(cycles, [&] {
        DeleteFileW(at(Package).c_str());
        clickStart();
        ++installed;
        ASSERT_TRUE(pumpUntilLogged(L"driverconfig.exe], param", installed));
        frame->resetAfterPathChange();
    });
    EXPECT_EQ(requests(PackagePath), WarmUp + cycles);
}

TEST_F(FlowLeaks, GamePackage) {
    constexpr int cycles = 100;
    server.publish("/game.apk", someBytes(50'000));
    server.publish("/vyn/config_sea.data",
                   R"({"appminversion":5210,"apkurl":")" + server.url("/game.apk") + "\"}");
    runConfigThread(model());
    write(L"my 게임\\vynclient.exe", "no program");
    int started = 0;
    expectNoGrowth(cycles, [&] {
        write(L"my 게임\\data\\appversion1000", "5000");
        frame->_checkGameAndAppVersion();
        clickStart();
        ++started;
        ASSERT_TRUE(pumpUntilLogged(L"show=0|package=com.play.vysea|apk=", started));
        frame->resetAfterPathChange();
    });
    EXPECT_EQ(requests("/game.apk"), WarmUp + cycles);
}

TEST_F(FlowLeaks, RemoteConfiguration) {
    server.publish("/vyn/config_sea.data", R"({"appminversion":5210})");
    expectNoGrowth(100, [&] { runConfigThread(model()); });
}

} // namespace
