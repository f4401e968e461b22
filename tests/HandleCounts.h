#pragma once
#include <windows.h>

#include <algorithm>
#include <vector>

// Counts the handles of processes under Wine, which does not implement the documented functions.
namespace tests {

// Returns the number of user handles in use by all processes. They share one table of a fixed size,
// so the number of free entries shows how many are in use.
inline int UserHandlesInUse() {
    constexpr int tableSize = (0xffef - 0x20) / 2 + 1;
    std::vector<HMENU> menus;
    while (const HMENU menu = CreatePopupMenu()) menus.push_back(menu);
    for (const HMENU menu : menus) DestroyMenu(menu);
    return tableSize - static_cast<int>(menus.size());
}

template <class Function>
Function NtFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), name)));
}

// Returns the number of GDI handles of the process, or -1 on failure. The process environment block
// points to the table of GDI objects; an entry in use has a type.
inline int GdiHandlesInUse(HANDLE process) {
    struct BasicInformation {
        LONG exitStatus;
        const char* environmentBlock;
        ULONG_PTR rest[4];
    } information{};
    using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
    NtFunction<Query>("NtQueryInformationProcess")(process, 0, &information, sizeof information,
                                                   nullptr);
    constexpr int tableOffset = 0x94;
    const char* table = nullptr;
    ReadProcessMemory(process, information.environmentBlock + tableOffset, &table, sizeof table,
                      nullptr);
    struct Entry {
        ULONG64 object;
        WORD process, unique, type, flags;
    };
    std::vector<Entry> entries(0x4000);
    SIZE_T read = 0;
    if (!ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(Entry), &read))
        return -1;
    int used = 0;
    for (const Entry& entry : entries) used += entry.type != 0;
    return used;
}

// Returns the number of kernel handles of the process, or -1 on failure, from the list of all
// handles of the system.
inline int KernelHandlesInUse(DWORD process) {
    struct Entry {
        void* object;
        ULONG_PTR process, value;
        ULONG access;
        USHORT creator, type;
        ULONG attributes, reserved;
    };
    std::vector<ULONG_PTR> table(1 << 20);
    constexpr int extendedHandleInformation = 64;
    using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
    const auto query = NtFunction<Query>("NtQuerySystemInformation");
    if (query(extendedHandleInformation, table.data(),
              static_cast<ULONG>(table.size() * sizeof table[0]), nullptr) != 0)
        return -1;
    const auto* entries = reinterpret_cast<const Entry*>(table.data() + 2);
    return static_cast<int>(std::count_if(
        entries, entries + table[0], [=](const Entry& entry) { return entry.process == process; }));
}

}  // namespace tests
