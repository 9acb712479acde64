#pragma once

#include "platform/Values.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Pixel loops of the memory surfaces, without a painter between. Pixels are 0xAARRGGBB, those of a
/// target always opaque. Every box and origin lies inside what it refers to: callers clip.
namespace velmora::gdi {

/// Coordinates beyond this are cut off, which keeps all sums and scaled values inside 32 bits.
inline constexpr std::int32_t kFarthest = 1 << 24;

constexpr std::int32_t Clamped(std::int32_t coordinate) noexcept {
    return coordinate < -kFarthest ? -kFarthest : coordinate > kFarthest ? kFarthest : coordinate;
}

constexpr Rect Clamped(const Rect& rect) noexcept {
    return {Clamped(rect.left), Clamped(rect.top), Clamped(rect.right), Clamped(rect.bottom)};
}

constexpr bool IsEmpty(const Rect& rect) noexcept {
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

constexpr Rect Intersect(const Rect& a, const Rect& b) noexcept {
    return {a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
            a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
}

constexpr bool Contains(const Rect& outer, const Rect& inner) noexcept {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

constexpr Rect Moved(const Rect& rect, std::int32_t x, std::int32_t y) noexcept {
    return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

struct PixelTarget {
    std::uint32_t* bits = nullptr;
    std::ptrdiff_t stride = 0;    // pixels from one row to the next
    bool outgrowsCaches = false;  // the whole surface

    std::uint32_t* At(std::int32_t x, std::int32_t y) const noexcept {
        return bits + y * stride + x;
    }
};

/// Of a surface of so many pixels: beyond 16 MiB, amid the 2 MiB to 32 MiB that processors have for
/// a core.
constexpr bool OutgrowsCaches(std::int64_t width, std::int64_t height) noexcept {
    return width * height > (4 << 20);
}

struct PixelSource {
    const std::uint32_t* bits = nullptr;
    std::ptrdiff_t stride = 0;

    const std::uint32_t* At(std::int32_t x, std::int32_t y) const noexcept {
        return bits + y * stride + x;
    }
};

/// How much of each pixel a text covers, row by row: 0..255. `box` is relative to the left end of
/// the text's base line.
struct CoverageMask {
    Rect box;
    std::vector<std::uint8_t> coverage;
};

void FillPixels(PixelTarget target, const Rect& box, std::uint32_t color) noexcept;
void InvertPixels(PixelTarget target, const Rect& box) noexcept;
/// Source and target may be the same pixels.
void CopyPixels(PixelTarget target, const Rect& box, PixelSource source, Point from) noexcept;
/// Lays premultiplied pixels over the target.
void BlendPixels(PixelTarget target, const Rect& box, PixelSource source, Point from) noexcept;
/// Lays `color` over the target as far as the mask covers it. `box` is the part of the mask that is
/// drawn, in pixels of the target; `origin` is where the mask's base line begins.
void BlendMask(PixelTarget target, const Rect& box, const CoverageMask& mask, Point origin,
               std::uint32_t color) noexcept;

}  // namespace velmora::gdi
