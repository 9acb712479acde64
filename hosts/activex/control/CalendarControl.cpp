#include "hosts/activex/control/CalendarControl.h"

#include "hosts/activex/com/ComBag.h"
#include "hosts/activex/win32/WinInput.h"

#include <span>

namespace velmora {

CalendarControl::CalendarControl()
    : ControlFace(kCalendarClass),
      m_calendar({Drawing(), Window(), DateServices(), *this}),
      m_access(Window(), m_calendar),
      m_drops(m_calendar, DateServices(), static_cast<::_VmCalendar&>(*this)) {
    ConnectToCore();
    Relay(m_calendar.Events().Click, 1);
    Relay(m_calendar.Events().DblClick, 4);
}

STDMETHODIMP CalendarControl::get_cboMonthhwnd(long* value) {
    return RunGetter(value, [&](long& out) {
        out = HandleToLong(WinDrawing::WindowOf(m_calendar.cboMonthhwnd()));
    });
}

STDMETHODIMP CalendarControl::put_NoRepaintControl(VARIANT_BOOL value) {
    return RunMember([&] { m_calendar.NoRepaintControl(value != VARIANT_FALSE); });
}

STDMETHODIMP CalendarControl::put_NoResizeControl(VARIANT_BOOL value) {
    return RunMember([&] { m_calendar.NoResizeControl(value != VARIANT_FALSE); });
}

STDMETHODIMP CalendarControl::put_AlwaysDateChanged(VARIANT_BOOL value) {
    return RunMember([&] { m_calendar.AlwaysDateChanged(value != VARIANT_FALSE); });
}

STDMETHODIMP CalendarControl::ReadProps(VARIANT bag) {
    return RunMember([&] { m_calendar.ReadProps(*BagOfClient(bag, Objects())); });
}

STDMETHODIMP CalendarControl::WriteProps(VARIANT bag) {
    return RunMember([&] { m_calendar.WriteProps(*BagOfClient(bag, Objects())); });
}

STDMETHODIMP CalendarControl::SetProps(IDispatch* holder) {
    return RunMember([&] {
        if (!holder) RaiseTypeMismatch();
        m_calendar.SetProps(ComAutomation(*holder, Objects()));
    });
}

void CalendarControl::Paint(HDC context, std::span<const Rect> exposed) {
    if (m_clock) m_clock->OnPaint();
    m_calendar.OnPaint(WinDrawing::SurfaceOf(context), exposed);
}

bool CalendarControl::OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (Window().OnChildMessage(m_calendar, message, w, l, result)) return true;
    const HWND window = Window().Window();
    return window && DispatchInput(m_calendar, window, message, w, l, result);
}

void CalendarControl::OnWindowRecreated() {
    OnDropModeChanged();
    m_calendar.OnWindowRecreated();
    m_clock.reset();
    if (Window().Window()) m_clock.emplace(m_calendar, Window().Window());
}

}  // namespace velmora
