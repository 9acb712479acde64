#pragma once

#include <windows.h>
#include <windowsx.h>

#include <cstdint>

namespace velmora {

/// Shift state of now: 1 Shift, 2 Ctrl, 4 Alt.
std::int16_t ShiftOfKeys() noexcept;
/// Shift state of a mouse message's `MK_` flags; Alt is that of now.
std::int16_t ShiftOf(WPARAM mouseKeys) noexcept;
/// 1 left, 2 right, 4 middle.
std::int16_t ButtonsOf(WPARAM mouseKeys) noexcept;
/// The button of a press, a double click or a release; 0 for any other message.
std::int16_t ButtonOf(UINT message) noexcept;

/// The window has the mouse from a press on until the last button is released.
void HoldMouse(HWND window);
void ReleaseMouse(HWND window, WPARAM mouseKeys);

namespace detail {

inline float XOf(LPARAM place) noexcept { return static_cast<float>(GET_X_LPARAM(place)); }
inline float YOf(LPARAM place) noexcept { return static_cast<float>(GET_Y_LPARAM(place)); }

/// True when the key needs no default processing.
template <class Control>
bool DispatchKey(Control& control, HWND window, UINT message, WPARAM w) {
    auto code = static_cast<std::int16_t>(w);
    std::int16_t shift = ShiftOfKeys();
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: control.OnKeyDown(code, shift); return code == 0 || !IsWindow(window);
        case WM_KEYUP:
        case WM_SYSKEYUP: control.OnKeyUp(code, shift); return !IsWindow(window);
        default: control.OnKeyPress(code); return true;
    }
}

template <class Control>
void DispatchPress(Control& control, HWND window, UINT message, WPARAM w, LPARAM l) {
    HoldMouse(window);
    if constexpr (requires { &Control::OnMouseDoubleClick; }) {
        const bool isDouble = message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK ||
                              message == WM_MBUTTONDBLCLK;
        if (isDouble) {
            return control.OnMouseDoubleClick(ButtonOf(message), ShiftOf(w), XOf(l), YOf(l));
        }
    }
    control.OnMouseDown(ButtonOf(message), ShiftOf(w), XOf(l), YOf(l));
}

template <class Control>
void DispatchRelease(Control& control, HWND window, UINT message, WPARAM w, LPARAM l) {
    control.OnMouseUp(ButtonOf(message), ShiftOf(w), XOf(l), YOf(l));
    ReleaseMouse(window, w);
}

}  // namespace detail

/// Tells a control (`VmCalendar` or `VmCalDropDown`) what the user has done in its window. True
/// when the message needs nothing more; always so when a handler has destroyed the window.
///
/// A handler that destroys the window must leave the control object to whoever called this, until
/// it returns. Who wants the focus with a press takes it before.
template <class Control>
bool DispatchInput(Control& control, HWND window, UINT message, WPARAM w, LPARAM l,
                   LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
        case WM_CHAR:
        case WM_KEYUP:
        case WM_SYSKEYUP: return detail::DispatchKey(control, window, message, w);
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK: detail::DispatchPress(control, window, message, w, l); return true;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP: detail::DispatchRelease(control, window, message, w, l); break;
        case WM_MOUSEMOVE:
            control.OnMouseMove(ButtonsOf(w), ShiftOf(w), detail::XOf(l), detail::YOf(l));
            return true;
        case WM_CAPTURECHANGED:
            if (reinterpret_cast<HWND>(l) == window) return true;
            if constexpr (requires { control.OnCaptureLost(); }) control.OnCaptureLost();
            return true;
        case WM_SETFOCUS: control.OnGotFocus(); return true;
        case WM_KILLFOCUS: control.OnLostFocus(); return true;
        default: return false;
    }
    // The default processing of a right button's release asks for a context menu.
    return message != WM_RBUTTONUP || !IsWindow(window);
}

}  // namespace velmora
