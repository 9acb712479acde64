#pragma once

#include "platform/Drawing.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora {

/// Objects of GDI that are used again and again by the paints of one thread's controls. Objects in
/// use are never deleted; of the others, the last few dozen are kept.
class GdiCache {
public:
    GdiCache() = default;
    GdiCache(const GdiCache&) = delete;
    GdiCache& operator=(const GdiCache&) = delete;
    ~GdiCache();

    // Each to be released after use; null when it cannot be made.

    HGDIOBJ Brush(COLORREF color);
    HGDIOBJ Pen(COLORREF color);
    HGDIOBJ Font(const LogFont& font, int dpi);
    /// For composing off screen, in the format of the screen and at least of that size, both of
    /// which are positive.
    HGDIOBJ Bitmap(HDC screen, int width, int height);
    /// What such a bitmap is selected into; null when it cannot be made.
    HDC Context(HDC screen);
    /// A text as it is drawn, with the extent that it has on the context of compositions.
    struct Line {
        std::wstring text;
        SIZE extent;
    };
    /// Of a text in the font that is selected, for the context of compositions; valid until the
    /// next call. Null for another context, and for what `DrawTextW` would not draw as it stands.
    const Line* LineFor(HDC context, std::string_view text);
    /// Whether texts in that font are underlined or struck out.
    bool HasBars(HGDIOBJ font) const noexcept;
    /// What a picture is selected into; null when it cannot be made.
    HDC SourceContext(HDC like);
    void Release(HDC context);
    /// Ends a use; an object of another origin is deleted.
    void Release(HGDIOBJ object);

    /// The bitmap or icon of a picture; valid as long as the picture. Null when it has nothing
    /// that could be drawn.
    HANDLE Picture(const StdPicture& picture);

private:
    template <class Key>
    struct Entry {
        Key key;
        HGDIOBJ object;
        int uses;
    };
    struct FontKey {
        LogFont font;
        int dpi;

        friend bool operator==(const FontKey&, const FontKey&) = default;
    };
    /// Made of pixels that other objects hold.
    struct PixelsEntry {
        std::weak_ptr<const PixelImage> image;
        bool asIcon;
        bool isOpaque;
        HANDLE handle;  // null until it is needed
    };

    /// One bitmap is kept in a context: to make both and bring them together for every paint takes
    /// as long as the half of a month.
    struct Composition {
        HDC context = nullptr;
        HGDIOBJ object = nullptr;
        int width = 0;
        int height = 0;
        bool contextUsed = false;
        bool used = false;

        bool Suits(int wantedWidth, int wantedHeight) const noexcept;
    };

    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>()(text);
        }
    };
    using Lines = std::unordered_map<std::string, Line, TextHash, std::equal_to<>>;

    template <class Key, class Make>
    HGDIOBJ Use(std::vector<Entry<Key>>& entries, std::size_t most, const Key& key, Make make);
    template <class Key>
    static bool Ends(std::vector<Entry<Key>>& entries, HGDIOBJ object);
    template <class Key>
    static void DeleteAll(std::vector<Entry<Key>>& entries);
    void Delete(HGDIOBJ object);
    PixelsEntry& EntryOf(const std::shared_ptr<const PixelImage>& image, bool asIcon);

    std::vector<Entry<COLORREF>> m_brushes;
    std::vector<Entry<COLORREF>> m_pens;
    std::vector<Entry<FontKey>> m_fonts;
    std::unordered_map<HGDIOBJ, Lines> m_lines;  // by their fonts
    std::vector<PixelsEntry> m_pixels;
    Composition m_composition;
    HDC m_source = nullptr;
    bool m_sourceUsed = false;
};

}  // namespace velmora
