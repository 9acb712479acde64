#pragma once

#include "hosts/qt/drawing/QtStyleFrames.h"
#include "hosts/qt/drawing/QtText.h"
#include "platform/Drawing.h"

#include <QImage>
#include <QPainter>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

namespace velmora::gdi {

/// What an `ObjectHandle` points at.
struct GdiObject {
    enum class Kind : std::uint8_t { Brush, Pen, Font, Bitmap, Picture, NoBitmap };

    explicit GdiObject(Kind its) noexcept : kind(its) {}
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    virtual ~GdiObject() = default;

    const Kind kind;
};

struct Brush final : GdiObject {
    static constexpr Kind kKind = Kind::Brush;
    explicit Brush(Rgb rgb) noexcept;

    const std::uint32_t color;  // 0xFFRRGGBB
};

struct Pen final : GdiObject {
    static constexpr Kind kKind = Kind::Pen;
    explicit Pen(Rgb rgb) noexcept;

    const std::uint32_t color;  // 0xFFRRGGBB
};

struct Font final : GdiObject {
    static constexpr Kind kKind = Kind::Font;
    explicit Font(FontFaceRef its) noexcept : GdiObject(kKind), face(std::move(its)) {}

    const FontFaceRef face;  // null: the application's font, resolved when it is used
};

/// An uninitialised block of pixels that goes back to the shared scratch memory.
class PixelMemory {
public:
    /// Holds nothing if there is no memory.
    explicit PixelMemory(std::size_t pixels);
    PixelMemory(const PixelMemory&) = delete;
    PixelMemory& operator=(const PixelMemory&) = delete;
    ~PixelMemory();

    std::uint32_t* Get() const noexcept { return m_pixels.get(); }

private:
    std::unique_ptr<std::uint32_t[]> m_pixels;
    std::size_t m_capacity = 0;
};

/// The pixels of a memory surface. Loops write them directly; what needs a painter gets one that
/// lives until the bitmap leaves its surface.
class Bitmap final : public GdiObject {
public:
    static constexpr Kind kKind = Kind::Bitmap;
    /// Width and height are device pixels. The image is null if there is no memory.
    Bitmap(int width, int height, double ratio);

    const QImage& Image() const noexcept { return m_image; }
    double Ratio() const noexcept { return m_ratio; }
    PixelTarget Pixels() const noexcept {
        return {m_memory.Get(), m_image.width(), OutgrowsCaches(m_image.width(), m_image.height())};
    }
    QPainter& Painter();
    /// A bitmap can be in one surface at a time. False if it is in one already.
    bool Enter() noexcept;
    void Leave();
    bool Entered() const noexcept { return m_entered; }

private:
    PixelMemory m_memory;
    QImage m_image;
    std::unique_ptr<QPainter> m_painter;
    double m_ratio;
    bool m_entered = false;
};

/// The pixels of a `StdPicture`, premultiplied. Read-only: a surface with a picture selected is a
/// source and cannot be drawn on.
class Picture final : public GdiObject {
public:
    static constexpr Kind kKind = Kind::Picture;
    explicit Picture(const std::shared_ptr<const PixelImage>& image);

    bool Expired() const noexcept { return m_origin.expired(); }
    const QImage& Image() const noexcept { return m_image; }
    /// The whole picture at that size; the last size is kept, as a control repeats it.
    QImage Scaled(int width, int height) const;

private:
    std::weak_ptr<const PixelImage> m_origin;
    QImage m_image;
    mutable QImage m_scaled;
};

/// What a surface begins with. The placeholder stands for "no bitmap"; selecting it takes the
/// selected one out.
struct StockObjects {
    Brush brush{0xFFFFFF};
    Pen pen{0};
    Font font{nullptr};
    struct Placeholder final : GdiObject {
        Placeholder() noexcept : GdiObject(Kind::NoBitmap) {}
    } noBitmap;

    static const StockObjects& Instance();
    bool Owns(const GdiObject* object) const noexcept;
};

/// What all surfaces of the process share: fonts, texts, pictures and a piece of scratch memory.
/// Emptied when the application object ends, as fonts must not outlive it.
class SharedCaches {
public:
    static SharedCaches& Instance();

    TextCache texts;
    StylePictures frames;

    /// Null if the picture has no pixels to draw. The object lives as long as the image.
    const Picture* PictureOf(const StdPicture& picture);

    struct Block {
        std::unique_ptr<std::uint32_t[]> pixels;
        std::size_t capacity = 0;
    };
    /// A block of at least that many pixels; null if there is no memory.
    Block TakeBlock(std::size_t pixels);
    void GiveBack(Block block) noexcept;

private:
    static void Clear();
    void ForgetExpiredPictures();

    std::unordered_map<const PixelImage*, std::unique_ptr<const Picture>> m_pictures;
    Block m_scratch;
    bool m_clearsAtExit = false;
};

/// 0x00BBGGRR to 0xFFRRGGBB.
std::uint32_t ToPixel(Rgb color) noexcept;

inline ObjectHandle HandleOf(const GdiObject* object) noexcept {
    return static_cast<ObjectHandle>(reinterpret_cast<std::uintptr_t>(object));
}

inline GdiObject* ObjectOf(ObjectHandle handle) noexcept {
    return reinterpret_cast<GdiObject*>(static_cast<std::uintptr_t>(handle));
}

/// Null if the object is None or of another kind.
template <class T>
T* As(GdiObject* object) noexcept {
    return object != nullptr && object->kind == T::kKind ? static_cast<T*>(object) : nullptr;
}

}  // namespace velmora::gdi
