#include "hosts/activex/win32/WindowPaint.h"

#include <cstddef>

namespace velmora {
namespace {

/// Empty when it is more than a few rectangles, or cannot be told.
std::vector<Rect> RectsOf(HRGN region) {
    constexpr std::size_t kMost = 32;
    alignas(RGNDATA) std::byte buffer[sizeof(RGNDATAHEADER) + kMost * sizeof(RECT)];
    auto* const data = reinterpret_cast<RGNDATA*>(buffer);
    if (GetRegionData(region, sizeof buffer, data) == 0) return {};
    std::vector<Rect> rects;
    const auto* const first = reinterpret_cast<const RECT*>(data->Buffer);
    for (const RECT& rect : std::span(first, data->rdh.nCount)) {
        rects.push_back({rect.left, rect.top, rect.right, rect.bottom});
    }
    return rects;
}

}  // namespace

WindowPaint::WindowPaint(HWND window) : m_window(window) {
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    if (region && GetUpdateRgn(window, region, FALSE) == COMPLEXREGION) m_exposed = RectsOf(region);
    DeleteObject(region);
    BeginPaint(window, &m_paint);
    const RECT& bounds = m_paint.rcPaint;
    if (m_exposed.empty()) m_exposed = {{bounds.left, bounds.top, bounds.right, bounds.bottom}};
}

}  // namespace velmora
