#include "tests/activex/support/Census.h"

#include <windows.h>
#include <winternl.h>

#include <array>

namespace velmora::vmhost {
namespace {

// Wine counts no drawing objects for a process. Their table hangs on the process's environment
// block: 0x4000 entries of 24 bytes, in use when the word at 14 is not zero.
int CountDrawingObjects() {
    constexpr bool is64 = sizeof(void*) == 8;
    const auto* thread = reinterpret_cast<const BYTE*>(NtCurrentTeb());
    const BYTE* process = *reinterpret_cast<const BYTE* const*>(thread + (is64 ? 0x60 : 0x30));
    const BYTE* table = *reinterpret_cast<const BYTE* const*>(process + (is64 ? 0xF8 : 0x94));
    int count = 0;
    for (int index = 0; index < 0x4000; ++index) {
        if (*reinterpret_cast<const WORD*>(table + index * 24 + 14)) ++count;
    }
    return count;
}

void CountHeap(Census& census) {
    std::array<HANDLE, 64> heaps{};
    const DWORD heapCount = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    for (DWORD index = 0; index < heapCount && index < heaps.size(); ++index) {
        HeapLock(heaps[index]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[index], &entry)) {
            if (!(entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)) continue;
            ++census.heapBlocks;
        }
        HeapUnlock(heaps[index]);
    }
}

BOOL CALLBACK CountOne(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountVisible(HWND window, LPARAM count) {
    return IsWindowVisible(window) ? CountOne(window, count) : TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
    CountOne(window, count);
    EnumChildWindows(window, CountOne, count);
    return TRUE;
}

}  // namespace

Census Census::Take() {
    Census census;
    EnumThreadWindows(GetCurrentThreadId(), CountWithChildren,
                      reinterpret_cast<LPARAM>(&census.windows));
    census.drawingObjects = CountDrawingObjects();
    CountHeap(census);
    return census;
}

std::string Census::Text() const {
    return std::to_string(drawingObjects) + " drawing objects, " + std::to_string(heapBlocks) +
           " heap blocks, " + std::to_string(windows) + " windows";
}

int VisibleWindows() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountVisible, reinterpret_cast<LPARAM>(&count));
    return count;
}

bool IsModuleLoaded(const wchar_t* name) { return GetModuleHandleW(name) != nullptr; }

}  // namespace velmora::vmhost
