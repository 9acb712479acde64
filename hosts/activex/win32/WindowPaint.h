#pragma once

#include "platform/Values.h"

#include <windows.h>

#include <span>
#include <vector>

namespace velmora {

/// Serves one `WM_PAINT`: what is exposed of the window, rectangle by rectangle, and the context to
/// paint it with.
class WindowPaint {
public:
    explicit WindowPaint(HWND window);
    WindowPaint(const WindowPaint&) = delete;
    WindowPaint& operator=(const WindowPaint&) = delete;
    ~WindowPaint() { EndPaint(m_window, &m_paint); }

    HDC Context() const noexcept { return m_paint.hdc; }
    std::span<const Rect> Exposed() const noexcept { return m_exposed; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
    std::vector<Rect> m_exposed;
};

}  // namespace velmora
