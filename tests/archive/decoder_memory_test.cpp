#include "archive/decoder_memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using archive::DecoderBlock;
using archive::DecoderMemory;

// Blocks are taken and given back in a random order through both doors; what is out at a time
// never exceeds the budget, and all that fits is had. What stays goes with the object.
TEST(DecoderMemory, keepsExactlyToItsBudget) {
    constexpr size_t budget = 10000;
    std::mt19937 random(3);
    DecoderMemory memory(budget);
    struct Taken {
        uint8_t* bytes;
        size_t size;
        uint8_t mark;
    };
    std::vector<Taken> taken;
    size_t used = 0;
    for (int step = 0; step < 5000; ++step) {
        const size_t size = random() % 3000;
        const bool own = random() % 2;
        auto* bytes =
            static_cast<uint8_t*>(own ? memory.allocate(size) : memory.calls()->Alloc(memory.calls(), size));
        ASSERT_EQ(bytes != nullptr, size <= budget - used) << step;
        if (bytes) {
            EXPECT_EQ(reinterpret_cast<uintptr_t>(bytes) % alignof(uint64_t), 0u);
            if (own) {
                EXPECT_EQ(std::count(bytes, bytes + size, 0), static_cast<ptrdiff_t>(size)) << "zeroed";
            }
            taken.push_back({bytes, size, static_cast<uint8_t>(step)});
            std::fill_n(bytes, size, taken.back().mark);
            used += size;
        }
        while (!taken.empty() && (!bytes || random() % 3 == 0)) {
            std::swap(taken[random() % taken.size()], taken.back());
            const Taken& block = taken.back();
            EXPECT_EQ(std::count(block.bytes, block.bytes + block.size, block.mark),
                      static_cast<ptrdiff_t>(block.size));
            if (random() % 2)
                memory.release(block.bytes);
            else
                memory.calls()->Free(memory.calls(), block.bytes);
            used -= block.size;
            taken.pop_back();
            bytes = block.bytes;
        }
    }
    memory.release(nullptr);
    EXPECT_EQ(memory.allocate(SIZE_MAX), nullptr);
}

TEST(DecoderMemory, aBlockGrowsOnlyWhenItMustAndGivesItselfBack) {
    DecoderMemory memory(1000);
    {
        DecoderBlock block(memory);
        ASSERT_TRUE(block.reserve(600));
        uint8_t* const first = block.data();
        EXPECT_TRUE(block.reserve(600));
        EXPECT_TRUE(block.reserve(10));
        EXPECT_EQ(block.data(), first);
        EXPECT_TRUE(block.reserve(1000)) << "the old bytes go first";
        EXPECT_FALSE(block.reserve(1001));
        EXPECT_TRUE(block.reserve(5)) << "after a failure it begins anew";
        ASSERT_NE(block.data(), nullptr);
        EXPECT_NE(memory.allocate(995), nullptr);
        EXPECT_EQ(memory.allocate(1), nullptr);
    }
    EXPECT_NE(memory.allocate(5), nullptr);
}
