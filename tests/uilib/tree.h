#pragma once

#include "uilib/controls/container.h"
#include "uilib/core/dialog_builder.h"

#include <memory>
#include <string>
#include <vector>

// Trees of controls from markup, without a window.

struct DeleteControl {
    void operator()(UILib::CControlUI* control) const { control->Delete(); }
};
using Tree = std::unique_ptr<UILib::CControlUI, DeleteControl>;

inline Tree buildTree(const std::wstring& elements, UILib::IDialogBuilderCallback* callback = nullptr) {
    UILib::CDialogBuilder builder;
    return Tree(builder.Create((L"<Window>" + elements + L"</Window>").c_str(), nullptr, callback));
}

inline UILib::CContainerUI& asContainer(UILib::CControlUI& control) {
    return *static_cast<UILib::CContainerUI*>(control.GetInterface(L"Container"));
}

inline UILib::CControlUI& child(UILib::CControlUI& control, int index) {
    return *asContainer(control).GetItemAt(index);
}

inline std::string placeOf(const UILib::CControlUI& control) {
    const RECT& r = control.GetPos();
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
           std::to_string(r.bottom);
}

// "0,0,10,5 0,5,10,10": the places of the children.
inline std::string placesIn(UILib::CControlUI& control) {
    std::string places;
    for (int i = 0; i < asContainer(control).GetCount(); ++i)
        places += (i ? " " : "") + placeOf(child(control, i));
    return places;
}
