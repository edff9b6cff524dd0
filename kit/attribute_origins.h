#pragma once

#include "uilib/core/dialog_builder.h"

#include <map>
#include <string>
#include <vector>

// Remembers of every control that a builder makes which attributes it got and where each
// came from. Valid until the next load.

namespace kit {

class AttributeOrigins : public UILib::IDialogBuilderCallback {
public:
    struct Origin {
        std::wstring name, value;
        const char* from; // "element" or "Default"
        bool known;       // a class of the control has such an attribute
    };

    void clear() { origins.clear(); }
    const std::vector<Origin>& of(const UILib::CControlUI& control);

private:
    UILib::CControlUI* CreateControl(const wchar_t*) override { return nullptr; }
    void OnControlBuilt(UILib::CControlUI& control, UILib::CMarkupNode& element,
                        const wchar_t* defaults) override;

    std::map<const UILib::CControlUI*, std::vector<Origin>> origins;
};

} // namespace kit
