#include "hosts/activex/win32/PixelBitmap.h"

#include <algorithm>
#include <cstring>

namespace velmora {
namespace {

/// In the size that a bitmap may carry for its owner's own use.
constexpr int kAlphaMark = 0x566D;

constexpr std::uint32_t kAlphaBits = 0xFF000000;

std::uint32_t Premultiplied(std::uint32_t pixel) noexcept {
    const std::uint32_t alpha = pixel >> 24;
    const auto scaled = [alpha](std::uint32_t channel) {
        return ((channel & 0xFF) * alpha + 127) / 255;
    };
    return (pixel & kAlphaBits) | scaled(pixel >> 16) << 16 | scaled(pixel >> 8) << 8 |
           scaled(pixel);
}

/// Top-down, 32 bits a pixel, with undefined content.
HBITMAP MakeDib(const PixelImage& image, std::uint32_t*& pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = image.width;
    info.bmiHeader.biHeight = -image.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels = static_cast<std::uint32_t*>(bits);
    return bitmap;
}

HICON MakeIconOrCursor(const PixelImage& image, bool isIcon) {
    if (!image.IsDrawable()) return nullptr;
    std::uint32_t* pixels = nullptr;
    const HBITMAP color = MakeDib(image, pixels);
    if (!color) return nullptr;
    std::memcpy(pixels, image.pixels.data(), image.pixels.size() * sizeof(std::uint32_t));
    // Rows of a mask are whole words; set bits let through.
    const std::size_t stride = (static_cast<std::size_t>(image.width) + 15) / 16 * 2;
    std::vector<std::uint8_t> mask(stride * static_cast<std::size_t>(image.height));
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        if (image.pixels[i] & kAlphaBits) continue;
        const std::size_t x = i % static_cast<std::size_t>(image.width);
        const std::size_t y = i / static_cast<std::size_t>(image.width);
        mask[y * stride + x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
    }
    ICONINFO info{};
    info.fIcon = isIcon;
    info.xHotspot = static_cast<DWORD>(image.width / 2);
    info.yHotspot = static_cast<DWORD>(image.height / 2);
    info.hbmColor = color;
    info.hbmMask = CreateBitmap(image.width, image.height, 1, 1, mask.data());
    const HICON icon = info.hbmMask ? CreateIconIndirect(&info) : nullptr;
    ::DeleteObject(info.hbmMask);
    ::DeleteObject(color);
    return icon;
}

}  // namespace

bool IsOpaque(const PixelImage& image) noexcept {
    return std::all_of(image.pixels.begin(), image.pixels.end(),
                       [](std::uint32_t pixel) { return pixel >= kAlphaBits; });
}

HBITMAP MakeBitmap(const PixelImage& image) {
    if (!image.IsDrawable()) return nullptr;
    std::uint32_t* pixels = nullptr;
    const HBITMAP bitmap = MakeDib(image, pixels);
    if (!bitmap) return nullptr;
    std::transform(image.pixels.begin(), image.pixels.end(), pixels, Premultiplied);
    if (!IsOpaque(image)) SetBitmapDimensionEx(bitmap, kAlphaMark, kAlphaMark, nullptr);
    return bitmap;
}

bool HasAlphaMark(HBITMAP bitmap) noexcept {
    SIZE mark{};
    return GetBitmapDimensionEx(bitmap, &mark) && mark.cx == kAlphaMark && mark.cy == kAlphaMark;
}

HICON MakeIcon(const PixelImage& image) { return MakeIconOrCursor(image, true); }

HCURSOR MakeCursor(const PixelImage& image) { return MakeIconOrCursor(image, false); }

}  // namespace velmora
