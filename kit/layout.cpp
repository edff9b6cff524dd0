#include "kit/console.h"
#include "kit/escape.h"
#include "kit/skin_document.h"
#include "uilib/controls/container.h"

#include <cstdio>

namespace kit {

extern const Command layoutCommand;

using UILib::CControlUI;

static void printControl(CControlUI& control, size_t depth) {
    const RECT& place = control.GetPos();
    std::wstring line(depth * 2, L' ');
    line += control.GetClass();
    line += control.GetName().IsEmpty() ? L" -" : L" #" + std::wstring(control.GetName());
    line += L" " + std::to_wstring(place.left) + L"," + std::to_wstring(place.top) + L"," +
            std::to_wstring(place.right) + L"," + std::to_wstring(place.bottom);
    if (!control.IsVisible())
        line += L" hidden";
    if (control.IsFloat())
        line += L" float";
    if (!control.IsEnabled())
        line += L" disabled";
    line += L" \"" + escaped(control.GetText()) + L"\"";
    printf("%s\n", toUtf8(line).c_str());
}

static void printTree(CControlUI& control, size_t depth) {
    printControl(control, depth);
    if (control.GetCover())
        printTree(*control.GetCover(), depth + 1);
    auto* container = static_cast<UILib::IContainerUI*>(control.GetInterface(L"IContainer"));
    for (int i = 0; container && i < container->GetCount(); ++i)
        printTree(*container->GetItemAt(i), depth + 1);
}

static int run(const Arguments& arguments) {
    if (arguments.size() != 3)
        return wrongUsage(layoutCommand, "a file and a size, please");
    const int width = readSize(arguments[1]), height = readSize(arguments[2]);
    if (!width || !height)
        return wrongUsage(layoutCommand, "width and height are numbers of pixels");
    SkinDocument document;
    if (!document.load(arguments[0], L""))
        return 1;
    document.layout(width, height);
    printTree(*document.root(), 0);
    return 0;
}

const Command layoutCommand = {
    "layout",
    "FILE WIDTH HEIGHT",
    "show where the controls of a skin file come to lie",
    "One line a control: two blanks a level, its class, #name or -, left,top,right,bottom, then\n"
    "those that apply of hidden, float and disabled, then its text in quotes.\n",
    run,
};

} // namespace kit
