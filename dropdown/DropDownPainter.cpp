#include "dropdown/DropDownPainter.h"

#include "platform/Compose.h"
#include "platform/TextCut.h"

namespace velmora {
namespace {

constexpr int kTextInset = 2;  // pixels between the text and the rectangle that it stands in

Rect Placed(const DropDownView& view, const Rect& rect) {
    return view.rightToLeft ? Mirrored(rect, {0, 0, view.client.width, view.client.height}) : rect;
}

void PaintDropButton(Drawing& drawing, SurfaceHandle surface, const DropDownView& view) {
    std::uint32_t state = kScrollDown;
    if (view.buttonDown) state |= kFramePushed;
    if (!view.enabled) state |= kFrameInactive;
    const auto [width, height] = view.client;
    drawing.DrawFrameControl(surface, Placed(view, {width - 18, 2, width - 2, height - 2}),
                             FrameControl::ScrollBar, state);
}

void Fill(Drawing& drawing, SurfaceHandle surface, const Rect& rect, OLE_COLOR color) {
    const OwnedObject brush = SolidBrush(drawing, color);
    drawing.FillRect(surface, rect, brush.Get());
}

/// Returns the colour of the text on it.
OLE_COLOR PaintGround(Drawing& drawing, SurfaceHandle surface, const DropDownView& view) {
    const auto [width, height] = view.client;
    Fill(drawing, surface, Placed(view, {2, 2, width - 18, height - 2}), kWindowBackground);
    if (!view.enabled) return kGrayText;
    if (!view.focused) return kWindowText;
    const Rect inner = Placed(view, {3, 3, width - 19, height - 3});
    Fill(drawing, surface, inner, kHighlight);
    drawing.DrawFocusRect(surface, inner);
    return kHighlightText;
}

void PaintText(Drawing& drawing, SurfaceHandle surface, const DropDownView& view, OLE_COLOR color) {
    const auto [width, height] = view.client;
    Rect text = Placed(view, {3 + kTextInset, 3, width - 19 - kTextInset, height - 3});
    if (text.left >= text.right || text.top >= text.bottom) return;
    const OwnedObject font(drawing, drawing.CreateFontIndirectA(FontToLogFont(view.font)));
    const Selection selected(drawing, surface, font);
    drawing.SetBkMode(surface, BackgroundMode::Transparent);
    drawing.SetTextColor(surface, ResolveColor(drawing, color));
    constexpr auto kFlags = kTextLeft | kTextVCenter | kTextSingleLine | kTextNoPrefix;
    const std::uint32_t flags = view.rightToLeft ? MirroredText(kFlags) : kFlags;
    const auto cut = CutToWidth(view.text, text.Width(), flags);
    drawing.DrawTextA(surface, cut ? *cut : view.text, text, flags);
}

}  // namespace

void PaintDropDown(Drawing& drawing, SurfaceHandle window, const DropDownView& view) {
    const Rect client{0, 0, view.client.width, view.client.height};
    if (client.right <= 0 || client.bottom <= 0) return;
    Compose(drawing, window, view.client, [&](SurfaceHandle surface) {
        Fill(drawing, surface, client, kButtonFace);
        drawing.DrawEdge(surface, client, kSunken, kAllSides);
        PaintDropButton(drawing, surface, view);
        PaintText(drawing, surface, view, PaintGround(drawing, surface, view));
    });
}

}  // namespace velmora
