#include "archive/block_stream.h"
#include "archive/filters.h"

#include <gtest/gtest.h>

#include <Bra.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

// The pump between a decoder and a sink that work in awkward steps.

using archive::BlockStream;
using archive::FilterStage;
using archive::StreamDecoder;

namespace {

// Endless input of which every window has the same size.
struct Windows {
    ILookInStream calls = {look, skip, nullptr, nullptr};
    static SRes look(ILookInStreamPtr, const void** bytes, size_t* size) {
        static const Byte window[64] = {};
        *bytes = window;
        *size = std::min<size_t>(*size, sizeof window);
        return SZ_OK;
    }
    static SRes skip(ILookInStreamPtr, size_t) { return SZ_OK; }
};

// Gives out a text a few bytes at a time, one byte of input for each step.
class TrickleDecoder final : public StreamDecoder {
public:
    TrickleDecoder(std::string text, size_t step) : text(std::move(text)), stepSize(step) {}
    SRes decode(uint8_t* output, size_t room, bool, const uint8_t*, size_t size, Step& step) override {
        step.consumed = std::min<size_t>(size, 1);
        step.produced = std::min({room, stepSize, text.size() - at});
        std::copy_n(text.begin() + static_cast<ptrdiff_t>(at), step.produced, output);
        at += step.produced;
        step.maybeFinished = true;
        return SZ_OK;
    }

private:
    std::string text;
    size_t stepSize;
    size_t at = 0;
};

class Collector final : public archive::ByteSink {
public:
    size_t write(uint8_t* data, size_t length) override {
        const size_t taken = std::min(length, largest);
        text.append(reinterpret_cast<char*>(data), taken);
        return taken;
    }
    std::string text;
    size_t largest = SIZE_MAX;
};

std::string codeOfX86() {
    std::mt19937 random(5);
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        text += i % 3 ? '\xE8' : '\x90';
        for (int byte = 0; byte < 3; ++byte)
            text += static_cast<char>(random());
        text += static_cast<char>(i % 5 ? 0 : 0xFF);
    }
    return text;
}

std::string convertedAtOnce(std::string text) {
    UInt32 state = Z7_BRANCH_CONV_ST_X86_STATE_INIT_VAL;
    z7_BranchConvSt_X86_Dec(reinterpret_cast<Byte*>(text.data()), text.size(), 0, &state);
    return text;
}

SRes run(StreamDecoder& decoder, archive::ByteSink& sink, uint64_t packSize, uint64_t unpackSize) {
    Windows input;
    std::vector<uint8_t> buffer(BlockStream::bufferSize);
    return BlockStream(&input.calls, decoder, sink, buffer.data()).run(packSize, unpackSize);
}

} // namespace

TEST(BlockStream, aFilterSeesTheSameBytesWhateverTheSteps) {
    const std::string text = codeOfX86();
    const std::string expected = convertedAtOnce(text);
    ASSERT_NE(expected, text);
    const CSzCoderInfo x86 = {0, 0x03030103, 1, 0};
    for (size_t step : {1, 2, 3, 4, 5, 7, 33, 4096}) {
        Collector collector;
        FilterStage filter(x86, nullptr, collector);
        TrickleDecoder decoder(text, step);
        const uint64_t steps = (text.size() + step - 1) / step;
        ASSERT_EQ(run(decoder, filter, steps, text.size()), SZ_OK) << step;
        EXPECT_TRUE(collector.text == expected) << "steps of " << step;
    }
}

TEST(BlockStream, whatTheSinkLeavesComesAgain) {
    const std::string text = codeOfX86();
    Collector collector;
    collector.largest = 13;
    TrickleDecoder decoder(text, 100);
    EXPECT_EQ(run(decoder, collector, (text.size() + 99) / 100, text.size()), SZ_OK);
    EXPECT_TRUE(collector.text == text);
}

TEST(BlockStream, aSinkThatTakesNothingStopsIt) {
    Collector collector;
    collector.largest = 0;
    TrickleDecoder decoder("some text that is longer than what a filter wants to see", 100);
    EXPECT_EQ(run(decoder, collector, 1, 56), SZ_ERROR_OUTPUT_EOF);
}

TEST(BlockStream, sizesThatDoNotMeetAreCorruptData) {
    Collector collector;
    TrickleDecoder ends("short", 5);
    EXPECT_EQ(run(ends, collector, 1, 100), SZ_ERROR_DATA) << "output owed, input used up";
}
