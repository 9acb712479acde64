#include "hosts/activex/win32/NativeChildren.h"
#include "hosts/activex/win32/ScreenDpi.h"
#include "hosts/activex/win32/StandIns.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinTexts.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace velmora {
namespace {

/// Posts its value once for all the changes that one message of the user makes. A press gives it no
/// focus, so that a year that is being typed has to be committed for it.
class NativeSelectorBar final : public ScrollBar, public NativeChild {
public:
    using Handler = void (VmCalendar::*)(int);

    NativeSelectorBar(const ChildSite& site, bool isVertical, int page, Handler handler)
        : NativeChild(site, L"SCROLLBAR", isVertical ? SBS_VERT : SBS_HORZ),
          m_handler(handler),
          m_page(page),
          m_isVertical(isVertical),
          m_extent(OwnExtent()) {}

    WindowHandle Handle() const override { return WinDrawing::HandleOf(Window()); }
    Size Extent() const override { return m_extent; }
    void Move(const Rect& rect) override { MoveTo(rect); }
    void Visible(bool visible) override { Show(visible); }
    void Position(int minimum, int maximum, int value) override;

    void Paint(HDC context) const override {
        const bool mirrored = !m_isVertical && IsRightToLeft();
        const int value = mirrored ? m_minimum + m_maximum - m_value : m_value;
        PaintScrollBar(context, Place(), m_isVertical, {m_minimum, m_maximum, value});
    }
    void OnNotification(UINT message, WPARAM w) override;
    bool IsTabStop() const override { return !m_isVertical; }

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;
    AccessItem Described() const override;

private:
    Size OwnExtent() const;
    int Wanted(WORD code) const;
    int Clamped(int value) const {
        return std::clamp(value, m_minimum, std::max(m_minimum, m_maximum));
    }
    void Change(int value);
    int TakeChange();

    const Handler m_handler;
    const int m_page;
    const bool m_isVertical;
    const Size m_extent;
    int m_minimum = 0;
    int m_maximum = 0;
    int m_value = 0;
    int m_changed = 0;  // by the user, and not yet told
    int m_steps = 0;    // that the user has changed it by
    bool m_posted = false;
    Lifetime m_lifetime;
};

Size NativeSelectorBar::OwnExtent() const {
    const int thickness =
        MulDiv(GetSystemMetrics(m_isVertical ? SM_CXVSCROLL : SM_CYHSCROLL), Dpi(), ScreenDpi());
    if (m_isVertical) return {thickness, YearTextExtent(Dpi()).height};
    return {3 * thickness, thickness};
}

void NativeSelectorBar::Position(int minimum, int maximum, int value) {
    value = std::clamp(value, minimum, std::max(minimum, maximum));
    if (std::tie(m_minimum, m_maximum, m_value) == std::tie(minimum, maximum, value)) return;
    m_minimum = minimum;
    m_maximum = maximum;
    m_value = value;
    if (!Window()) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_POS;
    info.nMin = minimum;
    info.nMax = maximum;
    info.nPos = value;
    SetScrollInfo(Window(), SB_CTL, &info, TRUE);
}

/// The spinner runs over negated years, the other bar over months behind December 1899.
AccessItem NativeSelectorBar::Described() const {
    if (m_isVertical) {
        return {.role = ROLE_SYSTEM_SPINBUTTON,
                .name = ForReaders("Year"),
                .value = std::to_string(-m_value)};
    }
    const DayNumber month = AddMonths(DayFromCivil(1899, 12, 1), m_value);
    return {.role = ROLE_SYSTEM_SCROLLBAR,
            .state = STATE_SYSTEM_FOCUSABLE,
            .name = ForReaders("Month"),
            .value = std::to_string(MonthOf(month)) + '/' + std::to_string(YearOf(month))};
}

/// The thumb is asked for in 32 bits, as the message has only 16.
int NativeSelectorBar::Wanted(WORD code) const {
    SCROLLINFO info{};
    switch (code) {
        case SB_LINEUP: return m_value - 1;
        case SB_LINEDOWN: return m_value + 1;
        case SB_PAGEUP: return m_value - m_page;
        case SB_PAGEDOWN: return m_value + m_page;
        case SB_TOP: return m_minimum;
        case SB_BOTTOM: return m_maximum;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            return GetScrollInfo(Window(), SB_CTL, &info) ? info.nTrackPos : m_value;
        default: return m_value;
    }
}

void NativeSelectorBar::OnNotification(UINT message, WPARAM w) {
    if (message != WM_COMMAND) Change(Wanted(LOWORD(w)));
}

/// Also at a limit: a year that has been typed may lie before it.
void NativeSelectorBar::Change(int value) {
    if (value == m_value) return;
    m_steps += value - m_value;
    m_changed = Clamped(value);
    Position(m_minimum, m_maximum, m_changed);
    if (std::exchange(m_posted, true)) return;
    Input().Post([this, alive = Lifetime::Watch(m_lifetime)](VmCalendar& calendar) {
        if (alive) (calendar.*m_handler)(TakeChange());
    });
}

/// What the user has changed the value to; as many steps from another value that it has been given
/// since, as by a year that had been typed before.
int NativeSelectorBar::TakeChange() {
    m_posted = false;
    const int steps = std::exchange(m_steps, 0);
    return m_value == m_changed ? m_value : Clamped(m_value + steps);
}

std::optional<LRESULT> NativeSelectorBar::OnMessage(UINT message, WPARAM w, LPARAM) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: CommitEdits(); return std::nullopt;
        case WM_MOUSEWHEEL:
            CommitEdits();
            Change(m_value - GET_WHEEL_DELTA_WPARAM(w) / WHEEL_DELTA);
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:  // the control is told as by the selectors that tell it themselves
            SendMessageW(GetParent(Window()), WM_COMMAND,
                         MAKEWPARAM(0, message == WM_SETFOCUS ? EN_SETFOCUS : EN_KILLFOCUS),
                         reinterpret_cast<LPARAM>(Window()));
            return std::nullopt;
        case WM_CONTEXTMENU: return 0;  // its own menu would outlive a destroyed calendar
        default: return std::nullopt;
    }
}

}  // namespace

std::unique_ptr<ScrollBar> MakeYearSpinner(const ChildSite& site) {
    constexpr int kPage = 10;  // years
    return std::make_unique<NativeSelectorBar>(site, true, kPage, &VmCalendar::OnYearSpinner);
}

std::unique_ptr<ScrollBar> MakeDateScroll(const ChildSite& site) {
    constexpr int kPage = 12;  // months
    return std::make_unique<NativeSelectorBar>(site, false, kPage, &VmCalendar::OnDateScroll);
}

}  // namespace velmora
