#include "hosts/activex/control/DropDownControl.h"

#include "hosts/activex/win32/WinInput.h"

#include <span>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kFonts[] = {"ComboFont", "DayFont", "MonthFont", "WeekDayFont"};

using MouseMember = void (VmCalDropDown::*)(std::int16_t, std::int16_t, float, float);

void CallMouse(VmCalDropDown& box, MouseMember member, const short* button, const short* shift,
               const float* x, const float* y) {
    if (!button || !shift || !x || !y) throw ComFailure(E_POINTER, "Invalid pointer");
    (box.*member)(*button, *shift, *x, *y);
}

}  // namespace

DropDownControl::DropDownControl()
    : CommonProperties(kDropDownClass),
      m_form(ThreadDropDownForm()),
      m_box({Drawing(), Window(), DateServices(), *this}, m_form->Form()),
      m_drops(m_box, static_cast<::_VmCalDropDown&>(*this)) {
    ConnectEvents();
    ConnectDragEvents();
    Objects().Fonts().WhenFontChanges([this](const FontRef& font) { OnFontChanged(font); });
}

DropDownControl::~DropDownControl() { Objects().Fonts().WhenFontChanges(nullptr); }

void DropDownControl::ConnectEvents() {
    DropDownEvents& events = m_box.Events();
    events.DropDown.Connect([this](bool&) {
        m_form->Follow(AmbientFont(), std::make_shared<DateLocale>(DateServices().Locale()));
    });
    Relay(events.CloseUp, 1);
    Relay(events.DateChanged, 2);
    Relay(events.DayChanged, 3);
    Relay(events.DropDown, 4);
    Relay(events.KeyUp, 5);
    Relay(events.KeyPress, 6);
    Relay(events.KeyDown, 7);
    Relay(events.MonthChanged, 8);
    Relay(events.MouseDown, 9);
    Relay(events.MouseMove, 10);
    Relay(events.MouseUp, 11);
    Relay(events.YearChanged, 18);
}

void DropDownControl::ConnectDragEvents() {
    DropDownEvents& events = m_box.Events();
    Relay(events.OLECompleteDrag, 12);
    Relay(events.OLEDragDrop, 13);
    Relay(events.OLEDragOver, 14);
    Relay(events.OLEGiveFeedback, 15);
    Relay(events.OLESetData, 16);
    Relay(events.OLEStartDrag, 17);
}

// Published members.

STDMETHODIMP DropDownControl::get_DropDownState(VARIANT_BOOL* value) {
    return Get("DropDownState", value);
}

STDMETHODIMP DropDownControl::put_DropDownState(VARIANT_BOOL value) {
    return Do([&] { m_box.DropDownState(value != VARIANT_FALSE); });
}

STDMETHODIMP DropDownControl::get_hWnd(long* value) {
    return Give(value, [&](long& out) { out = HandleToLong(Window().Window()); });
}

STDMETHODIMP DropDownControl::get_OLEDropMode(::VmOLEDropModeConstants* value) {
    return Give(value, [&](auto& out) {
        out = static_cast<::VmOLEDropModeConstants>(m_box.OLEDropMode());
    });
}

STDMETHODIMP DropDownControl::put_OLEDropMode(::VmOLEDropModeConstants value) {
    return Do([&] { m_box.OLEDropMode(static_cast<velmora::VmOLEDropModeConstants>(value)); });
}

STDMETHODIMP DropDownControl::put_NoLostFocus(VARIANT_BOOL value) {
    return Do([&] { m_box.NoLostFocus(value != VARIANT_FALSE); });
}

STDMETHODIMP DropDownControl::RepaintControl() {
    return Do([&] { m_box.RepaintControl(); });
}

STDMETHODIMP DropDownControl::MouseDown(short* button, short* shift, float* x, float* y) {
    return Do([&] { CallMouse(m_box, &VmCalDropDown::MouseDown, button, shift, x, y); });
}

STDMETHODIMP DropDownControl::MouseMove(short* button, short* shift, float* x, float* y) {
    return Do([&] { CallMouse(m_box, &VmCalDropDown::MouseMove, button, shift, x, y); });
}

STDMETHODIMP DropDownControl::MouseUp(short* button, short* shift, float* x, float* y) {
    return Do([&] { CallMouse(m_box, &VmCalDropDown::MouseUp, button, shift, x, y); });
}

STDMETHODIMP DropDownControl::AboutBox() {
    return Do([&] { m_box.AboutBox(); });
}

HRESULT DropDownControl::OnOleDrag() {
    return Do([&] { m_box.OleDrag(); });
}

// What the shell and the core tell.

void DropDownControl::Drag() {
    if (std::exchange(m_dragging, true)) return;
    const Hold hold(*this);
    ReleaseCapture();
    m_box.OnWindowChanged();  // the drag takes the release
    try {
        DragFrom(m_box, m_box.Text());
    } catch (...) {
        m_dragging = false;
        throw;
    }
    m_dragging = false;
}

void DropDownControl::OnFontChanged(const FontRef& font) {
    const Hold hold(*this);
    for (const std::string_view name : kFonts) {
        if (m_box.GetMember(name) == Variant(ObjectRef(font))) PropertyChanged(name);
    }
    m_box.RepaintControl();
    if (m_form->Form().GetOwner() == &m_box) m_form->Form().Calendar().RepaintControl();
}

void DropDownControl::Paint(HDC context, std::span<const Rect>) {
    m_box.OnPaint(WinDrawing::SurfaceOf(context));
}

bool DropDownControl::OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    const HWND window = Window().Window();
    return window && DispatchInput(m_box, window, message, w, l, result);
}

void DropDownControl::OnWindowChanged() { m_box.OnWindowChanged(); }

void DropDownControl::OnWindowRecreated() {
    OnDropModeChanged();
    m_box.OnWindowChanged();
}

void DropDownControl::OnAmbientChanged() {
    m_box.OnLocaleChanged();
    m_box.RepaintControl();
}

void DropDownControl::OnDropModeChanged() {
    const bool takes = Window().OLEDropMode() != DROPEFFECT_NONE && IsUserMode();
    m_drops.Follow(takes ? Window().Window() : nullptr);
}

std::string_view DropDownControl::PropertyOfKey(std::string_view key) const {
    return NameOfKey(BoxOrder(), key);
}

bool DropDownControl::WantsKey(WORD virtualKey, bool) const {
    switch (virtualKey) {
        case VK_LEFT:
        case VK_RIGHT:
        case VK_UP:
        case VK_DOWN:
        case VK_PRIOR:
        case VK_NEXT:
        case VK_F4: return true;
        case VK_RETURN:
        case VK_ESCAPE: return m_box.DropDownState();
        default: return false;
    }
}

}  // namespace velmora
