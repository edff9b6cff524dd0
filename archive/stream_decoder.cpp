#include "archive/stream_decoder.h"

#include <Lzma2Dec.h>
#include <LzmaDec.h>

#include <algorithm>
#include <cstring>

namespace archive {

namespace {

constexpr UInt32 lzmaMethod = 0x030101;
constexpr UInt32 lzma2Method = 0x21;

class CopyDecoder final : public StreamDecoder {
public:
    SRes decode(uint8_t* output, size_t room, bool, const uint8_t* input, size_t size, Step& step) override {
        step.consumed = step.produced = std::min(room, size);
        memcpy(output, input, step.produced);
        step.maybeFinished = true;
        return SZ_OK;
    }
};

// The two decoders of the SDK have the same operations under different names.
struct Lzma {
    using State = CLzmaDec;
    static void construct(State& state) { LzmaDec_CONSTRUCT(&state); }
    static SRes allocate(State& state, const Byte* properties, UInt32 size, ISzAllocPtr memory) {
        return LzmaDec_Allocate(&state, properties, size, memory);
    }
    static constexpr auto init = LzmaDec_Init;
    static constexpr auto decode = LzmaDec_DecodeToBuf;
    static void release(State& state, ISzAllocPtr memory) { LzmaDec_Free(&state, memory); }
};

struct Lzma2 {
    using State = CLzma2Dec;
    static void construct(State& state) { Lzma2Dec_CONSTRUCT(&state); }
    static SRes allocate(State& state, const Byte* properties, UInt32 size, ISzAllocPtr memory) {
        return size == 1 ? Lzma2Dec_Allocate(&state, properties[0], memory) : SZ_ERROR_DATA;
    }
    static constexpr auto init = Lzma2Dec_Init;
    static constexpr auto decode = Lzma2Dec_DecodeToBuf;
    static void release(State& state, ISzAllocPtr memory) { Lzma2Dec_Free(&state, memory); }
};

template <class Method>
class SdkDecoder final : public StreamDecoder {
public:
    explicit SdkDecoder(ISzAllocPtr memory) : memory(memory) { Method::construct(state); }
    ~SdkDecoder() override { Method::release(state, memory); }

    SRes init(const CSzCoderInfo& coder, const Byte* properties) {
        const SRes status = Method::allocate(state, properties, coder.PropsSize, memory);
        if (status == SZ_OK)
            Method::init(&state);
        return status;
    }

    SRes decode(uint8_t* output, size_t room, bool last, const uint8_t* input, size_t size,
                Step& step) override {
        ELzmaStatus end = LZMA_STATUS_NOT_SPECIFIED;
        step.produced = room;
        step.consumed = size;
        const SRes status = Method::decode(&state, output, &step.produced, input, &step.consumed,
                                           last ? LZMA_FINISH_END : LZMA_FINISH_ANY, &end);
        step.endMark = end == LZMA_STATUS_FINISHED_WITH_MARK;
        step.maybeFinished = end == LZMA_STATUS_MAYBE_FINISHED_WITHOUT_MARK;
        return status;
    }

private:
    ISzAllocPtr memory;
    typename Method::State state;
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
        return makeAndInit<SdkDecoder<Lzma>>(coder, properties, memory, status);
    if (coder.MethodID == lzma2Method)
        return makeAndInit<SdkDecoder<Lzma2>>(coder, properties, memory, status);
    status = SZ_OK;
    return std::make_unique<CopyDecoder>();
}

} // namespace archive
