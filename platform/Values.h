#pragma once

#include <cstdint>

namespace velmora {

/// A colour: RGB 0x00BBGGRR, or 0x80000000 + the index of a system colour.
using OLE_COLOR = std::uint32_t;
/// A colour ready for drawing: always 0x00BBGGRR.
using Rgb = std::uint32_t;

inline constexpr OLE_COLOR kSystemColor = 0x80000000;  // plus the index

/// System colour references that the controls use.
inline constexpr OLE_COLOR kWindowBackground = kSystemColor + 5;
inline constexpr OLE_COLOR kWindowText = kSystemColor + 8;
inline constexpr OLE_COLOR kHighlight = kSystemColor + 13;
inline constexpr OLE_COLOR kHighlightText = kSystemColor + 14;
inline constexpr OLE_COLOR kButtonFace = kSystemColor + 15;
inline constexpr OLE_COLOR kButtonShadow = kSystemColor + 16;
inline constexpr OLE_COLOR kGrayText = kSystemColor + 17;
inline constexpr OLE_COLOR kButtonText = kSystemColor + 18;
inline constexpr OLE_COLOR k3DHighlight = kSystemColor + 20;
inline constexpr OLE_COLOR k3DDarkShadow = kSystemColor + 21;

/// The colours that a property accepts: no bit of 0x7F000000 set.
constexpr bool IsPropertyColor(OLE_COLOR color) noexcept { return (color & 0x7F000000) == 0; }

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;

    friend constexpr bool operator==(const Size&, const Size&) = default;
};

/// Pixels. For drawing operations right and bottom are exclusive; where a rectangle is a cell
/// (model/MonthGrid.h) they are inclusive.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    /// With exclusive ends.
    constexpr std::int32_t Width() const noexcept { return right - left; }
    constexpr std::int32_t Height() const noexcept { return bottom - top; }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

/// What is so far from the left of `area` as this is from its right. Exclusive ends.
constexpr Rect Mirrored(const Rect& rect, const Rect& area) noexcept {
    const std::int32_t ends = area.left + area.right;
    return {ends - rect.right, rect.top, ends - rect.left, rect.bottom};
}

constexpr Rect RectAt(std::int32_t left, std::int32_t top, Size size) noexcept {
    return {left, top, left + size.width, top + size.height};
}

}  // namespace velmora
