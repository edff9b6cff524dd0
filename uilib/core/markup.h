#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

// The parser of the skin's markup. In one pass over the document it writes the names and
// values, each with its terminator, into one block of text, and the elements into one flat
// table that holds offsets into that block; nothing else is allocated. Element 0 is
// reserved and stands for "none"; the root is element 1.
//
// A document may nest as deep as it likes: nothing here recurses.

namespace UILib {

class CMarkup;

// Cursor over the elements of a document; cheap to make, maps the attributes of its
// element at the first question for them. Valid as long as the document stays loaded.
class CMarkupNode {
public:
    static constexpr int AttributeLimit = 64; // further ones are parsed but invisible

    CMarkupNode() = default;

    bool IsValid() const { return owner != nullptr; }
    const wchar_t* GetName() const; // null for an invalid node
    CMarkupNode GetChild() const;
    CMarkupNode GetSibling() const;
    CMarkupNode GetParent() const;
    bool HasChildren() const;

    bool HasAttributes() { return GetAttributeCount() > 0; }
    int GetAttributeCount();
    // Null for an invalid node, an empty string for a bad index.
    const wchar_t* GetAttributeName(int index);
    const wchar_t* GetAttributeValue(int index);
    // The first attribute of exactly that name; null when the element has none.
    const wchar_t* FindAttribute(const wchar_t* name);
    // Copies like wcsncpy: no terminator when the value fills the buffer.
    bool GetAttributeValue(const wchar_t* name, wchar_t* buffer, size_t count);

private:
    friend class CMarkup;
    CMarkupNode(const CMarkup* owner, uint32_t position) : owner(owner), position(position) {}

    void mapAttributes();

    struct Attribute {
        uint32_t name;
        uint32_t value;
    };

    const CMarkup* owner = nullptr;
    uint32_t position = 0;
    int attributeCount = 0; // 0 also before the first question
    Attribute attributes[AttributeLimit];
};

class CMarkup {
public:
    enum Encoding { Utf8 = 0, Utf16 = 1, Ansi = 2 };

    CMarkup() = default;
    CMarkup(const CMarkup&) = delete;
    CMarkup& operator=(const CMarkup&) = delete;

    // Each gives true on success. A failed load leaves the object empty, with the error
    // texts readable. The text ends at its first zero character.
    bool Load(std::wstring_view text);
    bool LoadFromMem(const void* bytes, size_t size, int encoding);
    bool LoadFromFile(const wchar_t* fileName, int encoding); // a file of the skin
    bool LoadUtf8(std::string_view bytes);
    bool LoadUtf16(std::string_view bytes); // with a byte order mark, or it fails
    void Release();

    CMarkupNode GetRoot() const; // invalid without a root element

    // Copy the terminated text, cut to count characters with the terminator.
    void GetLastErrorMessage(wchar_t* buffer, size_t count) const;
    void GetLastErrorLocation(wchar_t* buffer, size_t count) const;
    const wchar_t* GetLastErrorMessage() const { return errorMessage; }
    const wchar_t* GetLastErrorLocation() const { return errorLocation; }

private:
    friend class CMarkupNode;
    template <class Unit>
    friend class MarkupParser;

    struct Element {
        uint32_t start; // offset of the name; name and value of each attribute follow it
        uint32_t child; // the rest are element numbers, 0 for none
        uint32_t next;
        uint32_t parent;
        uint32_t data; // offset behind the last attribute
    };

    template <class Unit>
    bool parse(std::basic_string_view<Unit> document);

    // One block without the checks and the zeroing of a vector, which a parser that does
    // little else would feel.
    class Table {
    public:
        const Element& operator[](uint32_t number) const { return records[number]; }
        Element& operator[](uint32_t number) { return records[number]; }
        uint32_t size() const { return count; }
        void reserve(size_t wanted);
        uint32_t add(const Element& element) {
            if (count == capacity)
                reserve(size_t{capacity} + capacity / 2 + GrowthRecords);
            records[count] = element;
            return count++;
        }
        void clear() {
            records.reset();
            count = capacity = 0;
        }

    private:
        static constexpr uint32_t GrowthRecords = 500;
        std::unique_ptr<Element[]> records;
        uint32_t count = 0;
        uint32_t capacity = 0;
    };

    std::unique_ptr<wchar_t[]> text;
    Table elements;
    wchar_t errorMessage[100] = L"";
    wchar_t errorLocation[50] = L"";
};

} // namespace UILib
