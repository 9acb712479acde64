#include "tests/activex/support/Input.h"

namespace velmora::vmhost {
namespace {

constexpr LONG kWholeScreen = 65536;  // the unit of absolute mouse positions

void Send(INPUT& input) { SendInput(1, &input, sizeof(input)); }

void SendKey(WORD virtualKey, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    Send(input);
}

LONG Absolute(LONG at, int metric) {
    const LONG size = GetSystemMetrics(metric);
    return (at * kWholeScreen + size - 1) / size;  // rounded up, so that it falls on the pixel
}

}  // namespace

void MoveMouse(POINT screen, DWORD button) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = Absolute(screen.x, SM_CXSCREEN);
    input.mi.dy = Absolute(screen.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button;
    Send(input);
}

void Click(POINT screen) {
    MoveMouse(screen, MOUSEEVENTF_LEFTDOWN);
    MoveMouse(screen, MOUSEEVENTF_LEFTUP);
}

void PressKey(WORD virtualKey) { SendKey(virtualKey, 0); }
void ReleaseKey(WORD virtualKey) { SendKey(virtualKey, KEYEVENTF_KEYUP); }

void TypeKey(WORD virtualKey, WORD modifier) {
    if (modifier) PressKey(modifier);
    PressKey(virtualKey);
    ReleaseKey(virtualKey);
    if (modifier) ReleaseKey(modifier);
}

void TypeText(std::wstring_view text) {
    for (const wchar_t letter : text) {
        for (const DWORD flags : {KEYEVENTF_UNICODE, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = letter;
            input.ki.dwFlags = flags;
            Send(input);
        }
    }
}

POINT OnScreen(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

}  // namespace velmora::vmhost
