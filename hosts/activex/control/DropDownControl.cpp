#include "hosts/activex/control/DropDownControl.h"

#include "hosts/activex/win32/WinInput.h"
#include "hosts/activex/win32/WinText.h"

#include <span>

namespace velmora {
namespace {

using MouseMember = void (VmCalDropDown::*)(std::int16_t, std::int16_t, float, float);

void CallMouse(VmCalDropDown& box, MouseMember member, const short* button, const short* shift,
               const float* x, const float* y) {
    if (!button || !shift || !x || !y) throw ComFailure(E_POINTER, "Invalid pointer");
    (box.*member)(*button, *shift, *x, *y);
}

}  // namespace

DropDownControl::DropDownControl()
    : ControlFace(kDropDownClass),
      m_form(ThreadDropDownForm()),
      m_box({Drawing(), Window(), DateServices(), *this}, m_form->Form()),
      m_access(Window(), m_box, *m_form),
      m_drops(m_box, DateServices(), static_cast<::_VmCalDropDown&>(*this)) {
    m_box.Events().DropDown.Connect([this](bool&) {
        m_form->Follow(AmbientFont(), std::make_shared<DateLocale>(DateServices().Locale()),
                       Window().IsRightToLeft());
        m_box.KeepDropDownOnScreen(KeepsDropDownOnScreen());
    });
    m_box.Events().DropDown.Connect([this](bool&) { m_access.Changed(); });
    m_box.Events().CloseUp.Connect([this] { m_access.Changed(); });
    ConnectToCore();
    Relay(m_box.Events().CloseUp, 1);
    Relay(m_box.Events().DropDown, 4);
}

/// No published property that somebody could refuse the change of.
STDMETHODIMP DropDownControl::put_DropDownState(VARIANT_BOOL value) {
    return RunMember([&] { m_box.DropDownState(value != VARIANT_FALSE); });
}

STDMETHODIMP DropDownControl::put_NoLostFocus(VARIANT_BOOL value) {
    return RunMember([&] { m_box.NoLostFocus(value != VARIANT_FALSE); });
}

STDMETHODIMP DropDownControl::MouseDown(short* button, short* shift, float* x, float* y) {
    return RunMember([&] { CallMouse(m_box, &VmCalDropDown::MouseDown, button, shift, x, y); });
}

STDMETHODIMP DropDownControl::MouseMove(short* button, short* shift, float* x, float* y) {
    return RunMember([&] { CallMouse(m_box, &VmCalDropDown::MouseMove, button, shift, x, y); });
}

STDMETHODIMP DropDownControl::MouseUp(short* button, short* shift, float* x, float* y) {
    return RunMember([&] { CallMouse(m_box, &VmCalDropDown::MouseUp, button, shift, x, y); });
}

void DropDownControl::OnFontChanged(const FontRef& font) {
    const Hold hold(*this);
    AnnounceFont(font, BoxSlots());
    ControlFace::OnFontChanged(font);
    if (m_form->Form().GetOwner() == &m_box) m_form->Form().Calendar().RepaintControl();
}

void DropDownControl::Paint(HDC context, std::span<const Rect>) {
    m_box.OnPaint(WinDrawing::SurfaceOf(context));
}

/// The window's text is the one that it shows.
LRESULT DropDownControl::GiveText(UINT message, WPARAM size, LPARAM buffer) const {
    const std::wstring text = ToWide(m_box.Text());
    if (message == WM_GETTEXTLENGTH) return static_cast<LRESULT>(text.size());
    if (size == 0) return 0;
    auto* const out = reinterpret_cast<wchar_t*>(buffer);
    const std::size_t copied = text.copy(out, size - 1);
    out[copied] = L'\0';
    return static_cast<LRESULT>(copied);
}

bool DropDownControl::OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_GETTEXT || message == WM_GETTEXTLENGTH) {
        result = GiveText(message, w, l);
        return true;
    }
    const HWND window = Window().Window();
    return window && DispatchInput(m_box, window, message, w, l, result);
}

void DropDownControl::OnWindowRecreated() {
    OnDropModeChanged();
    m_box.OnWindowChanged();
}

std::string_view DropDownControl::PropertyOfKey(std::string_view key) const {
    return NameOfKey(BoxOrder(), key);
}

}  // namespace velmora
