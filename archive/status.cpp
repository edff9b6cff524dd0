#include "archive/status.h"

#include "archive/extract.h"

#include <algorithm>
#include <iterator>

namespace archive {

int resultOfStatus(SRes status) {
    switch (status) {
    case SZ_OK:
        return Ok;
    case SZ_ERROR_DATA:
        return DataError;
    case SZ_ERROR_MEM:
        return OutOfMemory;
    case SZ_ERROR_CRC:
        return CrcError;
    case SZ_ERROR_UNSUPPORTED:
        return Unsupported;
    case SZ_ERROR_PARAM:
        return BadParameter;
    case SZ_ERROR_INPUT_EOF:
        return InputEnd;
    case SZ_ERROR_OUTPUT_EOF:
        return OutputEnd;
    case SZ_ERROR_READ:
        return ReadError;
    case SZ_ERROR_WRITE:
        return WriteError;
    case SZ_ERROR_PROGRESS:
        return ProgressStop;
    case SZ_ERROR_FAIL:
        return Inconsistent;
    case SZ_ERROR_THREAD:
        return ThreadError;
    case SZ_ERROR_ARCHIVE:
        return BadArchive;
    case SZ_ERROR_NO_ARCHIVE:
        return NoArchive;
    default:
        return Unknown;
    }
}

const char* resultName(int result) {
    static constexpr struct {
        int result;
        const char* name;
    } names[] = {
        {Ok, "ok"},
        {Unknown, "unknown decoder status"},
        {DataError, "corrupt data"},
        {OutOfMemory, "out of memory"},
        {Unsupported, "coder not supported"},
        {BadParameter, "bad parameter"},
        {CrcError, "crc mismatch"},
        {InputEnd, "input ended early"},
        {OutputEnd, "output stopped"},
        {ReadError, "read error"},
        {WriteError, "write error"},
        {ProgressStop, "progress stop"},
        {Inconsistent, "inconsistent block"},
        {ThreadError, "thread error"},
        {BadArchive, "malformed archive"},
        {NoArchive, "not an archive"},
        {OpenFailed, "output file not opened"},
        {WriteFailed, "output file not written"},
        {Cancelled, "cancelled"},
    };
    auto found = std::find_if(std::begin(names), std::end(names),
                              [&](const auto& entry) { return entry.result == result; });
    return found == std::end(names) ? "no such result" : found->name;
}

} // namespace archive
