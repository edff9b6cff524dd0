#pragma once

#include "uilib/controls/container.h"

// A container that shows one of its children, the current page. Pages are hidden by
// SetVisible; a change of the page is told as "tabselect".

namespace UILib {

class CTabLayoutUI : public CContainerUI {
public:
    const wchar_t* GetClass() const override { return L"TabLayout"; }
    void* GetInterface(const wchar_t* interfaceName) override;
    const AttributeTable& GetAttributeTable() const override;

    int GetCurSel() const { return current; } // -1 without pages
    // False for an index outside the pages; nothing happens for the current one.
    bool SelectItem(int index, Notification notification = Notification::Send);
    bool SelectItem(CControlUI* page, Notification notification = Notification::Send);

    bool Add(CControlUI* control) override;
    bool AddAt(CControlUI* control, int index) override;
    bool Remove(CControlUI* control, Destroy destroy = Destroy::Yes) override;
    void RemoveAll() override;
    void SetPos(RECT rectangle, bool invalidate = true) override;

private:
    int current = -1;
};

} // namespace UILib
