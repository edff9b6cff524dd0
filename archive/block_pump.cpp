#include "archive/block_pump.h"

#include "archive/block_stream.h"
#include "archive/crc_stage.h"
#include "archive/filters.h"

#include <optional>

namespace archive {

namespace {

bool isOneCoder(const CSzFolder& folder) {
    return folder.NumCoders == 1 && folder.NumBonds == 0;
}

bool isCoderWithFilter(const CSzFolder& folder) {
    return folder.NumCoders == 2 && folder.NumBonds == 1 && folder.Bonds[0].InIndex == 1 &&
           folder.Bonds[0].OutIndex == 0 && folder.Coders[1].NumStreams == 1 &&
           FilterStage::isSupported(folder.Coders[1]);
}

bool isStreamable(const CSzFolder& folder) {
    return folder.NumPackStreams == 1 && folder.PackStreams[0] == 0 && folder.Coders[0].NumStreams == 1 &&
           StreamDecoder::isSupported(folder.Coders[0].MethodID) &&
           (isOneCoder(folder) || isCoderWithFilter(folder));
}

// Only a wrong header can differ here.
bool matchesTables(const CSzAr& tables, uint32_t block, const CSzFolder& folder, uint64_t unpackSize) {
    const uint32_t firstSize = tables.FoToCoderUnpackSizes[block];
    const uint32_t sizes = tables.FoToCoderUnpackSizes[block + 1] - firstSize;
    return folder.UnpackStream == tables.FoToMainUnpackSizeIndex[block] && folder.UnpackStream < sizes &&
           tables.CoderUnpackSizes[firstSize + folder.UnpackStream] == unpackSize &&
           tables.FoStartPackStreamIndex[block] < tables.NumPackStreams;
}

} // namespace

SRes BlockPump::run() {
    for (uint32_t block = 0; block < archive.db.NumFolders; ++block) {
        const SRes status = pump(block);
        if (status != SZ_OK)
            return status;
    }
    return SZ_OK;
}

SRes BlockPump::pump(uint32_t block) {
    const uint64_t unpackSize = SzAr_GetFolderUnpackSize(&archive.db, block);
    const SRes status = stream(block, unpackSize);
    return status == SZ_ERROR_UNSUPPORTED ? decodeWhole(block, unpackSize) : status;
}

const Byte* BlockPump::coderData(uint32_t block) const {
    return archive.db.CodersData + archive.db.FoCodersOffsets[block];
}

SRes BlockPump::stream(uint32_t block, uint64_t unpackSize) {
    CSzFolder folder;
    CSzData description = {coderData(block),
                           archive.db.FoCodersOffsets[block + 1] - archive.db.FoCodersOffsets[block]};
    const SRes parsed = SzGetNextFolderItem(&folder, &description);
    if (parsed != SZ_OK)
        return parsed;
    if (!isStreamable(folder))
        return SZ_ERROR_UNSUPPORTED;
    if (description.Size != 0 || !matchesTables(archive.db, block, folder, unpackSize))
        return SZ_ERROR_FAIL;

    CrcStage checked(sink);
    const bool hasCrc = SzBitWithVals_Check(&archive.db.FolderCRCs, block);
    ByteSink& end = hasCrc ? static_cast<ByteSink&>(checked) : sink;
    std::optional<FilterStage> filter;
    if (folder.NumCoders == 2)
        filter.emplace(folder.Coders[1], coderData(block) + folder.Coders[1].PropsOffset, end);
    const SRes status = streamInto(filter ? *filter : end, block, folder.Coders[0], unpackSize);
    if (status == SZ_OK && hasCrc && checked.value() != archive.db.FolderCRCs.Vals[block])
        return SZ_ERROR_CRC;
    return status;
}

SRes BlockPump::streamInto(ByteSink& output, uint32_t block, const CSzCoderInfo& coder, uint64_t unpackSize) {
    const uint32_t packStream = archive.db.FoStartPackStreamIndex[block];
    const uint64_t* packPositions = archive.db.PackPositions + packStream;
    const uint64_t packSize = packPositions[1] - packPositions[0];
    if (coder.MethodID == StreamDecoder::copyMethod && packSize != unpackSize)
        return SZ_ERROR_DATA;
    SRes status = LookInStream_SeekTo(input, archive.dataPos + packPositions[0]);
    if (status != SZ_OK)
        return status;
    auto decoder = StreamDecoder::make(coder, coderData(block) + coder.PropsOffset, memory.calls(), status);
    if (!decoder)
        return status;
    if (!streamBuffer.reserve(BlockStream::bufferSize))
        return SZ_ERROR_MEM;
    return BlockStream(input, *decoder, output, streamBuffer.data()).run(packSize, unpackSize);
}

SRes BlockPump::decodeWhole(uint32_t block, uint64_t unpackSize) {
    if (unpackSize > UINT32_MAX)
        return SZ_ERROR_MEM;
    const auto size = static_cast<size_t>(unpackSize);
    if (!wholeBlock.reserve(size))
        return SZ_ERROR_MEM;
    const SRes status = SzAr_DecodeFolder(&archive.db, block, input, archive.dataPos, wholeBlock.data(), size,
                                          memory.calls());
    // What was decoded before a fault goes out as well, as it does from a stream.
    if (size > 0 && sink.write(wholeBlock.data(), size) != size)
        return SZ_ERROR_OUTPUT_EOF;
    return status;
}

} // namespace archive
