#include "hosts/activex/pages/PageTemplate.h"

namespace velmora {
namespace {

// Dialog units.
constexpr SHORT kMargin = 7;
constexpr SHORT kRowHeight = 16;
constexpr SHORT kFieldHeight = 13;
constexpr SHORT kLabelWidth = 122;  // for the longest of all languages
constexpr SHORT kFieldWidth = 108;
constexpr SHORT kPageWidth = 2 * kMargin + kLabelWidth + kFieldWidth;
constexpr SHORT kListHeight = 100;  // dropped down
constexpr SHORT kLabelIndent = 2;   // brings label and field on one line of text
constexpr WORD kNoId = 0xFFFF;

// The window classes of a template.
constexpr WORD kButton = 0x0080;
constexpr WORD kEdit = 0x0081;
constexpr WORD kStatic = 0x0082;
constexpr WORD kComboBox = 0x0085;

// Where the header keeps what is known only at the end, in words.
constexpr std::size_t kItemCount = 4;
constexpr std::size_t kPageHeight = 8;

SMALL_RECT At(SHORT x, SHORT y, SHORT width, SHORT height) {
    return {x, y, static_cast<SHORT>(x + width), static_cast<SHORT>(y + height)};
}

}  // namespace

PageTemplate::PageTemplate(bool rightToLeft) {
    Long(WS_CHILD | WS_CLIPSIBLINGS | DS_CONTROL | DS_SETFONT | DS_FIXEDSYS);
    Long(WS_EX_CONTROLPARENT | (rightToLeft ? WS_EX_LAYOUTRTL : 0));
    Word(0);
    Place(At(0, 0, kPageWidth, 2 * kMargin));
    Word(0);  // no menu
    Word(0);  // the dialog's own window class
    Text({});
    Word(8);
    Text(L"MS Shell Dlg");
}

void PageTemplate::AddRow(FieldKind kind, std::wstring_view label, WORD id) {
    const auto top = static_cast<SHORT>(kMargin + m_rows * kRowHeight);
    const SHORT left = kMargin + kLabelWidth;
    ++m_rows;
    m_words[kPageHeight] = static_cast<WORD>(2 * kMargin + m_rows * kRowHeight);
    if (kind == FieldKind::CheckBox) {
        AddItem(BS_AUTOCHECKBOX | WS_TABSTOP, 0, At(left, top, kFieldWidth, kFieldHeight), id,
                kButton, label);
        return;
    }
    AddItem(SS_LEFT, 0, At(kMargin, static_cast<SHORT>(top + kLabelIndent), kLabelWidth, 9), kNoId,
            kStatic, label);
    if (kind == FieldKind::Color || kind == FieldKind::Font) {
        AddItem((kind == FieldKind::Color ? BS_OWNERDRAW : BS_LEFT) | WS_TABSTOP, 0,
                At(left, top, kFieldWidth, kFieldHeight), id, kButton, {});
    } else if (kind == FieldKind::List) {
        AddItem(CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 0,
                At(left, top, kFieldWidth, kListHeight), id, kComboBox, {});
    } else {
        AddItem(ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE,
                At(left, top, kFieldWidth, kFieldHeight), id, kEdit, {});
    }
}

const DLGTEMPLATE& PageTemplate::Get() const noexcept {
    return *reinterpret_cast<const DLGTEMPLATE*>(m_words.data());
}

void PageTemplate::AddItem(DWORD style, DWORD extendedStyle, SMALL_RECT place, WORD id,
                           WORD windowClass, std::wstring_view text) {
    if (m_words.size() % 2 != 0) Word(0);  // items begin at a multiple of four bytes
    Long(style | WS_CHILD | WS_VISIBLE);
    Long(extendedStyle);
    Place(place);
    Word(id);
    Word(0xFFFF);  // a class by number follows
    Word(windowClass);
    Text(text);
    Word(0);  // no creation data
    ++m_words[kItemCount];
}

void PageTemplate::Long(DWORD value) {
    Word(LOWORD(value));
    Word(HIWORD(value));
}

void PageTemplate::Place(SMALL_RECT place) {
    for (const int value :
         {int{place.Left}, int{place.Top}, place.Right - place.Left, place.Bottom - place.Top}) {
        Word(static_cast<WORD>(value));
    }
}

void PageTemplate::Text(std::wstring_view text) {
    m_words.insert(m_words.end(), text.begin(), text.end());
    Word(0);
}

}  // namespace velmora
