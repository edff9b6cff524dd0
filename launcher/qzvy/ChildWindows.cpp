#include "launcher/qzvy/ChildWindows.h"

#include "shell/QzVySetupFrame.h"
#include "update/QzHubUpdateCheckFrame.h"
#include "update/QzNimUpdateFrame.h"
#include "utility/log.h"

#include <memory>
#include <utility>

namespace {

// Makes the window that slot is for, centred and hidden, unless there is one. From then on
// the slot says whether it is there. True when it was made now.
template <class Frame>
bool makeWindow(Frame*& slot, HWND owner) {
    if (slot)
        return false;
    auto frame = std::make_unique<Frame>();
    if (!frame->Create(owner, L"", 0, 0)) {
        common::log("ChildWindows::makeWindow", __LINE__, L"create window error %d", GetLastError());
        return false;
    }
    slot = frame.release(); // its window deletes it
    slot->onClosed = [&slot] { slot = nullptr; };
    slot->CenterWindow();
    return true;
}

// Showing alone does not give the keyboard to a window that is on the screen already.
void showWithFocus(UILib::WindowImplBase& frame) {
    frame.ShowWindow();
    SetForegroundWindow(frame.GetHWND());
}

} // namespace

void ChildWindows::showSettings(HWND owner, std::function<void()> onPathChanged) {
    if (makeWindow(setupFrame, owner)) {
        setupFrame->onPathChanged = std::move(onPathChanged);
        setupFrame->onCheckUpdate = [this, owner] { showUpdateCheck(owner); };
    }
    if (setupFrame)
        showWithFocus(*setupFrame);
}

void ChildWindows::showUpdateCheck(HWND owner) {
    makeWindow(updateCheckFrame, owner);
    if (updateCheckFrame)
        showWithFocus(*updateCheckFrame);
}

void ChildWindows::showUpdateResult(HWND owner, const std::wstring& version, bool force) {
    if (version.empty()) {
        if (updateCheckFrame)
            updateCheckFrame->showUpToDate();
        return;
    }
    if (updateCheckFrame)
        updateCheckFrame->Close();
    showUpdate(owner, version, force);
}

// The modal loop runs once at most, however many results it lets in.
void ChildWindows::showUpdate(HWND owner, const std::wstring& version, bool force) {
    makeWindow(updateFrame, owner);
    if (!updateFrame)
        return;
    const bool modal = updateFrame->isForced();
    updateFrame->setUpdateInfo(version, force);
    if (force && !modal)
        updateFrame->ShowModal();
    else
        updateFrame->ShowWindow();
}
