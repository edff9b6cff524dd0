#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// The framework's wide string. Text of up to 63 characters lives inside the object;
// longer text goes to the heap. Always zero-terminated. Lengths and positions count
// code units. Free of Windows, so that parsers build natively.

namespace UILib {

class CUIString {
public:
    static constexpr int InlineLength = 63;

    CUIString() { local[0] = 0; }
    CUIString(const wchar_t* text, int length = -1) : CUIString() { Assign(text, length); }
    CUIString(std::wstring_view text) : CUIString(text.data(), static_cast<int>(text.size())) {}
    CUIString(const std::wstring& text) : CUIString(std::wstring_view(text)) {}
    CUIString(const CUIString& other) : CUIString(other.GetData(), other.length) {}
    CUIString(CUIString&& other) noexcept : CUIString() { take(other); }
    CUIString& operator=(const CUIString& other);
    CUIString& operator=(CUIString&& other) noexcept;
    CUIString& operator=(const wchar_t* text) { return Assign(text); }
    ~CUIString() { release(); }

    int GetLength() const { return length; }
    bool IsEmpty() const { return length == 0; }
    const wchar_t* GetData() const { return buffer; }
    wchar_t GetAt(int index) const { return buffer[index]; }
    operator const wchar_t*() const { return buffer; }
    std::wstring_view view() const { return {buffer, static_cast<size_t>(length)}; }

    // A length of -1 reads up to the terminator. The text may be part of this string.
    CUIString& Assign(const wchar_t* text, int newLength = -1);
    CUIString& Append(const wchar_t* text, int addedLength = -1);
    CUIString& operator+=(const CUIString& other) { return Append(other.buffer, other.length); }
    CUIString& operator+=(const wchar_t* text) { return Append(text); }
    CUIString& operator+=(wchar_t character) { return Append(&character, 1); }
    void Empty() { Assign(L"", 0); }

    int Compare(std::wstring_view other) const { return view().compare(other); }
    int CompareNoCase(const wchar_t* other) const;

    int Find(wchar_t character, int from = 0) const;
    int Find(const wchar_t* text, int from = 0) const; // -1 when absent
    int Replace(std::wstring_view from, std::wstring_view to);
    CUIString Mid(int first, int count = -1) const;
    CUIString Left(int count) const { return Mid(0, count); }

private:
    void release();
    void take(CUIString& other);
    void reserve(int wanted, bool keep);

    wchar_t* buffer = local;
    int length = 0;
    int capacity = InlineLength;
    wchar_t local[InlineLength + 1];
};

inline bool operator==(const CUIString& a, const CUIString& b) {
    return a.view() == b.view();
}
inline bool operator==(const CUIString& a, const wchar_t* b) {
    return a.view() == std::wstring_view(b ? b : L"");
}
inline bool operator<(const CUIString& a, const CUIString& b) {
    return a.view() < b.view();
}
inline CUIString operator+(CUIString a, const CUIString& b) {
    return std::move(a += b);
}
inline CUIString operator+(CUIString a, const wchar_t* b) {
    return std::move(a += b);
}

// Case-blind by the runtime's rule, for names of tags and attributes.
bool equalNoCase(const wchar_t* a, const wchar_t* b);

} // namespace UILib
