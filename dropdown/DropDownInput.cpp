#include "calendar/DragAndDrop.h"
#include "calendar/KeySteps.h"
#include "dropdown/VmCalDropDown.h"
#include "platform/Keys.h"
#include "platform/ScaleMode.h"

namespace velmora {
void VmCalDropDown::OleDrag() {
    const Lifetime::Watch alive(m_lifetime);
    OnWindowChanged();  // the drag takes the release
    if (alive) DragText(m_text, m_platform.hosting, m_events, m_lifetime, m_dragging);
}

void VmCalDropDown::OnKeyDown(std::int16_t& keyCode, std::int16_t& shift) {
    if (!TakesInput()) return;
    const Lifetime::Watch alive(m_lifetime);
    m_events.KeyDown.Raise(keyCode, shift);
    if (!alive || !TakesInput()) return;
    const std::int16_t key = keyCode;
    if (ActOnKey(key, shift) && alive) keyCode = 0;
}

bool VmCalDropDown::WantsKey(std::int16_t keyCode, bool) const {
    switch (keyCode) {
        case kKeyLeft:
        case kKeyRight:
        case kKeyUp:
        case kKeyDown:
        case kKeyPageUp:
        case kKeyPageDown:
        case kKeyF4: return true;
        case kKeyHome:
        case kKeyEnd: return ExtendedNavigation();
        case kKeySpace: return ExtendedNavigation() && DropDownState();
        case kKeyEnter:
        case kKeyEscape: return DropDownState();
        default: return false;
    }
}

/// Returns whether the key was used.
bool VmCalDropDown::ActOnKey(std::int16_t keyCode, std::int16_t shift) {
    const bool alt = (shift & (kShiftCtrl | kShiftAlt)) == kShiftAlt;
    switch (keyCode) {
        case kKeyAlt:
            if (DropDownState()) {
                m_closedByAlt = true;
                CloseDropDown();
            }
            return false;  // it may begin a menu's key
        case kKeyEnter:
            if (!DropDownState()) return false;
            CloseDropDown();
            return true;
        case kKeySpace:
            if (!DropDownState() || !IsChoice(m_store.Values(), keyCode, shift)) return false;
            CloseDropDown();
            return true;
        case kKeyF4:
            if (shift != 0) return false;
            ToggleDropDown();
            return true;
        case kKeyUp:
        case kKeyDown:
            if (!alt) return StepByKey(keyCode, shift);
            if (!m_closedByAlt) ToggleDropDown();
            return true;
        case kKeyEscape:
            if ((shift & kShiftCtrl) != 0 || !DropDownState()) return false;
            GiveUpDropDown();
            return true;
        default: return StepByKey(keyCode, shift);
    }
}

/// One step from this box's own date, or from its open calendar's.
bool VmCalDropDown::StepByKey(std::int16_t keyCode, std::int16_t shift) {
    const DayNumber from = DayOf(OwnsForm() ? m_form.Calendar().SelectedDate() : DateValue());
    if (m_platform.windowing.IsRightToLeft()) keyCode = MirroredKey(keyCode);
    const auto day = DayByKey(m_store.Values(), from, keyCode, shift, m_platform.dates.Today());
    if (!day || !IsInLimits(m_store.Values(), *day)) return false;
    if (*day == from) return true;  // Home on the first day
    if (!RequestUserDate(*day)) return false;
    if (OwnsForm()) {
        m_form.Calendar().DateValue(DateOf(*day));  // comes back as the calendar's events
    } else {
        StepOwnDate(*day);
    }
    return true;
}

bool VmCalDropDown::RequestUserDate(DayNumber day) {
    const Lifetime::Watch alive(m_lifetime);
    const Date before = DateValue();
    return m_platform.hosting.RequestEdit(kDateValue.name) && alive && DateValue() == before &&
           IsInLimits(m_store.Values(), day);
}

void VmCalDropDown::StepOwnDate(DayNumber day) {
    const DayNumber before = DayOf(DateValue());
    m_store.DateValue(DateOf(day));
    UpdateDateText(DateValue());
    const Lifetime::Watch alive(m_lifetime);
    RaiseThen([&] { RaiseDateParts(before); },
              [&] {
                  if (alive) Notify(kDateValue.name);
              });
}

/// Stops when a handler has moved the date again.
void VmCalDropDown::RaiseDateParts(DayNumber from) {
    Date date = DateValue();
    const CivilDate before = CivilOf(from);
    const CivilDate after = CivilOf(DayOf(date));
    const unsigned change = ++m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    const auto goesOn = [&] { return alive && change == m_dateChanges; };

    m_events.DateChanged.Raise(date);
    auto day = static_cast<std::int16_t>(after.day);
    auto month = static_cast<std::int16_t>(after.month);
    auto year = static_cast<std::int16_t>(after.year);
    if (goesOn() && after.day != before.day) m_events.DayChanged.Raise(day);
    if (goesOn() && after.month != before.month) m_events.MonthChanged.Raise(month);
    if (goesOn() && after.year != before.year) m_events.YearChanged.Raise(year);
}

void VmCalDropDown::OnKeyPress(std::int16_t& keyAscii) {
    if (TakesInput()) m_events.KeyPress.Raise(keyAscii);
}

void VmCalDropDown::OnKeyUp(std::int16_t& keyCode, std::int16_t& shift) {
    if (!TakesInput()) return;
    if (keyCode == kKeyAlt) m_closedByAlt = false;
    m_events.KeyUp.Raise(keyCode, shift);
}

void VmCalDropDown::MouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    m_events.MouseDown.Raise(button, shift, x, y);
}
void VmCalDropDown::MouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
    m_events.MouseMove.Raise(button, shift, x, y);
}
void VmCalDropDown::MouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    m_events.MouseUp.Raise(button, shift, x, y);
}

float VmCalDropDown::InContainer(float pixels, Axis axis) const {
    return static_cast<float>(FromPixels(pixels, ContainerScaleMode(m_platform.hosting),
                                         m_platform.windowing.PixelsPerInch(), axis));
}

/// A press opens, the next one closes.
void VmCalDropDown::OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!TakesInput()) return;
    const bool left = (button & kButtonLeft) != 0;
    if (left) {
        m_buttonDown = true;
        RepaintControl();
    }
    const Lifetime::Watch alive(m_lifetime);
    MouseDown(button, shift, InContainer(x, Axis::Horizontal), InContainer(y, Axis::Vertical));
    if (alive && left && TakesInput()) ToggleDropDown();
}

void VmCalDropDown::OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!TakesInput()) return;
    MouseMove(button, shift, InContainer(x, Axis::Horizontal), InContainer(y, Axis::Vertical));
}

void VmCalDropDown::OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    if (!TakesInput()) return;
    if ((button & kButtonLeft) != 0) {
        m_buttonDown = false;
        RepaintControl();
    }
    MouseUp(button, shift, InContainer(x, Axis::Horizontal), InContainer(y, Axis::Vertical));
}

void VmCalDropDown::OnOLEDragDrop(DataRef data, std::int32_t& effect, std::int16_t button,
                                  std::int16_t shift, float x, float y) {
    float left = InContainer(x, Axis::Horizontal);
    float top = InContainer(y, Axis::Vertical);
    m_events.OLEDragDrop.Raise(data, effect, button, shift, left, top);
}

void VmCalDropDown::OnOLEDragOver(DataRef data, std::int32_t& effect, std::int16_t button,
                                  std::int16_t shift, float x, float y, std::int16_t state) {
    float left = InContainer(x, Axis::Horizontal);
    float top = InContainer(y, Axis::Vertical);
    m_events.OLEDragOver.Raise(data, effect, button, shift, left, top, state);
}

}  // namespace velmora
