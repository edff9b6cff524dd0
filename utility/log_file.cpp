#include "utility/log_file.h"

#include <algorithm>
#include <share.h>

namespace common {

LogFile::LogFile(const std::wstring& path) : path(path) {
    if (isOldFormat())
        open(L"wb");
    stream = open(L"at");
}

void LogFile::append(const std::string& text) {
    if (!stream) // a second start may have emptied the folder while this one opened the file
        stream = open(L"at");
    if (!stream)
        return;
    std::fwrite(text.data(), 1, text.size(), stream.get());
    std::fflush(stream.get());
    std::clearerr(stream.get()); // a disk may be full now and have room later
    if (_ftelli64(stream.get()) >= SizeLimit)
        rotate();
}

LogFile::Stream LogFile::open(const wchar_t* mode) const {
    return Stream(_wfsopen(path.c_str(), mode, _SH_DENYNO));
}

bool LogFile::isOldFormat() const {
    const Stream file = open(L"rb");
    return file && std::fgetc(file.get()) == 0xFF && std::fgetc(file.get()) == 0xFE;
}

void LogFile::rotate() {
    const std::string tail = readTail();
    stream.reset();
    if (const Stream emptied = open(L"wb"))
        std::fwrite(tail.data(), 1, tail.size(), emptied.get());
    stream = open(L"at");
}

// As it stands on disk, up to the first zero byte. Read as text it would end at a
// Control-Z in a message.
std::string LogFile::readTail() const {
    std::string tail(TailSize, '\0');
    const Stream file = open(L"rb");
    if (file && _fseeki64(file.get(), -static_cast<long long>(TailSize), SEEK_END) == 0)
        std::fread(tail.data(), 1, TailSize, file.get());
    tail.resize(std::min(tail.find('\0'), tail.size()));
    return tail;
}

} // namespace common
