#include "hosts/activex/com/ComFont.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/win32/WinText.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

constexpr DISPID kFontName = 0;  // the identifiers of the system's font class
constexpr DISPID kFontSize = 2;
// Wine's font class gives 429496 points and no name when another thread makes a font meanwhile.
constexpr double kTooLarge = 100000;

void ReadName(IFont& font, StdFont& out) {
    BSTR name = nullptr;
    if (SUCCEEDED(font.get_Name(&name)) && name && *name) out.name = FromBstr(name);
    SysFreeString(name);
}

void ReadSize(IFont& font, StdFont& out) {
    CY size{};
    if (FAILED(font.get_Size(&size))) return;
    const double points = static_cast<double>(size.int64) / 10000;
    if (points < kTooLarge) out.size = points;
}

void ReadStyle(IFont& font, StdFont& out) {
    const auto read = [&font](HRESULT (STDMETHODCALLTYPE IFont::*get)(BOOL*), bool& style) {
        BOOL set = FALSE;
        if (SUCCEEDED((font.*get)(&set))) style = set != FALSE;
    };
    read(&IFont::get_Bold, out.bold);
    read(&IFont::get_Italic, out.italic);
    read(&IFont::get_Underline, out.underline);
    read(&IFont::get_Strikethrough, out.strikethrough);
}

}  // namespace

StdFont ReadFont(IFont& font) {
    StdFont read;
    ReadName(font, read);
    ReadSize(font, read);
    ReadStyle(font, read);
    return read;
}

ComPtr<IFont> MakeFont(const StdFont& font) {
    std::wstring name = ToWide(font.name);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = static_cast<LONGLONG>(std::clamp(font.size, 0.0, 1e6) * 10000);
    description.sWeight = font.bold ? FW_BOLD : FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    description.fItalic = font.italic;
    description.fUnderline = font.underline;
    description.fStrikethrough = font.strikethrough;
    ComPtr<IFont> made;
    Require(OleCreateFontIndirect(&description, __uuidof(IFont), &made));
    return made;
}

/// Learns of changes that a client makes.
class FontBridge::Sink final : public ComObject<IPropertyNotifySink> {
public:
    Sink(const FontRef& font, IFont& native,
         std::weak_ptr<std::function<void(const FontRef&)>> changed)
        : m_font(font), m_native(native), m_changed(std::move(changed)) {}

    /// The other members stay as they were set: the system reports the face that it has found, and
    /// a size in whole pixels.
    STDMETHODIMP OnChanged(DISPID member) override {
        return Guard([&] {
            const FontRef font = m_font.lock();
            if (!font) return;
            const bool all = member == DISPID_UNKNOWN;
            if (all || member == kFontName) ReadName(m_native, *font);
            if (all || member == kFontSize) ReadSize(m_native, *font);
            if (member != kFontName && member != kFontSize) ReadStyle(m_native, *font);
            const auto changed = m_changed.lock();
            if (changed && *changed) (*changed)(font);
        });
    }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

private:
    std::weak_ptr<StdFont> m_font;
    IFont& m_native;  // calls this sink, so it exists
    std::weak_ptr<std::function<void(const FontRef&)>> m_changed;
};

struct FontBridge::Pair {
    std::weak_ptr<StdFont> core;
    ComPtr<IFont> native;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
};

FontBridge::FontBridge() : m_changed(std::make_shared<std::function<void(const FontRef&)>>()) {}

FontBridge::~FontBridge() { Forget(true); }

void FontBridge::WhenFontChanges(std::function<void(const FontRef&)> handler) {
    *m_changed = std::move(handler);
}

void FontBridge::Forget(bool all) {
    std::vector<Pair> gone;  // a foreign font may call back while it is released
    for (Pair& pair : m_pairs) {
        if (all || pair.core.expired()) gone.push_back(std::exchange(pair, {}));
    }
    std::erase_if(m_pairs, [](const Pair& pair) { return !pair.native; });
    for (const Pair& pair : gone) {
        if (pair.point) pair.point->Unadvise(pair.cookie);
    }
}

void FontBridge::Keep(const FontRef& font, ComPtr<IFont> native) {
    Pair pair{font, std::move(native), nullptr, 0};
    ComPtr<IConnectionPointContainer> points;
    if (SUCCEEDED(pair.native.As(&points)) &&
        SUCCEEDED(points->FindConnectionPoint(__uuidof(IPropertyNotifySink), &pair.point))) {
        ComPtr<Sink> sink;
        sink = Adopt(new Sink(font, *pair.native.Get(), m_changed));
        if (FAILED(pair.point->Advise(sink.Get(), &pair.cookie))) pair.point.Reset();
    }
    m_pairs.push_back(std::move(pair));
}

ComPtr<IFont> FontBridge::ToClient(const FontRef& font) {
    Forget(false);
    for (const Pair& pair : m_pairs) {
        if (pair.core.lock() == font) return pair.native;
    }
    ComPtr<IFont> made = MakeFont(*font);
    Keep(font, made);
    return made;
}

FontRef FontBridge::FromClient(IUnknown* object) {
    ComPtr<IFont> native;
    if (!object || FAILED(object->QueryInterface(IID_PPV_ARGS(&native)))) return nullptr;
    Forget(false);
    for (const Pair& pair : m_pairs) {
        if (pair.native.Get() != native.Get()) continue;  // a ComPtr compares as a truth value
        if (FontRef known = pair.core.lock()) return known;
    }
    auto font = std::make_shared<StdFont>(ReadFont(*native.Get()));
    Keep(font, std::move(native));
    return font;
}

}  // namespace velmora
