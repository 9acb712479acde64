#include "hosts/activex/win32/WinWindowing.h"

#include "hosts/activex/win32/NativeChildren.h"
#include "hosts/activex/win32/NativePicture.h"
#include "hosts/activex/win32/PixelBitmap.h"
#include "hosts/activex/win32/ScreenDpi.h"
#include "hosts/activex/win32/WinDrawing.h"

#include <array>
#include <utility>

namespace velmora {
namespace {

constexpr std::int16_t kCustomPointer = 99;
constexpr UINT kSelectorInput = WM_USER + 0x700;

const std::array kPointers{
    IDC_ARROW,        // 0 default: the control has none of its own
    IDC_ARROW,        // 1 arrow
    IDC_CROSS,        // 2 cross
    IDC_IBEAM,        // 3 text
    IDC_ARROW,        // 4 icon
    IDC_SIZEALL,      // 5 size
    IDC_SIZENESW,     // 6 size north-east to south-west
    IDC_SIZENS,       // 7 size north to south
    IDC_SIZENWSE,     // 8 size north-west to south-east
    IDC_SIZEWE,       // 9 size west to east
    IDC_UPARROW,      // 10 up arrow
    IDC_WAIT,         // 11 hourglass
    IDC_NO,           // 12 no drop
    IDC_APPSTARTING,  // 13 arrow and hourglass
    IDC_HELP,         // 14 arrow and question mark
    IDC_SIZEALL,      // 15 size all
};
static_assert(kPointers.size() == 16);

bool IsPressOrKey(UINT message) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK: return true;
        default: return false;
    }
}

}  // namespace

WinWindowing::WinWindowing() : m_input([this] { PostMessageW(m_window, kSelectorInput, 0, 0); }) {}

WinWindowing::~WinWindowing() {
    if (m_madeCursor) DestroyCursor(m_madeCursor);
}

/// A mirrored parent must not mirror what mirrors itself.
void WinWindowing::Attach(HWND window) {
    m_window = window;
    m_input.Clear();
    SetMirrored(window, false);
    EnableWindow(window, m_enabled);
    if (m_dropMode != 0) OnDropModeChanged();
}

void WinWindowing::Detach() {
    if (!m_window) return;
    m_enabled = Enabled();
    m_extent = ClientSize();
    m_window = nullptr;
    m_input.Clear();
}

void WinWindowing::RightToLeft(bool rightToLeft) {
    m_rightToLeft = rightToLeft;
    for (NativeChild* const child : m_children) child->RightToLeft(rightToLeft);
}

int WinWindowing::Dpi() const { return m_window ? DpiOf(m_window) : ScreenDpi(); }

WindowHandle WinWindowing::Handle() const { return WinDrawing::HandleOf(m_window); }

Size WinWindowing::ClientSize() const {
    RECT client{};
    if (!m_window || !GetClientRect(m_window, &client)) return m_extent;
    return {client.right, client.bottom};
}

/// Others may enable or disable the window too.
bool WinWindowing::Enabled() const {
    if (!m_window || !IsWindow(m_window)) return m_enabled;
    return (GetWindowLongPtrW(m_window, GWL_STYLE) & WS_DISABLED) == 0;
}

void WinWindowing::Enabled(bool enabled) {
    m_enabled = enabled;
    if (m_window) EnableWindow(m_window, enabled);
}

/// A frame that is disabled while its dialog is open does not count: no child is told when it is
/// enabled again, and none looks any different meanwhile.
bool WinWindowing::TakesInput() const {
    if (!m_window) return m_enabled;
    if (!IsWindowEnabled(m_window)) return false;
    const HWND frame = GetAncestor(m_window, GA_ROOT);
    HWND around = m_window;
    while (around && around != frame && IsWindowEnabled(around)) {
        around = GetAncestor(around, GA_PARENT);
    }
    return !around || around == frame;
}

void WinWindowing::MousePointer(std::int16_t pointer) { m_pointer = pointer; }

void WinWindowing::MouseIcon(PictureRef icon) {
    if (m_madeCursor) DestroyCursor(std::exchange(m_madeCursor, nullptr));
    m_icon = std::move(icon);
}

void WinWindowing::OLEDropMode(std::int32_t mode) {
    m_dropMode = mode;
    OnDropModeChanged();
}

void WinWindowing::SetCapture() {
    if (m_window) ::SetCapture(m_window);
}

void WinWindowing::ReleaseCapture() {
    if (m_window && GetCapture() == m_window) ::ReleaseCapture();
}

Point WinWindowing::ClientToScreen(Point point) const {
    POINT place{point.x, point.y};
    if (m_window) ::ClientToScreen(m_window, &place);
    return {place.x, place.y};
}

Point WinWindowing::ScreenToClient(Point point) const {
    POINT place{point.x, point.y};
    if (m_window) ::ScreenToClient(m_window, &place);
    return {place.x, place.y};
}

std::optional<Point> WinWindowing::GetCursorPos() const {
    POINT place{};
    if (!::GetCursorPos(&place)) return std::nullopt;
    return Point{place.x, place.y};
}

void WinWindowing::SetFocus() {
    if (m_window) ::SetFocus(m_window);
}

ChildSite WinWindowing::Site() { return {m_window, Dpi(), m_rightToLeft, m_input, m_children}; }

std::unique_ptr<ComboBox> WinWindowing::CreateMonthList() { return MakeMonthList(Site()); }

std::unique_ptr<TextBox> WinWindowing::CreateYearText() { return MakeYearText(Site()); }

std::unique_ptr<ScrollBar> WinWindowing::CreateYearSpinner() { return MakeYearSpinner(Site()); }

std::unique_ptr<ScrollBar> WinWindowing::CreateDateScroll() { return MakeDateScroll(Site()); }

bool WinWindowing::OnSetCursor() {
    HCURSOR cursor = nullptr;
    if (m_pointer == kCustomPointer && m_icon) {
        const auto* const native = dynamic_cast<const NativePicture*>(m_icon.get());
        if (native && native->handle) {
            cursor = static_cast<HCURSOR>(native->handle);
        } else if (m_icon->Image()) {
            if (!m_madeCursor) m_madeCursor = MakeCursor(*m_icon->Image());
            cursor = m_madeCursor;
        }
    } else if (0 < m_pointer && m_pointer < static_cast<int>(kPointers.size())) {
        cursor = LoadCursorW(nullptr, kPointers[static_cast<std::size_t>(m_pointer)]);
    }
    if (!cursor) return false;
    ::SetCursor(cursor);
    return true;
}

NativeChild* WinWindowing::ChildOf(HWND window) const {
    for (NativeChild* const child : m_children) {
        if (window && child->Window() == window) return child;
    }
    return nullptr;
}

bool WinWindowing::OnChildMessage(VmCalendar& calendar, UINT message, WPARAM w, LPARAM l,
                                  LRESULT& result) {
    result = 0;
    switch (message) {
        case kSelectorInput: m_input.Deliver(calendar); return true;
        case WM_COMMAND:
        case WM_HSCROLL:
        case WM_VSCROLL: {
            NativeChild* const child = ChildOf(reinterpret_cast<HWND>(l));
            if (child) child->OnNotification(message, w);
            return child != nullptr;
        }
        case WM_ENABLE:
            for (NativeChild* const child : m_children) {
                if (child->Window()) EnableWindow(child->Window(), w != 0);
            }
            return false;
        default: break;
    }
    if (!IsPressOrKey(message)) return false;
    for (NativeChild* const child : m_children) child->CommitEdit();
    return !m_input.Deliver(calendar) || !m_window;
}

bool WinWindowing::FocusNext(bool forward) const {
    std::vector<HWND> stops{m_window};
    for (const NativeChild* const child : m_children) {
        if (child->IsVisible() && child->IsTabStop()) stops.push_back(child->Window());
    }
    const auto from = std::ranges::find(stops, GetFocus());
    if (from == stops.end() || (forward ? from + 1 == stops.end() : from == stops.begin())) {
        return false;
    }
    ::SetFocus(forward ? from[1] : from[-1]);
    return true;
}

void WinWindowing::PaintChildren(HDC context) {
    for (const NativeChild* const child : m_children) {
        if (child->IsVisible()) child->Paint(context);
    }
}

}  // namespace velmora
