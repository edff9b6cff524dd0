// Putting an installation right after the player package has been unpacked: end whatever
// may hold its files or its driver, then run its two helpers.

#include "launcher/qzvy/QzVyMainFrame.h"
#include "utility/process.h"

using namespace utility;

namespace {

constexpr unsigned RepairTime = 60000; // milliseconds

struct Victim {
    const wchar_t* parameters;
    unsigned timeoutMs;
};

constexpr Victim KillList[] = {
    {L"/F /IM vynclient.exe", 3000},
    {L"/F /IM vynmulti.exe", 3000},
    {L"/F /IM adb.exe", 3000},
    {L"/F /IM aapt.exe", 3000},
    {L"/F /IM bugreport.exe", 1000},
    {L"/F /IM qz.exe", 3000},
    {L"/F /IM qzconsole.exe", 3000},
    {L"/F /IM vmware-vdiskmanager.exe", 3000},
    {L"/F /IM Qz9BoxHeadless.exe", 10000},
    {L"/F /IM Qz9BoxSVC.exe", 1000},
    {L"/F /IM Qz9VirtualBox.exe", 1000},
    {L"/F /IM driverconfig.exe", 3000},
    {L"/F /IM qzrecord.exe", 1000},
    {L"/F /IM vynrepairer.exe", 3000},
    {L"/F /IM vbox-img.exe", 3000},
};

} // namespace

void QzVyMainFrame::repairPlayer() {
    for (const Victim& victim : KillList) {
        if (stopFlag)
            return;
        process::execute(L"taskkill", victim.parameters, false, victim.timeoutMs);
    }
    process::shellEx(installDir + L"vynrepairer.exe", L"", true, false, RepairTime);
    process::execute(installDir + L"driverconfig.exe", L"", false, 0);
}
