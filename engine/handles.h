#pragma once

#include <windows.h>
#include <wininet.h>

#include <memory>
#include <type_traits>

// Owners of the Windows handles that the engine uses; each closes its own.

namespace engine {

template <auto Close>
struct HandleCloser {
    template <class Handle>
    void operator()(Handle handle) const {
        Close(handle);
    }
};

template <class Object>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Object>, HandleCloser<DeleteObject>>;
using GdiFont = GdiObject<HFONT>;
using GdiBitmap = GdiObject<HBITMAP>;
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, HandleCloser<DeleteDC>>;
using InternetHandle = std::unique_ptr<void, HandleCloser<InternetCloseHandle>>;

} // namespace engine
