#pragma once

#include "calendar/CProperties.h"
#include "dropdown/DropDownEvents.h"
#include "dropdown/DropDownForm.h"
#include "dropdown/DropDownProperties.h"
#include "platform/Platform.h"

#include <cstdint>
#include <string>

namespace velmora {

/// A date box: it shows a date as text and opens a calendar below it. Its calendar-facing
/// properties are those of `VmCalendar`, kept in a store of its own and refused with the same error
/// 380 at once; what is set while the calendar is open shows in it. Every handler may close,
/// reopen, change or destroy the box.
///
/// Life cycle: construct, connect to events, then exactly one of `InitProperties` and `ReadProps`.
class VmCalDropDown : public AutomationObject {
public:
    /// The form outlives the box.
    VmCalDropDown(const Platform& platform, DropDownForm& form);
    ~VmCalDropDown() override;
    VmCalDropDown(const VmCalDropDown&) = delete;
    VmCalDropDown& operator=(const VmCalDropDown&) = delete;

    /// Takes the defaults of a newly placed box: the present date and time, "Short Date".
    void InitProperties();
    /// Takes the properties from a bag, unchecked but for limits that are none, which give the
    /// defaults; the date moves into them. A missing name or a value of the wrong type gives its
    /// default; dates may be text.
    void ReadProps(PropertyBag& bag);
    void WriteProps(PropertyBag& bag) const;

    DropDownEvents& Events() noexcept { return m_events; }

    /// A property by its row: the getter and the setter of that name. `kMonthYearSelStyle` takes 0
    /// and 1 only.
    template <class Row>
    typename Row::Value Get(const Row& property) const {
        return m_store.Get(property);
    }
    template <class T>
    const T& Get(const BoxProperty<T>& property) const {
        return m_box.*property.field;
    }
    Variant Get(const DateProperty&) const { return DateValue(); }
    std::int32_t Get(const SizeProperty& property) const;
    bool Get(const DropDownStateProperty&) const { return DropDownState(); }
    template <class Row>
    void Let(const Row& property, const typename Row::Value& value) {
        if (!AdmitInBox(property, value)) return;
        m_store.Let(property, value);
        StoreChanged(property.name, InBox(property).key);
    }
    template <class T>
    void Let(const BoxProperty<T>& property, const T& value) {
        Admit(property, value);
        m_box.*property.field = value;
        Announce(property.key, property.effect);
    }
    void Let(const WindowProperty<bool>& property, bool value);
    void Let(const LimitProperty& property, Date value);
    void Let(const DateProperty& property, const Variant& value);
    void Let(const SizeProperty& property, std::int32_t value);
    void Let(const DropDownStateProperty&, bool value) { DropDownState(value); }
    std::string_view TypeName() const override { return "VmCalDropDown"; }
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;
    Date ToDate(const Variant& value) const { return m_platform.dates.ToDate(value); }

    /// Format expression or named format of the text; an empty one gives the general form.
    const std::string& DateFormat() const { return m_box.dateFormat; }
    void DateFormat(const std::string& value) { Let(kDateFormat, value); }
    /// The text that the box shows.
    const std::string& Text() const { return m_text; }

    /// As the calendar's limits; a date beyond them moves to them.
    Date DateMax() const { return m_store.DateMax(); }
    void DateMax(Date value) { Let(kDateMax, value); }
    Date DateMin() const { return m_store.DateMin(); }
    void DateMin(Date value) { Let(kDateMin, value); }
    /// Takes a date, a day number or date text; keeps its time until another day is chosen, which
    /// has none; a date beyond the limits becomes the limit. Error 13: no date.
    Date DateValue() const { return m_store.DateValue(); }
    void DateValue(const Variant& value) { Let(kDateValue, value); }

    /// The days of the month of `DateValue`; of the shown month while the calendar is open.
    const DaysRef& Days() const { return m_store.Days(); }
    DayRef SelectedDay() const { return m_store.SelectedDay(); }

    const FontRef& ComboFont() const { return m_box.comboFont; }
    void ComboFont(const FontRef& value) { Let(kComboFont, value); }
    /// 0 or 1, else error 380.
    VmDropDownAlignmentConstants DropDownAlignment() const { return m_box.alignment; }
    void DropDownAlignment(VmDropDownAlignmentConstants value) { Let(kDropDownAlignment, value); }
    /// Size of the drop-down in the units of the container, pixels being those of a screen with 96
    /// an inch: with more it is larger, as its texts are. Error 380: below 0 pixels.
    std::int32_t DropDownHeight() const { return Get(kDropDownHeight); }
    void DropDownHeight(std::int32_t value) { Let(kDropDownHeight, value); }
    std::int32_t DropDownWidth() const { return Get(kDropDownWidth); }
    void DropDownWidth(std::int32_t value) { Let(kDropDownWidth, value); }
    bool Enabled() const { return m_platform.windowing.Enabled(); }
    void Enabled(bool value) { Let(kEnabled, value); }
    PictureRef MouseIcon() const { return m_platform.windowing.MouseIcon(); }
    void MouseIcon(const PictureRef& value) { Let(kMouseIcon, value); }
    std::int16_t MousePointer() const { return m_platform.windowing.MousePointer(); }
    void MousePointer(std::int16_t value) { Let(kMousePointer, value); }
    /// True from a successful or cancelled opening until the next close. True gives the box the
    /// focus and opens with it; False closes, with `CloseUp` also when it was closed. Nothing while
    /// disabled.
    bool DropDownState() const { return m_phase == Phase::Open || m_phase == Phase::Cancelled; }
    void DropDownState(bool value);
    VmOLEDropModeConstants OLEDropMode() const;
    void OLEDropMode(VmOLEDropModeConstants value);
    /// While True the loss of focus does not close the drop-down.
    void NoLostFocus(bool value) { m_noLostFocus = value; }
    /// Whether the drop-down stands above the box where there is no room below it, and is moved
    /// sideways onto the screen. Off, it may leave the screen. Not saved.
    bool KeepDropDownOnScreen() const { return m_keepOnScreen; }
    void KeepDropDownOnScreen(bool value) { m_keepOnScreen = value; }
    /// As the calendar's, for the keys of the box and its open calendar. Besides, Space closes as
    /// Enter does, and Escape gives back the date that the box had when it was opened, with the
    /// events of the change. Not saved.
    bool ExtendedNavigation() const { return m_store.Values().extendedNavigation; }
    void ExtendedNavigation(bool value);
    WindowHandle hWnd() const { return m_platform.windowing.Handle(); }

    /// A client area that holds the longest date of the format in the present font and language.
    Size UsualSize();
    void RepaintControl();
    /// Raise the events of these names; nothing else.
    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void MouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    void OleDrag();
    void AboutBox();

    // What a host tells the box. Coordinates are pixels of the client area.

    void OnPaint(SurfaceHandle surface);
    void OnGotFocus();
    void OnLostFocus();
    /// Hidden, disabled, moved or resized, or its window was: an open drop-down closes.
    void OnWindowChanged();
    /// As that of the calendar.
    void OnLocaleChanged();
    /// On return the key code is 0 when the box used the key.
    void OnKeyDown(std::int16_t& keyCode, std::int16_t& shift);
    void OnKeyPress(std::int16_t& keyAscii);
    /// Whether the key belongs to the box before its container's own keys. Tab does not.
    bool WantsKey(std::int16_t keyCode, bool inChild) const;
    void OnKeyUp(std::int16_t& keyCode, std::int16_t& shift);
    void OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    /// Asks the container before the user's input selects that day. False: it may not, or a handler
    /// has moved the date or ended the control.
    bool RequestUserDate(DayNumber day);
    /// The platform's drag over the box or drop on it; the handlers may change the effect.
    void OnOLEDragDrop(DataRef data, std::int32_t& effect, std::int16_t button, std::int16_t shift,
                       float x, float y);
    void OnOLEDragOver(DataRef data, std::int32_t& effect, std::int16_t button, std::int16_t shift,
                       float x, float y, std::int16_t state);

    // What the form tells its owner.

    void OnCalendarDateChanged();
    void OnCalendarDayChanged();
    void OnCalendarMonthChanged();
    void OnCalendarYearChanged();
    void CloseDropDown();

private:
    /// How far the drop-down is. From `Opening` to `Cancelled` the box owns the form.
    enum class Phase {
        Closed,
        Wanted,     // opens with the focus that has been asked for
        Opening,    // the calendar is loaded, and a handler may cancel; no news from it
        Open,       // the window is to be seen
        Cancelled,  // it is not, but counts as open until the next close
        Closing,    // the days go back to the date's; neither opens nor closes again
    };

    bool OwnsForm() const noexcept { return m_form.GetOwner() == this; }
    bool TakesInput() const { return m_platform.windowing.TakesInput(); }
    void StoreChanged(std::string_view member, std::string_view key);
    void PassOn(std::string_view member);
    void Announce(std::string_view key, BoxEffect effect);
    void Notify(std::string_view key) { m_platform.hosting.PropertyChanged(key); }
    void UpdateDateText(Date date);
    const StdFont& Font();
    void TakeCalendarDate();
    void CopyDecoration(Date day);

    void ShowDropDown();
    void EndOpening(bool cancelled);
    void GiveUpDropDown();
    void ReturnForm();
    void ShowOwnMonth();
    void Abandon();
    Rect DropDownPlace() const;
    void ToggleDropDown();
    bool HasNews() const noexcept { return m_phase != Phase::Opening && !m_passingOn; }
    bool ActOnKey(std::int16_t keyCode, std::int16_t shift);
    bool StepByKey(std::int16_t keyCode, std::int16_t shift);
    void StepOwnDate(DayNumber day);
    void RaiseDateParts(DayNumber from);

    float InContainer(float pixels, Axis axis) const;

    Platform m_platform;
    DropDownForm& m_form;
    CProperties m_store;
    DropDownEvents m_events;
    Lifetime m_lifetime;
    BoxState m_box;
    std::string m_text;
    Phase m_phase = Phase::Closed;  // moved in DropDownOpening.cpp alone
    Date m_dateBefore;              // as it was when the calendar opened
    bool m_keepOnScreen = false;
    bool m_noLostFocus = false;  // the program's, and the calendar's while it is pressed
    bool m_hasFocus = false;     // the window's
    bool m_dragging = false;     // the mouse's: a drag from here is under way
    bool m_buttonDown = false;   // the mouse's: the left button is held on the box
    bool m_closedByAlt = false;  // the keyboard's: the Alt that is held has closed it
    bool m_passingOn = false;    // a setter's: what the calendar reports of it is no news
    unsigned m_dateChanges = 0;  // tells an operation that a handler has moved the date again
};

}  // namespace velmora
