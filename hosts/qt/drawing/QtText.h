#pragma once

#include "hosts/qt/drawing/QtPixels.h"
#include "platform/Drawing.h"

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QRectF>

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

class QPainter;

namespace velmora::gdi {

/// A font description resolved to a font of this system. Measures are logical pixels.
struct FontFace {
    std::uint64_t id = 0;  // never given twice, so that texts of a dropped font are not mistaken
    QFont font;  // without the next two, which glyph runs would draw away from the base line
    bool underline = false;
    bool strikeOut = false;
    int ascent = 0;
    int height = 0;
};

using FontFaceRef = std::shared_ptr<const FontFace>;

/// One line of text laid out in one font, with its pixels for one device pixel ratio.
struct TextLine {
    QList<QGlyphRun> runs;
    double ascent = 0;   // from the runs' top to their base line, logical pixels
    int width = 0;       // logical pixels, rounded up
    QList<QRectF> bars;  // underline and strike-out relative to the base line, logical pixels
    double ratio = 0;    // of the mask
    /// Device pixels; none where a mask cannot stand for the text: coloured glyphs, or a text so
    /// long that its pixels are not worth keeping.
    std::optional<CoverageMask> mask;
};

/// Fonts and laid out texts, shared by all surfaces. Bounded: beyond the limit the text that was
/// not drawn for longest is forgotten, and made again when it is asked for.
class TextCache {
public:
    /// Empty name: the application's font. Size 0 or less: the application font's size.
    FontFaceRef Face(const LogFont& description);
    /// Valid until the next call. Line breaks and tabulators count as spaces.
    const TextLine& Line(const FontFace& face, std::string_view text, double ratio);
    /// The same, with an ellipsis in place of what does not fit into that many logical pixels.
    const TextLine& LineWithin(int width, const FontFace& face, std::string_view text,
                               double ratio);
    void Clear();

private:
    struct FontHash {
        std::size_t operator()(const LogFont& font) const noexcept;
    };
    struct Key {
        std::uint64_t face;
        std::string_view text;  // of the entry
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const noexcept;
    };
    struct Entry {
        std::uint64_t face;
        std::string text;
        TextLine line;
        std::string shortened;  // for the width below
        int shortenedTo = -1;
        std::size_t bytes;  // estimate
    };

    FontFaceRef Resolve(const LogFont& description);
    void Count(Entry& entry);

    std::unordered_map<LogFont, FontFaceRef, FontHash> m_faces;
    std::list<Entry> m_entries;  // the one used last first
    std::unordered_map<Key, std::list<Entry>::iterator, KeyHash> m_index;
    std::size_t m_bytes = 0;  // of all entries
    std::uint64_t m_lastId = 0;
};

/// Draws a line through a painter that works in device pixels. `origin` is the left end of the base
/// line; nothing is drawn outside `clip` unless it is null. The painter's state is kept.
void PaintLine(QPainter& painter, const TextLine& line, Point origin, double ratio,
               std::uint32_t color, const Rect* clip);

}  // namespace velmora::gdi
