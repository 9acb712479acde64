#pragma once

#include "dropdown/VmCalDropDown.h"
#include "hosts/activex/control/CommonProperties.h"
#include "hosts/activex/control/ControlDrag.h"
#include "hosts/activex/win32/WinFormWindow.h"

namespace velmora {

/// The date box as a control: its default interface over the core's box.
class DropDownControl final : public CommonProperties<::_VmCalDropDown> {
public:
    DropDownControl();
    ~DropDownControl() override;

    STDMETHODIMP get_DropDownAppearance(::VmAppearanceConstants* value) override {
        return Get("DropDownAppearance", value);
    }
    STDMETHODIMP put_DropDownAppearance(::VmAppearanceConstants value) override {
        return Let("DropDownAppearance", value);
    }
    STDMETHODIMP get_DateFormat(BSTR* value) override { return Get("DateFormat", value); }
    STDMETHODIMP put_DateFormat(BSTR value) override { return Let("DateFormat", value); }
    STDMETHODIMP get_MonthYearSelStyle(::VmDDMonthYearSelStyleConstants* value) override {
        return Get("MonthYearSelStyle", value);
    }
    STDMETHODIMP put_MonthYearSelStyle(::VmDDMonthYearSelStyleConstants value) override {
        return Let("MonthYearSelStyle", value);
    }
    STDMETHODIMP get_ComboFont(IFontDisp** value) override { return Get("ComboFont", value); }
    STDMETHODIMP put_ComboFont(IFontDisp* value) override { return Let("ComboFont", value); }
    STDMETHODIMP putref_ComboFont(IFontDisp* value) override { return put_ComboFont(value); }
    STDMETHODIMP get_DropDownAlignment(::VmDropDownAlignmentConstants* value) override {
        return Get("DropDownAlignment", value);
    }
    STDMETHODIMP put_DropDownAlignment(::VmDropDownAlignmentConstants value) override {
        return Let("DropDownAlignment", value);
    }
    STDMETHODIMP get_DropDownHeight(long* value) override { return Get("DropDownHeight", value); }
    STDMETHODIMP put_DropDownHeight(long value) override { return Let("DropDownHeight", value); }
    STDMETHODIMP get_DropDownWidth(long* value) override { return Get("DropDownWidth", value); }
    STDMETHODIMP put_DropDownWidth(long value) override { return Let("DropDownWidth", value); }
    STDMETHODIMP get_DropDownState(VARIANT_BOOL* value) override;
    STDMETHODIMP put_DropDownState(VARIANT_BOOL value) override;
    STDMETHODIMP get_hWnd(long* value) override;
    STDMETHODIMP get_OLEDropMode(::VmOLEDropModeConstants* value) override;
    STDMETHODIMP put_OLEDropMode(::VmOLEDropModeConstants value) override;
    STDMETHODIMP put_NoLostFocus(VARIANT_BOOL value) override;
    STDMETHODIMP RepaintControl() override;
    STDMETHODIMP MouseDown(short* button, short* shift, float* x, float* y) override;
    STDMETHODIMP MouseMove(short* button, short* shift, float* x, float* y) override;
    STDMETHODIMP MouseUp(short* button, short* shift, float* x, float* y) override;
    STDMETHODIMP AboutBox() override;

private:
    AutomationObject& Core() override { return m_box; }

    void InitProperties() override { m_box.InitProperties(); }
    void ReadProperties(PropertyBag& bag) override { m_box.ReadProps(bag); }
    void WriteProperties(PropertyBag& bag) override { m_box.WriteProps(bag); }
    void Paint(HDC context, std::span<const Rect> exposed) override;
    bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    void OnWindowChanged() override;
    void OnWindowRecreated() override;
    void OnAmbientChanged() override;
    void OnDropModeChanged() override;
    std::string_view PropertyOfKey(std::string_view key) const override;
    bool WantsKey(WORD virtualKey, bool inChild) const override;
    HRESULT OnOleDrag() override;
    void Drag() override;
    void OnFontChanged(const FontRef& font);
    void ConnectEvents();
    void ConnectDragEvents();

    std::shared_ptr<WinFormWindow> m_form;
    VmCalDropDown m_box;
    DropRegistration<VmCalDropDown> m_drops;
    bool m_dragging = false;
};

}  // namespace velmora
