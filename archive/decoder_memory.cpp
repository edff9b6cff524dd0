#include "archive/decoder_memory.h"

#include <cstdlib>

namespace archive {

// Stands before each block; its size keeps the alignment that malloc gives.
struct alignas(16) DecoderMemory::BlockHead {
    size_t size;
    BlockHead* previous;
    BlockHead* next;
};

DecoderMemory::DecoderMemory(size_t budget) : table{{onAlloc, onFree}, this}, left(budget) {}

DecoderMemory::~DecoderMemory() {
    while (first)
        release(first + 1);
}

void* DecoderMemory::take(size_t size, bool zeroed) {
    if (size > left)
        return nullptr;
    const size_t whole = sizeof(BlockHead) + size;
    void* block = zeroed ? calloc(1, whole) : malloc(whole);
    if (!block)
        return nullptr;
    auto* head = static_cast<BlockHead*>(block);
    *head = {size, nullptr, first};
    if (first)
        first->previous = head;
    first = head;
    left -= size;
    return head + 1;
}

void* DecoderMemory::allocate(size_t size) {
    return take(size, true);
}

void DecoderMemory::release(void* block) {
    if (!block)
        return;
    BlockHead* head = static_cast<BlockHead*>(block) - 1;
    (head->previous ? head->previous->next : first) = head->next;
    if (head->next)
        head->next->previous = head->previous;
    left += head->size;
    free(head);
}

void* DecoderMemory::onAlloc(ISzAllocPtr calls, size_t size) {
    return reinterpret_cast<const Table*>(calls)->owner->take(size, false);
}

void DecoderMemory::onFree(ISzAllocPtr calls, void* block) {
    reinterpret_cast<const Table*>(calls)->owner->release(block);
}

bool DecoderBlock::reserve(size_t wanted) {
    if (bytes && size >= wanted)
        return true;
    memory.release(bytes);
    bytes = memory.allocate(wanted);
    size = bytes ? wanted : 0;
    return bytes != nullptr;
}

} // namespace archive
