#pragma once

#include "uilib/controls/control.h"

// Attribute rows that store an image string in a draw record of the control:
//
//     imageRow<&CButtonUI::hotImage>(L"hotimage", "picture under the mouse")
//
// A class whose records are not public makes its rows a static member.

namespace UILib {

// The picture is loaded at the next paint; a string that is there and loaded stays.
inline void setImage(CControlUI& control, DrawRecord& record, const wchar_t* imageString) {
    if (record.drawString == imageString && record.image)
        return;
    record.Clear();
    record.drawString = imageString;
    control.Invalidate();
}

namespace detail {

template <class Member>
struct RecordOwner;
template <class Class>
struct RecordOwner<DrawRecord Class::*> {
    using Type = Class;
};

template <auto Field>
DrawRecord& recordOf(CControlUI& control) {
    return static_cast<typename RecordOwner<decltype(Field)>::Type&>(control).*Field;
}

template <auto Field>
void setImageField(CControlUI& control, const wchar_t* value) {
    setImage(control, recordOf<Field>(control), value);
}

template <auto Field>
void setEnlargeField(CControlUI& control, const wchar_t* value) {
    recordOf<Field>(control).enlargeString = value;
}

} // namespace detail

template <auto Field>
constexpr Attribute imageRow(const wchar_t* name, const char* description) {
    return {name, AttributeKind::Image, &detail::setImageField<Field>, description};
}

// The same record's string for enlarged displays; it is kept and draws nothing.
template <auto Field>
constexpr Attribute enlargeRow(const wchar_t* name) {
    return {name, AttributeKind::Image, &detail::setEnlargeField<Field>, "the same on an enlarged display"};
}

} // namespace UILib
