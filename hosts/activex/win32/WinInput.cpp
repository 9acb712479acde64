#include "hosts/activex/win32/WinInput.h"

#include "platform/Keys.h"

namespace velmora {
namespace {

bool IsDown(int key) noexcept { return GetKeyState(key) < 0; }

}  // namespace

std::int16_t ShiftOfKeys() noexcept {
    return static_cast<std::int16_t>((IsDown(VK_SHIFT) ? kShiftShift : 0) |
                                     (IsDown(VK_CONTROL) ? kShiftCtrl : 0) |
                                     (IsDown(VK_MENU) ? kShiftAlt : 0));
}

std::int16_t ShiftOf(WPARAM mouseKeys) noexcept {
    return static_cast<std::int16_t>(((mouseKeys & MK_SHIFT) != 0 ? kShiftShift : 0) |
                                     ((mouseKeys & MK_CONTROL) != 0 ? kShiftCtrl : 0) |
                                     (IsDown(VK_MENU) ? kShiftAlt : 0));
}

std::int16_t ButtonsOf(WPARAM mouseKeys) noexcept {
    return static_cast<std::int16_t>(((mouseKeys & MK_LBUTTON) != 0 ? kButtonLeft : 0) |
                                     ((mouseKeys & MK_RBUTTON) != 0 ? kButtonRight : 0) |
                                     ((mouseKeys & MK_MBUTTON) != 0 ? kButtonMiddle : 0));
}

std::int16_t ButtonOf(UINT message) noexcept {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP: return kButtonLeft;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_RBUTTONUP: return kButtonRight;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
        case WM_MBUTTONUP: return kButtonMiddle;
        default: return 0;
    }
}

void HoldMouse(HWND window) {
    if (GetCapture() != window) SetCapture(window);
}

void ReleaseMouse(HWND window, WPARAM mouseKeys) {
    if (ButtonsOf(mouseKeys) == 0 && GetCapture() == window) ReleaseCapture();
}

}  // namespace velmora
