#include "hosts/qt/drawing/QtPixels.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace velmora::gdi {
namespace {

// All four channels of a pixel times alpha / 255, rounded as QPainter rounds, so that text drawn
// with a mask and text drawn by a painter are the same to the last bit.
std::uint32_t Scaled(std::uint32_t pixel, std::uint32_t alpha) noexcept {
    std::uint32_t low = (pixel & 0xFF00FF) * alpha;
    low = ((low + ((low >> 8) & 0xFF00FF) + 0x800080) >> 8) & 0xFF00FF;
    std::uint32_t high = ((pixel >> 8) & 0xFF00FF) * alpha;
    high = (high + ((high >> 8) & 0xFF00FF) + 0x800080) & 0xFF00FF00;
    return low | high;
}

std::uint32_t Over(std::uint32_t source, std::uint32_t target) noexcept {
    return source + Scaled(target, 255 - (source >> 24));
}

std::uint32_t Inked(std::uint32_t pixel, std::uint32_t alpha, std::uint32_t color) noexcept {
    return Scaled(color, alpha) + Scaled(pixel, 255 - alpha);
}

#if defined(__SSE2__) || defined(_M_X64)
constexpr std::int32_t kBlock = 4;  // pixels

// Eight channels of 16 bits, with the rounding of Scaled.
__m128i ScaledWide(__m128i channels, __m128i alpha) noexcept {
    const __m128i product = _mm_mullo_epi16(channels, alpha);  // at most 255 * 255
    const __m128i rounded =
        _mm_add_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), _mm_set1_epi16(128));
    return _mm_srli_epi16(rounded, 8);
}

__m128i InkedWide(__m128i pixels, __m128i alpha, __m128i ink) noexcept {
    const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(255), alpha);
    return _mm_add_epi16(ScaledWide(ink, alpha), ScaledWide(pixels, rest));
}

void BlendBlock(std::uint32_t* pixels, const std::uint8_t* covered, std::uint32_t color) noexcept {
    std::int32_t four = 0;
    std::memcpy(&four, covered, sizeof four);
    if (four == 0) return;
    const __m128i zero = _mm_setzero_si128();
    const __m128i ink = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), zero);
    __m128i alpha = _mm_cvtsi32_si128(four);  // every byte four times, as the pixels have it
    alpha = _mm_unpacklo_epi8(alpha, alpha);
    alpha = _mm_unpacklo_epi16(alpha, alpha);
    const __m128i below = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
    const __m128i low =
        InkedWide(_mm_unpacklo_epi8(below, zero), _mm_unpacklo_epi8(alpha, zero), ink);
    const __m128i high =
        InkedWide(_mm_unpackhi_epi8(below, zero), _mm_unpackhi_epi8(alpha, zero), ink);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), _mm_packus_epi16(low, high));
}

/// Past the caches, which a large area would only empty of what is drawn over it: whole lines of
/// them, as a part of one costs more than it saves. A surface that stays in them is slower so.
void StreamRow(std::uint32_t* pixel, std::int32_t width, std::uint32_t color) noexcept {
    constexpr std::uintptr_t kLine = 64;  // bytes
    constexpr std::ptrdiff_t kLinePixels = kLine / sizeof(std::uint32_t);
    const __m128i four = _mm_set1_epi32(static_cast<int>(color));
    std::uint32_t* const end = pixel + width;
    while (pixel < end && reinterpret_cast<std::uintptr_t>(pixel) % kLine != 0) *pixel++ = color;
    while (end - pixel >= kLinePixels) {
        for (const std::uint32_t* const next = pixel + kLinePixels; pixel < next; pixel += kBlock) {
            _mm_stream_si128(reinterpret_cast<__m128i*>(pixel), four);
        }
    }
    std::fill(pixel, end, color);
}

bool FillLarge(PixelTarget target, const Rect& box, std::uint32_t color) noexcept {
    constexpr std::int64_t kLarge = 1 << 14;  // pixels
    const std::int32_t width = box.right - box.left;
    if (!target.outgrowsCaches || std::int64_t{width} * (box.bottom - box.top) < kLarge) {
        return false;
    }
    for (std::int32_t y = box.top; y < box.bottom; ++y) {
        StreamRow(target.At(box.left, y), width, color);
    }
    _mm_sfence();
    return true;
}
#else
constexpr std::int32_t kBlock = 1;

bool FillLarge(PixelTarget, const Rect&, std::uint32_t) noexcept { return false; }

void BlendBlock(std::uint32_t* pixels, const std::uint8_t* covered, std::uint32_t color) noexcept {
    *pixels = Inked(*pixels, *covered, color);
}
#endif

std::size_t RowBytes(const Rect& box) noexcept {
    return static_cast<std::size_t>(box.Width()) * sizeof(std::uint32_t);
}

}  // namespace

void FillPixels(PixelTarget target, const Rect& box, std::uint32_t color) noexcept {
    const std::int32_t width = box.Width();
    std::uint32_t* const first = target.At(box.left, box.top);
    if (width == 1) {
        std::uint32_t* pixel = first;
        for (std::int32_t y = box.top; y < box.bottom; ++y, pixel += target.stride) *pixel = color;
        return;
    }
    if (FillLarge(target, box, color)) return;
    std::fill_n(first, width, color);
    std::uint32_t* row = first;
    for (std::int32_t y = box.top + 1; y < box.bottom; ++y) {
        row += target.stride;
        std::memcpy(row, first, RowBytes(box));
    }
}

void InvertPixels(PixelTarget target, const Rect& box) noexcept {
    for (std::int32_t y = box.top; y < box.bottom; ++y) {
        for (std::int32_t x = box.left; x < box.right; ++x) *target.At(x, y) ^= 0xFFFFFF;
    }
}

void CopyPixels(PixelTarget target, const Rect& box, PixelSource source, Point from) noexcept {
    const std::int32_t rows = box.Height();
    const bool upwards = target.At(box.left, box.top) > source.At(from.x, from.y);
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t row = upwards ? rows - 1 - i : i;
        std::memmove(target.At(box.left, box.top + row), source.At(from.x, from.y + row),
                     RowBytes(box));
    }
}

void BlendPixels(PixelTarget target, const Rect& box, PixelSource source, Point from) noexcept {
    for (std::int32_t y = box.top; y < box.bottom; ++y) {
        std::uint32_t* pixel = target.At(box.left, y);
        const std::uint32_t* above = source.At(from.x, from.y + y - box.top);
        for (std::int32_t x = box.left; x < box.right; ++x, ++pixel, ++above) {
            // Pictures of frames are transparent nearly everywhere.
            while (box.right - x > 4 && (above[0] | above[1] | above[2] | above[3]) == 0) {
                x += 4;
                pixel += 4;
                above += 4;
            }
            if (*above >= 0xFF000000) {
                *pixel = *above;
            } else if (*above != 0) {
                *pixel = Over(*above, *pixel);
            }
        }
    }
}

void BlendMask(PixelTarget target, const Rect& box, const CoverageMask& mask, Point origin,
               std::uint32_t color) noexcept {
    const std::ptrdiff_t stride = mask.box.Width();
    const std::int32_t blocksEnd = box.left + box.Width() / kBlock * kBlock;
    for (std::int32_t y = box.top; y < box.bottom; ++y) {
        std::uint32_t* pixel = target.At(box.left, y);
        const std::uint8_t* covered = mask.coverage.data() +
                                      (y - origin.y - mask.box.top) * stride +
                                      (box.left - origin.x - mask.box.left);
        std::int32_t x = box.left;
        for (; x < blocksEnd; x += kBlock, pixel += kBlock, covered += kBlock) {
            BlendBlock(pixel, covered, color);
        }
        for (; x < box.right; ++x, ++pixel, ++covered) {
            if (*covered != 0) *pixel = Inked(*pixel, *covered, color);
        }
    }
}

}  // namespace velmora::gdi
