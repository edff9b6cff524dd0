#pragma once

#include "archive/byte_sink.h"
#include "archive/stream_decoder.h"

#include <7zTypes.h>

#include <cstdint>

namespace archive {

// One block on its way from the archive to a sink, through one buffer. Input comes in
// windows of the look-ahead stream, output goes on after each of them, so that neither
// the packed nor the unpacked block is ever in memory as a whole.
class BlockStream {
public:
    static constexpr size_t bufferSize = 256 << 10;

    // The input stands at the packed bytes; buffer holds bufferSize bytes of the caller's.
    BlockStream(ILookInStreamPtr input, StreamDecoder& decoder, ByteSink& sink, uint8_t* buffer)
        : input(input), decoder(decoder), sink(sink), buffer(buffer) {}

    SRes run(uint64_t packSize, uint64_t unpackSize);

private:
    SRes decodeWindow(StreamDecoder::Step& step);
    SRes checkProgress(const StreamDecoder::Step& step, bool noInput) const;
    bool isFinished(const StreamDecoder::Step& step) const;
    bool offer(); // false when the sink accepts nothing

    ILookInStreamPtr input;
    StreamDecoder& decoder;
    ByteSink& sink;
    uint8_t* buffer;
    size_t filled = 0;
    uint64_t packLeft = 0;
    uint64_t unpackLeft = 0;
};

} // namespace archive
