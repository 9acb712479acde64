#pragma once

#include "platform/Hosting.h"

#include <cstdint>

namespace velmora {

inline constexpr std::int16_t kScaleTwips = 1;
inline constexpr std::int16_t kScalePixels = 3;

inline constexpr int kHimetricPerInch = 2540;  // hundredths of a millimetre
/// The resolution that sizes are saved for; where there are more pixels an inch, all is larger.
inline constexpr double kUsualPixelsPerInch = 96;

enum class Axis { Horizontal, Vertical };

/// The scale mode of the control's container, else of the object that holds it, else twips.
std::int16_t ContainerScaleMode(const Hosting& hosting);

/// Pixels to the units of a scale mode and back. Unknown modes count as pixels.
double FromPixels(double pixels, std::int16_t scaleMode, double pixelsPerInch, Axis axis);
double ToPixels(double value, std::int16_t scaleMode, double pixelsPerInch, Axis axis);

/// A picture's size in whole pixels, 0..32767 each.
Size HimetricToPixels(Size himetric, double pixelsPerInch) noexcept;

}  // namespace velmora
