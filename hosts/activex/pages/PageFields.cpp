#include "hosts/activex/pages/PageFields.h"

#include "hosts/activex/win32/WinText.h"

#include <algorithm>
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
    for (const std::string_view item : items) m_items.push_back(ToWide(item));
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
