#pragma once

#include "dropdown/VmCalDropDown.h"
#include "hosts/activex/access/BoxAccess.h"
#include "hosts/activex/control/ControlFace.h"
#include "hosts/activex/win32/WinFormWindow.h"

namespace velmora {

/// The date box as a control: its default interface over the core's box.
class DropDownControl final : public ControlFace<::_VmCalDropDown, VmCalDropDown> {
public:
    DropDownControl();

    STDMETHODIMP get_DropDownAppearance(::VmAppearanceConstants* value) override {
        return GetRow(kAppearance, value);
    }
    STDMETHODIMP put_DropDownAppearance(::VmAppearanceConstants value) override {
        return LetRow(kAppearance, value);
    }
    VALUE(0, DateFormat, BSTR, "")
    VALUE(0, MonthYearSelStyle, VmDDMonthYearSelStyleConstants, "")
    OBJECT(0, ComboFont, IFontDisp, "")
    VALUE(0, DropDownAlignment, VmDropDownAlignmentConstants, "")
    STDMETHODIMP get_DropDownHeight(long* value) override { return GetRow(kDropDownHeight, value); }
    STDMETHODIMP put_DropDownHeight(long value) override { return LetRow(kDropDownHeight, value); }
    STDMETHODIMP get_DropDownWidth(long* value) override { return GetRow(kDropDownWidth, value); }
    STDMETHODIMP put_DropDownWidth(long value) override { return LetRow(kDropDownWidth, value); }
    STDMETHODIMP get_DropDownState(VARIANT_BOOL* value) override {
        return GetRow(kDropDownState, value);
    }
    STDMETHODIMP put_DropDownState(VARIANT_BOOL value) override;
    STDMETHODIMP put_NoLostFocus(VARIANT_BOOL value) override;
    STDMETHODIMP MouseDown(short* button, short* shift, float* x, float* y) override;
    STDMETHODIMP MouseMove(short* button, short* shift, float* x, float* y) override;
    STDMETHODIMP MouseUp(short* button, short* shift, float* x, float* y) override;

private:
    VmCalDropDown& Control() override { return m_box; }
    const VmCalDropDown& Control() const override { return m_box; }
    DropRegistration<VmCalDropDown>& Drops() override { return m_drops; }
    WindowAccess& Access() override { return m_access; }

    void Paint(HDC context, std::span<const Rect> exposed) override;
    bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    LRESULT GiveText(UINT message, WPARAM size, LPARAM buffer) const;
    void OnWindowRecreated() override;
    void OnFontChanged(const FontRef& font) override;
    std::string_view PropertyOfKey(std::string_view key) const override;

    std::shared_ptr<WinFormWindow> m_form;
    VmCalDropDown m_box;
    BoxAccess m_access;
    DropRegistration<VmCalDropDown> m_drops;
};

}  // namespace velmora
