#include "archive/block_stream.h"

#include "archive/filters.h"

#include <algorithm>
#include <cstring>

namespace archive {

SRes BlockStream::run(uint64_t packSize, uint64_t unpackSize) {
    packLeft = packSize;
    unpackLeft = unpackSize;
    for (bool finished = false; !finished;) {
        StreamDecoder::Step step;
        const SRes status = decodeWindow(step);
        if (status != SZ_OK)
            return status;
        finished = isFinished(step);
        // A short piece would pass a filter unconverted, which only the end may.
        if (!finished && filled >= FilterStage::minimumPiece && !offer())
            return SZ_ERROR_OUTPUT_EOF;
    }
    while (filled > 0)
        if (!offer())
            return SZ_ERROR_OUTPUT_EOF;
    return SZ_OK;
}

SRes BlockStream::decodeWindow(StreamDecoder::Step& step) {
    const void* window = buffer; // an address even for an empty window
    auto size = static_cast<size_t>(std::min<uint64_t>(packLeft, SIZE_MAX));
    const SRes looked = size ? ILookInStream_Look(input, &window, &size) : SZ_OK;
    if (looked != SZ_OK)
        return looked;
    const size_t room = bufferSize - filled;
    const bool last = room >= unpackLeft;
    const SRes status = decoder.decode(buffer + filled, last ? static_cast<size_t>(unpackLeft) : room, last,
                                       static_cast<const uint8_t*>(window), size, step);
    packLeft -= step.consumed;
    unpackLeft -= step.produced;
    filled += step.produced;
    if (status != SZ_OK)
        return status;
    const SRes progress = checkProgress(step, size == 0 && packLeft > 0);
    return progress != SZ_OK ? progress : ILookInStream_Skip(input, step.consumed);
}

SRes BlockStream::checkProgress(const StreamDecoder::Step& step, bool noInput) const {
    // An end mark before the output is whole would leave the next block's bytes to the
    // wrong entries.
    if (step.endMark)
        return unpackLeft > 0 ? SZ_ERROR_DATA : SZ_OK;
    if (step.consumed > 0 || step.produced > 0 || isFinished(step))
        return SZ_OK;
    return noInput ? SZ_ERROR_INPUT_EOF : SZ_ERROR_DATA;
}

bool BlockStream::isFinished(const StreamDecoder::Step& step) const {
    return step.endMark || (packLeft == 0 && unpackLeft == 0 && step.maybeFinished);
}

bool BlockStream::offer() {
    const size_t taken = sink.write(buffer, filled);
    filled -= taken;
    memmove(buffer, buffer + taken, filled);
    return taken > 0;
}

} // namespace archive
