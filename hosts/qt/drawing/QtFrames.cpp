#include "hosts/qt/drawing/QtFrames.h"

#include "platform/Drawing.h"

#include <algorithm>

namespace velmora::gdi {
namespace {

enum Side : std::uint32_t { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

/// One pixel along the sides; right and bottom own the corners that they share.
void Ring(Canvas& canvas, const Rect& rect, std::uint32_t sides, std::uint32_t leftTop,
          std::uint32_t rightBottom) {
    const auto [left, top, right, bottom] = rect;
    if ((sides & kLeft) != 0) canvas.Fill({left, top, left + 1, bottom}, leftTop);
    if ((sides & kTop) != 0) canvas.Fill({left, top, right, top + 1}, leftTop);
    if ((sides & kRight) != 0) canvas.Fill({right - 1, top, right, bottom}, rightBottom);
    if ((sides & kBottom) != 0) canvas.Fill({left, bottom - 1, right, bottom}, rightBottom);
}

Rect Inset(const Rect& rect, std::uint32_t sides) {
    return {rect.left + ((sides & kLeft) != 0 ? 1 : 0), rect.top + ((sides & kTop) != 0 ? 1 : 0),
            rect.right - ((sides & kRight) != 0 ? 1 : 0),
            rect.bottom - ((sides & kBottom) != 0 ? 1 : 0)};
}

/// A triangle of rows that grow by two pixels from its tip.
void Arrow(Canvas& canvas, const Rect& rect, std::uint32_t direction, std::uint32_t color) {
    const std::int32_t width = rect.Width();
    const std::int32_t height = rect.Height();
    const std::int32_t rows = (std::min(width, height) - 4) / 3;
    const bool upright = direction == kScrollUp || direction == kScrollDown;
    const bool tipFirst = direction == kScrollUp || direction == kScrollLeft;
    const std::int32_t axis = upright ? rect.left + (width - 1) / 2 : rect.top + (height - 1) / 2;
    const std::int32_t begin =
        upright ? rect.top + (height - rows) / 2 : rect.left + (width - rows) / 2;
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t reach = tipFirst ? i : rows - 1 - i;
        const std::int32_t at = begin + i;
        const Rect row = upright ? Rect{axis - reach, at, axis + reach + 1, at + 1}
                                 : Rect{at, axis - reach, at + 1, axis + reach + 1};
        canvas.Fill(row, color);
    }
}

}  // namespace

void PaintEdge(Canvas& canvas, Rect rect, std::uint32_t edge, std::uint32_t sides,
               const FrameColors& colors) {
    if (IsEmpty(rect)) return;
    if ((edge & kSunkenOuter) != 0) {
        Ring(canvas, rect, sides, colors.shadow, colors.highlight);
        rect = Inset(rect, sides);
    }
    if ((edge & kSunkenInner) != 0 && !IsEmpty(rect)) {
        Ring(canvas, rect, sides, colors.darkShadow, colors.light);
    }
}

void PaintScrollButton(Canvas& canvas, const Rect& rect, std::uint32_t state,
                       const FrameColors& colors) {
    if (IsEmpty(rect)) return;
    const bool pushed = (state & kFramePushed) != 0;
    canvas.Fill(rect, colors.face);
    if (pushed) {
        PaintEdge(canvas, rect, kSunken, kAllSides, colors);
    } else {
        Ring(canvas, rect, kAllSides, colors.highlight, colors.darkShadow);
        const Rect inner = Inset(rect, kAllSides);
        if (!IsEmpty(inner)) Ring(canvas, inner, kAllSides, colors.light, colors.shadow);
    }
    const std::uint32_t color = (state & kFrameInactive) != 0 ? colors.disabledArrow : colors.arrow;
    const std::int32_t shift = pushed ? 1 : 0;
    constexpr std::uint32_t kDirection = 3;
    Arrow(canvas, Moved(rect, shift, shift), state & kDirection, color);
}

}  // namespace velmora::gdi
