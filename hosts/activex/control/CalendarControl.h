#pragma once

#include "calendar/VmCalendar.h"
#include "hosts/activex/control/CommonProperties.h"
#include "hosts/activex/control/ControlDrag.h"

namespace velmora {

/// The month calendar as a control: its default interface over the core's calendar.
class CalendarControl final : public CommonProperties<::_VmCalendar> {
public:
    CalendarControl();
    ~CalendarControl() override;

    STDMETHODIMP get_Appearance(::VmAppearanceConstants* value) override {
        return Get("Appearance", value);
    }
    STDMETHODIMP put_Appearance(::VmAppearanceConstants value) override {
        return Let("Appearance", value);
    }
    STDMETHODIMP get_MonthYearSelStyle(::VmMonthYearSelStyleConstants* value) override {
        return Get("MonthYearSelStyle", value);
    }
    STDMETHODIMP put_MonthYearSelStyle(::VmMonthYearSelStyleConstants value) override {
        return Let("MonthYearSelStyle", value);
    }
    STDMETHODIMP get_hWnd(long* value) override;
    STDMETHODIMP get_cboMonthhwnd(long* value) override;
    STDMETHODIMP get_OLEDropMode(::VmOLEDropModeConstants* value) override;
    STDMETHODIMP put_OLEDropMode(::VmOLEDropModeConstants value) override;
    STDMETHODIMP put_NoRepaintControl(VARIANT_BOOL value) override;
    STDMETHODIMP put_NoResizeControl(VARIANT_BOOL value) override;
    STDMETHODIMP put_AlwaysDateChanged(VARIANT_BOOL value) override;
    STDMETHODIMP ReadProps(VARIANT bag) override;
    STDMETHODIMP WriteProps(VARIANT bag) override;
    STDMETHODIMP SetProps(IDispatch* holder) override;
    STDMETHODIMP RepaintControl() override;
    STDMETHODIMP AboutBox() override;

private:
    AutomationObject& Core() override { return m_calendar; }

    void InitProperties() override { m_calendar.InitProperties(); }
    void ReadProperties(PropertyBag& bag) override { m_calendar.ReadProps(bag); }
    void WriteProperties(PropertyBag& bag) override { m_calendar.WriteProps(bag); }
    void Paint(HDC context, std::span<const Rect> exposed) override;
    bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void OnWindowChanged() override;
    void OnWindowRecreated() override;
    void OnAmbientChanged() override;
    void OnDropModeChanged() override;
    bool WantsKey(WORD virtualKey, bool inChild) const override;
    HRESULT OnOleDrag() override;
    void Drag() override;
    void OnFontChanged(const FontRef& font);
    void ConnectEvents();
    void ConnectDragEvents();

    VmCalendar m_calendar;
    DropRegistration<VmCalendar> m_drops;
    bool m_dragging = false;
};

}  // namespace velmora
