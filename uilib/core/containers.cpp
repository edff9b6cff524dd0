#include "uilib/core/containers.h"

#include <algorithm>
#include <utility>

namespace UILib {

int CUIPtrArray::Find(const void* item) const {
    const auto hit = std::find(items.begin(), items.end(), item);
    return hit == items.end() ? -1 : static_cast<int>(hit - items.begin());
}

void* CUIPtrArray::GetAt(int index) const {
    return index >= 0 && index < GetSize() ? items[static_cast<size_t>(index)] : nullptr;
}

void CUIPtrArray::grow() {
    if (items.size() == items.capacity())
        items.reserve(std::max(FirstCapacity, items.capacity() * 2));
}

bool CUIPtrArray::Add(void* item) {
    return InsertAt(GetSize(), item);
}

bool CUIPtrArray::InsertAt(int index, void* item) {
    if (index < 0 || index > GetSize())
        return false;
    grow();
    items.insert(items.begin() + index, item);
    return true;
}

bool CUIPtrArray::SetAt(int index, void* item) {
    if (index < 0 || index >= GetSize())
        return false;
    items[static_cast<size_t>(index)] = item;
    return true;
}

bool CUIPtrArray::Remove(int index, int count) {
    if (index < 0 || count < 1 || count > GetSize() || index > GetSize() - count)
        return false;
    items.erase(items.begin() + index, items.begin() + index + count);
    return true;
}

bool CUIPtrArray::RemoveItem(const void* item) {
    return Remove(Find(item));
}

void* CUIValArray::GetAt(int index) {
    return index >= 0 && index < GetSize() ? &bytes[static_cast<size_t>(index) * recordSize] : nullptr;
}

bool CUIValArray::Add(const void* record) {
    const auto* first = static_cast<const unsigned char*>(record);
    bytes.insert(bytes.end(), first, first + recordSize);
    return true;
}

bool CUIValArray::Remove(int index) {
    if (index < 0 || index >= GetSize())
        return false;
    const auto first = bytes.begin() + static_cast<ptrdiff_t>(static_cast<size_t>(index) * recordSize);
    bytes.erase(first, first + static_cast<ptrdiff_t>(recordSize));
    return true;
}

CUIStringMap::CUIStringMap(int bucketCount) : buckets(static_cast<size_t>(std::max(bucketCount, 1))) {}

uint32_t CUIStringMap::hash(const CUIString& key) {
    uint32_t h = 0;
    for (int i = key.GetLength(); i-- > 0;)
        h = h * 33 + static_cast<uint32_t>(key.GetAt(i));
    return h;
}

std::unique_ptr<CUIStringMap::Entry>& CUIStringMap::bucketOf(const CUIString& key) const {
    return buckets[hash(key) % buckets.size()];
}

CUIStringMap::Entry* CUIStringMap::entryOf(const CUIString& key) const {
    Entry* entry = bucketOf(key).get();
    while (entry && !(entry->key == key))
        entry = entry->next.get();
    return entry;
}

void* CUIStringMap::Find(const CUIString& key) const {
    const Entry* entry = entryOf(key);
    return entry ? entry->value : nullptr;
}

bool CUIStringMap::Insert(const CUIString& key, void* value) {
    if (entryOf(key))
        return false;
    auto& bucket = bucketOf(key);
    bucket = std::make_unique<Entry>(Entry{key, value, std::move(bucket)});
    ++count;
    return true;
}

void* CUIStringMap::Set(const CUIString& key, void* value) {
    if (Entry* entry = entryOf(key))
        return std::exchange(entry->value, value);
    Insert(key, value);
    return nullptr;
}

bool CUIStringMap::Remove(const CUIString& key) {
    for (auto* link = &bucketOf(key); *link; link = &(*link)->next) {
        if (!((*link)->key == key))
            continue;
        auto next = std::move((*link)->next);
        *link = std::move(next);
        --count;
        return true;
    }
    return false;
}

void CUIStringMap::RemoveAll() {
    // Link by link: the chain's own destructor would recurse once per entry.
    for (auto& bucket : buckets)
        while (bucket) {
            auto next = std::move(bucket->next);
            bucket = std::move(next);
        }
    count = 0;
}

} // namespace UILib
