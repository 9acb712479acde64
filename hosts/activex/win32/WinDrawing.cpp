#include "hosts/activex/win32/WinDrawing.h"

#include "hosts/activex/win32/GdiCache.h"
#include "hosts/activex/win32/PixelBitmap.h"
#include "hosts/activex/win32/ThreadShared.h"
#include "hosts/activex/win32/WinText.h"

#include <array>

namespace velmora {
namespace {

HGDIOBJ Native(ObjectHandle object) noexcept { return reinterpret_cast<HGDIOBJ>(object); }

ObjectHandle ObjectOf(HANDLE object) noexcept {
    return static_cast<ObjectHandle>(reinterpret_cast<std::uintptr_t>(object));
}

RECT Native(const Rect& rect) noexcept { return {rect.left, rect.top, rect.right, rect.bottom}; }

/// What has no pixels that could be composed off screen without loss.
bool IsVectorDevice(HDC context) noexcept {
    return GetObjectType(context) == OBJ_ENHMETADC ||
           GetDeviceCaps(context, TECHNOLOGY) == DT_RASPRINTER;
}

bool HasAlpha(HDC source) noexcept {
    return HasAlphaMark(static_cast<HBITMAP>(GetCurrentObject(source, OBJ_BITMAP)));
}

void Blend(HDC target, const Rect& area, HDC source, const Rect& from) {
    constexpr BLENDFUNCTION kOver{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    GdiAlphaBlend(target, area.left, area.top, area.Width(), area.Height(), source, from.left,
                  from.top, from.Width(), from.Height(), kOver);
}

bool Fits(SIZE extent, const Rect& rect) noexcept {
    return extent.cx <= rect.Width() && extent.cy <= rect.Height();
}

/// Draws a line that fits where `DrawTextW` would, which measures it each time.
void DrawLine(HDC context, const GdiCache::Line& line, const RECT& area, std::uint32_t flags) {
    const auto [width, height] = line.extent;
    int x = area.left;
    if (flags & kTextCenter) x = (area.left + area.right - width) / 2;
    if (flags & kTextRight) x = area.right - width;
    int y = area.top;
    if (flags & kTextVCenter) y += (area.bottom - area.top) / 2 - height / 2;
    if (flags & kTextBottom) y = area.bottom - height;
    const UINT direction = flags & kTextRightToLeft ? ETO_RTLREADING : 0;
    ExtTextOutW(context, x, y, ETO_CLIPPED | direction, &area, line.text.data(),
                static_cast<UINT>(line.text.size()), nullptr);
}

}  // namespace

WinDrawing::WinDrawing(int dpi) : m_cache(ThreadShared<GdiCache>()), m_dpi(dpi) {}

WinDrawing::~WinDrawing() = default;

SurfaceHandle WinDrawing::SurfaceOf(HDC context) noexcept {
    return static_cast<SurfaceHandle>(reinterpret_cast<std::uintptr_t>(context));
}

HDC WinDrawing::ContextOf(SurfaceHandle surface) noexcept { return reinterpret_cast<HDC>(surface); }

WindowHandle WinDrawing::HandleOf(HWND window) noexcept {
    return static_cast<WindowHandle>(reinterpret_cast<std::uintptr_t>(window));
}

HWND WinDrawing::WindowOf(WindowHandle window) noexcept { return reinterpret_cast<HWND>(window); }

Rgb WinDrawing::GetSysColor(int index) { return ::GetSysColor(index); }

ObjectHandle WinDrawing::CreateBrushIndirect(const LogBrush& brush) {
    return ObjectOf(m_cache->Brush(brush.color));
}

ObjectHandle WinDrawing::CreatePenIndirect(const LogPen& pen) {
    return ObjectOf(m_cache->Pen(pen.color));
}

ObjectHandle WinDrawing::CreateFontIndirectA(const LogFont& font) {
    return ObjectOf(m_cache->Font(font, m_dpi));
}

ObjectHandle WinDrawing::SelectObject(SurfaceHandle surface, ObjectHandle object) {
    if (object == ObjectHandle::None) return ObjectHandle::None;
    const HDC context = ContextOf(surface);
    const HGDIOBJ native = Native(object);
    // Selecting a font or a bitmap takes as long as several cells, also when it is there already.
    if (GetCurrentObject(context, GetObjectType(native)) == native) return object;
    return ObjectOf(::SelectObject(context, native));
}

void WinDrawing::DeleteObject(ObjectHandle object) {
    if (object != ObjectHandle::None) m_cache->Release(Native(object));
}

void WinDrawing::FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) {
    if (brush == ObjectHandle::None) return;
    const RECT area = Native(rect);
    ::FillRect(ContextOf(surface), &area, static_cast<HBRUSH>(Native(brush)));
}

void WinDrawing::MoveToEx(SurfaceHandle surface, int x, int y) {
    ::MoveToEx(ContextOf(surface), x, y, nullptr);
}

void WinDrawing::LineTo(SurfaceHandle surface, int x, int y) { ::LineTo(ContextOf(surface), x, y); }

void WinDrawing::SetBkMode(SurfaceHandle surface, BackgroundMode mode) {
    ::SetBkMode(ContextOf(surface), static_cast<int>(mode));
}

void WinDrawing::SetTextColor(SurfaceHandle surface, Rgb color) {
    ::SetTextColor(ContextOf(surface), color);
}

int WinDrawing::DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                          std::uint32_t flags) {
    const HDC context = ContextOf(surface);
    const GdiCache::Line* const line =
        flags & kTextSingleLine ? m_cache->LineFor(context, text) : nullptr;
    RECT area = Native(rect);
    const bool measures = (flags & kTextCalcRect) != 0;
    if (line && measures && !(flags & ~(kTextSingleLine | kTextNoPrefix | kTextCalcRect))) {
        rect.right = rect.left + line->extent.cx;
        rect.bottom = rect.top + line->extent.cy;
        return line->extent.cy;
    }
    if (line && !measures && Fits(line->extent, rect)) {
        DrawLine(context, *line, area, flags);
        return line->extent.cy;
    }
    // Wine draws bars below and through a text as long as the whole, in its neighbours too.
    const bool sticksOut = !measures && m_cache->HasBars(GetCurrentObject(context, OBJ_FONT));
    if (sticksOut) {
        SaveDC(surface);
        IntersectClipRect(surface, rect);
    }
    const std::wstring wide = ToWide(text);
    const int height = DrawTextW(context, wide.data(), static_cast<int>(wide.size()), &area, flags);
    if (sticksOut) RestoreDC(surface);
    if (measures) {
        rect.right = area.right;
        rect.bottom = area.bottom;
    }
    return height;
}

void WinDrawing::DrawFrameControl(SurfaceHandle surface, const Rect& rect, FrameControl type,
                                  std::uint32_t state) {
    RECT area = Native(rect);
    ::DrawFrameControl(ContextOf(surface), &area, static_cast<UINT>(type), state);
}

void WinDrawing::DrawEdge(SurfaceHandle surface, const Rect& rect, std::uint32_t edge,
                          std::uint32_t sides) {
    RECT area = Native(rect);
    ::DrawEdge(ContextOf(surface), &area, edge, sides);
}

void WinDrawing::DrawFocusRect(SurfaceHandle surface, const Rect& rect) {
    const RECT area = Native(rect);
    ::DrawFocusRect(ContextOf(surface), &area);
}

SurfaceHandle WinDrawing::CreateCompatibleDC(SurfaceHandle like) {
    HDC context = ContextOf(like);
    if (context && GetDeviceCaps(context, TECHNOLOGY) != DT_RASDISPLAY) context = nullptr;
    const bool isScreen = context && GetObjectType(context) == OBJ_DC;
    return SurfaceOf(isScreen ? m_cache->Context(context) : m_cache->SourceContext(context));
}

void WinDrawing::DeleteDC(SurfaceHandle surface) {
    if (surface != SurfaceHandle::None) m_cache->Release(ContextOf(surface));
}

ObjectHandle WinDrawing::CreateCompatibleBitmap(SurfaceHandle like, int width, int height) {
    const HDC context = ContextOf(like);
    if (width <= 0 || height <= 0 || (context && IsVectorDevice(context))) {
        return ObjectHandle::None;
    }
    const DWORD type = context ? GetObjectType(context) : 0;
    if (type == OBJ_DC) return ObjectOf(m_cache->Bitmap(context, width, height));
    if (type == OBJ_MEMDC) return ObjectOf(::CreateCompatibleBitmap(context, width, height));
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, width, height);
    ReleaseDC(nullptr, screen);
    return ObjectOf(bitmap);
}

void WinDrawing::BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                        RasterOp operation) {
    const HDC pixels = ContextOf(source);
    const int width = area.Width();
    const int height = area.Height();
    if (HasAlpha(pixels)) {
        Blend(ContextOf(target), area, pixels, RectAt(from.x, from.y, {width, height}));
    } else {
        ::BitBlt(ContextOf(target), area.left, area.top, width, height, pixels, from.x, from.y,
                 static_cast<DWORD>(operation));
    }
}

void WinDrawing::StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source,
                            const Rect& from, RasterOp operation) {
    const HDC context = ContextOf(target);
    const HDC pixels = ContextOf(source);
    const int width = area.Width();
    const int height = area.Height();
    const int fromWidth = from.Width();
    const int fromHeight = from.Height();
    const bool shrinks = width < fromWidth || height < fromHeight;
    const int modeBefore = SetStretchBltMode(context, shrinks ? HALFTONE : COLORONCOLOR);
    if (HasAlpha(pixels)) {
        Blend(context, area, pixels, from);
    } else {
        ::StretchBlt(context, area.left, area.top, width, height, pixels, from.left, from.top,
                     fromWidth, fromHeight, static_cast<DWORD>(operation));
    }
    SetStretchBltMode(context, modeBefore);
}

ObjectHandle WinDrawing::PictureHandle(const StdPicture& picture) {
    return ObjectOf(m_cache->Picture(picture));
}

void WinDrawing::DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width,
                            int height, std::uint32_t flags) {
    if (icon == ObjectHandle::None) return;
    ::DrawIconEx(ContextOf(surface), x, y, static_cast<HICON>(Native(icon)), width, height, 0,
                 nullptr, flags);
}

void WinDrawing::SaveDC(SurfaceHandle surface) { ::SaveDC(ContextOf(surface)); }

void WinDrawing::IntersectClipRect(SurfaceHandle surface, const Rect& rect) {
    ::IntersectClipRect(ContextOf(surface), rect.left, rect.top, rect.right, rect.bottom);
}

void WinDrawing::RestoreDC(SurfaceHandle surface) { ::RestoreDC(ContextOf(surface), -1); }

void WinDrawing::InvalidateRect(WindowHandle window, const Rect* rect) {
    if (window == WindowHandle::None) {
        if (m_whenInvalidated) m_whenInvalidated(rect);
        return;
    }
    const RECT area = rect ? Native(*rect) : RECT{};
    ::InvalidateRect(WindowOf(window), rect ? &area : nullptr, FALSE);
}

}  // namespace velmora
