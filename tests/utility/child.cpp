#include "utility/window_ipc.h"

#include <cstdlib>
#include <string_view>

// The other program of the tests:
//   exit N            ends with that exit code
//   touch FILE N      makes the file, then ends with that exit code
//   sleep             lives until it is killed, a minute at most
//   post CLASS M W L  posts one message to the window channel; 0 if it was taken

// A window program, though without a window: a console would take longer than the test.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    const int count = __argc;
    wchar_t** const arguments = __wargv;
    const std::wstring_view command = count > 1 ? arguments[1] : L"";
    const auto number = [&](int index) {
        return index < count ? std::wcstol(arguments[index], nullptr, 10) : 0;
    };
    if (command == L"exit")
        return number(2);
    if (command == L"sleep")
        Sleep(60000);
    if (command == L"touch" && count > 2) {
        CloseHandle(CreateFileW(arguments[2], GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        return number(3);
    }
    if (command == L"post" && count > 2) {
        utility::WindowIPC channel;
        return channel.open(arguments[2]) && channel.postMessage(number(3), number(4), number(5)) ? 0 : 1;
    }
    return 2;
}
