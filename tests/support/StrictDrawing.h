#pragma once

#include "platform/Drawing.h"

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velmora::test {

/// 0x00BBGGRR or a pattern, row by row.
struct Pixels {
    Size size;
    std::vector<std::uint32_t> data;

    explicit Pixels(Size its = {})
        : size(its), data(static_cast<std::size_t>(its.width) * std::size_t(its.height)) {}
};

/// A drawing that keeps account of every object and notes what is drawn. `Faults` lists each
/// breach: an unknown handle, a double delete, a delete while selected, an object alive at the end
/// of a paint. Once the window has been given pixels it draws, too: areas in their colours, and
/// everything else as a pattern of all that it depends on.
class StrictDrawing : public Drawing {
public:
    /// One operation that draws, with what its handles stood for.
    struct Call {
        std::string_view name;  // "fill", "line", "text", "frame", "edge", "focus", "copy", ..
        SurfaceHandle surface;
        Rect rect;  // a line goes from left, top to right, bottom
        Rgb color = 0;
        std::uint32_t flags = 0;
        std::string text = {};
        std::string font = {};
    };

    static constexpr SurfaceHandle kWindowSurface{1};
    static constexpr Rgb SystemRgb(int index) { return 0x010000u + static_cast<Rgb>(index); }

    std::vector<Call> calls;
    bool notesCalls = true;
    std::vector<std::optional<Rect>> invalidated;
    std::vector<std::optional<Rect>> damage;       // the same, until the next paint takes it
    std::vector<WindowHandle> invalidatedWindows;  // the window of each
    std::vector<std::string> faults;
    int creations = 0;
    int failAt = 0;  // that creation fails; 0 for none

    void Forget();
    /// The calls of that name since the last `Forget`.
    std::vector<Call> Of(std::string_view name) const;
    /// All calls as text, a line each; lines that continue each other are one.
    std::vector<std::string> Described() const;
    /// Call after a paint: everything made must be gone.
    const std::vector<std::string>& FaultsAfterPaint();
    /// What is drawn on the window goes there, inside these rectangles only, which are spoiled.
    void DrawWindowOn(std::shared_ptr<Pixels> pixels, std::span<const Rect> exposed);

    Rgb GetSysColor(int index) override { return SystemRgb(index); }
    ObjectHandle CreateBrushIndirect(const LogBrush& brush) override;
    ObjectHandle CreatePenIndirect(const LogPen& pen) override;
    ObjectHandle CreateFontIndirectA(const LogFont& font) override;
    ObjectHandle SelectObject(SurfaceHandle surface, ObjectHandle object) override;
    void DeleteObject(ObjectHandle object) override;
    void FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) override;
    void MoveToEx(SurfaceHandle surface, int x, int y) override;
    void LineTo(SurfaceHandle surface, int x, int y) override;
    void SetBkMode(SurfaceHandle, BackgroundMode) override {}
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
    void StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from,
                    RasterOp operation) override;
    ObjectHandle PictureHandle(const StdPicture& picture) override;
    void DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width, int height,
                    std::uint32_t flags) override;
    void SaveDC(SurfaceHandle surface) override;
    void IntersectClipRect(SurfaceHandle surface, const Rect& rect) override;
    void RestoreDC(SurfaceHandle surface) override;
    void InvalidateRect(WindowHandle window, const Rect* rect) override;

private:
    enum class Kind { Brush, Pen, Font, Bitmap, Picture };
    struct Thing {
        Kind kind;
        Rgb color = 0;
        std::string description = {};
        std::shared_ptr<Pixels> pixels = nullptr;
    };
    struct SurfaceState {
        std::map<Kind, ObjectHandle> selected;
        Rgb textColor = 0;
        Point position;
        std::shared_ptr<Pixels> pixels;
        std::vector<Rect> region;  // what may be drawn on
        std::vector<std::vector<Rect>> saved;
    };

    ObjectHandle Make(Thing thing);
    void Fault(const std::string& text) { faults.push_back(text); }
    SurfaceState* Surface(SurfaceHandle handle);
    const Thing* SelectedThing(SurfaceState& surface, Kind kind);
    void Copy(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from);
    /// Notes what is drawn and fills the boxes with its colour, or with a pattern of its own.
    void Draw(const Call& call, std::initializer_list<Rect> boxes = {});

    std::map<ObjectHandle, Thing> m_objects;
    std::map<SurfaceHandle, SurfaceState> m_surfaces{{kWindowSurface, {}}};
    std::uintptr_t m_next = 100;
};

}  // namespace velmora::test
