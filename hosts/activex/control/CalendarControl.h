#pragma once

#include "calendar/VmCalendar.h"
#include "hosts/activex/access/CalendarAccess.h"
#include "hosts/activex/control/ControlFace.h"
#include "hosts/activex/win32/WinClock.h"

#include <optional>

namespace velmora {

/// The month calendar as a control: its default interface over the core's calendar.
class CalendarControl final : public ControlFace<::_VmCalendar, VmCalendar> {
public:
    CalendarControl();

    VALUE(0, Appearance, VmAppearanceConstants, "")
    VALUE(0, MonthYearSelStyle, VmMonthYearSelStyleConstants, "")
    STDMETHODIMP get_cboMonthhwnd(long* value) override;
    STDMETHODIMP put_NoRepaintControl(VARIANT_BOOL value) override;
    STDMETHODIMP put_NoResizeControl(VARIANT_BOOL value) override;
    STDMETHODIMP put_AlwaysDateChanged(VARIANT_BOOL value) override;
    STDMETHODIMP ReadProps(VARIANT bag) override;
    STDMETHODIMP WriteProps(VARIANT bag) override;
    STDMETHODIMP SetProps(IDispatch* holder) override;

private:
    VmCalendar& Control() override { return m_calendar; }
    const VmCalendar& Control() const override { return m_calendar; }
    DropRegistration<VmCalendar>& Drops() override { return m_drops; }
    WindowAccess& Access() override { return m_access; }

    void Paint(HDC context, std::span<const Rect> exposed) override;
    bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void OnWindowRecreated() override;

    VmCalendar m_calendar;
    CalendarAccess m_access;
    DropRegistration<VmCalendar> m_drops;
    std::optional<WinClock> m_clock;  // while there is a window
};

}  // namespace velmora
