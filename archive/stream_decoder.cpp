#include "archive/stream_decoder.h"

#include <Lzma2Dec.h>
#include <LzmaDec.h>

#include <algorithm>
#include <cstring>

namespace archive {

namespace {

constexpr UInt32 lzmaMethod = 0x030101;
constexpr UInt32 lzma2Method = 0x21;

ELzmaFinishMode finishMode(bool last) {
    return last ? LZMA_FINISH_END : LZMA_FINISH_ANY;
}

void setEnd(StreamDecoder::Step& step, ELzmaStatus status) {
    step.endMark = status == LZMA_STATUS_FINISHED_WITH_MARK;
    step.maybeFinished = status == LZMA_STATUS_MAYBE_FINISHED_WITHOUT_MARK;
}

class CopyDecoder final : public StreamDecoder {
public:
    SRes decode(uint8_t* output, size_t room, bool, const uint8_t* input, size_t size, Step& step) override {
        step.consumed = step.produced = std::min(room, size);
        memcpy(output, input, step.produced);
        step.maybeFinished = true;
        return SZ_OK;
    }
};

class LzmaDecoder final : public StreamDecoder {
public:
    explicit LzmaDecoder(ISzAllocPtr memory) : memory(memory) { LzmaDec_CONSTRUCT(&state); }
    ~LzmaDecoder() override { LzmaDec_Free(&state, memory); }

    SRes init(const CSzCoderInfo& coder, const Byte* properties) {
        const SRes status = LzmaDec_Allocate(&state, properties, coder.PropsSize, memory);
        if (status == SZ_OK)
            LzmaDec_Init(&state);
        return status;
    }

    SRes decode(uint8_t* output, size_t room, bool last, const uint8_t* input, size_t size,
                Step& step) override {
        ELzmaStatus end = LZMA_STATUS_NOT_SPECIFIED;
        step.produced = room;
        step.consumed = size;
        const SRes status = LzmaDec_DecodeToBuf(&state, output, &step.produced, input, &step.consumed,
                                                finishMode(last), &end);
        setEnd(step, end);
        return status;
    }

private:
    ISzAllocPtr memory;
    CLzmaDec state;
};

class Lzma2Decoder final : public StreamDecoder {
public:
    explicit Lzma2Decoder(ISzAllocPtr memory) : memory(memory) { Lzma2Dec_CONSTRUCT(&state); }
    ~Lzma2Decoder() override { Lzma2Dec_Free(&state, memory); }

    SRes init(const CSzCoderInfo& coder, const Byte* properties) {
        if (coder.PropsSize != 1)
            return SZ_ERROR_DATA;
        const SRes status = Lzma2Dec_Allocate(&state, properties[0], memory);
        if (status == SZ_OK)
            Lzma2Dec_Init(&state);
        return status;
    }

    SRes decode(uint8_t* output, size_t room, bool last, const uint8_t* input, size_t size,
                Step& step) override {
        ELzmaStatus end = LZMA_STATUS_NOT_SPECIFIED;
        step.produced = room;
        step.consumed = size;
        const SRes status = Lzma2Dec_DecodeToBuf(&state, output, &step.produced, input, &step.consumed,
                                                 finishMode(last), &end);
        setEnd(step, end);
        return status;
    }

private:
    ISzAllocPtr memory;
    CLzma2Dec state;
};

template <class Decoder>
std::unique_ptr<StreamDecoder> makeAndInit(const CSzCoderInfo& coder, const Byte* properties,
                                           ISzAllocPtr memory, SRes& status) {
    auto decoder = std::make_unique<Decoder>(memory);
    status = decoder->init(coder, properties);
    if (status != SZ_OK)
        decoder.reset();
    return decoder;
}

} // namespace

bool StreamDecoder::isSupported(UInt32 method) {
    return method == copyMethod || method == lzmaMethod || method == lzma2Method;
}

std::unique_ptr<StreamDecoder> StreamDecoder::make(const CSzCoderInfo& coder, const Byte* properties,
                                                   ISzAllocPtr memory, SRes& status) {
    if (coder.MethodID == lzmaMethod)
        return makeAndInit<LzmaDecoder>(coder, properties, memory, status);
    if (coder.MethodID == lzma2Method)
        return makeAndInit<Lzma2Decoder>(coder, properties, memory, status);
    status = SZ_OK;
    return std::make_unique<CopyDecoder>();
}

} // namespace archive
