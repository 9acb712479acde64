#pragma once

#include "platform/Values.h"

namespace velmora {

/// The contrast ratio of the W3C's Web Content Accessibility Guidelines, 1..21.
double ContrastOf(Rgb a, Rgb b) noexcept;

/// Whether text of the first colour can be read on the second: 3 to 1.
bool IsReadable(Rgb text, Rgb ground) noexcept;

/// Black or white, whichever reads better on that ground.
Rgb ReadableOn(Rgb ground) noexcept;

}  // namespace velmora
