// One launcher at a time, and the channel over which a second start and the game client
// speak to it.

#include "launcher/qzvy/ChannelMessages.h"
#include "launcher/qzvy/QzVyImpl.h"
#include "launcher/qzvy/QzVyMainFrame.h"
#include "shell/QzVySetupImpl.h"
#include "utility/log.h"
#include "utility/system.h"

using namespace utility;

namespace {

// Names the mutex and, as a window class, the channel.
constexpr wchar_t InstanceName[] = L"{6A43FC71-98D6-43A1-83F3-6A53B0D557FD}";

} // namespace

bool QzVyImpl::isPlayerExist() {
    instanceMutex.reset(usystem::createSingleMutex(InstanceName, false, true));
    if (instanceMutex) {
        windowIpc.create(InstanceName, this);
        return false;
    }
    // The user started this process, so the right to take the foreground lies here.
    AllowSetForegroundWindow(ASFW_ANY);
    WindowIPC first;
    if (first.open(InstanceName))
        first.postMessage(RaiseWindow, 0, 0);
    common::log("QzVyImpl::isPlayerExist", __LINE__, L"CCmdLine::popupExistPwnd exist");
    return true;
}

void QzVyImpl::onHandleWindowIPC(UINT message, WPARAM, LPARAM) {
    constexpr char Function[] = "QzVyImpl::onHandleWindowIPC";
    common::log(Function, __LINE__, L"onHandleWindowIPC, msg = %d", message);
    switch (message) {
    case RaiseWindow:
        if (!mainFrame)
            return;
        raiseMainFrame();
        common::log(Function, __LINE__, L"handle ipc topwindow");
        return;
    case GameEnded:
        common::log(Function, __LINE__, L"game exist");
        if (QzVySetupImpl::instance().existgame)
            raiseMainFrame();
        return;
    case GameInstalled:
        common::log(Function, __LINE__, L"game installed");
        if (mainFrame)
            mainFrame->finishInstall();
        return;
    }
}

void QzVyImpl::raiseMainFrame() {
    if (mainFrame)
        usystem::bringToFrontWithDialog(mainFrame->window().GetHWND());
}
