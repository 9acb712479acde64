#pragma once

#include "platform/Values.h"
#include "platform/Variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velmora {

/// The shared font object. A control keeps the reference; a change of its members shows at the
/// next repaint.
struct StdFont : Object {
    std::string name = "Sans Serif";
    double size = 9;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
};

using FontRef = std::shared_ptr<StdFont>;

/// A font of its own, so that a change of one leaves the others alone; null stays null.
inline FontRef CopyOf(const FontRef& font) {
    return font ? std::make_shared<StdFont>(*font) : nullptr;
}

enum class PictureType : std::int16_t {
    None = 0,
    Bitmap = 1,
    Metafile = 2,
    Icon = 3,
    EnhMetafile = 4
};

/// Pixels as 0xAARRGGBB, not premultiplied, row by row from the top.
struct PixelImage {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint32_t> pixels;

    /// False for an image without area, or whose pixels do not fill it.
    bool IsDrawable() const noexcept {
        return width > 0 && height > 0 &&
               pixels.size() == static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
};

/// The shared picture object: its type, its size in HIMETRIC (0.01 mm) and, for bitmaps and icons,
/// its pixels. Immutable once made; hosts may derive from it to keep a native picture along.
class StdPicture : public Object {
public:
    StdPicture(PictureType type, Size himetric, std::shared_ptr<const PixelImage> image)
        : m_type(type), m_himetric(himetric), m_image(std::move(image)) {}

    PictureType Type() const noexcept { return m_type; }
    Size Himetric() const noexcept { return m_himetric; }
    /// Null for a picture without pixels.
    const std::shared_ptr<const PixelImage>& Image() const noexcept { return m_image; }

private:
    PictureType m_type;
    Size m_himetric;
    std::shared_ptr<const PixelImage> m_image;
};

using PictureRef = std::shared_ptr<StdPicture>;

}  // namespace velmora
