#include "hosts/activex/control/CalendarControl.h"

#include "hosts/activex/com/ComBag.h"
#include "hosts/activex/win32/WinInput.h"

#include <span>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kFonts[] = {"DayFont", "MonthFont", "WeekDayFont"};

}  // namespace

CalendarControl::CalendarControl()
    : CommonProperties(kCalendarClass),
      m_calendar({Drawing(), Window(), DateServices(), *this}),
      m_drops(m_calendar, static_cast<::_VmCalendar&>(*this)) {
    ConnectEvents();
    ConnectDragEvents();
    Objects().Fonts().WhenFontChanges([this](const FontRef& font) { OnFontChanged(font); });
}

CalendarControl::~CalendarControl() { Objects().Fonts().WhenFontChanges(nullptr); }

void CalendarControl::ConnectEvents() {
    CalendarEvents& events = m_calendar.Events();
    Relay(events.Click, 1);
    Relay(events.DateChanged, 2);
    Relay(events.DayChanged, 3);
    Relay(events.DblClick, 4);
    Relay(events.KeyUp, 5);
    Relay(events.KeyPress, 6);
    Relay(events.KeyDown, 7);
    Relay(events.MonthChanged, 8);
    Relay(events.MouseDown, 9);
    Relay(events.MouseMove, 10);
    Relay(events.MouseUp, 11);
    Relay(events.YearChanged, 18);
}

void CalendarControl::ConnectDragEvents() {
    CalendarEvents& events = m_calendar.Events();
    Relay(events.OLECompleteDrag, 12);
    Relay(events.OLEDragDrop, 13);
    Relay(events.OLEDragOver, 14);
    Relay(events.OLEGiveFeedback, 15);
    Relay(events.OLESetData, 16);
    Relay(events.OLEStartDrag, 17);
}

// Published members.

STDMETHODIMP CalendarControl::get_hWnd(long* value) {
    return Give(value, [&](long& out) { out = HandleToLong(Window().Window()); });
}

STDMETHODIMP CalendarControl::get_cboMonthhwnd(long* value) {
    return Give(value, [&](long& out) {
        out = HandleToLong(WinDrawing::WindowOf(m_calendar.cboMonthhwnd()));
    });
}

STDMETHODIMP CalendarControl::get_OLEDropMode(::VmOLEDropModeConstants* value) {
    return Give(value, [&](auto& out) {
        out = static_cast<::VmOLEDropModeConstants>(m_calendar.OLEDropMode());
    });
}

STDMETHODIMP CalendarControl::put_OLEDropMode(::VmOLEDropModeConstants value) {
    return Do([&] { m_calendar.OLEDropMode(static_cast<velmora::VmOLEDropModeConstants>(value)); });
}

STDMETHODIMP CalendarControl::put_NoRepaintControl(VARIANT_BOOL value) {
    return Do([&] { m_calendar.NoRepaintControl(value != VARIANT_FALSE); });
}

STDMETHODIMP CalendarControl::put_NoResizeControl(VARIANT_BOOL value) {
    return Do([&] { m_calendar.NoResizeControl(value != VARIANT_FALSE); });
}

STDMETHODIMP CalendarControl::put_AlwaysDateChanged(VARIANT_BOOL value) {
    return Do([&] { m_calendar.AlwaysDateChanged(value != VARIANT_FALSE); });
}

STDMETHODIMP CalendarControl::ReadProps(VARIANT bag) {
    return Do([&] { m_calendar.ReadProps(*BagOfClient(bag, Objects())); });
}

STDMETHODIMP CalendarControl::WriteProps(VARIANT bag) {
    return Do([&] { m_calendar.WriteProps(*BagOfClient(bag, Objects())); });
}

STDMETHODIMP CalendarControl::SetProps(IDispatch* holder) {
    return Do([&] {
        if (!holder) RaiseTypeMismatch();
        m_calendar.SetProps(ComAutomation(*holder, Objects()));
    });
}

STDMETHODIMP CalendarControl::RepaintControl() {
    return Do([&] { m_calendar.RepaintControl(); });
}

STDMETHODIMP CalendarControl::AboutBox() {
    return Do([&] { m_calendar.AboutBox(); });
}

HRESULT CalendarControl::OnOleDrag() {
    return Do([&] { m_calendar.OleDrag(); });
}

// What the shell and the core tell.

void CalendarControl::Drag() {
    if (std::exchange(m_dragging, true)) return;
    const Hold hold(*this);
    ReleaseCapture();  // the drag takes the release
    m_calendar.OnCaptureLost();
    const Variant text = m_calendar.DateValue();
    try {
        DragFrom(m_calendar, *text.As<std::string>());
    } catch (...) {
        m_dragging = false;
        throw;
    }
    m_dragging = false;
}

void CalendarControl::OnFontChanged(const FontRef& font) {
    const Hold hold(*this);
    for (const std::string_view name : kFonts) {
        if (m_calendar.GetMember(name) == Variant(ObjectRef(font))) PropertyChanged(name);
    }
    m_calendar.RepaintControl();
}

void CalendarControl::Paint(HDC context, std::span<const Rect> exposed) {
    m_calendar.OnPaint(WinDrawing::SurfaceOf(context), exposed);
}

bool CalendarControl::OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (Window().OnChildMessage(m_calendar, message, w, l, result)) return true;
    const HWND window = Window().Window();
    return window && DispatchInput(m_calendar, window, message, w, l, result);
}

void CalendarControl::OnWindowChanged() { m_calendar.OnWindowChanged(); }

void CalendarControl::OnWindowRecreated() {
    OnDropModeChanged();
    m_calendar.OnWindowRecreated();
}

void CalendarControl::OnAmbientChanged() { m_calendar.OnLocaleChanged(); }

void CalendarControl::OnDropModeChanged() {
    const bool takes = Window().OLEDropMode() != DROPEFFECT_NONE && IsUserMode();
    m_drops.Follow(takes ? Window().Window() : nullptr);
}

bool CalendarControl::WantsKey(WORD virtualKey, bool inChild) const {
    switch (virtualKey) {
        case VK_LEFT:
        case VK_RIGHT:
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT: return true;
        case VK_HOME:
        case VK_END:
        case VK_RETURN:
        case VK_ESCAPE:
        case VK_F4: return inChild;  // the month list's and the year box's
        default: return false;
    }
}

}  // namespace velmora
