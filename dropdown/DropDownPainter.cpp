#include "dropdown/DropDownPainter.h"

#include "platform/DrawingScopes.h"

namespace velmora {
namespace {

constexpr int kTextInset = 2;  // pixels between the text and the rectangle that it stands in

void PaintDropButton(Drawing& drawing, SurfaceHandle surface, const DropDownView& view) {
    std::uint32_t state = kScrollDown;
    if (view.buttonDown) state |= kFramePushed;
    if (!view.enabled) state |= kFrameInactive;
    const auto [width, height] = view.client;
    drawing.DrawFrameControl(surface, {width - 18, 2, width - 2, height - 2},
                             FrameControl::ScrollBar, state);
}

void Fill(Drawing& drawing, SurfaceHandle surface, const Rect& rect, OLE_COLOR color) {
    const OwnedObject brush = SolidBrush(drawing, color);
    drawing.FillRect(surface, rect, brush.Get());
}

/// Returns the colour of the text on it.
OLE_COLOR PaintGround(Drawing& drawing, SurfaceHandle surface, const DropDownView& view) {
    const auto [width, height] = view.client;
    Fill(drawing, surface, {2, 2, width - 18, height - 2}, kWindowBackground);
    if (!view.enabled) return kGrayText;
    if (!view.focused) return kWindowText;
    const Rect inner{3, 3, width - 19, height - 3};
    Fill(drawing, surface, inner, kHighlight);
    drawing.DrawFocusRect(surface, inner);
    return kHighlightText;
}

}  // namespace

void PaintDropDown(Drawing& drawing, SurfaceHandle surface, const DropDownView& view) {
    const auto [width, height] = view.client;
    if (width <= 0 || height <= 0) return;
    drawing.DrawEdge(surface, {0, 0, width, height}, kSunken, kAllSides);
    PaintDropButton(drawing, surface, view);
    const OLE_COLOR color = PaintGround(drawing, surface, view);

    Rect text{3 + kTextInset, 3, width - 19 - kTextInset, height - 3};
    if (text.left >= text.right || text.top >= text.bottom) return;
    const OwnedObject font(drawing, drawing.CreateFontIndirectA(FontToLogFont(view.font)));
    const Selection selected(drawing, surface, font);
    drawing.SetBkMode(surface, BackgroundMode::Transparent);
    drawing.SetTextColor(surface, ResolveColor(drawing, color));
    drawing.DrawTextA(surface, view.text, text,
                      kTextLeft | kTextVCenter | kTextSingleLine | kTextNoPrefix);
}

}  // namespace velmora
