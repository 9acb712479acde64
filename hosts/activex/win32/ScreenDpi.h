#pragma once

#include <windows.h>

namespace velmora {

/// Pixels an inch of the screen, and of a window where the system tells windows apart.
int ScreenDpi();
int DpiOf(HWND window);

}  // namespace velmora
