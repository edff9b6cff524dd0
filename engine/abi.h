#pragma once

#include <windows.h>

#include <cstdint>

// What passes between the engine and the program that loads it: plain C types, cdecl. All
// functions belong to the thread that made the views, which runs their message loop.

namespace engine {

using ViewHandle = struct wkeWebViewObject*;
using ExecState = struct wkeExecStateObject*; // of one call from a page
using ScriptValue = int64_t;                  // within that call

struct WindowRecord {
    uint32_t size; // of this record
    HWND parent;
    uint32_t style;
    uint32_t styleEx;
    int x, y, width, height; // pixels of the parent's client area
    uint32_t color;          // 0xRRGGBB, until a page is there
};
static_assert(sizeof(WindowRecord) == 36);

using UnusedCallback = void(__cdecl*)();
using DocumentReady = void(__cdecl*)(ViewHandle view, void* parameter);
using LoadUrlBegin = bool(__cdecl*)(ViewHandle view, void* parameter, const char* url, void* job);
using NativeCall = ScriptValue(__cdecl*)(ExecState state, void* parameter);

} // namespace engine
