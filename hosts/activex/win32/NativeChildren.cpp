#include "hosts/activex/win32/NativeChildren.h"

#include <algorithm>

namespace velmora {

void SetMirrored(HWND window, bool mirrored) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
    const LONG_PTR wanted = mirrored ? style | WS_EX_LAYOUTRTL : style & ~WS_EX_LAYOUTRTL;
    if (wanted != style) SetWindowLongPtrW(window, GWL_EXSTYLE, wanted);
}

ChildFont::ChildFont(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    LOGFONTW description{};
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
        description = metrics.lfMessageFont;
    } else {
        GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
    }
    const HDC screen = GetDC(nullptr);
    description.lfHeight =
        MulDiv(description.lfHeight, dpi, std::max(GetDeviceCaps(screen, LOGPIXELSY), 1));
    ReleaseDC(nullptr, screen);
    m_font = CreateFontIndirectW(&description);
}

SIZE ChildFont::Measure(const std::wstring& text) const {
    SIZE size{};
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, m_font);
    GetTextExtentPoint32W(screen, text.data(), static_cast<int>(text.size()), &size);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return size;
}

NativeChild::NativeChild(const ChildSite& site, const wchar_t* windowClass, DWORD style)
    : m_input(site.input),
      m_children(site.children),
      m_dpi(site.dpi),
      m_rightToLeft(site.rightToLeft) {
    m_children.push_back(this);
    if (!site.parent) return;
    const DWORD extended = style & WS_BORDER ? WS_EX_CLIENTEDGE : 0;
    m_window = CreateWindowExW(extended, windowClass, L"", (style & ~WS_BORDER) | WS_CHILD, 0, 0, 0,
                               0, site.parent, nullptr, nullptr, nullptr);
    if (!m_window) return;
    EnableWindow(m_window, IsWindowEnabled(site.parent));
    RightToLeft(site.rightToLeft);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_own = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
}

/// What the window still tells its parent while it goes finds no child.
NativeChild::~NativeChild() {
    std::erase(m_children, this);
    End();
    if (!m_window) return;
    SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_own));
    DestroyWindow(m_window);
}

LRESULT CALLBACK NativeChild::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* const child = reinterpret_cast<NativeChild*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCDESTROY) {
        const WNDPROC own = child->m_own;
        child->End();
        child->m_window = nullptr;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
        return CallWindowProcW(own, window, message, w, l);
    }
    LRESULT answer = 0;
    if (child->OnAccessMessage(message, w, l, answer)) return answer;
    if (const auto result = child->OnMessage(message, w, l)) return *result;
    return child->Own(message, w, l);
}

LRESULT NativeChild::Own(UINT message, WPARAM w, LPARAM l) const {
    return CallWindowProcW(m_own, m_window, message, w, l);
}

LRESULT NativeChild::Send(UINT message, WPARAM w, LPARAM l) const {
    return SendMessageW(m_window, message, w, l);
}

std::vector<AccessItem> NativeChild::Items() {
    RECT client{};
    GetClientRect(m_window, &client);
    AccessItem item = Described();
    item.place = {0, 0, client.right, client.bottom};
    if (!IsWindowEnabled(m_window)) item.state |= STATE_SYSTEM_UNAVAILABLE;
    return {item};
}

void NativeChild::CommitEdits() const {
    for (NativeChild* const child : m_children) child->CommitEdit();
}

void NativeChild::RightToLeft(bool rightToLeft) {
    m_rightToLeft = rightToLeft;
    if (!m_window) return;
    SetMirrored(m_window, rightToLeft);
    InvalidateRect(m_window, nullptr, TRUE);
}

void NativeChild::MoveTo(const Rect& rect) {
    if (m_place == rect) return;
    m_place = rect;
    if (!m_window) return;
    SetWindowPos(m_window, nullptr, rect.left, rect.top, rect.Width(), WindowHeight(rect),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void NativeChild::Show(bool visible) {
    if (m_visible == visible) return;
    m_visible = visible;
    if (m_window) ShowWindow(m_window, visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace velmora
