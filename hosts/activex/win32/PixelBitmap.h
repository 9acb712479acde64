#pragma once

#include "platform/FontAndPicture.h"

#include <windows.h>

namespace velmora {

/// Whether no pixel lets anything through.
bool IsOpaque(const PixelImage& image) noexcept;

/// The image as a bitmap, which the caller owns; its colours are multiplied with the alpha where it
/// is transparent, and it carries a mark then. Null when it cannot be made or has no area.
HBITMAP MakeBitmap(const PixelImage& image);
/// Whether `MakeBitmap` has made a transparent bitmap.
bool HasAlphaMark(HBITMAP bitmap) noexcept;

/// The image as an icon, or as a pointer whose hot spot is its middle; the caller owns it.
HICON MakeIcon(const PixelImage& image);
HCURSOR MakeCursor(const PixelImage& image);

}  // namespace velmora
