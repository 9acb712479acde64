#include "apps/vmhost/Snapshot.h"

#include <filesystem>
#include <fstream>

namespace velmora::vmhost {
namespace {

BITMAPINFOHEADER HeaderOf(int width, int height) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof(header);
    header.biWidth = width;
    header.biHeight = -height;  // from the top
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    return header;
}

}  // namespace

Canvas::Canvas(int width, int height)
    : m_width(width), m_height(height), m_context(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader = HeaderOf(width, height);
    void* bits = nullptr;
    m_bitmap = CreateDIBSection(m_context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_bits = static_cast<std::uint32_t*>(bits);
    m_before = SelectObject(m_context, m_bitmap);
    PatBlt(m_context, 0, 0, width, height, WHITENESS);
}

Canvas::~Canvas() {
    SelectObject(m_context, m_before);
    DeleteObject(m_bitmap);
    DeleteDC(m_context);
}

Picture Canvas::Read() const {
    GdiFlush();
    return {m_width, m_height, std::vector(m_bits, m_bits + m_width * m_height)};
}

Picture Snapshot(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return Drawn(area.right, area.bottom, [&](HDC context) {
        // Taken from the screen's copy: the window's own context leaves its children out.
        POINT origin{};
        ClientToScreen(window, &origin);
        const HDC screen = GetDC(nullptr);
        BitBlt(context, 0, 0, area.right, area.bottom, screen, origin.x, origin.y, SRCCOPY);
        ReleaseDC(nullptr, screen);
    });
}

bool SaveBitmap(const Picture& picture, const std::wstring& path) {
    const BITMAPINFOHEADER header = HeaderOf(picture.width, picture.height);
    const auto bytes = static_cast<DWORD>(picture.pixels.size() * sizeof(std::uint32_t));
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof(file) + sizeof(header);
    file.bfSize = file.bfOffBits + bytes;
    std::ofstream stream(std::filesystem::path(path), std::ios::binary);
    stream.write(reinterpret_cast<const char*>(&file), sizeof(file));
    stream.write(reinterpret_cast<const char*>(&header), sizeof(header));
    stream.write(reinterpret_cast<const char*>(picture.pixels.data()), bytes);
    return static_cast<bool>(stream.flush());
}

}  // namespace velmora::vmhost
