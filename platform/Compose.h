#pragma once

#include "platform/DrawingScopes.h"

namespace velmora {

/// Calls `paint` with a surface of that size and copies what it has drawn to the window in one go,
/// so that nothing flickers. Draws on the window itself where nothing would, or where there is no
/// memory for that.
template <class Paint>
void Compose(Drawing& drawing, SurfaceHandle window, Size size, Paint paint) {
    if (drawing.IsBuffered(window)) {
        const Clip inside(drawing, window, {0, 0, size.width, size.height});
        paint(window);
        return;
    }
    const OwnedSurface memory(drawing, drawing.CreateCompatibleDC(window));
    const OwnedObject bitmap(drawing,
                             drawing.CreateCompatibleBitmap(window, size.width, size.height));
    if (!memory || !bitmap) {
        paint(window);
        return;
    }
    const Selection selected(drawing, memory.Get(), bitmap);
    paint(memory.Get());
    drawing.BitBlt(window, {0, 0, size.width, size.height}, memory.Get(), {0, 0},
                   RasterOp::SrcCopy);
}

}  // namespace velmora
