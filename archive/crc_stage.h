#pragma once

#include "archive/byte_sink.h"

#include <7zCrc.h>

namespace archive {

// Runs a CRC-32 over what the sink behind it accepts.
class CrcStage final : public ByteSink {
public:
    explicit CrcStage(ByteSink& next) : next(next) {}

    size_t write(uint8_t* data, size_t length) override {
        const size_t taken = next.write(data, length);
        crc = CrcUpdate(crc, data, taken);
        return taken;
    }

    UInt32 value() const { return CRC_GET_DIGEST(crc); }

private:
    ByteSink& next;
    UInt32 crc = CRC_INIT_VAL;
};

} // namespace archive
