#pragma once

#include "platform/Drawing.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velmora::test {

/// A drawing that keeps account of every object and records what is filled and written. `Faults`
/// lists each breach: an unknown handle, a double delete, a delete while selected, an object alive
/// at the end of a paint.
class StrictDrawing : public Drawing {
public:
    struct Fill {
        SurfaceHandle surface;
        Rect rect;
        Rgb color;
    };
    struct Text {
        std::string text;
        Rect rect;
        std::uint32_t flags;
        Rgb color;
    };

    static constexpr SurfaceHandle kWindowSurface{1};
    static constexpr Rgb SystemRgb(int index) { return 0x010000u + static_cast<Rgb>(index); }

    std::vector<Fill> fills;
    std::vector<Text> texts;
    std::vector<std::uint32_t> frameStates;
    std::vector<Rect> pictures;  // icons and bitmap copies onto a surface
    std::vector<Rect> blits;     // onto the window's surface
    std::vector<std::optional<Rect>> invalidated;
    std::vector<WindowHandle> invalidatedWindows;  // the window of each
    std::vector<std::string> faults;
    int creations = 0;
    int failAt = 0;  // that creation fails; 0 for none

    void Forget();
    /// Call after a paint: everything made must be gone.
    const std::vector<std::string>& FaultsAfterPaint();

    Rgb GetSysColor(int index) override { return SystemRgb(index); }
    ObjectHandle CreateBrushIndirect(const LogBrush& brush) override;
    ObjectHandle CreatePenIndirect(const LogPen& pen) override;
    ObjectHandle CreateFontIndirectA(const LogFont& font) override;
    ObjectHandle SelectObject(SurfaceHandle surface, ObjectHandle object) override;
    void DeleteObject(ObjectHandle object) override;
    void FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) override;
    void MoveToEx(SurfaceHandle surface, int, int) override { Surface(surface); }
    void LineTo(SurfaceHandle surface, int, int) override { Surface(surface); }
    void SetBkMode(SurfaceHandle, BackgroundMode) override {}
    void SetTextColor(SurfaceHandle surface, Rgb color) override;
    int DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                  std::uint32_t flags) override;
    void DrawFrameControl(SurfaceHandle, const Rect&, FrameControl, std::uint32_t state) override {
        frameStates.push_back(state);
    }
    void DrawEdge(SurfaceHandle, const Rect&, std::uint32_t, std::uint32_t) override {}
    void DrawFocusRect(SurfaceHandle, const Rect&) override {}
    SurfaceHandle CreateCompatibleDC(SurfaceHandle like) override;
    void DeleteDC(SurfaceHandle surface) override;
    ObjectHandle CreateCompatibleBitmap(SurfaceHandle like, int width, int height) override;
    void BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                RasterOp operation) override;
    void StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from,
                    RasterOp operation) override;
    ObjectHandle PictureHandle(const StdPicture& picture) override;
    void DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width, int height,
                    std::uint32_t flags) override;
    void SaveDC(SurfaceHandle) override { ++m_saved; }
    void IntersectClipRect(SurfaceHandle, const Rect&) override {}
    void RestoreDC(SurfaceHandle) override { --m_saved; }
    void InvalidateRect(WindowHandle, const Rect* rect) override;

private:
    enum class Kind { Brush, Pen, Font, Bitmap, Picture };
    struct Thing {
        Kind kind;
        Rgb color = 0;
    };
    struct SurfaceState {
        std::map<Kind, ObjectHandle> selected;
        Rgb textColor = 0;
    };

    ObjectHandle Make(Thing thing);
    void Fault(const std::string& text) { faults.push_back(text); }
    SurfaceState* Surface(SurfaceHandle handle);
    const Thing* SelectedThing(SurfaceHandle surface, Kind kind);

    std::map<ObjectHandle, Thing> m_objects;
    std::map<SurfaceHandle, SurfaceState> m_surfaces{{kWindowSurface, {}}};
    std::uintptr_t m_next = 100;
    int m_saved = 0;
};

}  // namespace velmora::test
