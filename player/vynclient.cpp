#include "player/game_window.h"
#include "player/launcher_channel.h"

#include <map>
#include <string>

// The game client. Without parameters it is the game: a window, and a word to the
// launcher when it ends. With a command string it installs a game package, tells the
// launcher so and ends.

namespace {

// "show=0|package=com.example|apk=C:\some path\file.apk": fields split by bars, the
// value is all that stands behind the first equals sign.
std::map<std::wstring, std::wstring> parseCommand(const std::wstring& text) {
    std::map<std::wstring, std::wstring> fields;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find(L'|', begin), text.size());
        const std::wstring field = text.substr(begin, end - begin);
        const size_t equals = field.find(L'=');
        if (equals != std::wstring::npos)
            fields[field.substr(0, equals)] = field.substr(equals + 1);
        begin = end + 1;
    }
    return fields;
}

std::wstring ownFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring text = path;
    return text.substr(0, text.rfind(L'\\') + 1);
}

// The emulator's list of packages: the package's copy under its Android name.
bool installPackage(const std::wstring& package, const std::wstring& apk) {
    if (package.empty() || package.find_first_of(L"\\/:") != std::wstring::npos)
        return false;
    const std::wstring folder = ownFolder() + L"data\\packages\\";
    CreateDirectoryW((ownFolder() + L"data").c_str(), nullptr);
    CreateDirectoryW(folder.c_str(), nullptr);
    return CopyFileW(apk.c_str(), (folder + package + L".apk").c_str(), FALSE);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int show) {
    auto fields = parseCommand(commandLine);
    if (fields.count(L"apk")) {
        if (!installPackage(fields[L"package"], fields[L"apk"]))
            return 1;
        player::tellLauncher(player::PackageInstalled);
        return 0;
    }
    player::runGameWindow(instance, show);
    player::tellLauncher(player::GameEnded);
    return 0;
}
