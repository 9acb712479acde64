#include "platform/ScaleMode.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

double UnitsPerInch(std::int16_t scaleMode, double pixelsPerInch, Axis axis) {
    switch (scaleMode) {
        case kScaleTwips: return 1440;
        case 2: return 72;                                 // points
        case 4: return axis == Axis::Horizontal ? 12 : 6;  // characters of 120 x 240 twips
        case 5: return 1;                                  // inches
        case 6: return 25.4;                               // millimetres
        case 7: return 2.54;                               // centimetres
        case 8: return kHimetricPerInch;
        default: return pixelsPerInch;
    }
}

std::int32_t WholePixels(std::int32_t himetric, double pixelsPerInch) noexcept {
    const double pixels = himetric * pixelsPerInch / kHimetricPerInch;
    return static_cast<std::int32_t>(std::lround(std::clamp(pixels, 0.0, 32767.0)));
}

}  // namespace

std::int16_t ContainerScaleMode(const Hosting& hosting) {
    if (const auto mode = hosting.ContainerScaleMode()) return *mode;
    return hosting.ParentScaleMode().value_or(kScaleTwips);
}

double FromPixels(double pixels, std::int16_t scaleMode, double pixelsPerInch, Axis axis) {
    return pixels / pixelsPerInch * UnitsPerInch(scaleMode, pixelsPerInch, axis);
}

double ToPixels(double value, std::int16_t scaleMode, double pixelsPerInch, Axis axis) {
    return value / UnitsPerInch(scaleMode, pixelsPerInch, axis) * pixelsPerInch;
}

Size HimetricToPixels(Size himetric, double pixelsPerInch) noexcept {
    return {WholePixels(himetric.width, pixelsPerInch),
            WholePixels(himetric.height, pixelsPerInch)};
}

}  // namespace velmora
