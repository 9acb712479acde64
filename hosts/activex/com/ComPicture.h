#pragma once

#include "platform/FontAndPicture.h"

#include <ocidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <memory>
#include <vector>

namespace velmora {

/// The pixels of a bitmap or an icon of the system; null when they cannot be read.
std::shared_ptr<const PixelImage> ReadBitmap(HBITMAP bitmap);
std::shared_ptr<const PixelImage> ReadIcon(HICON icon);

/// The picture with its pixels, to be kept beyond its native object. A picture that has its pixels
/// already, and one that has none to be read, is returned as it is.
PictureRef WithPixels(const PictureRef& picture);

/// The pictures of one control: the core's beside the system's, each as long as the core keeps it.
class PictureBridge {
public:
    /// Null when the picture cannot be made.
    Microsoft::WRL::ComPtr<IPicture> ToClient(const PictureRef& picture);
    /// Null when the object is no picture. An empty picture is a picture without pixels.
    PictureRef FromClient(IUnknown* object);

private:
    struct Pair {
        std::weak_ptr<StdPicture> core;
        Microsoft::WRL::ComPtr<IPicture> native;
    };

    std::vector<Pair> m_pairs;
};

}  // namespace velmora
