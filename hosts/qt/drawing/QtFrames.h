#pragma once

#include "hosts/qt/drawing/QtCanvas.h"

#include <cstdint>

/// Edges and scroll-bar buttons of the classic look.
namespace velmora::gdi {

/// 0xFFRRGGBB.
struct FrameColors {
    std::uint32_t face;
    std::uint32_t highlight;
    std::uint32_t light;
    std::uint32_t shadow;
    std::uint32_t darkShadow;
    std::uint32_t arrow;
    std::uint32_t disabledArrow;
};

/// Edges as in `EdgeType`, sides 1 left, 2 top, 4 right, 8 bottom.
void PaintEdge(Canvas& canvas, Rect rect, std::uint32_t edge, std::uint32_t sides,
               const FrameColors& colors);
/// A scroll-bar button with its arrow, states as in `FrameState`.
void PaintScrollButton(Canvas& canvas, const Rect& rect, std::uint32_t state,
                       const FrameColors& colors);

}  // namespace velmora::gdi
