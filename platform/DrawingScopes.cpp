#include "platform/DrawingScopes.h"

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

}  // namespace velmora
