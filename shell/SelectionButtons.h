#pragma once

#include "shell/MessageBox.h"
#include "uilib/controls/button.h"

// The buttons of a message box: one class a look. A box finds what a button stands for by
// the interface "Selection", which is the SelectionButton itself.

namespace msg {

class SelectionButton : public UILib::CButtonUI {
public:
    void* GetInterface(const wchar_t* interfaceName) override;
    const Selection& selection() const { return choice; }

    struct Look;

protected:
    SelectionButton(const Selection& selection, const Look& look);

private:
    Selection choice;
};

class CSelectionUI final : public SelectionButton {
public:
    explicit CSelectionUI(const Selection& selection);
};

class CSelectionUIRemote final : public SelectionButton {
public:
    explicit CSelectionUIRemote(const Selection& selection);
};

} // namespace msg
