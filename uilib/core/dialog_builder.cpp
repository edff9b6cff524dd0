#include "uilib/core/dialog_builder.h"

#include "uilib/controls/container.h"
#include "uilib/core/control_classes.h"
#include "uilib/core/number_text.h"
#include "uilib/core/paint_manager.h"
#include "utility/log.h"

#include <cwchar>

namespace UILib {

namespace {

// Far beyond any skin. They keep a document that nests or includes itself without end
// from taking the stack or the memory with it.
constexpr int DepthLimit = 200;
constexpr int IncludeDepthLimit = 16;
constexpr int IncludeLimit = 2000;

bool isTag(CMarkupNode& node, const wchar_t* tag) {
    return equalNoCase(node.GetName(), tag);
}

bool isDeclaration(CMarkupNode& node) {
    return isTag(node, L"Image") || isTag(node, L"Font") || isTag(node, L"Default") ||
           isTag(node, L"MultiLanguage");
}

// The value of an attribute whose name is compared without regard to case; the last of
// that name counts.
const wchar_t* valueOf(CMarkupNode& node, const wchar_t* name, const wchar_t* missing = nullptr) {
    for (int i = node.GetAttributeCount(); i-- > 0;)
        if (equalNoCase(node.GetAttributeName(i), name))
            return node.GetAttributeValue(i);
    return missing;
}

bool flagOf(CMarkupNode& node, const wchar_t* name) {
    return equalNoCase(valueOf(node, name, L""), L"true");
}

int numberOf(CMarkupNode& node, const wchar_t* name, const wchar_t* missing) {
    std::wstring_view text(valueOf(node, name, missing));
    return readInteger(text);
}

void declareImage(CMarkupNode& node, CPaintManagerUI& manager) {
    if (const wchar_t* name = valueOf(node, L"name"))
        manager.AddImage(name, valueOf(node, L"restype"), readColor(valueOf(node, L"mask", L"")),
                         flagOf(node, L"shared"), false);
}

void declareFont(CMarkupNode& node, CPaintManagerUI& manager) {
    const int id = numberOf(node, L"id", L"-1"), size = numberOf(node, L"size", L"12");
    const wchar_t* name = valueOf(node, L"name");
    if (id < 0 || !name)
        return;
    const bool bold = flagOf(node, L"bold"), underline = flagOf(node, L"underline"),
               italic = flagOf(node, L"italic"), shared = flagOf(node, L"shared");
    manager.AddFont(id, name, size, bold, underline, italic, shared);
    if (flagOf(node, L"default"))
        manager.SetDefaultFont(name, size, bold, underline, italic, shared);
}

void declareDefault(CMarkupNode& node, CPaintManagerUI& manager) {
    if (const wchar_t* name = valueOf(node, L"name"))
        manager.AddDefaultAttributeList(name, valueOf(node, L"value", L""), flagOf(node, L"shared"));
}

} // namespace

CControlUI* CDialogBuilder::Create(const wchar_t* source, const wchar_t* resourceType,
                                   IDialogBuilderCallback* creator, CPaintManagerUI* manager,
                                   CControlUI* parent) {
    if (!source)
        return nullptr;
    if (IS_INTRESOURCE(source))
        return Create(static_cast<unsigned>(reinterpret_cast<uintptr_t>(source)), resourceType, creator,
                      manager, parent);
    const bool loaded = *source == L'<' ? markup.Load(source) : markup.LoadFromFile(source, CMarkup::Utf8);
    if (!loaded && *source != L'<')
        common::log("CDialogBuilder::Create", __LINE__, L"cannot load %s: %s", source,
                    markup.GetLastErrorMessage());
    return loaded ? Create(creator, manager, parent) : nullptr;
}

CControlUI* CDialogBuilder::Create(unsigned resourceNumber, const wchar_t* resourceType,
                                   IDialogBuilderCallback* creator, CPaintManagerUI* manager,
                                   CControlUI* parent) {
    type = resourceType;
    return loadResource(resourceNumber) ? Create(creator, manager, parent) : nullptr;
}

bool CDialogBuilder::loadResource(unsigned number) {
    const HINSTANCE module = CPaintManagerUI::GetResourceDll();
    HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), type);
    const void* bytes = found ? LockResource(LoadResource(module, found)) : nullptr;
    return bytes && markup.LoadFromMem(bytes, SizeofResource(module, found), CMarkup::Utf8);
}

CControlUI* CDialogBuilder::Create(IDialogBuilderCallback* creator, CPaintManagerUI* manager,
                                   CControlUI* parent) {
    callback = creator;
    CMarkupNode root = markup.GetRoot();
    if (!root.IsValid())
        return nullptr;
    if (manager)
        applyDeclarations(root, *manager);
    int included = IncludeLimit;
    if (!budget)
        budget = &included;
    CControlUI* first = buildChildren(root, parent, manager);
    if (budget == &included)
        budget = nullptr;
    return first;
}

void CDialogBuilder::applyDeclarations(CMarkupNode root, CPaintManagerUI& manager) {
    for (CMarkupNode node = root.GetChild(); node.IsValid(); node = node.GetSibling()) {
        if (isTag(node, L"Image"))
            declareImage(node, manager);
        else if (isTag(node, L"Font"))
            declareFont(node, manager);
        else if (isTag(node, L"Default"))
            declareDefault(node, manager);
    }
    if (isTag(root, L"Window") && manager.GetPaintWindow())
        for (int i = 0; i < root.GetAttributeCount(); ++i)
            manager.SetWindowAttribute(root.GetAttributeName(i), root.GetAttributeValue(i));
}

// The first control made at this level, or null.
CControlUI* CDialogBuilder::buildChildren(CMarkupNode node, CControlUI* parent, CPaintManagerUI* manager) {
    if (depth > DepthLimit) {
        common::log("CDialogBuilder::buildChildren", __LINE__, L"elements below level %d are left out",
                    DepthLimit);
        return nullptr;
    }
    IContainerUI* container =
        parent ? static_cast<IContainerUI*>(parent->GetInterface(L"IContainer")) : nullptr;
    CControlUI* first = nullptr;
    for (CMarkupNode child = node.GetChild(); child.IsValid(); child = child.GetSibling()) {
        if (isDeclaration(child))
            continue;
        if (isTag(child, L"Include")) {
            include(child, parent, manager);
            continue;
        }
        CControlUI* control = createControl(child.GetName());
        if (!control)
            continue;
        if (child.HasChildren()) {
            ++depth;
            buildChildren(child, control, manager);
            --depth;
        }
        if (parent) {
            const wchar_t* cover = child.FindAttribute(L"cover");
            if (cover && std::wcscmp(cover, L"true") == 0) {
                parent->SetCover(control);
            } else if (!container) {
                control->Delete();
                return nullptr;
            } else if (!container->Add(control)) {
                control->Delete();
                continue;
            }
        }
        applyAttributes(control, child, manager);
        if (!first)
            first = control;
    }
    return first;
}

void CDialogBuilder::include(CMarkupNode node, CControlUI* parent, CPaintManagerUI* manager) {
    const wchar_t* source = node.FindAttribute(L"source");
    const wchar_t* countText = node.FindAttribute(L"count");
    std::wstring_view number(countText ? countText : L"1");
    int count = readInteger(number);
    if (!source || count < 1)
        return;
    if (includeDepth >= IncludeDepthLimit) {
        common::log("CDialogBuilder::include", __LINE__, L"%s is included too deep", source);
        return;
    }
    const CUIString name(CUIString(source).Left(499));
    for (; count > 0 && *budget > 0; --count) {
        --*budget;
        CDialogBuilder builder;
        builder.depth = depth;
        builder.includeDepth = includeDepth + 1;
        builder.budget = budget;
        if (type.IsEmpty()) {
            builder.Create(name, nullptr, callback, manager, parent);
        } else {
            std::wstring_view digits = name.view();
            builder.Create(readUnsigned(digits), type, callback, manager, parent);
        }
    }
    if (count > 0)
        common::log("CDialogBuilder::include", __LINE__, L"too many includes, %s is left out",
                    name.GetData());
}

CControlUI* CDialogBuilder::createControl(const wchar_t* tag) {
    if (CControlUI* control = createControlOfTag(tag))
        return control;
    return callback ? callback->CreateControl(tag) : nullptr;
}

// The manager is lent to the control for as long as its attributes are read, so that
// images and fonts resolve; it is attached for good with the finished tree.
void CDialogBuilder::applyAttributes(CControlUI* control, CMarkupNode node, CPaintManagerUI* manager) {
    if (manager) {
        control->SetManager(manager, nullptr, false);
        if (const wchar_t* defaults = manager->GetDefaultAttributeList(node.GetName()))
            control->ApplyAttributeList(defaults);
    }
    for (int i = 0; i < node.GetAttributeCount(); ++i)
        control->SetAttribute(node.GetAttributeName(i), node.GetAttributeValue(i));
    if (manager)
        control->SetManager(nullptr, nullptr, false);
}

} // namespace UILib
