#include "hosts/activex/win32/GdiCache.h"

#include "hosts/activex/win32/NativePicture.h"
#include "hosts/activex/win32/PixelBitmap.h"
#include "hosts/activex/win32/WinText.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr std::size_t kMostColors = 64;
constexpr std::size_t kMostFonts = 16;
constexpr int kLargestKept = 1 << 22;     // pixels
constexpr std::size_t kMostLines = 256;   // of a font
constexpr std::size_t kLongestLine = 64;  // bytes

HGDIOBJ MakeFont(const LogFont& font, int dpi) {
    LOGFONTW description{};
    const double height = std::clamp(font.points * dpi / 72, 1.0, 32767.0);  // pixels
    description.lfHeight = -static_cast<LONG>(std::lround(height));
    description.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    description.lfItalic = font.italic ? 1 : 0;
    description.lfUnderline = font.underline ? 1 : 0;
    description.lfStrikeOut = font.strikeOut ? 1 : 0;
    description.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = ToWide(font.faceName);
    name.copy(description.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&description);
}

void DeletePixels(HANDLE handle, bool asIcon) {
    if (!handle) return;
    if (asIcon) {
        DestroyIcon(static_cast<HICON>(handle));
    } else {
        ::DeleteObject(handle);
    }
}

}  // namespace

GdiCache::~GdiCache() {
    DeleteAll(m_brushes);
    DeleteAll(m_pens);
    DeleteAll(m_fonts);
    if (m_source) DeleteDC(m_source);
    if (m_composition.context) DeleteDC(m_composition.context);
    if (m_composition.object) ::DeleteObject(m_composition.object);
    for (const PixelsEntry& entry : m_pixels) DeletePixels(entry.handle, entry.asIcon);
}

template <class Key>
void GdiCache::DeleteAll(std::vector<Entry<Key>>& entries) {
    for (const Entry<Key>& entry : entries) ::DeleteObject(entry.object);
}

template <class Key, class Make>
HGDIOBJ GdiCache::Use(std::vector<Entry<Key>>& entries, std::size_t most, const Key& key,
                      Make make) {
    for (Entry<Key>& entry : entries) {
        if (!(entry.key == key)) continue;
        ++entry.uses;
        return entry.object;
    }
    if (entries.size() >= most) {
        const auto idle = std::find_if(entries.begin(), entries.end(),
                                       [](const Entry<Key>& entry) { return entry.uses == 0; });
        if (idle == entries.end()) return make();
        Delete(idle->object);
        entries.erase(idle);
    }
    const HGDIOBJ object = make();
    if (object) entries.push_back({key, object, 1});
    return object;
}

template <class Key>
bool GdiCache::Ends(std::vector<Entry<Key>>& entries, HGDIOBJ object) {
    for (Entry<Key>& entry : entries) {
        if (entry.object != object) continue;
        --entry.uses;
        return true;
    }
    return false;
}

HGDIOBJ GdiCache::Brush(COLORREF color) {
    return Use(m_brushes, kMostColors, color, [=] { return CreateSolidBrush(color); });
}

HGDIOBJ GdiCache::Pen(COLORREF color) {
    return Use(m_pens, kMostColors, color, [=] { return CreatePen(PS_SOLID, 1, color); });
}

HGDIOBJ GdiCache::Font(const LogFont& font, int dpi) {
    return Use(m_fonts, kMostFonts, FontKey{font, dpi}, [&] { return MakeFont(font, dpi); });
}

/// Not when it is much larger: then the small one is to take its place.
bool GdiCache::Composition::Suits(int wantedWidth, int wantedHeight) const noexcept {
    return object && !used && wantedWidth <= width && wantedHeight <= height &&
           width / 2 <= wantedWidth && height / 2 <= wantedHeight;
}

HGDIOBJ GdiCache::Bitmap(HDC screen, int width, int height) {
    if (m_composition.Suits(width, height)) {
        m_composition.used = true;
        return m_composition.object;
    }
    const HGDIOBJ bitmap = CreateCompatibleBitmap(screen, width, height);
    if (!bitmap || m_composition.used || width > kLargestKept / height) return bitmap;
    if (m_composition.context) SelectObject(m_composition.context, bitmap);
    if (m_composition.object) ::DeleteObject(m_composition.object);
    m_composition.object = bitmap;
    m_composition.width = width;
    m_composition.height = height;
    m_composition.used = true;
    return bitmap;
}

HDC GdiCache::Context(HDC screen) {
    if (m_composition.contextUsed) return CreateCompatibleDC(screen);
    if (!m_composition.context) {
        m_composition.context = CreateCompatibleDC(screen);
        if (m_composition.object) SelectObject(m_composition.context, m_composition.object);
    }
    m_composition.contextUsed = m_composition.context != nullptr;
    return m_composition.context;
}

const GdiCache::Line* GdiCache::LineFor(HDC context, std::string_view text) {
    if (context != m_composition.context || text.size() > kLongestLine) return nullptr;
    Lines& lines = m_lines[GetCurrentObject(context, OBJ_FONT)];
    if (const auto known = lines.find(text); known != lines.end()) return &known->second;
    const auto isSpecial = [](unsigned char c) { return c < ' ' || c == '&'; };
    if (text.empty() || std::ranges::any_of(text, isSpecial)) return nullptr;
    if (lines.size() >= kMostLines) lines.clear();
    Line line{ToWide(text), {}};
    if (!GetTextExtentPoint32W(context, line.text.data(), static_cast<int>(line.text.size()),
                               &line.extent)) {
        return nullptr;
    }
    return &lines.emplace(text, std::move(line)).first->second;
}

bool GdiCache::HasBars(HGDIOBJ font) const noexcept {
    return std::ranges::any_of(m_fonts, [&](const Entry<FontKey>& entry) {
        return entry.object == font && (entry.key.font.underline || entry.key.font.strikeOut);
    });
}

HDC GdiCache::SourceContext(HDC like) {
    if (m_sourceUsed) return CreateCompatibleDC(like);
    if (!m_source) m_source = CreateCompatibleDC(nullptr);
    m_sourceUsed = m_source != nullptr;
    return m_source;
}

void GdiCache::Release(HDC context) {
    if (context == m_source) {
        m_sourceUsed = false;
    } else if (context == m_composition.context) {
        m_composition.contextUsed = false;
    } else {
        DeleteDC(context);
    }
}

void GdiCache::Release(HGDIOBJ object) {
    if (object == m_composition.object) {
        m_composition.used = false;
        return;
    }
    if (!Ends(m_brushes, object) && !Ends(m_fonts, object) && !Ends(m_pens, object)) Delete(object);
}

void GdiCache::Delete(HGDIOBJ object) {
    m_lines.erase(object);  // another font may get its handle
    ::DeleteObject(object);
}

GdiCache::PixelsEntry& GdiCache::EntryOf(const std::shared_ptr<const PixelImage>& image,
                                         bool asIcon) {
    for (PixelsEntry& entry : m_pixels) {
        const bool same = !entry.image.owner_before(image) && !image.owner_before(entry.image);
        if (same && entry.asIcon == asIcon) return entry;
    }
    std::erase_if(m_pixels, [](const PixelsEntry& entry) {
        if (!entry.image.expired()) return false;
        DeletePixels(entry.handle, entry.asIcon);
        return true;
    });
    return m_pixels.emplace_back(PixelsEntry{image, asIcon, IsOpaque(*image), nullptr});
}

HANDLE GdiCache::Picture(const StdPicture& picture) {
    const bool asIcon = picture.Type() == PictureType::Icon;
    if (!asIcon && picture.Type() != PictureType::Bitmap) return nullptr;
    const auto* const native = dynamic_cast<const NativePicture*>(&picture);
    if (asIcon && native && native->handle) return native->handle;
    if (!picture.Image() || !picture.Image()->IsDrawable()) return nullptr;

    PixelsEntry& entry = EntryOf(picture.Image(), asIcon);
    if (!asIcon && native && native->handle && entry.isOpaque) return native->handle;
    if (!entry.handle) {
        entry.handle =
            asIcon ? static_cast<HANDLE>(MakeIcon(*picture.Image())) : MakeBitmap(*picture.Image());
    }
    return entry.handle;
}

}  // namespace velmora
