#include "hosts/activex/win32/ScreenDpi.h"

namespace velmora {
namespace {

using DpiForWindow = UINT(WINAPI*)(HWND);

/// Newer than the oldest system that the controls run on.
DpiForWindow FindDpiForWindow() {
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
    return reinterpret_cast<DpiForWindow>(reinterpret_cast<void*>(found));
}

int ReadScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace

int ScreenDpi() {
    static const int dpi = ReadScreenDpi();
    return dpi;
}

int DpiOf(HWND window) {
    static const DpiForWindow dpiForWindow = FindDpiForWindow();
    const UINT dpi = dpiForWindow ? dpiForWindow(window) : 0;
    return dpi != 0 ? static_cast<int>(dpi) : ScreenDpi();
}

}  // namespace velmora
