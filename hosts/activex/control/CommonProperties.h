#pragma once

#include "hosts/activex/control/PublishedControl.h"

namespace velmora {

/// The published properties that both controls have.
template <class Interface>
class CommonProperties : public PublishedControl<Interface> {
public:
    STDMETHODIMP get_DateMax(DATE* value) override { return this->Get("DateMax", value); }
    STDMETHODIMP put_DateMax(DATE value) override { return this->Let("DateMax", value); }
    STDMETHODIMP get_DateMin(DATE* value) override { return this->Get("DateMin", value); }
    STDMETHODIMP put_DateMin(DATE value) override { return this->Let("DateMin", value); }
    STDMETHODIMP get_DateValue(VARIANT* value) override { return this->Get("DateValue", value); }
    STDMETHODIMP put_DateValue(VARIANT value) override { return this->Let("DateValue", value); }
    STDMETHODIMP get_DayAppearance(::VmAppearanceConstants* value) override {
        return this->Get("DayAppearance", value);
    }
    STDMETHODIMP put_DayAppearance(::VmAppearanceConstants value) override {
        return this->Let("DayAppearance", value);
    }
    STDMETHODIMP get_DayDefaultBackColor(::OLE_COLOR* value) override {
        return this->Get("DayDefaultBackColor", value);
    }
    STDMETHODIMP put_DayDefaultBackColor(::OLE_COLOR value) override {
        return this->Let("DayDefaultBackColor", value);
    }
    STDMETHODIMP get_DayOtherMonthForeColor(::OLE_COLOR* value) override {
        return this->Get("DayOtherMonthForeColor", value);
    }
    STDMETHODIMP put_DayOtherMonthForeColor(::OLE_COLOR value) override {
        return this->Let("DayOtherMonthForeColor", value);
    }
    STDMETHODIMP get_DayDefaultForeColor(::OLE_COLOR* value) override {
        return this->Get("DayDefaultForeColor", value);
    }
    STDMETHODIMP put_DayDefaultForeColor(::OLE_COLOR value) override {
        return this->Let("DayDefaultForeColor", value);
    }
    STDMETHODIMP get_DayCaptionAlignment(::VmTextAlignmentConstants* value) override {
        return this->Get("DayCaptionAlignment", value);
    }
    STDMETHODIMP put_DayCaptionAlignment(::VmTextAlignmentConstants value) override {
        return this->Let("DayCaptionAlignment", value);
    }
    STDMETHODIMP get_DayFont(IFontDisp** value) override { return this->Get("DayFont", value); }
    STDMETHODIMP put_DayFont(IFontDisp* value) override { return this->Let("DayFont", value); }
    STDMETHODIMP putref_DayFont(IFontDisp* value) override { return put_DayFont(value); }
    STDMETHODIMP get_DayNumberAlignment(::VmTextAlignmentConstants* value) override {
        return this->Get("DayNumberAlignment", value);
    }
    STDMETHODIMP put_DayNumberAlignment(::VmTextAlignmentConstants value) override {
        return this->Let("DayNumberAlignment", value);
    }
    STDMETHODIMP get_DayPictureAlignment(::VmPictureAlignmentConstants* value) override {
        return this->Get("DayPictureAlignment", value);
    }
    STDMETHODIMP put_DayPictureAlignment(::VmPictureAlignmentConstants value) override {
        return this->Let("DayPictureAlignment", value);
    }
    STDMETHODIMP get_Days(::_VmDays** value) override {
        const HRESULT got = this->Get("Days", value);
        if (SUCCEEDED(got)) m_days = *value;
        return got;
    }
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) override { return this->Get("Enabled", value); }
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) override {
        return this->LetFlag("Enabled", value);
    }
    STDMETHODIMP get_FirstDayOfWeek(::VmWeekDays* value) override {
        return this->Get("FirstDayOfWeek", value);
    }
    STDMETHODIMP put_FirstDayOfWeek(::VmWeekDays value) override {
        return this->Let("FirstDayOfWeek", value);
    }
    STDMETHODIMP get_MonthAppearance(::VmAppearanceConstants* value) override {
        return this->Get("MonthAppearance", value);
    }
    STDMETHODIMP put_MonthAppearance(::VmAppearanceConstants value) override {
        return this->Let("MonthAppearance", value);
    }
    STDMETHODIMP get_MonthBackColor(::OLE_COLOR* value) override {
        return this->Get("MonthBackColor", value);
    }
    STDMETHODIMP put_MonthBackColor(::OLE_COLOR value) override {
        return this->Let("MonthBackColor", value);
    }
    STDMETHODIMP get_MonthDisplay(::VmMonthDisplayConstants* value) override {
        return this->Get("MonthDisplay", value);
    }
    STDMETHODIMP put_MonthDisplay(::VmMonthDisplayConstants value) override {
        return this->Let("MonthDisplay", value);
    }
    STDMETHODIMP get_MonthFont(IFontDisp** value) override { return this->Get("MonthFont", value); }
    STDMETHODIMP put_MonthFont(IFontDisp* value) override { return this->Let("MonthFont", value); }
    STDMETHODIMP putref_MonthFont(IFontDisp* value) override { return put_MonthFont(value); }
    STDMETHODIMP get_MonthForeColor(::OLE_COLOR* value) override {
        return this->Get("MonthForeColor", value);
    }
    STDMETHODIMP put_MonthForeColor(::OLE_COLOR value) override {
        return this->Let("MonthForeColor", value);
    }
    STDMETHODIMP get_MouseIcon(IPictureDisp** value) override {
        return this->Get("MouseIcon", value);
    }
    STDMETHODIMP put_MouseIcon(IPictureDisp* value) override {
        return this->Let("MouseIcon", value);
    }
    STDMETHODIMP putref_MouseIcon(IPictureDisp* value) override { return put_MouseIcon(value); }
    STDMETHODIMP get_MousePointer(short* value) override {
        return this->Get("MousePointer", value);
    }
    STDMETHODIMP put_MousePointer(short value) override { return this->Let("MousePointer", value); }
    STDMETHODIMP get_SelectedDay(::_VmDay** value) override {
        return this->Get("SelectedDay", value);
    }
    STDMETHODIMP get_SelectedDayBackColor(::OLE_COLOR* value) override {
        return this->Get("SelectedDayBackColor", value);
    }
    STDMETHODIMP put_SelectedDayBackColor(::OLE_COLOR value) override {
        return this->Let("SelectedDayBackColor", value);
    }
    STDMETHODIMP get_SelectedDayForeColor(::OLE_COLOR* value) override {
        return this->Get("SelectedDayForeColor", value);
    }
    STDMETHODIMP put_SelectedDayForeColor(::OLE_COLOR value) override {
        return this->Let("SelectedDayForeColor", value);
    }
    STDMETHODIMP get_TodayBackColor(::OLE_COLOR* value) override {
        return this->Get("TodayBackColor", value);
    }
    STDMETHODIMP put_TodayBackColor(::OLE_COLOR value) override {
        return this->Let("TodayBackColor", value);
    }
    STDMETHODIMP get_TodayForeColor(::OLE_COLOR* value) override {
        return this->Get("TodayForeColor", value);
    }
    STDMETHODIMP put_TodayForeColor(::OLE_COLOR value) override {
        return this->Let("TodayForeColor", value);
    }
    STDMETHODIMP get_WeekDayAppearance(::VmAppearanceConstants* value) override {
        return this->Get("WeekDayAppearance", value);
    }
    STDMETHODIMP put_WeekDayAppearance(::VmAppearanceConstants value) override {
        return this->Let("WeekDayAppearance", value);
    }
    STDMETHODIMP get_WeekDayBackColor(::OLE_COLOR* value) override {
        return this->Get("WeekDayBackColor", value);
    }
    STDMETHODIMP put_WeekDayBackColor(::OLE_COLOR value) override {
        return this->Let("WeekDayBackColor", value);
    }
    STDMETHODIMP get_WeekDayDisplay(::VmWeekDayDisplayConstants* value) override {
        return this->Get("WeekDayDisplay", value);
    }
    STDMETHODIMP put_WeekDayDisplay(::VmWeekDayDisplayConstants value) override {
        return this->Let("WeekDayDisplay", value);
    }
    STDMETHODIMP get_WeekDayFont(IFontDisp** value) override {
        return this->Get("WeekDayFont", value);
    }
    STDMETHODIMP put_WeekDayFont(IFontDisp* value) override {
        return this->Let("WeekDayFont", value);
    }
    STDMETHODIMP putref_WeekDayFont(IFontDisp* value) override { return put_WeekDayFont(value); }
    STDMETHODIMP get_WeekDayForeColor(::OLE_COLOR* value) override {
        return this->Get("WeekDayForeColor", value);
    }
    STDMETHODIMP put_WeekDayForeColor(::OLE_COLOR value) override {
        return this->Let("WeekDayForeColor", value);
    }
    STDMETHODIMP get_WeekDayCaptionAlignment(::VmTextAlignmentConstants* value) override {
        return this->Get("WeekDayCaptionAlignment", value);
    }
    STDMETHODIMP put_WeekDayCaptionAlignment(::VmTextAlignmentConstants value) override {
        return this->Let("WeekDayCaptionAlignment", value);
    }
    STDMETHODIMP get_ShowWeekend(VARIANT_BOOL* value) override {
        return this->Get("ShowWeekend", value);
    }
    STDMETHODIMP put_ShowWeekend(VARIANT_BOOL value) override {
        return this->LetFlag("ShowWeekend", value);
    }

protected:
    using PublishedControl<Interface>::PublishedControl;

private:
    /// Kept, so that its clients' event sinks stay connected as long as the control lives.
    Microsoft::WRL::ComPtr<::_VmDays> m_days;
};

}  // namespace velmora
