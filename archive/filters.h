#pragma once

#include "archive/byte_sink.h"

#include <7z.h>
#include <Bra.h>
#include <Delta.h>

namespace archive {

// Undoes a branch or delta filter on the way to a sink. A branch filter cannot decide on
// the last few bytes of a piece, so that it accepts less than it is offered. What it can
// convert nothing of passes as it is: that is right for the end of a block alone, so a
// piece before the end must hold at least minimumPiece bytes.
class FilterStage final : public ByteSink {
public:
    // Longest instruction of any filter with what it looks ahead.
    static constexpr size_t minimumPiece = 32;

    static bool isSupported(const CSzCoderInfo& coder);

    // The coder must be supported; properties are its PropsSize bytes.
    FilterStage(const CSzCoderInfo& coder, const Byte* properties, ByteSink& next);

    size_t write(uint8_t* data, size_t length) override;

private:
    size_t convert(uint8_t* data, size_t length); // the count of bytes that are done

    ByteSink& next;
    UInt32 method;
    UInt32 position = 0; // in the block; branch targets depend on it
    UInt32 x86State = Z7_BRANCH_CONV_ST_X86_STATE_INIT_VAL;
    unsigned distance = 0;
    Byte deltaState[DELTA_STATE_SIZE];
};

} // namespace archive
