#include "utility/handles.h"
#include "utility/window_ipc.h"

#include <cstdlib>
#include <cwchar>
#include <string>
#include <string_view>

// The other program of the tests:
//   exit N            ends with that exit code
//   touch FILE N      makes the file, then ends with that exit code
//   await EVENT FILE  lives until that event is set or gone, a minute at most, then makes the file
//   tell FILE TEXT    makes the file anew, with that text of one byte a letter
//   post CLASS M W L  posts one message to the window channel; 0 if it was taken

// A window program, though without a window: a console would take longer than the test.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    const int count = __argc;
    wchar_t** const arguments = __wargv;
    const std::wstring_view command = count > 1 ? arguments[1] : L"";
    const auto number = [&](int index) {
        return index < count ? std::wcstol(arguments[index], nullptr, 10) : 0;
    };
    const auto touch = [](const wchar_t* file, DWORD how = CREATE_NEW) {
        return utility::FileOwner(CreateFileW(file, GENERIC_WRITE, 0, nullptr, how, 0, nullptr));
    };
    if (command == L"exit")
        return number(2);
    if (command == L"await" && count > 3) {
        WaitForSingleObject(OpenEventW(SYNCHRONIZE, FALSE, arguments[2]), 60000);
        touch(arguments[3]);
        return 0;
    }
    if (command == L"touch" && count > 2) {
        touch(arguments[2]);
        return number(3);
    }
    if (command == L"tell" && count > 3) {
        const std::string text(arguments[3], arguments[3] + std::wcslen(arguments[3]));
        DWORD written = 0;
        WriteFile(touch(arguments[2], CREATE_ALWAYS).get(), text.data(), static_cast<DWORD>(text.size()),
                  &written, nullptr);
        return 0;
    }
    if (command == L"post" && count > 2) {
        utility::WindowIPC channel;
        return channel.open(arguments[2]) && channel.postMessage(number(3), number(4), number(5)) ? 0 : 1;
    }
    return 2;
}
