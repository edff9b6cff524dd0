#include "launcher/qzvy/BrowseFolder.h"

#include <shlobj.h>

namespace {

int CALLBACK selectPresent(HWND dialog, UINT message, LPARAM, LPARAM present) {
    if (message == BFFM_INITIALIZED)
        SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, present);
    return 0;
}

} // namespace

std::optional<std::wstring> browseForFolder(HWND owner, const std::wstring& present) {
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
