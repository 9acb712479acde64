#include "calendar/DayPicture.h"

#include "platform/ScaleMode.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kTextGap = 2;  // pixels between a picture and the number that it goes by

/// Moves a span of that length to where it begins nearest to `wanted` inside low..high.
constexpr int Inside(int wanted, int length, int low, int high) noexcept {
    return std::max(low, std::min(wanted, high - length));
}

Rect PlaceByText(VmPictureAlignmentConstants alignment, Size size, const Rect& cell,
                 const Rect& text) noexcept {
    int left = text.left + (text.Width() - size.width) / 2;
    int top = text.top + (text.Height() - size.height) / 2;
    if (alignment == VmPictLeftOfText) left = text.left - kTextGap - size.width;
    if (alignment == VmPictRightOfText) left = text.right + kTextGap;
    if (alignment == VmPictAboveText) top = text.top - kTextGap - size.height;
    if (alignment == VmPictBelowText) top = text.bottom + kTextGap;
    return RectAt(Inside(left, size.width, cell.left, cell.right),
                  Inside(top, size.height, cell.top, cell.bottom), size);
}

/// False for an area without pixels: stretched into a cell without room it would be mirrored.
constexpr bool IsInside(const Rect& area, const Rect& cell) noexcept {
    return cell.left <= area.left && area.left < area.right && area.right <= cell.right &&
           cell.top <= area.top && area.top < area.bottom && area.bottom <= cell.bottom;
}

/// Copies the whole bitmap that is selected into `source` to `area`.
void CopyPicture(Drawing& drawing, SurfaceHandle surface, SurfaceHandle source,
                 const StdPicture& picture, const Rect& area) {
    const Size pixels{picture.Image()->width, picture.Image()->height};
    if (pixels == Size{area.Width(), area.Height()}) {
        drawing.BitBlt(surface, area, source, {0, 0}, RasterOp::SrcCopy);
    } else {
        drawing.StretchBlt(surface, area, source, {0, 0, pixels.width, pixels.height},
                           RasterOp::SrcCopy);
    }
}

/// Neighbouring copies overlap by one pixel; a picture one pixel wide or high still advances.
void TilePicture(Drawing& drawing, SurfaceHandle surface, SurfaceHandle source,
                 const StdPicture& picture, Size size, const Rect& area) {
    const int stepX = std::max(size.width - 1, 1);
    const int stepY = std::max(size.height - 1, 1);
    for (int x = area.left; x < area.right; x += stepX) {
        for (int y = area.top; y < area.bottom; y += stepY) {
            CopyPicture(drawing, surface, source, picture, RectAt(x, y, size));
        }
    }
}

}  // namespace

Rect PlaceDayPicture(VmPictureAlignmentConstants alignment, Size picture, const Rect& cell,
                     const Rect& text) noexcept {
    if (alignment == VmPictStretch || alignment == VmPictTile) return cell;
    if (alignment >= VmPictLeftOfText && alignment <= VmPictBelowText) {
        return PlaceByText(alignment, picture, cell, text);
    }
    const bool known = alignment >= VmPictTopLeft && alignment <= VmPictBottomRight;
    const int column = known ? alignment / 3 : 0;  // 0..2
    const int row = known ? alignment % 3 : 0;     // 0..2
    return RectAt(cell.left + (cell.Width() - picture.width) * column / 2,
                  cell.top + (cell.Height() - picture.height) * row / 2, picture);
}

Size PictureSize(const StdPicture& picture, double pixelsPerInch) noexcept {
    if (picture.Type() == PictureType::Icon) return kIconSize;
    return HimetricToPixels(picture.Himetric(), pixelsPerInch);
}

SurfaceHandle PictureSource::With(ObjectHandle bitmap, SurfaceHandle target) {
    if (!m_surface) m_surface.emplace(m_drawing, m_drawing.CreateCompatibleDC(target));
    if (*m_surface && bitmap != m_bitmap) {
        m_selected.reset();
        m_selected.emplace(m_drawing, m_surface->Get(), bitmap);
        m_bitmap = bitmap;
    }
    return m_surface->Get();
}

void DrawDayPicture(Drawing& drawing, SurfaceHandle surface, PictureSource& source,
                    const StdPicture& picture, VmPictureAlignmentConstants alignment,
                    const Rect& cell, const Rect& text, double pixelsPerInch, bool mirrored) {
    const Size size = PictureSize(picture, pixelsPerInch);
    if (size.width <= 0 || size.height <= 0) return;
    const ObjectHandle handle = drawing.PictureHandle(picture);
    if (handle == ObjectHandle::None) return;

    const bool isIcon = picture.Type() == PictureType::Icon;  // never stretched or tiled
    Rect place = PlaceDayPicture(alignment, size, cell, text);
    if (mirrored) place = Mirrored(place, cell);
    if (isIcon) place = RectAt(place.left, place.top, kIconSize);
    std::optional<Clip> clip;  // it takes as long as the picture
    if (alignment == VmPictTile || !IsInside(place, cell)) clip.emplace(drawing, surface, cell);
    if (isIcon) {
        return drawing.DrawIconEx(surface, place.left, place.top, handle, kIconSize.width,
                                  kIconSize.height, kDrawIconNormal);
    }
    const SurfaceHandle bitmap = source.With(handle, surface);
    if (bitmap == SurfaceHandle::None) return;
    if (alignment == VmPictTile) {
        TilePicture(drawing, surface, bitmap, picture, size, place);
    } else {
        CopyPicture(drawing, surface, bitmap, picture, place);
    }
}

}  // namespace velmora
