#include "bench/publisher_process.h"

#include "utility/files.h"

#include <cstdio>

namespace bench {

PublisherProcess::PublisherProcess(const std::wstring& folder, int wantedPort) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    utility::KernelHandle output, input;
    if (!CreatePipe(output.out(), input.out(), &inherited, 0))
        return;
    std::wstring line = L"\"" + utility::ufile::getModuleDir() + L"publisher.exe\" \"" + folder +
                        L"\" --port " + std::to_wstring(wantedPort);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = input.get();
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started))
        return;
    process.reset(started.hProcess);
    utility::KernelHandle(started.hThread).reset();
    input.reset(); // so that the read ends if the publisher does
    char text[64] = {};
    DWORD length = 0;
    if (ReadFile(output.get(), text, sizeof text - 1, &length, nullptr))
        std::sscanf(text, "listening %d", &listening);
}

PublisherProcess::~PublisherProcess() {
    TerminateProcess(process.get(), 0);
    WaitForSingleObject(process.get(), INFINITE);
}

} // namespace bench
