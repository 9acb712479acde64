#include "hosts/activex/pages/PageFields.h"

#include "hosts/activex/win32/ScreenDpi.h"
#include "hosts/activex/win32/WinText.h"
#include "hosts/activex/win32/WinTexts.h"
#include "platform/FontAndPicture.h"
#include "platform/stores/NumberText.h"

#include <commdlg.h>
#include <olectl.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <utility>

namespace velmora {

void PageField::Attach(HWND window) {
    m_window = window;
    EnableWindow(m_window, m_enabled);
    Show();
}

void PageField::Enable(bool enabled) {
    m_enabled = enabled;
    if (m_window) EnableWindow(m_window, enabled);
}

void WinPageList::Items(std::span<const std::string_view> items) {
    m_items.clear();
    for (const std::string_view item : items) m_items.push_back(Localized(item, m_locale));
    m_index = -1;
    if (Window()) Show();
}

/// An index that the list does not have leaves nothing chosen, as a native list does.
void WinPageList::ListIndex(int index) {
    m_index = std::cmp_less(index, m_items.size()) ? std::max(index, -1) : -1;
    if (Window()) SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(m_index), 0);
}

bool WinPageList::TakeUp(WORD notification) {
    if (notification != CBN_SELCHANGE) return false;
    const int index = static_cast<int>(SendMessageW(Window(), CB_GETCURSEL, 0, 0));
    return std::exchange(m_index, index) != index;
}

void WinPageList::Show() {
    SendMessageW(Window(), CB_RESETCONTENT, 0, 0);
    for (const std::wstring& item : m_items) {
        SendMessageW(Window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
    SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(m_index), 0);
}

void WinPageCheckBox::Checked(bool checked) {
    m_checked = checked;
    if (Window()) Show();
}

bool WinPageCheckBox::TakeUp(WORD notification) {
    if (notification != BN_CLICKED) return false;
    const bool checked = SendMessageW(Window(), BM_GETCHECK, 0, 0) == BST_CHECKED;
    return std::exchange(m_checked, checked) != checked;
}

void WinPageCheckBox::Show() {
    SendMessageW(Window(), BM_SETCHECK, m_checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void WinPageChoice::Value(const Variant& value) {
    m_value = value;
    if (Window()) Show();
}

/// The dialog may outlive the page's.
bool WinPageChoice::TakeUp(WORD notification) {
    if (notification != BN_CLICKED) return false;
    auto chosen = Choose(GetAncestor(Window(), GA_ROOT));
    if (!chosen) return false;
    Value(*chosen);
    return true;
}

void WinPageChoice::Show() {
    SetWindowTextW(Window(), m_value.Type() == VarType::Empty ? L"" : Text().c_str());
    InvalidateRect(Window(), nullptr, TRUE);
}

COLORREF WinPageColor::Color() const {
    const auto* const color = Value().As<std::int32_t>();
    COLORREF shown = GetSysColor(COLOR_BTNFACE);
    if (color) OleTranslateColor(static_cast<OLE_COLOR>(*color), nullptr, &shown);
    return shown;
}

/// For those who have it read to them; the others see the colour.
std::wstring WinPageColor::Text() const {
    wchar_t text[16];
    std::swprintf(text, std::size(text), L"&H%06lX", Color());
    return text;
}

void WinPageColor::Draw(const DRAWITEMSTRUCT& button) const {
    RECT area = button.rcItem;
    DrawEdge(button.hDC, &area, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    const HBRUSH brush = CreateSolidBrush(Color());
    FillRect(button.hDC, &area, brush);
    DeleteObject(brush);
    if (button.itemState & ODS_FOCUS) DrawFocusRect(button.hDC, &area);
}

std::optional<Variant> WinPageColor::Choose(HWND owner) const {
    COLORREF own[16]{};
    CHOOSECOLORW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = owner;
    ask.rgbResult = Color();
    ask.lpCustColors = own;
    ask.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (!ChooseColorW(&ask)) return {};
    return Variant(static_cast<std::uint32_t>(ask.rgbResult));
}

namespace {

FontRef FontOf(const Variant& value) {
    const auto* const object = value.As<ObjectRef>();
    const auto font = object ? std::dynamic_pointer_cast<StdFont>(*object) : nullptr;
    return font ? font : std::make_shared<StdFont>();
}

}  // namespace

std::wstring WinPageFont::Text() const {
    const FontRef font = FontOf(Value());
    return ToWide(font->name + ", " + NumberText(font->size) + (font->bold ? ", bold" : "") +
                  (font->italic ? ", italic" : ""));
}

std::optional<Variant> WinPageFont::Choose(HWND owner) const {
    const FontRef present = FontOf(Value());
    LOGFONTW font{};
    font.lfHeight = -static_cast<LONG>(std::lround(present->size * ScreenDpi() / 72));
    font.lfWeight = present->bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = present->italic;
    font.lfUnderline = present->underline;
    font.lfStrikeOut = present->strikethrough;
    font.lfCharSet = DEFAULT_CHARSET;
    ToWide(present->name).copy(font.lfFaceName, LF_FACESIZE - 1);
    CHOOSEFONTW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = owner;
    ask.lpLogFont = &font;
    ask.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_FORCEFONTEXIST;
    if (!ChooseFontW(&ask)) return {};
    const auto chosen = std::make_shared<StdFont>();
    chosen->name = ToUtf8(font.lfFaceName);
    chosen->size = ask.iPointSize / 10.0;
    chosen->bold = font.lfWeight > FW_MEDIUM;
    chosen->italic = font.lfItalic;
    chosen->underline = font.lfUnderline;
    chosen->strikethrough = font.lfStrikeOut;
    return Variant(ObjectRef(chosen));
}

std::string WinPageText::Text() const { return ToUtf8(m_text); }

/// The window notifies of this change too, but then shows what is kept here already.
void WinPageText::Text(const std::string& text) {
    m_text = ToWide(text);
    if (Window()) Show();
}

void WinPageText::ForeColor(Rgb color) {
    if (std::exchange(m_color, color) != color && Window()) {
        InvalidateRect(Window(), nullptr, TRUE);
    }
}

bool WinPageText::TakeUp(WORD notification) {
    if (notification != EN_CHANGE) return false;
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Window())) + 1, L'\0');
    const int length = GetWindowTextW(Window(), text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    if (text == m_text) return false;
    m_text = std::move(text);
    return true;
}

void WinPageText::Show() { SetWindowTextW(Window(), m_text.c_str()); }

}  // namespace velmora
