#pragma once

#include "platform/Drawing.h"

#include <QPalette>

#include <memory>
#include <vector>

class QPainter;
class QRegion;
class QWidget;

namespace velmora {

namespace gdi {
class Canvas;
}

/// The parts of a region, as a paint is told them.
std::vector<Rect> RectsOf(const QRegion& region);

/// The drawing operations on Qt. Memory surfaces are opaque images whose pixels are written without
/// a painter as far as possible; a widget's own surface is the painter of its paint event.
///
/// Coordinates are logical pixels; a bitmap has the device pixels of the surface it is made like.
/// Text is a single line: line breaks and tabulators are drawn as spaces, "&" is always an ordinary
/// character, and the background mode is always transparent. `RestoreDC` restores what is selected
/// too, except the bitmap. A surface with a picture selected can only be copied from, and so can
/// nothing but memory surfaces.
///
/// Belongs to the user-interface thread. Cheap to make: what it caches is shared by the process and
/// ends with the application object.
class QtDrawing : public Drawing {
public:
    /// System colours are the active colours of the widget's palette, whether it has the focus or
    /// not; from the application's palette when null. The widget must live longer.
    explicit QtDrawing(QWidget* widget = nullptr) : m_widget(widget) {}

    /// Whether buttons and the frame of a box are raised and sunken as ever, and not those of the
    /// widget's style. Without a widget they always are.
    bool Classic() const noexcept { return m_isClassic; }
    void Classic(bool value) noexcept { m_isClassic = value; }

    /// Something to draw on for as long as it lives, within one use of an active painter. The
    /// painter's coordinates are the surface's; its state is restored at the end.
    class Surface {
    public:
        Surface(QtDrawing& drawing, QPainter& painter);
        Surface(const Surface&) = delete;
        Surface& operator=(const Surface&) = delete;
        ~Surface();

        SurfaceHandle Handle() const noexcept;

    private:
        std::unique_ptr<gdi::Canvas> m_canvas;
    };

    /// The handle under which `InvalidateRect` knows a widget.
    static WindowHandle HandleOf(QWidget* window) noexcept;
    static QWidget* WidgetOf(WindowHandle window) noexcept;

    Rgb GetSysColor(int index) override;

    ObjectHandle CreateBrushIndirect(const LogBrush& brush) override;
    ObjectHandle CreatePenIndirect(const LogPen& pen) override;
    ObjectHandle CreateFontIndirectA(const LogFont& font) override;
    ObjectHandle SelectObject(SurfaceHandle surface, ObjectHandle object) override;
    void DeleteObject(ObjectHandle object) override;

    void FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) override;
    void MoveToEx(SurfaceHandle surface, int x, int y) override;
    void LineTo(SurfaceHandle surface, int x, int y) override;

    void SetBkMode(SurfaceHandle surface, BackgroundMode mode) override;
    void SetTextColor(SurfaceHandle surface, Rgb color) override;
    int DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                  std::uint32_t flags) override;

    void DrawFrameControl(SurfaceHandle surface, const Rect& rect, FrameControl type,
                          std::uint32_t state) override;
    void DrawEdge(SurfaceHandle surface, const Rect& rect, std::uint32_t edge,
                  std::uint32_t sides) override;
    void DrawFocusRect(SurfaceHandle surface, const Rect& rect) override;

    SurfaceHandle CreateCompatibleDC(SurfaceHandle like) override;
    void DeleteDC(SurfaceHandle surface) override;
    ObjectHandle CreateCompatibleBitmap(SurfaceHandle like, int width, int height) override;
    void BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                RasterOp operation) override;
    bool IsBuffered(SurfaceHandle surface) override;
    void StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from,
                    RasterOp operation) override;

    ObjectHandle PictureHandle(const StdPicture& picture) override;
    /// A width or height of 0 is the icon's own.
    void DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width, int height,
                    std::uint32_t flags) override;

    void SaveDC(SurfaceHandle surface) override;
    void IntersectClipRect(SurfaceHandle surface, const Rect& rect) override;
    void RestoreDC(SurfaceHandle surface) override;

    void InvalidateRect(WindowHandle window, const Rect* rect) override;

private:
    double RatioLike(SurfaceHandle like) const;
    QPalette Palette() const;

    bool IsStyled(SurfaceHandle surface, const Rect& rect) const;

    QWidget* m_widget;
    bool m_isClassic = false;
};

}  // namespace velmora
