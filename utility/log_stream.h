#pragma once

#include <ostream>
#include <streambuf>

// The formatter of one log line, a short-lived stream over a fixed buffer of its own:
//
//     month-day TAB hour:minute:second.millisecond TAB thread TAB function TAB (line):text CR LF
//
// Construction writes the header, destruction the line ending, and hands the line to
// the LogWriter. A line that outgrows the buffer fails the stream and is dropped whole:
// no cut line reaches the file. Text is UTF-8.

namespace common {

class LogStream : public std::ostream {
public:
    static constexpr int BufferSize = 8012; // bytes; a line must stay below it

    LogStream(const char* function, int line);
    ~LogStream() override;

private:
    void writeHeader(const char* function, int line);

    class LineBuffer : public std::streambuf {
    public:
        LineBuffer() { setp(bytes, bytes + BufferSize - 1); }
        const char* data() const { return bytes; }
        unsigned length() const { return static_cast<unsigned>(pptr() - pbase()); }

    private:
        char bytes[BufferSize];
    };

    LineBuffer buffer;
};

} // namespace common
