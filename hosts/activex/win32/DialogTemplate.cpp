#include "hosts/activex/win32/DialogTemplate.h"

namespace velmora {
namespace {

constexpr std::size_t kCountAt = 4;  // words before the number of items
constexpr WORD kIsAtom = 0xFFFF;
constexpr WORD kButtonClass = 0x80;
constexpr WORD kStaticClass = 0x82;
constexpr WORD kFontPoints = 8;

}  // namespace

DialogTemplate::DialogTemplate(const std::wstring& title, short width, short height,
                               bool rightToLeft) {
    Add(DWORD{WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER | DS_SHELLFONT});
    Add(rightToLeft ? DWORD{WS_EX_LAYOUTRTL} : DWORD{0});
    for (const int word : {0, 0, 0, int{width}, int{height}, 0, 0}) {
        m_words.push_back(static_cast<WORD>(word));  // items, left, top, size, menu, class
    }
    Add(title);
    m_words.push_back(kFontPoints);
    Add(std::wstring(L"MS Shell Dlg"));
}

void DialogTemplate::Text(WORD id, const std::wstring& text, const Place& place, DWORD style) {
    Item(kStaticClass, id, text, place, style | SS_NOPREFIX);
}

void DialogTemplate::Button(WORD id, const std::wstring& text, const Place& place, DWORD style) {
    Item(kButtonClass, id, text, place, style | WS_TABSTOP);
}

const DLGTEMPLATE* DialogTemplate::Get() const noexcept {
    return reinterpret_cast<const DLGTEMPLATE*>(m_words.data());
}

/// Items begin at a multiple of four bytes.
void DialogTemplate::Item(WORD windowClass, WORD id, const std::wstring& text, const Place& place,
                          DWORD style) {
    ++m_words[kCountAt];
    if (m_words.size() % 2 != 0) m_words.push_back(0);
    Add(WS_CHILD | WS_VISIBLE | style);
    Add(DWORD{0});
    for (const short word : {place.left, place.top, place.width, place.height}) {
        m_words.push_back(static_cast<WORD>(word));
    }
    m_words.insert(m_words.end(), {id, kIsAtom, windowClass});
    Add(text);
    m_words.push_back(0);
}

void DialogTemplate::Add(DWORD value) {
    m_words.push_back(LOWORD(value));
    m_words.push_back(HIWORD(value));
}

void DialogTemplate::Add(const std::wstring& text) {
    m_words.insert(m_words.end(), text.begin(), text.end());
    m_words.push_back(0);
}

}  // namespace velmora
