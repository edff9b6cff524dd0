#include "utility/wke/wke.h"

#include <iterator>

#define WKE_FUNCTION(name, result, parameters) result(__cdecl* name) parameters = nullptr;
#define WKE_NAME(name) wkeUncalled name = nullptr;
#include "utility/wke/exports.inc"
#undef WKE_FUNCTION
#undef WKE_NAME

const wchar_t* wkeLibraryPath = L"node.dll";

namespace {

HMODULE library = nullptr; // stays loaded for the life of the process

struct Entry {
    const char* name;
    void* pointer; // the address of the global pointer
};

constexpr Entry Table[] = {
#define WKE_FUNCTION(name, result, parameters) {#name, &name},
#define WKE_NAME(name) {#name, &name},
#include "utility/wke/exports.inc"
#undef WKE_FUNCTION
#undef WKE_NAME
};
static_assert(std::size(Table) == 374);

void bind(const Entry& entry) {
    const FARPROC found = GetProcAddress(library, entry.name);
    *static_cast<FARPROC*>(entry.pointer) = found;
    if (!found)
        MessageBoxA(nullptr, "wke api not found", entry.name, MB_OK);
}

} // namespace

int wkeInitialize() {
    if (!library)
        library = LoadLibraryW(wkeLibraryPath);
    if (!library)
        return 0;
    using InitializeEx = void(__cdecl*)(const void* settings);
    reinterpret_cast<InitializeEx>(GetProcAddress(library, "wkeInitializeEx"))(nullptr);
    for (const Entry& entry : Table)
        bind(entry);
    return 1;
}
