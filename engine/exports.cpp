#include "engine/js_bindings.h"
#include "engine/web_view.h"

// The functions of the library that do something. All the other names of the export list
// lead to notProvided.

using namespace engine;

extern "C" {

void __cdecl wkeInitializeEx(const void*) {}

ViewHandle __cdecl wkeCreateWebCustomWindow(const WindowRecord* record) {
    return record && record->size == sizeof(WindowRecord) ? WebView::create(*record) : nullptr;
}

void __cdecl wkeShowWindow(ViewHandle handle, bool visible) {
    if (WebView* view = WebView::find(handle))
        view->show(visible);
}

void __cdecl wkeMoveWindow(ViewHandle handle, int x, int y, int width, int height) {
    if (WebView* view = WebView::find(handle))
        view->move({x, y, width, height});
}

void __cdecl wkeSetUserAgent(ViewHandle handle, const char* agent) {
    if (WebView* view = WebView::find(handle))
        view->setUserAgent(agent);
}

void __cdecl wkeLoadURLW(ViewHandle handle, const wchar_t* address) {
    if (WebView* view = WebView::find(handle); view && address)
        view->load(address);
}

void __cdecl wkeOnDocumentReady(ViewHandle handle, DocumentReady callback, void* parameter) {
    if (WebView* view = WebView::find(handle))
        view->setDocumentReady(callback, parameter);
}

void __cdecl wkeOnLoadUrlBegin(ViewHandle handle, LoadUrlBegin callback, void* parameter) {
    if (WebView* view = WebView::find(handle))
        view->setLoadUrlBegin(callback, parameter);
}

// Programs set these to null to say that they do not listen; nobody is told of such events.
void __cdecl wkeOnTitleChanged(ViewHandle, UnusedCallback, void*) {}
void __cdecl wkeOnCreateView(ViewHandle, UnusedCallback, void*) {}
void __cdecl wkeOnLoadUrlEnd(ViewHandle, UnusedCallback, void*) {}
void __cdecl wkeOnDidCreateScriptContext(ViewHandle, UnusedCallback, void*) {}
void __cdecl wkeOnWindowClosing(ViewHandle, UnusedCallback, void*) {}
void __cdecl wkeOnWindowDestroy(ViewHandle, UnusedCallback, void*) {}

void __cdecl wkeJsBindFunction(const char* name, NativeCall call, void* parameter, unsigned argumentCount) {
    bindFunction(name, call, parameter, argumentCount);
}

ScriptValue __cdecl jsArg(ExecState state, int index) {
    return argument(state, index);
}

const wchar_t* __cdecl jsToStringW(ExecState state, ScriptValue value) {
    return textOf(state, value);
}

ScriptValue __cdecl jsUndefined() {
    return Undefined;
}

// Zero, null or false, whatever the arguments, which a cdecl caller takes away itself.
int64_t __cdecl notProvided() {
    return 0;
}

} // extern "C"
