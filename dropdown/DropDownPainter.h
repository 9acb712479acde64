#pragma once

#include "platform/Drawing.h"

#include <string>

namespace velmora {

/// What a box shows around its text: frames, distances and the button.
inline constexpr Size kAroundBoxText{26, 10};

/// What a date box looks like at one moment.
struct DropDownView {
    Size client;
    const std::string& text;
    const StdFont& font;
    bool enabled = true;
    bool focused = false;
    bool buttonDown = false;
    bool rightToLeft = false;  // mirrored
};

/// A sunken edge, the drop-down button at the right, and the text: grey when disabled, highlighted
/// with a focus rectangle when focused. Composed off screen.
/// Total: a box too small for any of them shows less.
void PaintDropDown(Drawing& drawing, SurfaceHandle window, const DropDownView& view);

}  // namespace velmora
