#include "shell/view/TrayIconWindow.h"

#include "utility/system.h"

namespace view {

TrayIconWindow::TrayIconWindow(ITrayIconDelegate& delegate)
    : delegate(delegate), shellStarted(RegisterWindowMessageW(L"TaskbarCreated")) {}

bool TrayIconWindow::create() {
    // The shell runs with lower rights than the launcher.
    utility::usystem::admitMessage(shellStarted);
    return Create(nullptr, L"", WS_POPUP, 0) != nullptr;
}

LRESULT TrayIconWindow::HandleCustomMessage(UINT message, WPARAM, LPARAM lParam, bool& handled) {
    if (message == TrayIconMessage && delegate.onMouseMessage(static_cast<UINT>(lParam))) {
        handled = true;
        return 1;
    }
    if (message == shellStarted && onShellStarted)
        onShellStarted();
    return 0;
}

void TrayIconWindow::OnFinalMessage(HWND handle) {
    WindowImplBase::OnFinalMessage(handle);
    delete this;
}

} // namespace view
