#include "kit/process_counts.h"

#include "utility/handles.h"

#include <tlhelp32.h>
#include <winternl.h>

#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <vector>

namespace kit {

namespace {

// One slot of the table of GDI objects that the system maps into each 32-bit process.
struct GdiSlot {
    uint64_t object;
    uint16_t owner;
    uint16_t references;
    uint16_t generation;
    uint8_t kind;
    uint8_t flags;
    uint64_t user;
};
constexpr size_t GdiSlots = 0x4000;
constexpr size_t GdiTableInPeb = 0x94; // offset in the 32-bit process environment block

// Wine answers 0 to GetGuiResources; the table itself is there.
unsigned countGdiSlots(HANDLE process) {
    PROCESS_BASIC_INFORMATION basic = {};
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) != 0)
        return 0;
    const char* peb = reinterpret_cast<const char*>(basic.PebBaseAddress);
    const void* table = nullptr;
    std::vector<GdiSlot> slots(GdiSlots);
    if (!ReadProcessMemory(process, peb + GdiTableInPeb, &table, sizeof table, nullptr) || !table ||
        !ReadProcessMemory(process, table, slots.data(), slots.size() * sizeof(GdiSlot), nullptr))
        return 0;
    unsigned count = 0;
    for (const GdiSlot& slot : slots)
        count += slot.generation && slot.kind;
    return count;
}

struct HandleEntry {
    ULONG owner;
    BYTE kind;
    BYTE flags;
    USHORT value;
    void* object;
    ULONG access;
};
struct HandleTable {
    ULONG count;
    HandleEntry entries[1];
};
constexpr auto SystemHandleTable = static_cast<SYSTEM_INFORMATION_CLASS>(16);

// From the system's table of all handles: Wine answers 0 to GetProcessHandleCount.
unsigned countHandles(DWORD processId) {
    std::vector<char> buffer(1 << 20);
    ULONG needed = 0;
    while (NtQuerySystemInformation(SystemHandleTable, buffer.data(), static_cast<ULONG>(buffer.size()),
                                    &needed) != 0) {
        if (buffer.size() > 64u << 20)
            return 0;
        buffer.resize(buffer.size() * 2);
    }
    const auto* table = reinterpret_cast<const HandleTable*>(buffer.data());
    unsigned count = 0;
    for (ULONG i = 0; i < table->count; ++i)
        count += table->entries[i].owner == processId;
    return count;
}

unsigned countThreads(DWORD processId) {
    utility::FileOwner snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    unsigned count = 0;
    for (BOOL more = Thread32First(snapshot.get(), &entry); more; more = Thread32Next(snapshot.get(), &entry))
        count += entry.th32OwnerProcessID == processId;
    return count;
}

unsigned countWindows(DWORD processId) {
    unsigned count = 0;
    for (HWND parent : {static_cast<HWND>(nullptr), HWND_MESSAGE}) {
        HWND window = nullptr;
        while ((window = FindWindowExW(parent, window, nullptr, nullptr)) != nullptr) {
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            count += owner == processId;
        }
    }
    return count;
}

} // namespace

bool readProcessCounts(DWORD processId, ProcessCounts& counts) {
    utility::KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    if (!process)
        return false;
    counts.handles = countHandles(processId);
    counts.threads = countThreads(processId);
    counts.windows = countWindows(processId);
    counts.gdi = GetGuiResources(process.get(), GR_GDIOBJECTS);
    if (counts.gdi == 0)
        counts.gdi = countGdiSlots(process.get());
    return true;
}

DWORD findProcess(const wchar_t* programName) {
    utility::FileOwner snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry))
        if (_wcsicmp(entry.szExeFile, programName) == 0)
            return entry.th32ProcessID;
    return 0;
}

} // namespace kit
