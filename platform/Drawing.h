#pragma once

#include "platform/FontAndPicture.h"
#include "platform/Values.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

enum class SurfaceHandle : std::uintptr_t { None = 0 };  // something to draw on
enum class ObjectHandle : std::uintptr_t { None = 0 };   // a brush, pen, font, bitmap or icon
enum class WindowHandle : std::uintptr_t { None = 0 };

struct LogBrush {
    Rgb color = 0;
};

struct LogPen {
    Rgb color = 0;  // solid, one pixel wide
};

struct LogFont {
    std::string faceName;
    double points = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;

    friend bool operator==(const LogFont&, const LogFont&) = default;
};

/// Flags of `DrawTextA`.
enum TextFlags : std::uint32_t {
    kTextLeft = 0x0,
    kTextCenter = 0x1,
    kTextRight = 0x2,
    kTextTop = 0x0,
    kTextVCenter = 0x4,
    kTextBottom = 0x8,
    kTextSingleLine = 0x20,
    kTextCalcRect = 0x400,  // draws nothing, sets right and bottom of the rectangle to the text's
    kTextNoPrefix = 0x800,  // "&" is an ordinary character
    kTextEndEllipsis = 0x8000,  // what is too long for the rectangle ends in "..."
    /// What has no direction of its own, as digits and commas between words, follows from right to
    /// left; a host may also go by the first letter that has one.
    kTextRightToLeft = 0x20000,
};

/// The flags for the same text in a mirrored window.
constexpr std::uint32_t MirroredText(std::uint32_t flags) noexcept {
    return kTextRightToLeft | ((flags & kTextCenter) != 0 ? flags : flags ^ kTextRight);
}

enum class BackgroundMode { Transparent = 1, Opaque = 2 };

enum class FrameControl : std::uint32_t { ScrollBar = 3 };

/// States of `DrawFrameControl` for scroll-bar buttons.
enum FrameState : std::uint32_t {
    kScrollUp = 0,
    kScrollDown = 1,
    kScrollLeft = 2,
    kScrollRight = 3,
    kFrameInactive = 0x100,
    kFramePushed = 0x200,
};

/// Edges and sides of `DrawEdge`.
enum EdgeType : std::uint32_t {
    kSunkenOuter = 0x2,  // one pixel: shadow on the left and top, highlight on the right and bottom
    kSunkenInner = 0x8,
    kSunken = kSunkenOuter | kSunkenInner,  // both, two pixels
};
inline constexpr std::uint32_t kAllSides = 15;

enum class RasterOp : std::uint32_t { SrcCopy = 0xCC0020 };

inline constexpr std::uint32_t kDrawIconNormal = 3;  // `DrawIconEx`: image and mask

/// The platform's 2-D drawing, operation by operation under the platform's names. One object serves
/// all controls of the user-interface thread.
///
/// Coordinates are pixels; rectangles exclude their right and bottom. `LineTo` leaves its end point
/// undrawn. Creations return None when the object cannot be made; every operation accepts None and
/// then does nothing. Text is UTF-8. Use the scopes of DrawingScopes.h: what is created must be
/// deleted, and not while it is selected.
class Drawing {
public:
    virtual ~Drawing() = default;

    /// The system colour of that index; black for an index the platform does not know.
    virtual Rgb GetSysColor(int index) = 0;

    virtual ObjectHandle CreateBrushIndirect(const LogBrush& brush) = 0;
    virtual ObjectHandle CreatePenIndirect(const LogPen& pen) = 0;
    virtual ObjectHandle CreateFontIndirectA(const LogFont& font) = 0;
    /// Returns what was selected before of the same kind, for the selection to be undone with;
    /// never None where the selection succeeded, as every surface begins with default objects.
    virtual ObjectHandle SelectObject(SurfaceHandle surface, ObjectHandle object) = 0;
    virtual void DeleteObject(ObjectHandle object) = 0;

    virtual void FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) = 0;
    virtual void MoveToEx(SurfaceHandle surface, int x, int y) = 0;
    virtual void LineTo(SurfaceHandle surface, int x, int y) = 0;  // with the selected pen

    virtual void SetBkMode(SurfaceHandle surface, BackgroundMode mode) = 0;
    virtual void SetTextColor(SurfaceHandle surface, Rgb color) = 0;
    /// Draws with the selected font, clipped to the rectangle; returns the height of the text.
    virtual int DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                          std::uint32_t flags) = 0;

    virtual void DrawFrameControl(SurfaceHandle surface, const Rect& rect, FrameControl type,
                                  std::uint32_t state) = 0;
    virtual void DrawEdge(SurfaceHandle surface, const Rect& rect, std::uint32_t edge,
                          std::uint32_t sides) = 0;
    virtual void DrawFocusRect(SurfaceHandle surface, const Rect& rect) = 0;

    /// A memory surface for drawing off screen; `like` may be None. It has no pixels until a bitmap
    /// is selected into it. A bitmap's first content is undefined.
    virtual SurfaceHandle CreateCompatibleDC(SurfaceHandle like) = 0;
    virtual void DeleteDC(SurfaceHandle surface) = 0;
    virtual ObjectHandle CreateCompatibleBitmap(SurfaceHandle like, int width, int height) = 0;
    virtual void BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                        RasterOp operation) = 0;
    /// Whether what is drawn on the surface shows only when the paint is over, so that nothing of
    /// it can flicker.
    virtual bool IsBuffered(SurfaceHandle) { return false; }
    /// Scales `from` of the source to `area`.
    virtual void StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source,
                            const Rect& from, RasterOp operation) = 0;

    /// A picture's bitmap or icon, owned by the host and valid as long as the picture; None when
    /// the picture has no pixels that this host can draw. A bitmap may be selected into a memory
    /// surface, an icon goes to `DrawIconEx`; where such a bitmap is transparent, `BitBlt` and
    /// `StretchBlt` let the target through.
    virtual ObjectHandle PictureHandle(const StdPicture& picture) = 0;
    virtual void DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width,
                            int height, std::uint32_t flags) = 0;

    /// Nothing outside the rectangle is drawn until `RestoreDC` of the `SaveDC` before it.
    virtual void SaveDC(SurfaceHandle surface) = 0;
    virtual void IntersectClipRect(SurfaceHandle surface, const Rect& rect) = 0;
    virtual void RestoreDC(SurfaceHandle surface) = 0;

    /// Asks the window for a paint of that part, or of all of it when null.
    virtual void InvalidateRect(WindowHandle window, const Rect* rect) = 0;
};

}  // namespace velmora
