#pragma once

// The process-wide state of libcurl, from the program's start to its end. Releasing it
// under a running transfer is an access violation in that transfer's thread, and at the end
// of the program such threads exist: nobody joins them.

namespace utility {

class CurlLibrary {
public:
    // Window thread, before the first transfer.
    static void start();

    // Refuses transfers from here on, and releases the library unless one still runs: then
    // it is left to the end of the process, which is near. Window thread, repeatable.
    static void end();

    // One transfer: made before its first call of libcurl, gone after its last. Any thread.
    // A thread that is ended by force keeps its transfer for good, as it keeps what it has
    // open in the library.
    class Transfer {
    public:
        Transfer();
        ~Transfer();
        Transfer(const Transfer&) = delete;
        Transfer& operator=(const Transfer&) = delete;

        explicit operator bool() const { return admitted; } // false: refused

    private:
        bool admitted;
    };
};

} // namespace utility
