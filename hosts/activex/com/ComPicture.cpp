#include "hosts/activex/com/ComPicture.h"

#include "hosts/activex/win32/NativePicture.h"
#include "hosts/activex/win32/PixelBitmap.h"

#include <olectl.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr LONG kMostPixelsAcross = 32767;

/// A client's picture, which keeps the system's alive.
struct ClientPicture final : NativePicture {
    ClientPicture(PictureType type, Size himetric, HANDLE its, ComPtr<IPicture> its_owner)
        : NativePicture(type, himetric, nullptr, its), owner(std::move(its_owner)) {}

    const ComPtr<IPicture> owner;
};

/// Rows from the top, as they are stored, the unused byte included.
std::shared_ptr<PixelImage> ReadPixels(HBITMAP bitmap) {
    BITMAP size{};
    if (!GetObjectW(bitmap, sizeof size, &size) || size.bmWidth <= 0 || size.bmHeight <= 0 ||
        size.bmWidth > kMostPixelsAcross || size.bmHeight > kMostPixelsAcross) {
        return nullptr;
    }
    auto image = std::make_shared<PixelImage>();
    image->width = size.bmWidth;
    image->height = size.bmHeight;
    image->pixels.resize(static_cast<std::size_t>(size.bmWidth) *
                         static_cast<std::size_t>(size.bmHeight));
    BITMAPINFO format{};
    format.bmiHeader = {
        sizeof format.bmiHeader, size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC screen = GetDC(nullptr);
    const int lines = GetDIBits(screen, bitmap, 0, static_cast<UINT>(size.bmHeight),
                                image->pixels.data(), &format, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return lines == size.bmHeight ? image : nullptr;
}

std::uint32_t Unmultiplied(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;  // 0..255
    if (alpha == 0) return 0;
    const auto channel = [&](unsigned shift) {
        const std::uint32_t value = ((pixel >> shift & 0xFF) * 255 + alpha / 2) / alpha;
        return std::min<std::uint32_t>(value, 255) << shift;
    };
    return alpha << 24 | channel(16) | channel(8) | channel(0);
}

/// Transparent where the mask is white. An icon without colours has its mask above its pixels.
std::shared_ptr<const PixelImage> Masked(std::shared_ptr<PixelImage> color,
                                         const std::shared_ptr<PixelImage>& mask) {
    if (!mask) return nullptr;
    if (!color) {
        color = std::make_shared<PixelImage>(*mask);
        color->height /= 2;
        const auto half = static_cast<std::ptrdiff_t>(mask->pixels.size() / 2);
        color->pixels.assign(mask->pixels.begin() + half, mask->pixels.begin() + 2 * half);
    }
    for (std::size_t i = 0; i < color->pixels.size() && i < mask->pixels.size(); ++i) {
        const bool through = (mask->pixels[i] & ~kOpaque) != 0;
        color->pixels[i] = through ? 0 : color->pixels[i] | kOpaque;
    }
    return color;
}

HANDLE HandleOf(IPicture& picture) {
    OLE_HANDLE handle = 0;
    return SUCCEEDED(picture.get_Handle(&handle)) ? LongToHandle(static_cast<long>(handle))
                                                  : nullptr;
}

ComPtr<IPicture> MakePicture(const StdPicture& picture) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_NONE;
    if (const auto& image = picture.Image(); image && image->IsDrawable()) {
        const bool isIcon = picture.Type() == PictureType::Icon;
        description.picType = isIcon ? PICTYPE_ICON : PICTYPE_BITMAP;
        if (isIcon) {
            description.icon.hicon = MakeIcon(*image);
        } else {
            description.bmp.hbitmap = MakeBitmap(*image);
        }
    }
    ComPtr<IPicture> made;
    OleCreatePictureIndirect(&description, __uuidof(IPicture), TRUE, &made);
    return made;
}

}  // namespace

std::shared_ptr<const PixelImage> ReadBitmap(HBITMAP bitmap) {
    const auto image = ReadPixels(bitmap);
    if (!image) return nullptr;
    const bool transparent = HasAlphaMark(bitmap);
    for (std::uint32_t& pixel : image->pixels) {
        pixel = transparent ? Unmultiplied(pixel) : pixel | kOpaque;
    }
    return image;
}

std::shared_ptr<const PixelImage> ReadIcon(HICON icon) {
    ICONINFO parts{};
    if (!icon || !GetIconInfo(icon, &parts)) return nullptr;
    auto color = parts.hbmColor ? ReadPixels(parts.hbmColor) : nullptr;
    const auto mask = ReadPixels(parts.hbmMask);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    const bool hasAlpha = color && std::any_of(color->pixels.begin(), color->pixels.end(),
                                               [](std::uint32_t p) { return (p & kOpaque) != 0; });
    return hasAlpha ? color : Masked(std::move(color), mask);
}

PictureRef WithPixels(const PictureRef& picture) {
    const auto native = std::dynamic_pointer_cast<NativePicture>(picture);
    if (!native || native->Image() || !native->handle) return picture;
    auto image = native->Type() == PictureType::Icon
                     ? ReadIcon(static_cast<HICON>(native->handle))
                     : ReadBitmap(static_cast<HBITMAP>(native->handle));
    if (!image) return picture;
    return std::make_shared<StdPicture>(native->Type(), native->Himetric(), std::move(image));
}

ComPtr<IPicture> PictureBridge::ToClient(const PictureRef& picture) {
    if (const auto client = std::dynamic_pointer_cast<ClientPicture>(picture)) return client->owner;
    std::erase_if(m_pairs, [](const Pair& pair) { return pair.core.expired(); });
    for (const Pair& pair : m_pairs) {
        if (pair.core.lock() == picture) return pair.native;
    }
    ComPtr<IPicture> made = MakePicture(*picture);
    if (made) m_pairs.push_back({picture, made});
    return made;
}

PictureRef PictureBridge::FromClient(IUnknown* object) {
    ComPtr<IPicture> native;
    if (!object || FAILED(object->QueryInterface(IID_PPV_ARGS(&native)))) return nullptr;
    std::erase_if(m_pairs, [](const Pair& pair) { return pair.core.expired(); });
    for (const Pair& pair : m_pairs) {
        if (pair.native.Get() != native.Get()) continue;  // a ComPtr compares as a truth value
        if (PictureRef known = pair.core.lock()) return known;
    }
    SHORT type = PICTYPE_NONE;
    Size himetric;
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    if (SUCCEEDED(native->get_Type(&type)) && type != PICTYPE_NONE &&
        SUCCEEDED(native->get_Width(&width)) && SUCCEEDED(native->get_Height(&height))) {
        himetric = {width, height};
    }
    const auto known = type >= PICTYPE_NONE && type <= PICTYPE_ENHMETAFILE
                           ? static_cast<PictureType>(type)
                           : PictureType::None;
    const bool hasPixels = known == PictureType::Bitmap || known == PictureType::Icon;
    const HANDLE handle = hasPixels ? HandleOf(*native.Get()) : nullptr;
    PictureRef picture = std::make_shared<ClientPicture>(known, himetric, handle, native);
    m_pairs.push_back({picture, std::move(native)});
    return picture;
}

}  // namespace velmora
