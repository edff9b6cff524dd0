#pragma once

#include "utility/handles.h"

#include <string>

// publisher.exe, which lies beside the benchmarks, over a folder; ends with the object.

namespace bench {

class PublisherProcess {
public:
    // wantedPort 0: one of the system's choice.
    explicit PublisherProcess(const std::wstring& folder, int wantedPort = 0);
    ~PublisherProcess();
    PublisherProcess(const PublisherProcess&) = delete;
    PublisherProcess& operator=(const PublisherProcess&) = delete;

    int port() const { return listening; } // 0: it does not run

private:
    utility::KernelHandle process;
    int listening = 0;
};

} // namespace bench
