#include "hosts/qt/drawing/QtCanvas.h"

#include <QPaintEngine>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velmora::gdi {
namespace {

// Beyond this neither a slanted line nor the dots of a border are drawn: they go pixel by pixel.
constexpr std::int32_t kFarthestDot = 32767;
constexpr std::int64_t kMostScaledPixels = 4 << 20;

/// Where `length` pixels begin inside begin..end; rounds towards the begin, also outside.
std::int32_t Middle(std::int32_t begin, std::int32_t end, std::int32_t length) noexcept {
    return begin + ((end - begin - length) >> 1);
}

QRect ToQRect(const Rect& rect) noexcept {
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}

Rect ToRect(const QRect& rect) noexcept {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

/// Text positions in logical pixels, from the flags.
Point TextOrigin(const Rect& rect, Size text, std::uint32_t flags) noexcept {
    Point origin{rect.left, rect.top};
    if ((flags & kTextCenter) != 0) {
        origin.x = Middle(rect.left, rect.right, text.width);
    } else if ((flags & kTextRight) != 0) {
        origin.x = rect.right - text.width;
    }
    if ((flags & kTextVCenter) != 0) {
        origin.y = Middle(rect.top, rect.bottom, text.height);
    } else if ((flags & kTextBottom) != 0) {
        origin.y = rect.bottom - text.height;
    }
    return origin;
}

/// What there is to copy from, with its device pixels in a logical pixel.
struct ImageSource {
    const QImage* image = nullptr;
    double ratio = 1;
    const Picture* picture = nullptr;
};

ImageSource SourceOf(const GdiObject* object) noexcept {
    if (object == nullptr) return {};
    if (object->kind == GdiObject::Kind::Bitmap) {
        const auto* const bitmap = static_cast<const Bitmap*>(object);
        return {&bitmap->Image(), bitmap->Ratio(), nullptr};
    }
    const auto* const picture = static_cast<const Picture*>(object);
    return {&picture->Image(), 1, picture};
}

PixelSource PixelsOf(const QImage& image) {
    return {reinterpret_cast<const std::uint32_t*>(image.constBits()), image.bytesPerLine() / 4};
}

}  // namespace

std::int32_t Canvas::Device(std::int32_t coordinate) const noexcept {
    if (m_ratio == 1) return Clamped(coordinate);
    return static_cast<std::int32_t>(std::lround(Clamped(coordinate) * m_ratio));
}

Rect Canvas::Device(const Rect& rect) const noexcept {
    return {Device(rect.left), Device(rect.top), Device(rect.right), Device(rect.bottom)};
}

const GdiObject* Canvas::Select(GdiObject& object) {
    switch (object.kind) {
        case GdiObject::Kind::Brush:
            return std::exchange(m_state.brush, static_cast<const Brush*>(&object));
        case GdiObject::Kind::Pen:
            return std::exchange(m_state.pen, static_cast<const Pen*>(&object));
        case GdiObject::Kind::Font:
            return std::exchange(m_state.font, static_cast<const Font*>(&object));
        default: return SelectBitmap(object);
    }
}

void Canvas::Restore() {
    if (m_saved.empty()) return;
    m_state = m_saved.back();
    m_saved.pop_back();
}

void Canvas::Fill(const Rect& rect, std::uint32_t color) {
    if (!CanDraw()) return;
    const Rect box = Intersect(Device(rect), DeviceClip());
    if (!IsEmpty(box)) FillDevice(box, color);
}

void Canvas::LineTo(Point end) {
    end = {Clamped(end.x), Clamped(end.y)};
    const Point begin = std::exchange(m_state.position, end);
    const std::uint32_t color = m_state.pen->color;
    if (begin.y == end.y) {
        const bool rightwards = begin.x < end.x;
        Fill({rightwards ? begin.x : end.x + 1, end.y, rightwards ? end.x : begin.x + 1, end.y + 1},
             color);
    } else if (begin.x == end.x) {
        const bool downwards = begin.y < end.y;
        Fill({end.x, downwards ? begin.y : end.y + 1, end.x + 1, downwards ? end.y : begin.y + 1},
             color);
    } else {
        SlantedLine(begin, end, color);
    }
}

void Canvas::SlantedLine(Point begin, Point end, std::uint32_t color) {
    const std::int32_t width = end.x - begin.x;
    const std::int32_t height = end.y - begin.y;
    const std::int32_t steps = std::max(std::abs(width), std::abs(height));
    if (steps > kFarthestDot) return;
    for (std::int32_t i = 0; i < steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        const auto x = static_cast<std::int32_t>(std::lround(begin.x + part * width));
        const auto y = static_cast<std::int32_t>(std::lround(begin.y + part * height));
        Fill({x, y, x + 1, y + 1}, color);
    }
}

void Canvas::InvertDots(const Rect& rect) {
    if (!CanDraw() || IsEmpty(rect)) return;
    const Rect frame = Intersect(rect, {-kFarthestDot, -kFarthestDot, kFarthestDot, kFarthestDot});
    if (IsEmpty(frame)) return;
    const Rect clip = DeviceClip();
    std::vector<Rect> dots;
    const std::int32_t most = frame.Width() + frame.Height();
    dots.reserve(static_cast<std::size_t>(most));
    const auto add = [&](const Rect& dot) {
        if (const Rect inside = Intersect(dot, clip); !IsEmpty(inside)) dots.push_back(inside);
    };
    const auto addRow = [&](std::int32_t y) {
        const std::int32_t top = Device(y);
        const std::int32_t bottom = Device(y + 1);
        for (std::int32_t x = frame.left + ((frame.left + y) & 1); x < frame.right; x += 2) {
            add({Device(x), top, Device(x + 1), bottom});
        }
    };
    const auto addColumn = [&](std::int32_t x) {
        const std::int32_t left = Device(x);
        const std::int32_t right = Device(x + 1);
        const std::int32_t below = frame.top + 1;
        for (std::int32_t y = below + ((x + below) & 1); y < frame.bottom - 1; y += 2) {
            add({left, Device(y), right, Device(y + 1)});
        }
    };
    addRow(frame.top);
    if (frame.bottom - 1 != frame.top) addRow(frame.bottom - 1);
    addColumn(frame.left);
    if (frame.right - 1 != frame.left) addColumn(frame.right - 1);
    InvertDevice(dots);
}

const FontFace& Canvas::Face() {
    if (m_state.font->face) return *m_state.font->face;
    if (!m_standardFace) m_standardFace = SharedCaches::Instance().texts.Face({});
    return *m_standardFace;
}

int Canvas::Text(std::string_view text, Rect& rect, std::uint32_t flags) {
    const FontFace& face = Face();
    TextCache& texts = SharedCaches::Instance().texts;
    const bool shortens = (flags & (kTextEndEllipsis | kTextCalcRect)) == kTextEndEllipsis;
    const TextLine& line = shortens ? texts.LineWithin(rect.Width(), face, text, m_ratio)
                                    : texts.Line(face, text, m_ratio);
    if ((flags & kTextCalcRect) != 0) {
        rect.right = Clamped(rect.left) + line.width;
        rect.bottom = Clamped(rect.top) + face.height;
        return face.height;
    }
    if (CanDraw() && !line.runs.isEmpty()) {
        const Rect inside = Clamped(rect);
        PlaceText(line, face, TextOrigin(inside, {line.width, face.height}, flags), inside);
    }
    return face.height;
}

void Canvas::PlaceText(const TextLine& line, const FontFace& face, Point topLeft,
                       const Rect& rect) {
    const Rect clip = Intersect(Device(rect), DeviceClip());
    // The ascent is rounded on its own so that all texts of a row share a base line.
    const Point origin{Device(topLeft.x), Device(topLeft.y) + Device(face.ascent)};
    if (!IsEmpty(clip)) TextDevice(line, origin, clip, m_state.textColor);
}

void Canvas::Copy(const Rect& area, const Canvas& source, Point from) {
    const ImageSource origin = SourceOf(source.Source());
    if (!CanDraw() || origin.image == nullptr || IsEmpty(area)) return;
    const Rect box = Device(area);
    const Point start{Device(from.x), Device(from.y)};
    if (origin.ratio == m_ratio) {
        PlaceImage(box, *origin.image, start);
    } else if (origin.picture != nullptr) {
        const int width = std::max(Device(origin.image->width()), 1);
        const int height = std::max(Device(origin.image->height()), 1);
        PlaceImage(box, origin.picture->Scaled(width, height), start);
    } else {
        const Rect limited = Clamped(area);
        const Point corner{Clamped(from.x), Clamped(from.y)};
        Stretch(area, source,
                {corner.x, corner.y, corner.x + limited.Width(), corner.y + limited.Height()});
    }
}

void Canvas::Stretch(const Rect& area, const Canvas& source, const Rect& from) {
    const ImageSource origin = SourceOf(source.Source());
    if (!CanDraw() || origin.image == nullptr || IsEmpty(area) || IsEmpty(from)) return;
    const Rect wanted = Clamped(from);
    const double ratio = origin.ratio;
    const QRectF all(wanted.left * ratio, wanted.top * ratio, wanted.Width() * ratio,
                     wanted.Height() * ratio);
    const QRectF present = all & QRectF(origin.image->rect());
    if (present.isEmpty()) return;
    const Rect box = Device(area);
    const double horizontal = box.Width() / all.width();
    const double vertical = box.Height() / all.height();
    const auto at = [](std::int32_t begin, double offset) {
        return begin + static_cast<std::int32_t>(std::lround(offset));
    };
    const Rect covered{at(box.left, (present.left() - all.left()) * horizontal),
                       at(box.top, (present.top() - all.top()) * vertical),
                       at(box.left, (present.right() - all.left()) * horizontal),
                       at(box.top, (present.bottom() - all.top()) * vertical)};
    const bool whole = present == QRectF(origin.image->rect());
    Scale(covered, *origin.image, present, whole ? origin.picture : nullptr);
}

void Canvas::Icon(const Rect& area, const Picture& picture) {
    if (!CanDraw() || IsEmpty(area)) return;
    Scale(Device(area), picture.Image(), QRectF(picture.Image().rect()), &picture);
}

void Canvas::Image(const Rect& area, const QImage& image) {
    if (CanDraw()) PlaceImage(Device(area), image, {});
}

Size Canvas::DeviceSize(const Rect& area) const noexcept {
    const Rect box = Device(area);
    return {box.Width(), box.Height()};
}

void Canvas::Scale(const Rect& box, const QImage& image, const QRectF& from, const Picture* whole) {
    const Rect clip = Intersect(box, DeviceClip());
    if (IsEmpty(clip)) return;
    const QSize size = ToQRect(box).size();
    if (std::int64_t{size.width()} * size.height() > kMostScaledPixels) {
        // Only what is visible is worth computing.
        QPainter& painter = Painter();
        painter.save();
        painter.setClipRect(ToQRect(clip), Qt::IntersectClip);
        painter.drawImage(QRectF(ToQRect(box)), image, from);
        painter.restore();
    } else if (whole != nullptr) {
        PlaceImage(box, whole->Scaled(size.width(), size.height()), {});
    } else {
        const QImage part = image.copy(from.toAlignedRect());
        PlaceImage(box,
                   part.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                       .convertToFormat(image.format()),
                   {});
    }
}

void Canvas::PlaceImage(const Rect& box, const QImage& image, Point from) {
    const std::int32_t left = box.left - from.x;
    const std::int32_t top = box.top - from.y;
    const Rect pixels{left, top, left + image.width(), top + image.height()};
    const Rect clip = Intersect(Intersect(box, pixels), DeviceClip());
    if (!IsEmpty(clip)) ImageDevice(clip, image, {clip.left - left, clip.top - top});
}

MemoryCanvas::~MemoryCanvas() {
    if (m_bitmap != nullptr) m_bitmap->Leave();
}

Rect MemoryCanvas::Bounds() const noexcept {
    return {0, 0, m_bitmap->Image().width(), m_bitmap->Image().height()};
}

const GdiObject* MemoryCanvas::Source() const noexcept {
    if (m_bitmap != nullptr) return m_bitmap;
    return m_picture;
}

const GdiObject* MemoryCanvas::SelectBitmap(GdiObject& object) {
    const GdiObject* previous = Source();
    if (previous == nullptr) previous = &StockObjects::Instance().noBitmap;
    if (previous == &object) return previous;
    auto* const bitmap = As<Bitmap>(&object);
    if (bitmap != nullptr && !bitmap->Enter()) return nullptr;
    if (m_bitmap != nullptr) m_bitmap->Leave();
    m_bitmap = bitmap;
    m_picture = As<Picture>(&object);
    m_ratio = bitmap != nullptr ? bitmap->Ratio() : m_emptyRatio;
    return previous;
}

void PixelCanvas::FillDevice(const Rect& box, std::uint32_t color) {
    FillPixels(Pixels(), box, color);
}

void PixelCanvas::InvertDevice(std::span<const Rect> boxes) {
    for (const Rect& box : boxes) InvertPixels(Pixels(), box);
}

void PixelCanvas::ImageDevice(const Rect& box, const QImage& image, Point from) {
    if (image.format() == QImage::Format_RGB32) {
        CopyPixels(Pixels(), box, PixelsOf(image), from);
    } else {
        BlendPixels(Pixels(), box, PixelsOf(image), from);
    }
}

void PixelCanvas::TextDevice(const TextLine& line, Point origin, const Rect& clip,
                             std::uint32_t color) {
    if (!line.mask) {
        PaintLine(Painter(), line, origin, m_ratio, color, &clip);
        return;
    }
    const Rect box = Intersect(Moved(line.mask->box, origin.x, origin.y), clip);
    if (!IsEmpty(box)) BlendMask(Pixels(), box, *line.mask, origin, color);
}

double ForeignPainter::RatioOf(const QPainter& painter) {
    return painter.isActive() ? painter.device()->devicePixelRatio() : 1;
}

ForeignPainter::ForeignPainter(QPainter& painter) : m_painter(painter) {
    if (!painter.isActive()) return;
    const double ratio = RatioOf(painter);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (ratio != 1) painter.scale(1 / ratio, 1 / ratio);
}

ForeignPainter::~ForeignPainter() {
    if (m_painter.isActive()) m_painter.restore();
}

std::unique_ptr<DirectCanvas> DirectCanvas::On(QPainter& painter) {
    if (!painter.isActive() || painter.hasClipping() || painter.opacity() != 1 ||
        painter.compositionMode() != QPainter::CompositionMode_SourceOver) {
        return nullptr;
    }
    QPaintEngine* const engine = painter.paintEngine();
    QPaintDevice* const device = engine->paintDevice();
    if (engine->type() != QPaintEngine::Raster || !device ||
        device->devType() != QInternal::Image) {
        return nullptr;
    }
    auto& image = static_cast<QImage&>(*device);
    const bool isKnown = image.format() == QImage::Format_RGB32 ||
                         image.format() == QImage::Format_ARGB32_Premultiplied;
    const double ratio = ForeignPainter::RatioOf(painter);
    const QTransform place =
        QTransform::fromScale(1 / ratio, 1 / ratio) * painter.deviceTransform();
    const QPoint origin(qRound(place.dx()), qRound(place.dy()));
    if (!isKnown || place.type() > QTransform::TxTranslate || place.dx() != origin.x() ||
        place.dy() != origin.y()) {
        return nullptr;
    }
    const QRegion visible = engine->systemClip();
    std::vector<Rect> parts;
    for (const QRect& part : visible.isEmpty() ? QRegion(image.rect()) : visible& image.rect()) {
        parts.push_back(Moved(ToRect(part), -origin.x(), -origin.y()));
    }
    const std::ptrdiff_t stride = image.bytesPerLine() / 4;
    PixelTarget pixels{reinterpret_cast<std::uint32_t*>(image.bits()), stride,
                       OutgrowsCaches(image.width(), image.height())};
    pixels.bits = pixels.At(origin.x(), origin.y());
    return std::make_unique<DirectCanvas>(painter, pixels, std::move(parts));
}

DirectCanvas::DirectCanvas(QPainter& painter, PixelTarget pixels, std::vector<Rect> parts)
    : PixelCanvas(ForeignPainter::RatioOf(painter)),
      m_painter(painter),
      m_pixels(pixels),
      m_parts(std::move(parts)) {
    if (m_parts.empty()) return;
    m_bounds = m_parts.front();
    for (const Rect& part : m_parts) {
        m_bounds = {std::min(m_bounds.left, part.left), std::min(m_bounds.top, part.top),
                    std::max(m_bounds.right, part.right), std::max(m_bounds.bottom, part.bottom)};
    }
}

template <class Draw>
void DirectCanvas::InParts(const Rect& box, Draw draw) {
    for (const Rect& part : m_parts) {
        if (const Rect inside = Intersect(box, part); !IsEmpty(inside)) draw(inside);
    }
}

void DirectCanvas::FillDevice(const Rect& box, std::uint32_t color) {
    InParts(box, [&](const Rect& inside) { PixelCanvas::FillDevice(inside, color); });
}

void DirectCanvas::InvertDevice(std::span<const Rect> boxes) {
    for (const Rect& box : boxes) {
        InParts(box, [&](const Rect& inside) { InvertPixels(m_pixels, inside); });
    }
}

void DirectCanvas::ImageDevice(const Rect& box, const QImage& image, Point from) {
    InParts(box, [&](const Rect& inside) {
        PixelCanvas::ImageDevice(inside, image,
                                 {from.x + inside.left - box.left, from.y + inside.top - box.top});
    });
}

void DirectCanvas::TextDevice(const TextLine& line, Point origin, const Rect& clip,
                              std::uint32_t color) {
    InParts(clip,
            [&](const Rect& inside) { PixelCanvas::TextDevice(line, origin, inside, color); });
}

void PainterCanvas::FillDevice(const Rect& box, std::uint32_t color) {
    m_painter->fillRect(ToQRect(box), QColor::fromRgb(color));
}

void PainterCanvas::InvertDevice(std::span<const Rect> boxes) {
    const bool inverts = m_painter->paintEngine()->hasFeature(QPaintEngine::RasterOpModes);
    const QPainter::CompositionMode before = m_painter->compositionMode();
    if (inverts) m_painter->setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    for (const Rect& box : boxes)
        m_painter->fillRect(ToQRect(box), inverts ? Qt::white : Qt::black);
    m_painter->setCompositionMode(before);
}

void PainterCanvas::ImageDevice(const Rect& box, const QImage& image, Point from) {
    const QRect target = ToQRect(box);
    m_painter->drawImage(target, image, QRect(QPoint(from.x, from.y), target.size()));
}

void PainterCanvas::TextDevice(const TextLine& line, Point origin, const Rect& clip,
                               std::uint32_t color) {
    const bool fits = line.mask && Contains(clip, Moved(line.mask->box, origin.x, origin.y));
    PaintLine(*m_painter, line, origin, m_ratio, color, fits ? nullptr : &clip);
}

}  // namespace velmora::gdi
