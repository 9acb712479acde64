#pragma once

#include "platform/Drawing.h"

#include <windows.h>

#include <functional>
#include <memory>

namespace velmora {

class GdiCache;

/// The drawing operations on GDI, one call to one call. Brushes, pens, fonts and the bitmaps of
/// pictures are shared by all controls of the thread and kept for the next paint; all of them are
/// gone with the last `WinDrawing` of the thread.
///
/// Belongs to the thread that made it. `StretchBlt` averages where it makes a picture smaller.
class WinDrawing final : public Drawing {
public:
    /// `dpi`: what a font's points become pixels with.
    explicit WinDrawing(int dpi = 96);
    ~WinDrawing() override;
    WinDrawing(const WinDrawing&) = delete;
    WinDrawing& operator=(const WinDrawing&) = delete;

    void Dpi(int dpi) noexcept { m_dpi = dpi; }
    int Dpi() const noexcept { return m_dpi; }
    /// Called for every repaint that is asked for while there is no window; null for all of it.
    void WhenInvalidated(std::function<void(const Rect*)> handler) {
        m_whenInvalidated = std::move(handler);
    }

    static SurfaceHandle SurfaceOf(HDC context) noexcept;
    static HDC ContextOf(SurfaceHandle surface) noexcept;
    static WindowHandle HandleOf(HWND window) noexcept;
    static HWND WindowOf(WindowHandle window) noexcept;

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

    /// On a printer or an enhanced metafile there is no bitmap: what would be composed off screen
    /// is drawn on it directly, at its own resolution.
    SurfaceHandle CreateCompatibleDC(SurfaceHandle like) override;
    void DeleteDC(SurfaceHandle surface) override;
    ObjectHandle CreateCompatibleBitmap(SurfaceHandle like, int width, int height) override;
    void BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                RasterOp operation) override;
    void StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from,
                    RasterOp operation) override;

    /// The handle of a `NativePicture`, or a bitmap or an icon made of the picture's pixels.
    ObjectHandle PictureHandle(const StdPicture& picture) override;
    void DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width, int height,
                    std::uint32_t flags) override;

    void SaveDC(SurfaceHandle surface) override;
    void IntersectClipRect(SurfaceHandle surface, const Rect& rect) override;
    void RestoreDC(SurfaceHandle surface) override;

    void InvalidateRect(WindowHandle window, const Rect* rect) override;

private:
    std::shared_ptr<GdiCache> m_cache;
    std::function<void(const Rect*)> m_whenInvalidated;
    int m_dpi;
};

}  // namespace velmora
