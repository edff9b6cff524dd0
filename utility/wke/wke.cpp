#include "utility/wke/wke.h"

#include "utility/log.h"

#include <algorithm>
#include <iterator>
#include <utility>

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
    bool called;
};

constexpr Entry Table[] = {
#define WKE_FUNCTION(name, result, parameters) {#name, &name, true},
#define WKE_NAME(name) {#name, &name, false},
#include "utility/wke/exports.inc"
#undef WKE_FUNCTION
#undef WKE_NAME
};
static_assert(std::size(Table) == 374);

bool isBound(const Entry& entry) {
    return *static_cast<const FARPROC*>(entry.pointer) != nullptr;
}

// False for a library of another kind that only has the name.
bool startLibrary() {
    using InitializeEx = void(__cdecl*)(const void* settings);
    const auto initialize = reinterpret_cast<InitializeEx>(GetProcAddress(library, "wkeInitializeEx"));
    if (initialize)
        initialize(nullptr);
    return initialize != nullptr;
}

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
    if (!startLibrary()) {
        common::log("wkeInitialize", __LINE__, L"no wkeInitializeEx in %s", wkeLibraryPath);
        FreeLibrary(std::exchange(library, nullptr));
        return 0;
    }
    for (const Entry& entry : Table)
        bind(entry);
    return 1;
}

bool wkeHasAllCalled() {
    return std::ranges::all_of(Table, [](const Entry& entry) { return !entry.called || isBound(entry); });
}
