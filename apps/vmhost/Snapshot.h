#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::vmhost {

/// 0x00RRGGBB by rows from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y * width + x)] & 0xFFFFFF;
    }
};

/// What the window's client area shows now, children included.
Picture Snapshot(HWND window);
/// As an uncompressed bitmap file; false when it cannot be written.
bool SaveBitmap(const Picture& picture, const std::wstring& path);

/// A memory surface of 32 bits a pixel, white at first.
class Canvas {
public:
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Context() const { return m_context; }
    Picture Read() const;

private:
    int m_width;
    int m_height;
    HDC m_context;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
    std::uint32_t* m_bits = nullptr;
};

/// What `draw` draws on a white surface of that size.
template <class Draw>
Picture Drawn(int width, int height, Draw draw) {
    const Canvas canvas(width, height);
    draw(canvas.Context());
    return canvas.Read();
}

}  // namespace velmora::vmhost
