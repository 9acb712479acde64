#pragma once

#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/control/PublishedControl.h"

namespace velmora {

/// `OleDrag` is published, and the core asks its container for it by the same name: the published
/// one has a class of its own.
template <class Interface>
class DragMethod : public Dual<Interface> {
public:
    STDMETHODIMP OleDrag() override { return OnOleDrag(); }

protected:
    virtual HRESULT OnOleDrag() = 0;
};

/// A control as a COM object: its identity, and the published properties that both controls have.
template <class Interface>
class CommonProperties : public DragMethod<Interface>, public PublishedControl {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = Find(iid);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return Count(); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = Uncount();
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP get_DateMax(DATE* value) override { return Get("DateMax", value); }
    STDMETHODIMP put_DateMax(DATE value) override { return Let("DateMax", value); }
    STDMETHODIMP get_DateMin(DATE* value) override { return Get("DateMin", value); }
    STDMETHODIMP put_DateMin(DATE value) override { return Let("DateMin", value); }
    STDMETHODIMP get_DateValue(VARIANT* value) override { return Get("DateValue", value); }
    STDMETHODIMP put_DateValue(VARIANT value) override { return Let("DateValue", value); }
    STDMETHODIMP get_DayAppearance(::VmAppearanceConstants* value) override {
        return Get("DayAppearance", value);
    }
    STDMETHODIMP put_DayAppearance(::VmAppearanceConstants value) override {
        return Let("DayAppearance", value);
    }
    STDMETHODIMP get_DayDefaultBackColor(::OLE_COLOR* value) override {
        return Get("DayDefaultBackColor", value);
    }
    STDMETHODIMP put_DayDefaultBackColor(::OLE_COLOR value) override {
        return Let("DayDefaultBackColor", value);
    }
    STDMETHODIMP get_DayOtherMonthForeColor(::OLE_COLOR* value) override {
        return Get("DayOtherMonthForeColor", value);
    }
    STDMETHODIMP put_DayOtherMonthForeColor(::OLE_COLOR value) override {
        return Let("DayOtherMonthForeColor", value);
    }
    STDMETHODIMP get_DayDefaultForeColor(::OLE_COLOR* value) override {
        return Get("DayDefaultForeColor", value);
    }
    STDMETHODIMP put_DayDefaultForeColor(::OLE_COLOR value) override {
        return Let("DayDefaultForeColor", value);
    }
    STDMETHODIMP get_DayCaptionAlignment(::VmTextAlignmentConstants* value) override {
        return Get("DayCaptionAlignment", value);
    }
    STDMETHODIMP put_DayCaptionAlignment(::VmTextAlignmentConstants value) override {
        return Let("DayCaptionAlignment", value);
    }
    STDMETHODIMP get_DayFont(IFontDisp** value) override { return Get("DayFont", value); }
    STDMETHODIMP put_DayFont(IFontDisp* value) override { return Let("DayFont", value); }
    STDMETHODIMP putref_DayFont(IFontDisp* value) override { return put_DayFont(value); }
    STDMETHODIMP get_DayNumberAlignment(::VmTextAlignmentConstants* value) override {
        return Get("DayNumberAlignment", value);
    }
    STDMETHODIMP put_DayNumberAlignment(::VmTextAlignmentConstants value) override {
        return Let("DayNumberAlignment", value);
    }
    STDMETHODIMP get_DayPictureAlignment(::VmPictureAlignmentConstants* value) override {
        return Get("DayPictureAlignment", value);
    }
    STDMETHODIMP put_DayPictureAlignment(::VmPictureAlignmentConstants value) override {
        return Let("DayPictureAlignment", value);
    }
    STDMETHODIMP get_Days(::_VmDays** value) override {
        const HRESULT got = Get("Days", value);
        if (SUCCEEDED(got)) m_days = *value;
        return got;
    }
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) override { return Get("Enabled", value); }
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) override { return LetFlag("Enabled", value); }
    STDMETHODIMP get_FirstDayOfWeek(::VmWeekDays* value) override {
        return Get("FirstDayOfWeek", value);
    }
    STDMETHODIMP put_FirstDayOfWeek(::VmWeekDays value) override {
        return Let("FirstDayOfWeek", value);
    }
    STDMETHODIMP get_MonthAppearance(::VmAppearanceConstants* value) override {
        return Get("MonthAppearance", value);
    }
    STDMETHODIMP put_MonthAppearance(::VmAppearanceConstants value) override {
        return Let("MonthAppearance", value);
    }
    STDMETHODIMP get_MonthBackColor(::OLE_COLOR* value) override {
        return Get("MonthBackColor", value);
    }
    STDMETHODIMP put_MonthBackColor(::OLE_COLOR value) override {
        return Let("MonthBackColor", value);
    }
    STDMETHODIMP get_MonthDisplay(::VmMonthDisplayConstants* value) override {
        return Get("MonthDisplay", value);
    }
    STDMETHODIMP put_MonthDisplay(::VmMonthDisplayConstants value) override {
        return Let("MonthDisplay", value);
    }
    STDMETHODIMP get_MonthFont(IFontDisp** value) override { return Get("MonthFont", value); }
    STDMETHODIMP put_MonthFont(IFontDisp* value) override { return Let("MonthFont", value); }
    STDMETHODIMP putref_MonthFont(IFontDisp* value) override { return put_MonthFont(value); }
    STDMETHODIMP get_MonthForeColor(::OLE_COLOR* value) override {
        return Get("MonthForeColor", value);
    }
    STDMETHODIMP put_MonthForeColor(::OLE_COLOR value) override {
        return Let("MonthForeColor", value);
    }
    STDMETHODIMP get_MouseIcon(IPictureDisp** value) override { return Get("MouseIcon", value); }
    STDMETHODIMP put_MouseIcon(IPictureDisp* value) override { return Let("MouseIcon", value); }
    STDMETHODIMP putref_MouseIcon(IPictureDisp* value) override { return put_MouseIcon(value); }
    STDMETHODIMP get_MousePointer(short* value) override { return Get("MousePointer", value); }
    STDMETHODIMP put_MousePointer(short value) override { return Let("MousePointer", value); }
    STDMETHODIMP get_SelectedDay(::_VmDay** value) override { return Get("SelectedDay", value); }
    STDMETHODIMP get_SelectedDayBackColor(::OLE_COLOR* value) override {
        return Get("SelectedDayBackColor", value);
    }
    STDMETHODIMP put_SelectedDayBackColor(::OLE_COLOR value) override {
        return Let("SelectedDayBackColor", value);
    }
    STDMETHODIMP get_SelectedDayForeColor(::OLE_COLOR* value) override {
        return Get("SelectedDayForeColor", value);
    }
    STDMETHODIMP put_SelectedDayForeColor(::OLE_COLOR value) override {
        return Let("SelectedDayForeColor", value);
    }
    STDMETHODIMP get_TodayBackColor(::OLE_COLOR* value) override {
        return Get("TodayBackColor", value);
    }
    STDMETHODIMP put_TodayBackColor(::OLE_COLOR value) override {
        return Let("TodayBackColor", value);
    }
    STDMETHODIMP get_TodayForeColor(::OLE_COLOR* value) override {
        return Get("TodayForeColor", value);
    }
    STDMETHODIMP put_TodayForeColor(::OLE_COLOR value) override {
        return Let("TodayForeColor", value);
    }
    STDMETHODIMP get_WeekDayAppearance(::VmAppearanceConstants* value) override {
        return Get("WeekDayAppearance", value);
    }
    STDMETHODIMP put_WeekDayAppearance(::VmAppearanceConstants value) override {
        return Let("WeekDayAppearance", value);
    }
    STDMETHODIMP get_WeekDayBackColor(::OLE_COLOR* value) override {
        return Get("WeekDayBackColor", value);
    }
    STDMETHODIMP put_WeekDayBackColor(::OLE_COLOR value) override {
        return Let("WeekDayBackColor", value);
    }
    STDMETHODIMP get_WeekDayDisplay(::VmWeekDayDisplayConstants* value) override {
        return Get("WeekDayDisplay", value);
    }
    STDMETHODIMP put_WeekDayDisplay(::VmWeekDayDisplayConstants value) override {
        return Let("WeekDayDisplay", value);
    }
    STDMETHODIMP get_WeekDayFont(IFontDisp** value) override { return Get("WeekDayFont", value); }
    STDMETHODIMP put_WeekDayFont(IFontDisp* value) override { return Let("WeekDayFont", value); }
    STDMETHODIMP putref_WeekDayFont(IFontDisp* value) override { return put_WeekDayFont(value); }
    STDMETHODIMP get_WeekDayForeColor(::OLE_COLOR* value) override {
        return Get("WeekDayForeColor", value);
    }
    STDMETHODIMP put_WeekDayForeColor(::OLE_COLOR value) override {
        return Let("WeekDayForeColor", value);
    }
    STDMETHODIMP get_WeekDayCaptionAlignment(::VmTextAlignmentConstants* value) override {
        return Get("WeekDayCaptionAlignment", value);
    }
    STDMETHODIMP put_WeekDayCaptionAlignment(::VmTextAlignmentConstants value) override {
        return Let("WeekDayCaptionAlignment", value);
    }
    STDMETHODIMP get_ShowWeekend(VARIANT_BOOL* value) override { return Get("ShowWeekend", value); }
    STDMETHODIMP put_ShowWeekend(VARIANT_BOOL value) override {
        return LetFlag("ShowWeekend", value);
    }

protected:
    using PublishedControl::PublishedControl;

private:
    void* Find(REFIID iid) {
        auto* const dual = static_cast<Interface*>(this);
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(Interface)) {
            return dual;
        }
        return FindOle(iid);
    }

    /// Kept, so that its clients' event sinks stay connected as long as the control lives.
    Microsoft::WRL::ComPtr<::_VmDays> m_days;
};

}  // namespace velmora
