#pragma once

#include "uilib/core/markup.h"
#include "uilib/core/ui_string.h"

// Turns a skin file into a tree of controls. The declarations of the document (images,
// fonts, default attributes) and the attributes of its window go to the manager first,
// then the controls are made, depth first.
//
// A builder lives on the stack of the window that uses it. Tags that neither the table
// of classes nor the callback knows vanish with what is below them.

namespace UILib {

class CContainerUI;
class CControlUI;
class CPaintManagerUI;

class IDialogBuilderCallback {
public:
    virtual CControlUI* CreateControl(const wchar_t* tag) = 0; // a new control, or null

protected:
    ~IDialogBuilderCallback() = default;
};

class CDialogBuilder {
public:
    // source: a resource number of the given type, markup itself ("<..."), or the name of
    // a skin file. The first control of the top level; the caller owns it when parent is
    // null. Null when the document cannot be read: then the error texts tell why.
    // manager and parent may be null; without a manager nothing declared applies.
    CControlUI* Create(const wchar_t* source, const wchar_t* type = nullptr,
                       IDialogBuilderCallback* callback = nullptr, CPaintManagerUI* manager = nullptr,
                       CControlUI* parent = nullptr);
    CControlUI* Create(unsigned resourceNumber, const wchar_t* type, IDialogBuilderCallback* callback,
                       CPaintManagerUI* manager, CControlUI* parent);
    // From the markup that is loaded already.
    CControlUI* Create(IDialogBuilderCallback* callback, CPaintManagerUI* manager, CControlUI* parent);

    CMarkup& GetMarkup() { return markup; }
    void GetLastErrorMessage(wchar_t* buffer, size_t count) const {
        markup.GetLastErrorMessage(buffer, count);
    }
    void GetLastErrorLocation(wchar_t* buffer, size_t count) const {
        markup.GetLastErrorLocation(buffer, count);
    }

private:
    bool loadResource(unsigned number);
    void applyDeclarations(CMarkupNode root, CPaintManagerUI& manager);
    CControlUI* buildChildren(CMarkupNode node, CControlUI* parent, CPaintManagerUI* manager);
    void include(CMarkupNode node, CControlUI* parent, CPaintManagerUI* manager);
    CControlUI* createControl(const wchar_t* tag);
    void applyAttributes(CControlUI* control, CMarkupNode node, CPaintManagerUI* manager);

    CMarkup markup;
    IDialogBuilderCallback* callback = nullptr;
    CUIString type;        // of the resource that the document came from
    int depth = 0;         // elements above, those of including documents too
    int includeDepth = 0;  // documents above this one
    int* budget = nullptr; // documents that the outermost one may still include
};

} // namespace UILib
