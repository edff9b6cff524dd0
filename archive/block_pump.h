#pragma once

#include "archive/archive_sink.h"
#include "archive/decoder_memory.h"

#include <7z.h>

namespace archive {

// Sends all blocks of an archive through a sink, in their order. A block that can be
// streamed is; any other is decoded as a whole in memory, which is how the four-stream
// filter of x86 code passes.
class BlockPump {
public:
    BlockPump(const CSzArEx& archive, ILookInStreamPtr input, ArchiveSink& sink, DecoderMemory& memory)
        : archive(archive),
          input(input),
          sink(sink),
          memory(memory),
          streamBuffer(memory),
          wholeBlock(memory) {}

    // The first status that is not SZ_OK ends it. The sink's own error stands in the sink.
    SRes run();

private:
    SRes pump(uint32_t block);
    SRes stream(uint32_t block, uint64_t unpackSize);
    SRes streamInto(ByteSink& output, uint32_t block, const CSzCoderInfo& coder, uint64_t unpackSize);
    SRes decodeWhole(uint32_t block, uint64_t unpackSize);
    const Byte* coderData(uint32_t block) const;

    const CSzArEx& archive;
    ILookInStreamPtr input;
    ArchiveSink& sink;
    DecoderMemory& memory;
    DecoderBlock streamBuffer;
    DecoderBlock wholeBlock;
};

} // namespace archive
