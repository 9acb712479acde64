#include "hosts/activex/win32/NativeChildren.h"
#include "hosts/activex/win32/StandIns.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinText.h"
#include "hosts/activex/win32/WinTexts.h"
#include "platform/Keys.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr int kFrameHeight = 8;  // of a closed list, besides a line of text
constexpr int kPadding = 12;     // frame and the room around the text

class NativeMonthList final : public ComboBox, public NativeChild {
public:
    explicit NativeMonthList(const ChildSite& site)
        : NativeChild(site, L"COMBOBOX",
                      CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP),
          m_font(site.dpi) {
        if (Window()) Send(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.Get()));
        MeasureHeight();
    }

    WindowHandle Handle() const override { return WinDrawing::HandleOf(Window()); }
    Size Extent() const override { return m_extent; }
    void Move(const Rect& rect) override { MoveTo(rect); }
    void Visible(bool visible) override { Show(visible); }
    void Items(std::span<const std::string> items) override;
    int ListIndex() const override;
    void ListIndex(int index) override;
    bool DroppedDown() const override { return Window() && Send(CB_GETDROPPEDSTATE) != 0; }

    void Paint(HDC context) const override;
    void OnNotification(UINT message, WPARAM w) override;

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;
    int WindowHeight(const Rect& place) const override;
    AccessItem Described() const override;

private:
    void Act(std::size_t) override { Send(CB_SHOWDROPDOWN, !DroppedDown()); }
    std::wstring Shown() const;
    void PostChoice();
    void MeasureHeight();

    const ChildFont m_font;
    std::vector<std::wstring> m_items;
    Size m_extent;
    int m_index = -1;   // without a window
    int m_chosen = -1;  // by the user, and not yet told
    Lifetime m_lifetime;
};

/// A window of that class knows the height of its closed list.
void NativeMonthList::MeasureHeight() {
    RECT closed{};
    if (Window()) GetWindowRect(Window(), &closed);
    const LONG height = closed.bottom - closed.top;
    m_extent.height = height > 0 ? height : m_font.Measure(L"0").cy + kFrameHeight;
}

void NativeMonthList::Items(std::span<const std::string> items) {
    m_items.clear();
    m_extent.width = 0;
    for (const std::string& item : items) {
        m_items.push_back(ToWide(item));
        m_extent.width = std::max<int>(m_extent.width, m_font.Measure(m_items.back()).cx);
    }
    m_extent.width += GetSystemMetrics(SM_CXVSCROLL) + kPadding;
    if (!Window()) return;
    Send(CB_RESETCONTENT);
    for (const std::wstring& item : m_items) {
        Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
}

/// The height that a combo box is given is that of its open list.
int NativeMonthList::WindowHeight(const Rect& place) const {
    const auto item = static_cast<int>(Send(CB_GETITEMHEIGHT));
    return place.Height() + item * static_cast<int>(m_items.size()) + 2;
}

int NativeMonthList::ListIndex() const {
    return Window() ? static_cast<int>(Send(CB_GETCURSEL)) : m_index;
}

void NativeMonthList::ListIndex(int index) {
    m_index = index;
    if (Window() && ListIndex() != index) Send(CB_SETCURSEL, static_cast<WPARAM>(index));
}

/// The chosen month; nothing without one.
std::wstring NativeMonthList::Shown() const {
    const auto index = static_cast<std::size_t>(ListIndex());
    return index < m_items.size() ? m_items[index] : std::wstring();
}

AccessItem NativeMonthList::Described() const {
    const bool open = DroppedDown();
    return {.role = ROLE_SYSTEM_COMBOBOX,
            .state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_HASPOPUP |
                     (open ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED),
            .name = ForReaders("Month"),
            .value = ToUtf8(Shown()),
            .action = open ? "Close" : "Open"};
}

void NativeMonthList::Paint(HDC context) const {
    PaintComboBox(context, Place(), m_font.Get(), Shown(), IsRightToLeft());
}

/// A choice made by the mouse is told after the closing of the list, one made by the keys before.
void NativeMonthList::OnNotification(UINT, WPARAM w) {
    switch (HIWORD(w)) {
        case CBN_SETFOCUS:
        case CBN_DROPDOWN: Input().Post(&VmCalendar::OnSelectorEnter); break;
        case CBN_KILLFOCUS: Input().Post(&VmCalendar::OnSelectorLeave); break;
        case CBN_SELCHANGE:
            m_chosen = ListIndex();
            PostChoice();
            break;
        case CBN_CLOSEUP: PostChoice(); break;
        case CBN_SELENDCANCEL:
            if (DroppedDown() && std::exchange(m_chosen, -1) >= 0) ListIndex(m_index);
            break;
        default: break;
    }
}

/// It counts when the list is closed.
void NativeMonthList::PostChoice() {
    Input().Post([this, alive = Lifetime::Watch(m_lifetime)](VmCalendar& calendar) {
        if (!alive || m_chosen < 0 || DroppedDown()) return;
        calendar.OnMonthListClick(std::exchange(m_chosen, -1));
    });
}

/// The Enter that closes the list is a choice and no key of its own.
std::optional<LRESULT> NativeMonthList::OnMessage(UINT message, WPARAM w, LPARAM) {
    const auto key = static_cast<std::int16_t>(w);
    if (message == WM_KEYDOWN && (key == kKeyEscape || (key == kKeyEnter && !DroppedDown()))) {
        Input().Post(&VmCalendar::OnMonthListKeyDown, key);
    }
    if (message == WM_KEYUP && key == kKeyEscape) {
        Input().Post(&VmCalendar::OnMonthListKeyUp, key);
    }
    return std::nullopt;
}

}  // namespace

std::unique_ptr<ComboBox> MakeMonthList(const ChildSite& site) {
    return std::make_unique<NativeMonthList>(site);
}

}  // namespace velmora
