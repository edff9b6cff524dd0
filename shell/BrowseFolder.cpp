#include "shell/BrowseFolder.h"

#include "utility/task_dispatcher.h"

#include <optional>
#include <shlobj.h>

namespace {

int CALLBACK selectPresent(HWND dialog, UINT message, LPARAM, LPARAM present) {
    if (message == BFFM_INITIALIZED)
        SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, present);
    return 0;
}

std::optional<std::wstring> runDialog(HWND owner, const std::wstring& present) {
    BROWSEINFOW dialog{};
    dialog.hwndOwner = owner;
    dialog.lpszTitle = L"Install Path";
    dialog.ulFlags = BIF_RETURNONLYFSDIRS | BIF_EDITBOX | BIF_NEWDIALOGSTYLE;
    dialog.lpfn = selectPresent;
    dialog.lParam = reinterpret_cast<LPARAM>(present.c_str());
    const PIDLIST_ABSOLUTE item = SHBrowseForFolderW(&dialog);
    if (!item)
        return std::nullopt;
    wchar_t path[MAX_PATH] = {};
    const bool named = SHGetPathFromIDListW(item, path);
    CoTaskMemFree(item);
    return named ? std::optional<std::wstring>(path) : std::nullopt;
}

} // namespace

void browseForFolder(HWND owner, const std::wstring& present,
                     std::function<void(const std::wstring& choice)> onChosen) {
    common::postToWindowThread([owner, present, onChosen] {
        if (!IsWindow(owner))
            return;
        const auto choice = runDialog(owner, present);
        if (choice && IsWindow(owner))
            onChosen(*choice);
    });
}
