#include "kit/console.h"
#include "kit/png.h"
#include "kit/skin_document.h"
#include "uilib/controls/control.h"
#include "uilib/core/dib_surface.h"

#include <cstdio>

namespace kit {

extern const Command renderCommand;

using UILib::CControlUI;

struct RenderRequest {
    std::wstring file, out, language;
    int width = 0, height = 0;
    std::vector<std::pair<std::wstring, std::wstring>> states; // name of the control, state
};

static bool readRequest(const Arguments& arguments, RenderRequest& request) {
    std::vector<std::wstring> plain;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const bool option = arguments[i] == L"--lang" || arguments[i] == L"--state";
        if (!option) {
            plain.push_back(arguments[i]);
            continue;
        }
        if (i + 1 == arguments.size())
            return false;
        const std::wstring& value = arguments[i + 1];
        const size_t equals = value.find(L'=');
        if (arguments[i] == L"--lang")
            request.language = value;
        else if (equals != std::wstring::npos)
            request.states.emplace_back(value.substr(0, equals), value.substr(equals + 1));
        else
            return false;
        ++i;
    }
    if (plain.size() != 4)
        return false;
    request.file = plain[0], request.out = plain[3];
    request.width = readSize(plain[1]), request.height = readSize(plain[2]);
    return request.width && request.height;
}

static void sendMouse(CControlUI& control, UILib::EventKind kind) {
    const RECT& place = control.GetPos();
    UILib::TUIEvent event = {kind, &control};
    event.mouse = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    control.Event(event);
}

// Brings a control into a state on the way that the user would.
static bool applyState(SkinDocument& document, const std::wstring& name, const std::wstring& state) {
    CControlUI* control = document.manager().FindControl(name.c_str());
    if (!control) {
        fprintf(stderr, "vynkit render: no control %s\n", toUtf8(name).c_str());
        return false;
    }
    if (state == L"hot" || state == L"pushed")
        sendMouse(*control, UILib::EventMouseEnter);
    if (state == L"pushed")
        sendMouse(*control, UILib::EventButtonDown);
    else if (state == L"disabled")
        control->SetEnabled(false);
    else if (state == L"focused")
        control->SetFocus();
    else if (state == L"selected")
        control->SetAttribute(L"selected", L"true");
    else if (state != L"hot" && state != L"normal") {
        fprintf(stderr, "vynkit render: no state %s\n", toUtf8(state).c_str());
        return false;
    }
    return true;
}

static int run(const Arguments& arguments) {
    RenderRequest request;
    if (!readRequest(arguments, request))
        return wrongUsage(renderCommand, "a file, a size and the picture to write, please");
    SkinDocument document;
    if (!document.load(request.file, request.language))
        return 1;
    document.layout(request.width, request.height);
    for (const auto& [name, state] : request.states)
        if (!applyState(document, name, state))
            return 1;
    document.layout(request.width, request.height);
    UILib::DibSurface surface(nullptr, request.width, request.height);
    if (!surface)
        return 1;
    document.root()->DoPaint(surface.context(), {0, 0, request.width, request.height}, nullptr);
    GdiFlush();
    if (!writeFile(request.out, encodePng(surface.raster(), Alpha::Drop))) {
        fprintf(stderr, "vynkit render: cannot write %s\n", toUtf8(request.out).c_str());
        return 1;
    }
    return 0;
}

const Command renderCommand = {
    "render",
    "FILE WIDTH HEIGHT OUT.png [--lang CODE] [--state NAME=STATE ...]",
    "draw a skin file into a picture",
    "Draws what the window would show, on a transparent ground. --lang chooses a column of the\n"
    "multi_language.tsv beside the file. --state brings a named control into one of the states\n"
    "normal, hot, pushed, disabled, focused and selected; it may be given several times.\n",
    run,
};

} // namespace kit
