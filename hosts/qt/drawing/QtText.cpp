#include "hosts/qt/drawing/QtText.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora::gdi {
namespace {

constexpr std::size_t kMostFaces = 64;
constexpr std::size_t kMostTextBytes = 8u << 20;
constexpr int kMostMaskPixels = 1 << 17;
constexpr double kLargestPoints = 1000;

QString OneLine(std::string_view text) {
    QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& character : line) {
        const char16_t code = character.unicode();
        if (code < 0x20 || code == 0x2028 || code == 0x2029) character = u' ';
    }
    return line;
}

QList<QRectF> Bars(const FontFace& face, double width) {
    if (!face.underline && !face.strikeOut) return {};
    const QFontMetricsF metrics(face.font);
    const double thickness = std::max(metrics.lineWidth(), 1.0);
    QList<QRectF> bars;
    if (face.underline) bars.append({0, metrics.underlinePos(), width, thickness});
    if (face.strikeOut) bars.append({0, -metrics.strikeOutPos(), width, thickness});
    return bars;
}

QRect DeviceBar(const QRectF& bar, double ratio) {
    return {0, qRound(bar.top() * ratio), qRound(bar.width() * ratio),
            std::max(qRound(bar.height() * ratio), 1)};
}

TextLine LayOut(const FontFace& face, std::string_view text) {
    QTextLayout layout(OneLine(text), face.font);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);  // else all is laid out once more for the glyphs
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    TextLine result;
    if (!line.isValid()) return result;
    result.runs = line.glyphRuns();
    result.ascent = line.ascent();
    result.width = static_cast<int>(std::ceil(std::min(line.naturalTextWidth(), qreal{kFarthest})));
    result.bars = Bars(face, result.width);
    return result;
}

const QRgb* Row(const QImage& image, int y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

/// The smallest box around all pixels that are not transparent; empty if there is none.
Rect InkBox(const QImage& image) {
    const int width = image.width();
    const int height = image.height();
    Rect ink{width, height, 0, 0};
    for (int y = 0; y < height; ++y) {
        const QRgb* const row = Row(image, y);
        const QRgb* const first = std::find_if(row, row + width, [](QRgb pixel) { return pixel; });
        if (first == row + width) continue;
        const QRgb* last = row + width - 1;
        while (*last == 0) --last;
        ink = {std::min(ink.left, static_cast<int>(first - row)), std::min(ink.top, y),
               std::max(ink.right, static_cast<int>(last - row) + 1), y + 1};
    }
    return IsEmpty(ink) ? Rect{} : ink;
}

/// The coverage of an image that was drawn in black on nothing; none if another colour is in it.
std::optional<CoverageMask> Coverage(const QImage& image, const Rect& ink, Point baseLine) {
    const int width = ink.Width();
    CoverageMask mask{Moved(ink, -baseLine.x, -baseLine.y), {}};
    mask.coverage.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(ink.Height()));
    std::uint8_t* covered = mask.coverage.data();
    QRgb colors = 0;
    for (int y = ink.top; y < ink.bottom; ++y) {
        const QRgb* const row = Row(image, y) + ink.left;
        for (int x = 0; x < width; ++x) {
            colors |= row[x];
            *covered++ = static_cast<std::uint8_t>(qAlpha(row[x]));
        }
    }
    if ((colors & 0xFFFFFF) != 0) return std::nullopt;
    return mask;
}

std::optional<CoverageMask> Render(const TextLine& line, int height, double ratio) {
    const double lineHeight = std::ceil(height * ratio) + 1;
    // Most texts stay next to their box; slanted, swashed and stacked glyphs leave it, and a line
    // height on every side holds them all.
    for (const double margin : {std::ceil(lineHeight / 6), lineHeight}) {
        const double width = std::ceil(line.width * ratio) + 2 * margin;
        const double rows = lineHeight + 2 * margin;
        if (width * rows > kMostMaskPixels) return std::nullopt;
        QImage image(static_cast<int>(width), static_cast<int>(rows),
                     QImage::Format_ARGB32_Premultiplied);
        if (image.isNull()) return std::nullopt;
        image.fill(0);
        const Point baseLine{static_cast<int>(margin), static_cast<int>(margin + lineHeight)};
        QPainter painter(&image);
        PaintLine(painter, line, baseLine, ratio, 0xFF000000, nullptr);
        painter.end();
        const Rect ink = InkBox(image);
        const bool isWhole =
            IsEmpty(ink) || (ink.left > 0 && ink.top > 0 && ink.right < image.width() &&
                             ink.bottom < image.height());
        if (isWhole || margin == lineHeight) return Coverage(image, ink, baseLine);
    }
    return std::nullopt;
}

std::size_t Bytes(const TextLine& line, std::size_t textLength) {
    constexpr std::size_t kFixed = 500;  // the entry with its list, its index and its glyph run
    constexpr std::size_t kPerCharacter = 24;
    return kFixed + kPerCharacter * textLength + (line.mask ? line.mask->coverage.size() : 0);
}

}  // namespace

std::size_t TextCache::FontHash::operator()(const LogFont& font) const noexcept {
    const std::size_t style = (font.bold ? 1u : 0u) | (font.italic ? 2u : 0u) |
                              (font.underline ? 4u : 0u) | (font.strikeOut ? 8u : 0u);
    return std::hash<std::string>()(font.faceName) ^ std::hash<double>()(font.points) ^ style;
}

std::size_t TextCache::KeyHash::operator()(const Key& key) const noexcept {
    return std::hash<std::string_view>()(key.text) ^ (key.face * 0x9E3779B97F4A7C15u);
}

FontFaceRef TextCache::Face(const LogFont& description) {
    // The negation also catches a size that is not a number, which would never be found again.
    if (description.faceName.empty() || !(description.points > 0)) {
        const QFont standard = QGuiApplication::font();
        LogFont complete = description;
        if (complete.faceName.empty()) complete.faceName = standard.family().toStdString();
        if (complete.faceName.empty()) complete.faceName = "Sans Serif";
        const double standardPoints = std::max(QFontInfo(standard).pointSizeF(), 1.0);
        if (!(complete.points > 0)) complete.points = standardPoints;
        return Face(complete);
    }
    if (const auto found = m_faces.find(description); found != m_faces.end()) return found->second;
    if (m_faces.size() >= kMostFaces) m_faces.clear();
    return m_faces.emplace(description, Resolve(description)).first->second;
}

FontFaceRef TextCache::Resolve(const LogFont& description) {
    auto face = std::make_shared<FontFace>();
    face->id = ++m_lastId;
    face->font.setFamily(QString::fromStdString(description.faceName));
    face->font.setPointSizeF(std::clamp(description.points, 1.0, kLargestPoints));
    face->font.setBold(description.bold);
    face->font.setItalic(description.italic);
    face->underline = description.underline;
    face->strikeOut = description.strikeOut;
    // One coverage a pixel: text must look the same off screen and drawn directly.
    face->font.setStyleStrategy(QFont::NoSubpixelAntialias);
    const QFontMetricsF metrics(face->font);
    face->ascent = static_cast<int>(std::ceil(metrics.ascent()));
    face->height = face->ascent + static_cast<int>(std::ceil(metrics.descent()));
    return face;
}

const TextLine& TextCache::Line(const FontFace& face, std::string_view text, double ratio) {
    const auto found = m_index.find({face.id, text});
    if (found != m_index.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found->second);
    } else {
        m_entries.push_front({face.id, std::string(text), LayOut(face, text), {}, -1, 0});
        m_index.emplace(Key{face.id, m_entries.front().text}, m_entries.begin());
    }
    Entry& entry = m_entries.front();
    if (entry.line.ratio != ratio) {
        entry.line.mask = Render(entry.line, face.height, ratio);
        entry.line.ratio = ratio;
        Count(entry);
    }
    return entry.line;
}

const TextLine& TextCache::LineWithin(int width, const FontFace& face, std::string_view text,
                                      double ratio) {
    const TextLine& whole = Line(face, text, ratio);
    if (whole.width <= width) return whole;
    Entry& entry = m_entries.front();
    if (std::exchange(entry.shortenedTo, width) != width) {
        entry.shortened = QFontMetricsF(face.font)
                              .elidedText(OneLine(text), Qt::ElideRight, std::max(width, 0))
                              .toStdString();
    }
    const std::string shortened = entry.shortened;  // the entry may be dropped for it
    return Line(face, shortened, ratio);
}

/// Makes room for an entry that has become another size.
void TextCache::Count(Entry& entry) {
    m_bytes -= entry.bytes;
    entry.bytes = Bytes(entry.line, entry.text.size());
    m_bytes += entry.bytes;
    while (m_bytes > kMostTextBytes && m_entries.size() > 1) {
        const Entry& oldest = m_entries.back();
        m_bytes -= oldest.bytes;
        m_index.erase({oldest.face, oldest.text});
        m_entries.pop_back();
    }
}

void TextCache::Clear() {
    m_index.clear();
    m_entries.clear();
    m_faces.clear();
    m_bytes = 0;
}

void PaintLine(QPainter& painter, const TextLine& line, Point origin, double ratio,
               std::uint32_t color, const Rect* clip) {
    painter.save();
    if (clip != nullptr) {
        painter.setClipRect(QRect(clip->left, clip->top, clip->Width(), clip->Height()),
                            Qt::IntersectClip);
    }
    painter.setPen(QColor::fromRgb(color));
    painter.translate(origin.x, origin.y);
    for (const QRectF& bar : line.bars) {
        painter.fillRect(DeviceBar(bar, ratio), QColor::fromRgb(color));
    }
    if (ratio != 1) painter.scale(ratio, ratio);
    for (const QGlyphRun& run : line.runs) painter.drawGlyphRun(QPointF(0, -line.ascent), run);
    painter.restore();
}

}  // namespace velmora::gdi
