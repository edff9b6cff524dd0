#include "uilib/core/markup.h"

#include <algorithm>
#include <cwchar>

namespace UILib {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

void copyTerminated(const wchar_t* text, wchar_t* buffer, size_t count) {
    if (!count)
        return;
    const size_t length = std::min(std::wcslen(text), count - 1);
    std::copy_n(text, length, buffer);
    buffer[length] = 0;
}

} // namespace

bool CMarkup::Load(std::wstring_view source) {
    return parse(source);
}

bool CMarkup::LoadUtf8(std::string_view bytes) {
    if (bytes.starts_with(Utf8Mark))
        bytes.remove_prefix(Utf8Mark.size());
    return parse(bytes);
}

bool CMarkup::LoadUtf16(std::string_view bytes) {
    Release();
    const bool little = bytes.starts_with("\xFF\xFE"), big = bytes.starts_with("\xFE\xFF");
    if (!little && !big)
        return false;
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data()) + 2;
    std::wstring document(bytes.size() / 2 - 1, L'\0');
    for (wchar_t& unit : document) {
        unit = static_cast<wchar_t>(little ? at[0] | at[1] << 8 : at[0] << 8 | at[1]);
        at += 2;
    }
    return parse(std::wstring_view(document));
}

void CMarkup::Release() {
    text.reset();
    elements.clear();
}

void CMarkup::Table::reserve(size_t wanted) {
    auto larger = std::make_unique_for_overwrite<Element[]>(wanted);
    std::copy_n(records.get(), count, larger.get());
    records = std::move(larger);
    capacity = static_cast<uint32_t>(wanted);
}

CMarkupNode CMarkup::GetRoot() const {
    return elements.size() > 1 ? CMarkupNode(this, 1) : CMarkupNode();
}

void CMarkup::GetLastErrorMessage(wchar_t* buffer, size_t count) const {
    copyTerminated(errorMessage, buffer, count);
}

void CMarkup::GetLastErrorLocation(wchar_t* buffer, size_t count) const {
    copyTerminated(errorLocation, buffer, count);
}

const wchar_t* CMarkupNode::GetName() const {
    return owner ? &owner->text[owner->elements[position].start] : nullptr;
}

CMarkupNode CMarkupNode::GetChild() const {
    const uint32_t child = owner ? owner->elements[position].child : 0;
    return child ? CMarkupNode(owner, child) : CMarkupNode();
}

CMarkupNode CMarkupNode::GetSibling() const {
    const uint32_t next = owner ? owner->elements[position].next : 0;
    return next ? CMarkupNode(owner, next) : CMarkupNode();
}

CMarkupNode CMarkupNode::GetParent() const {
    const uint32_t parent = owner ? owner->elements[position].parent : 0;
    return parent ? CMarkupNode(owner, parent) : CMarkupNode();
}

bool CMarkupNode::HasChildren() const {
    return owner && owner->elements[position].child != 0;
}

int CMarkupNode::GetAttributeCount() {
    if (owner && !attributeCount)
        mapAttributes();
    return attributeCount;
}

const wchar_t* CMarkupNode::GetAttributeName(int index) {
    if (!owner)
        return nullptr;
    return index >= 0 && index < GetAttributeCount() ? &owner->text[attributes[index].name] : L"";
}

const wchar_t* CMarkupNode::GetAttributeValue(int index) {
    if (!owner)
        return nullptr;
    return index >= 0 && index < GetAttributeCount() ? &owner->text[attributes[index].value] : L"";
}

const wchar_t* CMarkupNode::FindAttribute(const wchar_t* name) {
    for (int i = 0; i < GetAttributeCount(); ++i)
        if (std::wcscmp(GetAttributeName(i), name) == 0)
            return GetAttributeValue(i);
    return nullptr;
}

bool CMarkupNode::GetAttributeValue(const wchar_t* name, wchar_t* buffer, size_t count) {
    const wchar_t* value = FindAttribute(name);
    if (!value)
        return false;
    std::wcsncpy(buffer, value, count);
    return true;
}

void CMarkupNode::mapAttributes() {
    const wchar_t* text = owner->text.get();
    const auto behindZero = [text](uint32_t at) {
        return at + static_cast<uint32_t>(std::wcslen(text + at)) + 1;
    };
    const uint32_t end = owner->elements[position].data;
    uint32_t at = behindZero(owner->elements[position].start);
    while (at < end && attributeCount < AttributeLimit) {
        const uint32_t value = behindZero(at);
        attributes[attributeCount++] = {at, value};
        at = behindZero(value);
    }
}

} // namespace UILib
