#pragma once

#include "platform/FontAndPicture.h"

#include <windows.h>

#include <utility>

namespace velmora {

/// A picture that has a bitmap or an icon of the system besides its pixels, or instead of them.
struct NativePicture : StdPicture {
    NativePicture(PictureType type, Size himetric, std::shared_ptr<const PixelImage> image,
                  HANDLE its)
        : StdPicture(type, himetric, std::move(image)), handle(its) {}

    /// An `HBITMAP` or `HICON`, as its type says. Whoever derives or makes it sees to it that the
    /// handle lives as long as the picture.
    const HANDLE handle;
};

}  // namespace velmora
