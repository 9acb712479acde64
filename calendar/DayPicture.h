#pragma once

#include "model/Enumerations.h"
#include "platform/DrawingScopes.h"

#include <optional>

namespace velmora {

/// Icons are always drawn at 32 x 32 pixels.
inline constexpr Size kIconSize{32, 32};

/// Where a picture of that size goes. `cell` is what may be painted on; the modes beside, above and
/// below the text go by `text`, the place of the day's number, and stay inside the cell where there
/// is room. Right and bottom exclusive. Total: an unknown alignment counts as top left.
Rect PlaceDayPicture(VmPictureAlignmentConstants alignment, Size picture, const Rect& cell,
                     const Rect& text) noexcept;

/// Size of a picture on the screen: 32 x 32 for an icon, else its HIMETRIC size in pixels.
Size PictureSize(const StdPicture& picture, double pixelsPerInch) noexcept;

/// Where the bitmaps of pictures are copied from, for one paint. The last one stays selected until
/// the end or another one: that takes longer than to copy it, and days mostly share one.
class PictureSource {
public:
    explicit PictureSource(Drawing& drawing) : m_drawing(drawing) {}

    /// A surface for copying to `target`, with that bitmap in it; None if there is none.
    SurfaceHandle With(ObjectHandle bitmap, SurfaceHandle target);

private:
    Drawing& m_drawing;
    std::optional<OwnedSurface> m_surface;
    std::optional<Selection> m_selected;
    ObjectHandle m_bitmap = ObjectHandle::None;
};

/// Draws a day's picture clipped to its cell; nothing for one that has no size or that the host
/// cannot draw. Mirrored in its cell it goes by where `text` is when it is not.
void DrawDayPicture(Drawing& drawing, SurfaceHandle surface, PictureSource& source,
                    const StdPicture& picture, VmPictureAlignmentConstants alignment,
                    const Rect& cell, const Rect& text, double pixelsPerInch, bool mirrored);

}  // namespace velmora
