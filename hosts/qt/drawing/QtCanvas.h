#pragma once

#include "hosts/qt/drawing/QtGdiObjects.h"
#include "hosts/qt/drawing/QtPixels.h"

#include <QPainter>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace velmora::gdi {

/// What a `SurfaceHandle` points at: a place to draw with what is selected into it. Operations take
/// logical pixels, clip, and pass device pixels to the place itself. Every edge is rounded to a
/// device pixel on its own, so that areas that adjoin still do at fractional ratios.
class Canvas {
public:
    explicit Canvas(double ratio) : m_ratio(ratio) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    double Ratio() const noexcept { return m_ratio; }
    /// Whether it draws on the pixels of somebody else's image.
    virtual bool IsDirect() const noexcept { return false; }
    /// Returns what was selected before; null if the object cannot be selected here.
    const GdiObject* Select(GdiObject& object);
    void Save() { m_saved.push_back(m_state); }
    void Restore();
    void Confine(const Rect& rect) noexcept { m_state.clip = Intersect(m_state.clip, rect); }
    void MoveTo(Point position) noexcept {
        m_state.position = {Clamped(position.x), Clamped(position.y)};
    }
    void TextColor(Rgb color) noexcept { m_state.textColor = ToPixel(color); }

    void Fill(const Rect& rect, std::uint32_t color);
    /// Leaves the end point undrawn.
    void LineTo(Point end);
    /// Inverts every other pixel of the rectangle's border; a second time restores them.
    void InvertDots(const Rect& rect);
    /// Returns the height of the text.
    int Text(std::string_view text, Rect& rect, std::uint32_t flags);
    /// One pixel of a picture is one logical pixel. Transparent pixels let the target through.
    void Copy(const Rect& area, const Canvas& source, Point from);
    void Stretch(const Rect& area, const Canvas& source, const Rect& from);
    void Icon(const Rect& area, const Picture& picture);
    /// One pixel of the image is one device pixel.
    void Image(const Rect& area, const QImage& image);
    /// How many device pixels there are in that area.
    Size DeviceSize(const Rect& area) const noexcept;

protected:
    virtual bool CanDraw() const noexcept { return true; }
    virtual void FillDevice(const Rect& box, std::uint32_t color) = 0;
    virtual void InvertDevice(std::span<const Rect> boxes) = 0;
    virtual void ImageDevice(const Rect& box, const QImage& image, Point from) = 0;
    virtual void TextDevice(const TextLine& line, Point origin, const Rect& clip,
                            std::uint32_t color) = 0;
    /// A painter that works in device pixels.
    virtual QPainter& Painter() = 0;
    /// The device pixels that there are.
    virtual Rect Bounds() const noexcept = 0;
    virtual const GdiObject* SelectBitmap(GdiObject&) { return nullptr; }
    /// The bitmap or picture to copy from, null if there is none.
    virtual const GdiObject* Source() const noexcept { return nullptr; }

    double m_ratio;  // device pixels in a logical pixel

private:
    struct State {
        Rect clip{-kFarthest, -kFarthest, kFarthest, kFarthest};
        Point position;
        std::uint32_t textColor = 0xFF000000;
        const Brush* brush = &StockObjects::Instance().brush;
        const Pen* pen = &StockObjects::Instance().pen;
        const Font* font = &StockObjects::Instance().font;
    };

    std::int32_t Device(std::int32_t coordinate) const noexcept;
    Rect Device(const Rect& rect) const noexcept;
    Rect DeviceClip() const noexcept { return Intersect(Device(m_state.clip), Bounds()); }
    const FontFace& Face();
    void PlaceText(const TextLine& line, const FontFace& face, Point topLeft, const Rect& rect);
    void SlantedLine(Point begin, Point end, std::uint32_t color);
    void PlaceImage(const Rect& box, const QImage& image, Point from);
    void Scale(const Rect& box, const QImage& image, const QRectF& from, const Picture* whole);

    State m_state;
    std::vector<State> m_saved;
    FontFaceRef m_standardFace;
};

/// Writes its pixels itself, as far as possible.
class PixelCanvas : public Canvas {
public:
    using Canvas::Canvas;

protected:
    /// Those of the surface; the origin is its upper left corner.
    virtual PixelTarget Pixels() const = 0;
    void FillDevice(const Rect& box, std::uint32_t color) override;
    void InvertDevice(std::span<const Rect> boxes) override;
    void ImageDevice(const Rect& box, const QImage& image, Point from) override;
    void TextDevice(const TextLine& line, Point origin, const Rect& clip,
                    std::uint32_t color) override;
};

/// A surface in memory. Has no pixels until a bitmap is selected.
class MemoryCanvas final : public PixelCanvas {
public:
    explicit MemoryCanvas(double ratio) : PixelCanvas(ratio), m_emptyRatio(ratio) {}
    ~MemoryCanvas() override;

protected:
    bool CanDraw() const noexcept override { return m_bitmap != nullptr; }
    PixelTarget Pixels() const override { return m_bitmap->Pixels(); }
    QPainter& Painter() override { return m_bitmap->Painter(); }
    Rect Bounds() const noexcept override;
    const GdiObject* SelectBitmap(GdiObject& object) override;
    const GdiObject* Source() const noexcept override;

private:
    Bitmap* m_bitmap = nullptr;
    const Picture* m_picture = nullptr;
    double m_emptyRatio;
};

/// A painter of somebody else, made to work in device pixels; its state is restored at the end.
class ForeignPainter {
public:
    explicit ForeignPainter(QPainter& painter);
    ForeignPainter(const ForeignPainter&) = delete;
    ForeignPainter& operator=(const ForeignPainter&) = delete;
    ~ForeignPainter();

    QPainter& operator*() const noexcept { return m_painter; }
    QPainter* operator->() const noexcept { return &m_painter; }
    /// Device pixels in a logical pixel.
    static double RatioOf(const QPainter& painter);

private:
    QPainter& m_painter;
};

/// A surface on a painter of somebody else that ends in an image: what is drawn goes straight to
/// that image's pixels, where the painter would have put it.
class DirectCanvas final : public PixelCanvas {
public:
    /// Null where only the painter itself can draw: it ends elsewhere, is turned, scaled or moved
    /// by parts of a pixel, blends, or has a clip of its own.
    static std::unique_ptr<DirectCanvas> On(QPainter& painter);
    /// `parts` are the pixels that may be written, of which no two overlap.
    DirectCanvas(QPainter& painter, PixelTarget pixels, std::vector<Rect> parts);

    bool IsDirect() const noexcept override { return true; }

protected:
    void FillDevice(const Rect& box, std::uint32_t color) override;
    void InvertDevice(std::span<const Rect> boxes) override;
    void ImageDevice(const Rect& box, const QImage& image, Point from) override;
    void TextDevice(const TextLine& line, Point origin, const Rect& clip,
                    std::uint32_t color) override;
    PixelTarget Pixels() const override { return m_pixels; }
    QPainter& Painter() override { return *m_painter; }
    Rect Bounds() const noexcept override { return m_bounds; }

private:
    /// Calls `draw` with what of the box lies in each of the parts.
    template <class Draw>
    void InParts(const Rect& box, Draw draw);

    ForeignPainter m_painter;
    PixelTarget m_pixels;
    std::vector<Rect> m_parts;
    Rect m_bounds;  // around them
};

/// A surface on a painter of somebody else.
class PainterCanvas final : public Canvas {
public:
    explicit PainterCanvas(QPainter& painter)
        : Canvas(ForeignPainter::RatioOf(painter)), m_painter(painter) {}

protected:
    void FillDevice(const Rect& box, std::uint32_t color) override;
    void InvertDevice(std::span<const Rect> boxes) override;
    void ImageDevice(const Rect& box, const QImage& image, Point from) override;
    void TextDevice(const TextLine& line, Point origin, const Rect& clip,
                    std::uint32_t color) override;
    bool CanDraw() const noexcept override { return m_painter->isActive(); }
    QPainter& Painter() override { return *m_painter; }
    Rect Bounds() const noexcept override { return {-kFarthest, -kFarthest, kFarthest, kFarthest}; }

private:
    ForeignPainter m_painter;
};

inline SurfaceHandle HandleOf(const Canvas* canvas) noexcept {
    return static_cast<SurfaceHandle>(reinterpret_cast<std::uintptr_t>(canvas));
}

inline Canvas* CanvasOf(SurfaceHandle handle) noexcept {
    return reinterpret_cast<Canvas*>(static_cast<std::uintptr_t>(handle));
}

}  // namespace velmora::gdi
