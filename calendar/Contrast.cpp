#include "calendar/Contrast.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kLeast = 3;
constexpr Rgb kBlack = 0;
constexpr Rgb kWhite = 0xFFFFFF;

/// Relative luminance of sRGB, 0..1.
double LuminanceOf(Rgb color) noexcept {
    const auto linear = [color](int shift) {
        const double part = (color >> shift & 0xFF) / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(0) + 0.7152 * linear(8) + 0.0722 * linear(16);
}

}  // namespace

double ContrastOf(Rgb a, Rgb b) noexcept {
    const auto [dark, light] = std::minmax({LuminanceOf(a), LuminanceOf(b)});
    return (light + 0.05) / (dark + 0.05);
}

bool IsReadable(Rgb text, Rgb ground) noexcept { return ContrastOf(text, ground) >= kLeast; }

Rgb ReadableOn(Rgb ground) noexcept {
    return ContrastOf(kBlack, ground) >= ContrastOf(kWhite, ground) ? kBlack : kWhite;
}

}  // namespace velmora
