#pragma once

#include "utility/windows.h"

#include <utility>

// Owners of Windows handles: movable, not copyable, not converting by themselves. Every
// kind of handle has one line here; nothing else in the program closes one by hand, but
// for the objects whose close() is spelled out in their interface.

namespace utility {

template <class Traits>
class Owner {
public:
    using Handle = typename Traits::Handle;

    Owner() = default;
    explicit Owner(Handle handle) : handle(handle) {}
    Owner(Owner&& other) noexcept : handle(other.release()) {}
    Owner& operator=(Owner&& other) noexcept {
        reset(other.release());
        return *this;
    }
    ~Owner() { reset(); }

    explicit operator bool() const { return handle != Traits::empty(); }
    Handle get() const { return handle; }
    Handle release() { return std::exchange(handle, Traits::empty()); }
    void reset(Handle other = Traits::empty()) {
        Handle old = std::exchange(handle, other);
        if (old != Traits::empty())
            Traits::close(old);
    }

    // Address for calls that hand a handle out; what is held is closed first.
    Handle* out() {
        reset();
        return &handle;
    }

private:
    Handle handle = Traits::empty();
};

struct KernelHandleTraits { // processes, threads, tokens, events, mappings: null when empty
    using Handle = HANDLE;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { CloseHandle(handle); }
};
struct FileHandleTraits { // CreateFile and snapshots: INVALID_HANDLE_VALUE when empty
    using Handle = HANDLE;
    static Handle empty() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { CloseHandle(handle); }
};
struct FindHandleTraits {
    using Handle = HANDLE;
    static Handle empty() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { FindClose(handle); }
};
struct KeyTraits {
    using Handle = HKEY;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { RegCloseKey(handle); }
};
struct ModuleTraits {
    using Handle = HMODULE;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { FreeLibrary(handle); }
};
template <class Object>
struct GdiTraits { // not while it is selected into a device context
    using Handle = Object;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DeleteObject(handle); }
};

struct MemoryContextTraits { // of CreateCompatibleDC
    using Handle = HDC;
    static Handle empty() { return nullptr; }
    static void close(Handle handle) { DeleteDC(handle); }
};

using KernelHandle = Owner<KernelHandleTraits>;
using FileOwner = Owner<FileHandleTraits>;
using FindHandle = Owner<FindHandleTraits>;
using Key = Owner<KeyTraits>;
using Module = Owner<ModuleTraits>;
using Bitmap = Owner<GdiTraits<HBITMAP>>;
using Font = Owner<GdiTraits<HFONT>>;
using Brush = Owner<GdiTraits<HBRUSH>>;
using Pen = Owner<GdiTraits<HPEN>>;
using Region = Owner<GdiTraits<HRGN>>;
using MemoryContext = Owner<MemoryContextTraits>;

// Selects an object into a device context and puts the old one back at the end.
class Selection {
public:
    Selection(HDC context, HGDIOBJ object) : context(context), old(SelectObject(context, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(context, old); }

private:
    HDC context;
    HGDIOBJ old;
};

} // namespace utility
