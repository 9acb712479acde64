#include "hosts/activex/win32/ThisModule.h"

// The linker's name for where the module begins in memory.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace velmora {

HINSTANCE ThisModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring ThisFile() {
    std::wstring path(32768, L'\0');  // the longest that there is
    path.resize(GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size())));
    return path;
}

}  // namespace velmora
