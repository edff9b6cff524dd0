#pragma once

#include <7zTypes.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace archive {

// The memory of one extraction's decoders: malloc and free under a budget. What an
// archive claims to need decides the size of dictionaries and tables, so that a hostile
// one could take the whole address space of a 32-bit program; above the budget it is
// told that memory is out. What the decoder forgets to free when a header breaks off in
// the middle goes with the object. One thread.
class DecoderMemory {
public:
    // Holds every dictionary that a 32-bit program can decode with in practice.
    static constexpr size_t defaultBudget = size_t(1) << 30;

    explicit DecoderMemory(size_t budget);
    DecoderMemory(const DecoderMemory&) = delete;
    DecoderMemory& operator=(const DecoderMemory&) = delete;
    ~DecoderMemory();

    // For the decoder's calls; valid as long as this object. Its blocks are not zeroed.
    ISzAllocPtr calls() const { return &table.calls; }

    // Zeroed bytes, or null when the budget or the memory is used up.
    void* allocate(size_t size);
    void release(void* block); // null is fine

private:
    struct BlockHead;
    struct Table {
        ISzAlloc calls; // first, so that the decoder's pointer leads back here
        DecoderMemory* owner;
    };

    void* take(size_t size, bool zeroed);
    static void* onAlloc(ISzAllocPtr calls, size_t size);
    static void onFree(ISzAllocPtr calls, void* block);

    Table table;
    size_t left; // of the budget
    BlockHead* first = nullptr;
};

// A block of the decoders' memory that frees itself before the memory goes.
class DecoderBlock {
public:
    explicit DecoderBlock(DecoderMemory& memory) : memory(memory) {}
    DecoderBlock(const DecoderBlock&) = delete;
    DecoderBlock& operator=(const DecoderBlock&) = delete;
    ~DecoderBlock() { memory.release(bytes); }

    // At least this size; what was held before is gone. False when memory is out.
    bool reserve(size_t wanted);
    uint8_t* data() const { return static_cast<uint8_t*>(bytes); }

private:
    DecoderMemory& memory;
    void* bytes = nullptr;
    size_t size = 0;
};

} // namespace archive
