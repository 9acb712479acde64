#pragma once

#include <windows.h>

#include <string_view>

/// The user's mouse and keyboard: what these do arrives by the system's own queue.
namespace velmora::vmhost {

/// `MOUSEEVENTF_LEFTDOWN`, ... go with the move: the system may hear late of an earlier place.
inline void MoveMouse(POINT screen, DWORD button = 0) {
    constexpr LONG kWhole = 65536;  // the screen's size in absolute positions
    const auto absolute = [](LONG at, int metric) {
        const LONG size = GetSystemMetrics(metric);
        return (at * kWhole + size - 1) / size;  // rounded up, so that it falls on the pixel
    };
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = absolute(screen.x, SM_CXSCREEN);
    input.mi.dy = absolute(screen.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button;
    SendInput(1, &input, sizeof input);
}

inline void Click(POINT screen) {
    MoveMouse(screen, MOUSEEVENTF_LEFTDOWN);
    MoveMouse(screen, MOUSEEVENTF_LEFTUP);
}

inline void SendKey(WORD virtualKey, WORD scanCode, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = scanCode;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

inline void TurnKey(WORD virtualKey, bool down) {
    SendKey(virtualKey, static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC)),
            down ? 0 : KEYEVENTF_KEYUP);
}

inline void TypeKey(WORD virtualKey) {
    TurnKey(virtualKey, true);
    TurnKey(virtualKey, false);
}

inline void TypeText(std::wstring_view text) {
    for (const wchar_t letter : text) {
        SendKey(0, letter, KEYEVENTF_UNICODE);
        SendKey(0, letter, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

/// A point of a window's client area on the screen.
inline POINT OnScreen(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

}  // namespace velmora::vmhost
