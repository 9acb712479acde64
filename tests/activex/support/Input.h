#pragma once

#include <windows.h>

namespace velmora::vmhost {

/// The user's mouse and keyboard: what these do arrives by the system's own queue.

void MoveMouse(POINT screen);
/// `MOUSEEVENTF_LEFTDOWN`, `MOUSEEVENTF_LEFTUP`, ...
void MouseButton(DWORD event);
void Click(POINT screen);
/// Press and release, while the modifier (`VK_CONTROL`, `VK_SHIFT`; 0 none) is held.
void TypeKey(WORD virtualKey, WORD modifier = 0);

/// A point of a window's client area on the screen.
POINT OnScreen(HWND window, int x, int y);

}  // namespace velmora::vmhost
