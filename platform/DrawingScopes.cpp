#include "platform/DrawingScopes.h"

#include <algorithm>

namespace velmora {

Rgb ResolveColor(Drawing& drawing, OLE_COLOR color) {
    if ((color & kSystemColor) == 0) return color;
    return drawing.GetSysColor(static_cast<int>(color & 0xFFFFFF));
}

OwnedObject SolidBrush(Drawing& drawing, OLE_COLOR color) {
    return {drawing, drawing.CreateBrushIndirect({ResolveColor(drawing, color)})};
}

OwnedObject SolidPen(Drawing& drawing, OLE_COLOR color) {
    return {drawing, drawing.CreatePenIndirect({ResolveColor(drawing, color)})};
}

LogFont FontToLogFont(const StdFont& font) {
    return {font.name, font.size, font.bold, font.italic, font.underline, font.strikethrough};
}

Size ExtentOf(Drawing& drawing, const StdFont& font, std::span<const std::string> texts) {
    const OwnedSurface memory(drawing, drawing.CreateCompatibleDC(SurfaceHandle::None));
    const OwnedObject object(drawing, drawing.CreateFontIndirectA(FontToLogFont(font)));
    const Selection selected(drawing, memory.Get(), object);
    Size largest;
    for (const std::string& text : texts) {
        Rect extent;
        drawing.DrawTextA(memory.Get(), text, extent, kTextSingleLine | kTextCalcRect);
        largest = {std::max(largest.width, extent.right), std::max(largest.height, extent.bottom)};
    }
    return largest;
}

}  // namespace velmora
