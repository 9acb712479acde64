#pragma once

#include <windows.h>

#include <string_view>

namespace velmora::vmhost {

/// The user's mouse and keyboard: what these do arrives by the system's own queue.

/// Then, in one go, `MOUSEEVENTF_LEFTDOWN`, `MOUSEEVENTF_LEFTUP`, ...: the system may hear late of
/// an earlier place.
void MoveMouse(POINT screen, DWORD button = 0);
void Click(POINT screen);
void PressKey(WORD virtualKey);
void ReleaseKey(WORD virtualKey);
/// Press and release, while the modifier (`VK_CONTROL`, `VK_SHIFT`, `VK_MENU`; 0 none) is held.
void TypeKey(WORD virtualKey, WORD modifier = 0);
void TypeText(std::wstring_view text);

/// A point of a window's client area on the screen.
POINT OnScreen(HWND window, int x, int y);

}  // namespace velmora::vmhost
