#pragma once

#include "utility/windows.h"

#include <cstdint>

// The web engine: a library beside the program that is bound by name at run time. One
// global pointer for each of its functions, named as the function; all are null until
// wkeInitialize has bound them, and none is reset. Bound once, by the window thread, which
// makes all calls and gets all callbacks; never released.

struct wkeWebViewObject; // the engine's own
struct wkeExecStateObject;
using wkeWebView = wkeWebViewObject*;
using jsExecState = wkeExecStateObject*; // of one call from a page; ends with it
using jsValue = int64_t;                 // valid as long as its jsExecState

// What a panel is made from; pixels of the parent's client area.
struct wkeWindowCreateInfo {
    uint32_t size; // of this record
    HWND parent;
    uint32_t style;
    uint32_t styleEx;
    int x;
    int y;
    int width;
    int height;
    uint32_t color; // 0xRRGGBB, until a page is there
};

using wkeCallback = void(__cdecl*)();
using wkeDocumentReadyCallback = void(__cdecl*)(wkeWebView view, void* parameter);
// True keeps the engine from loading the address.
using wkeLoadUrlBeginCallback = bool(__cdecl*)(wkeWebView view, void* parameter, const char* url, void* job);
using wkeJsNativeFunction = jsValue(__cdecl*)(jsExecState state, void* parameter);
using wkeUncalled = void(__cdecl*)(); // looked up only; its shape is not known here

#define WKE_FUNCTION(name, result, parameters) extern result(__cdecl* name) parameters;
#define WKE_NAME(name) extern wkeUncalled name;
#include "utility/wke/exports.inc"
#undef WKE_FUNCTION
#undef WKE_NAME

// Where the library is. The text has to outlive wkeInitialize.
extern const wchar_t* wkeLibraryPath;

// 1 when the library was loaded and the pointers are filled, 0 when it cannot be loaded or
// is no web engine. A function that it lacks is told in a message box, and its pointer
// stays null.
int wkeInitialize();

// Whether all functions that have a shape here, so that somebody may call them, are bound.
bool wkeHasAllCalled();
