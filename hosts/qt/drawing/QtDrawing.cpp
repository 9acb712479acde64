#include "hosts/qt/drawing/QtDrawing.h"

#include "calendar/Contrast.h"
#include "hosts/qt/drawing/QtCanvas.h"
#include "hosts/qt/drawing/QtFrames.h"

#include <QGuiApplication>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <new>
#include <vector>

namespace velmora {
namespace {

using gdi::As;
using gdi::CanvasOf;
using gdi::ObjectOf;
using gdi::SharedCaches;

constexpr int kLongestSide = 32767;
constexpr double kMostPixels = 64 << 20;  // 256 MiB
constexpr int kDisabledText = 17;

/// The palette role of every system colour, by index.
constexpr std::array kSystemRoles{
    QPalette::Button,           // 0 scroll bar
    QPalette::Mid,              // 1 desktop
    QPalette::Highlight,        // 2 active caption
    QPalette::Button,           // 3 inactive caption
    QPalette::Window,           // 4 menu
    QPalette::Base,             // 5 window
    QPalette::Dark,             // 6 window frame
    QPalette::WindowText,       // 7 menu text
    QPalette::Text,             // 8 window text
    QPalette::HighlightedText,  // 9 caption text
    QPalette::Button,           // 10 active border
    QPalette::Button,           // 11 inactive border
    QPalette::Mid,              // 12 application work space
    QPalette::Highlight,        // 13 highlight
    QPalette::HighlightedText,  // 14 highlighted text
    QPalette::Button,           // 15 button face
    QPalette::Dark,             // 16 button shadow
    QPalette::Text,             // 17 disabled text, of the disabled group
    QPalette::ButtonText,       // 18 button text
    QPalette::ButtonText,       // 19 inactive caption text
    QPalette::Light,            // 20 button highlight
    QPalette::Shadow,           // 21 dark shadow
    QPalette::Midlight,         // 22 light
    QPalette::ToolTipText,      // 23 tool tip text
    QPalette::ToolTipBase,      // 24 tool tip
    QPalette::Button,           // 25 alternate button face
    QPalette::Link,             // 26 hot light
    QPalette::Highlight,        // 27 active caption's other end
    QPalette::Button,           // 28 inactive caption's other end
    QPalette::Highlight,        // 29 highlighted menu item
    QPalette::Window,           // 30 menu bar
};
static_assert(kSystemRoles.size() == 31);

Rgb ToRgb(const QColor& color) {
    const QRgb pixel = color.rgb();
    return static_cast<Rgb>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16);
}

/// Disabled text; where a palette leaves it too faint on the grounds that it stands on, as much
/// nearer to the text's own colour as it takes.
QColor DisabledText(const QPalette& palette) {
    const auto color = [&](QPalette::ColorGroup group, QPalette::ColorRole role) {
        return palette.color(group, role);
    };
    const QColor faint = color(QPalette::Disabled, QPalette::Text);
    const QColor text = color(QPalette::Active, QPalette::Text);
    const Rgb grounds[] = {ToRgb(color(QPalette::Active, QPalette::Base)),
                           ToRgb(color(QPalette::Active, QPalette::Button))};
    constexpr int kSteps = 16;
    for (int step = 0; step < kSteps; ++step) {
        const auto mixed = [&](int from, int to) { return from + (to - from) * step / kSteps; };
        const QColor mix(mixed(faint.red(), text.red()), mixed(faint.green(), text.green()),
                         mixed(faint.blue(), text.blue()));
        if (std::ranges::all_of(grounds, [&](Rgb on) { return IsReadable(ToRgb(mix), on); })) {
            return mix;
        }
    }
    return text;
}

/// What of a palette takes computing. In palettes of high contrast the shades are all the ground's:
/// there `edge` takes the place of those that are not seen on it.
struct Shades {
    qint64 palette;  // by its cache key
    QColor disabledText;
    bool hasDark;
    bool hasShadow;
    QColor edge;

    QColor Of(const QPalette& from, QPalette::ColorRole role) const {
        const bool isShade = role == QPalette::Dark || role == QPalette::Light ||
                             role == QPalette::Midlight || role == QPalette::Shadow;
        const bool isSeen = hasDark && (hasShadow || role != QPalette::Shadow);
        return isShade && !isSeen ? edge : from.color(QPalette::Active, role);
    }
};

const Shades& ShadesOf(const QPalette& palette) {
    constexpr std::size_t kMost = 4;  // boxes and open calendars mostly have palettes of their own
    static std::vector<Shades> kept;
    const auto known = std::ranges::find(kept, palette.cacheKey(), &Shades::palette);
    if (known != kept.end()) return *known;
    const auto color = [&](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role);
    };
    const auto isSeen = [&](QPalette::ColorRole role) {
        constexpr double kLeast = 1.1;
        return ContrastOf(ToRgb(color(role)), ToRgb(color(QPalette::Button))) >= kLeast;
    };
    if (kept.size() == kMost) kept.erase(kept.begin());
    return kept.emplace_back(Shades{palette.cacheKey(), DisabledText(palette),
                                    isSeen(QPalette::Dark), isSeen(QPalette::Shadow),
                                    color(QPalette::ButtonText)});
}

gdi::FrameColors FrameColorsOf(const QPalette& palette) {
    const Shades& shades = ShadesOf(palette);
    const auto pixel = [&](QPalette::ColorRole role) {
        return shades.Of(palette, role).rgb() | 0xFF000000;
    };
    return {pixel(QPalette::Button),
            pixel(QPalette::Light),
            pixel(QPalette::Midlight),
            pixel(QPalette::Dark),
            pixel(QPalette::Shadow),
            pixel(QPalette::ButtonText),
            shades.disabledText.rgb() | 0xFF000000};
}

}  // namespace

std::vector<Rect> RectsOf(const QRegion& region) {
    std::vector<Rect> rects;
    rects.reserve(static_cast<std::size_t>(region.rectCount()));
    for (const QRect& rect : region) {
        rects.push_back({rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()});
    }
    return rects;
}

QtDrawing::Surface::Surface(QtDrawing&, QPainter& painter)
    : m_canvas(gdi::DirectCanvas::On(painter)) {
    if (!m_canvas) m_canvas = std::make_unique<gdi::PainterCanvas>(painter);
}

QtDrawing::Surface::~Surface() = default;

SurfaceHandle QtDrawing::Surface::Handle() const noexcept { return gdi::HandleOf(m_canvas.get()); }

WindowHandle QtDrawing::HandleOf(QWidget* window) noexcept {
    return static_cast<WindowHandle>(reinterpret_cast<std::uintptr_t>(window));
}

QWidget* QtDrawing::WidgetOf(WindowHandle window) noexcept {
    return reinterpret_cast<QWidget*>(static_cast<std::uintptr_t>(window));
}

QPalette QtDrawing::Palette() const {
    return m_widget != nullptr ? m_widget->palette() : QGuiApplication::palette();
}

Rgb QtDrawing::GetSysColor(int index) {
    if (index < 0 || index >= static_cast<int>(kSystemRoles.size())) return 0;
    const QPalette palette = Palette();
    const auto role = kSystemRoles[static_cast<std::size_t>(index)];
    if (index == kDisabledText) return ToRgb(ShadesOf(palette).disabledText);
    return ToRgb(ShadesOf(palette).Of(palette, role));
}

ObjectHandle QtDrawing::CreateBrushIndirect(const LogBrush& brush) {
    return gdi::HandleOf(new (std::nothrow) gdi::Brush(brush.color));
}

ObjectHandle QtDrawing::CreatePenIndirect(const LogPen& pen) {
    return gdi::HandleOf(new (std::nothrow) gdi::Pen(pen.color));
}

ObjectHandle QtDrawing::CreateFontIndirectA(const LogFont& font) {
    return gdi::HandleOf(new (std::nothrow) gdi::Font(SharedCaches::Instance().texts.Face(font)));
}

ObjectHandle QtDrawing::SelectObject(SurfaceHandle surface, ObjectHandle object) {
    if (surface == SurfaceHandle::None || object == ObjectHandle::None) return ObjectHandle::None;
    return gdi::HandleOf(CanvasOf(surface)->Select(*ObjectOf(object)));
}

void QtDrawing::DeleteObject(ObjectHandle object) {
    gdi::GdiObject* const made = ObjectOf(object);
    if (made == nullptr || gdi::StockObjects::Instance().Owns(made)) return;
    if (made->kind == gdi::GdiObject::Kind::Picture) return;  // lives with its image
    const auto* const bitmap = As<gdi::Bitmap>(made);
    if (bitmap != nullptr && bitmap->Entered()) return;
    delete made;
}

void QtDrawing::FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) {
    const auto* const made = As<gdi::Brush>(ObjectOf(brush));
    if (surface != SurfaceHandle::None && made != nullptr) {
        CanvasOf(surface)->Fill(rect, made->color);
    }
}

void QtDrawing::MoveToEx(SurfaceHandle surface, int x, int y) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->MoveTo({x, y});
}

void QtDrawing::LineTo(SurfaceHandle surface, int x, int y) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->LineTo({x, y});
}

void QtDrawing::SetBkMode(SurfaceHandle, BackgroundMode) {}

void QtDrawing::SetTextColor(SurfaceHandle surface, Rgb color) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->TextColor(color);
}

int QtDrawing::DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                         std::uint32_t flags) {
    return surface != SurfaceHandle::None ? CanvasOf(surface)->Text(text, rect, flags) : 0;
}

/// In palettes of high contrast styles have no edges that are seen; of other extents a picture
/// would be a waste.
bool QtDrawing::IsStyled(SurfaceHandle surface, const Rect& rect) const {
    constexpr std::int32_t kMostKept = 1 << 20;
    if (m_isClassic || m_widget == nullptr || gdi::IsEmpty(rect)) return false;
    if (!ShadesOf(Palette()).hasDark) return false;
    const Size size = CanvasOf(surface)->DeviceSize(rect);
    return size.width > 0 && size.height > 0 && size.width <= kMostKept / size.height;
}

void QtDrawing::DrawFrameControl(SurfaceHandle surface, const Rect& rect, FrameControl type,
                                 std::uint32_t state) {
    if (surface == SurfaceHandle::None || type != FrameControl::ScrollBar) return;
    gdi::Canvas& canvas = *CanvasOf(surface);
    if (!IsStyled(surface, rect)) {
        return gdi::PaintScrollButton(canvas, gdi::Clamped(rect), state, FrameColorsOf(Palette()));
    }
    canvas.Image(rect, SharedCaches::Instance().frames.Button(*m_widget, canvas.DeviceSize(rect),
                                                              state, canvas.Ratio()));
}

void QtDrawing::DrawEdge(SurfaceHandle surface, const Rect& rect, std::uint32_t edge,
                         std::uint32_t sides) {
    if (surface == SurfaceHandle::None) return;
    gdi::Canvas& canvas = *CanvasOf(surface);
    if (edge != kSunken || sides != kAllSides || !IsStyled(surface, rect)) {
        return gdi::PaintEdge(canvas, gdi::Clamped(rect), edge, sides, FrameColorsOf(Palette()));
    }
    canvas.Fill(rect, Palette().color(QPalette::Active, QPalette::Window).rgb() | 0xFF000000);
    canvas.Image(rect, SharedCaches::Instance().frames.Box(*m_widget, canvas.DeviceSize(rect),
                                                           canvas.Ratio()));
}

void QtDrawing::DrawFocusRect(SurfaceHandle surface, const Rect& rect) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->InvertDots(rect);
}

double QtDrawing::RatioLike(SurfaceHandle like) const {
    if (like != SurfaceHandle::None) return CanvasOf(like)->Ratio();
    return m_widget != nullptr ? m_widget->devicePixelRatioF() : 1;
}

SurfaceHandle QtDrawing::CreateCompatibleDC(SurfaceHandle like) {
    return gdi::HandleOf(new (std::nothrow) gdi::MemoryCanvas(RatioLike(like)));
}

void QtDrawing::DeleteDC(SurfaceHandle surface) { delete CanvasOf(surface); }

ObjectHandle QtDrawing::CreateCompatibleBitmap(SurfaceHandle like, int width, int height) {
    if (width <= 0 || height <= 0 || width > kLongestSide || height > kLongestSide) {
        return ObjectHandle::None;
    }
    const double ratio = RatioLike(like);
    const double pixelWidth = std::max(std::round(width * ratio), 1.0);
    const double pixelHeight = std::max(std::round(height * ratio), 1.0);
    if (pixelWidth * pixelHeight > kMostPixels) return ObjectHandle::None;
    auto bitmap = std::unique_ptr<gdi::Bitmap>(new (std::nothrow) gdi::Bitmap(
        static_cast<int>(pixelWidth), static_cast<int>(pixelHeight), ratio));
    if (!bitmap || bitmap->Image().isNull()) return ObjectHandle::None;
    return gdi::HandleOf(bitmap.release());
}

void QtDrawing::BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                       RasterOp) {
    if (target == SurfaceHandle::None || source == SurfaceHandle::None) return;
    CanvasOf(target)->Copy(area, *CanvasOf(source), from);
}

bool QtDrawing::IsBuffered(SurfaceHandle surface) {
    return surface != SurfaceHandle::None && CanvasOf(surface)->IsDirect();
}

void QtDrawing::StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source,
                           const Rect& from, RasterOp) {
    if (target == SurfaceHandle::None || source == SurfaceHandle::None) return;
    CanvasOf(target)->Stretch(area, *CanvasOf(source), from);
}

ObjectHandle QtDrawing::PictureHandle(const StdPicture& picture) {
    return gdi::HandleOf(SharedCaches::Instance().PictureOf(picture));
}

void QtDrawing::DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width,
                           int height, std::uint32_t flags) {
    const auto* const picture = As<gdi::Picture>(ObjectOf(icon));
    if (surface == SurfaceHandle::None || picture == nullptr) return;
    if ((flags & kDrawIconNormal) == 0 || width < 0 || height < 0) return;
    const int wide = width != 0 ? std::min(width, kLongestSide) : picture->Image().width();
    const int high = height != 0 ? std::min(height, kLongestSide) : picture->Image().height();
    const int left = gdi::Clamped(x);
    const int top = gdi::Clamped(y);
    CanvasOf(surface)->Icon({left, top, left + wide, top + high}, *picture);
}

void QtDrawing::SaveDC(SurfaceHandle surface) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->Save();
}

void QtDrawing::IntersectClipRect(SurfaceHandle surface, const Rect& rect) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->Confine(rect);
}

void QtDrawing::RestoreDC(SurfaceHandle surface) {
    if (surface != SurfaceHandle::None) CanvasOf(surface)->Restore();
}

void QtDrawing::InvalidateRect(WindowHandle window, const Rect* rect) {
    QWidget* const widget = WidgetOf(window);
    if (widget == nullptr) return;
    if (rect == nullptr) {
        widget->update();
    } else if (!gdi::IsEmpty(*rect)) {
        const Rect part = gdi::Clamped(*rect);
        widget->update(part.left, part.top, part.Width(), part.Height());
    }
}

}  // namespace velmora
