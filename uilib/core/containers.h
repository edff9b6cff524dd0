#pragma once

#include "uilib/core/ui_string.h"

#include <cstdint>
#include <memory>
#include <vector>

// The framework's containers. None owns what it points at; none belongs to a thread.

namespace UILib {

// Growable array of untyped pointers that keeps its order.
class CUIPtrArray {
public:
    explicit CUIPtrArray(int capacity = 0) { items.reserve(static_cast<size_t>(capacity)); }

    int GetSize() const { return static_cast<int>(items.size()); }
    bool IsEmpty() const { return items.empty(); }
    int Find(const void* item) const; // -1 when absent
    void* GetAt(int index) const;     // null outside the array
    void* operator[](int index) const { return GetAt(index); }

    bool Add(void* item);
    bool InsertAt(int index, void* item); // false outside 0 to GetSize()
    bool SetAt(int index, void* item);
    bool Remove(int index, int count = 1);
    bool RemoveItem(const void* item); // the first that equals
    void Empty() { items.clear(); }

private:
    static constexpr size_t FirstCapacity = 11;

    void grow();

    std::vector<void*> items;
};

// Growable array of records of one fixed size in bytes.
class CUIValArray {
public:
    explicit CUIValArray(int recordSize) : recordSize(static_cast<size_t>(recordSize)) {}

    int GetSize() const { return static_cast<int>(bytes.size() / recordSize); }
    bool IsEmpty() const { return bytes.empty(); }
    void* GetAt(int index); // null outside the array; valid until the next change
    bool Add(const void* record);
    bool Remove(int index);
    void Empty() { bytes.clear(); }

private:
    size_t recordSize;
    std::vector<unsigned char> bytes;
};

// Hash map from text to an untyped pointer, chained, with a fixed number of buckets.
class CUIStringMap {
public:
    static constexpr int DefaultBuckets = 83;

    explicit CUIStringMap(int buckets = DefaultBuckets);
    CUIStringMap(const CUIStringMap&) = delete;
    CUIStringMap& operator=(const CUIStringMap&) = delete;
    ~CUIStringMap() { RemoveAll(); }

    int GetSize() const { return count; }
    void* Find(const CUIString& key) const;         // null when absent
    bool Insert(const CUIString& key, void* value); // refuses a key that exists
    void* Set(const CUIString& key, void* value);   // the old value, or null
    bool Remove(const CUIString& key);
    void RemoveAll();

    // Calls visit(key, value) for every entry; visit must not change the map.
    template <class Visitor>
    void forEach(Visitor visit) const {
        for (const auto& bucket : buckets)
            for (const Entry* entry = bucket.get(); entry; entry = entry->next.get())
                visit(entry->key, entry->value);
    }

    static uint32_t hash(const CUIString& key);

private:
    struct Entry {
        CUIString key;
        void* value;
        std::unique_ptr<Entry> next;
    };

    std::unique_ptr<Entry>& bucketOf(const CUIString& key) const;
    Entry* entryOf(const CUIString& key) const;

    mutable std::vector<std::unique_ptr<Entry>> buckets;
    int count = 0;
};

} // namespace UILib
