#pragma once

#include "calendar/CProperties.h"
#include "dropdown/DropDownEvents.h"
#include "dropdown/DropDownForm.h"
#include "platform/Platform.h"
#include "platform/ScaleMode.h"

#include <cstdint>
#include <string>

namespace velmora {

/// The names under which the box saves its properties and reports their changes, where they are not
/// the properties' own.
namespace DropDownKeys {
inline constexpr std::string_view kComboFont = "ComboFont";
inline constexpr std::string_view kDateFormat = "ComboDateFormat";
inline constexpr std::string_view kAlignment = "DropDownAlignment";
inline constexpr std::string_view kHeight = "DropDownHeight";
inline constexpr std::string_view kWidth = "DropDownWidth";
inline constexpr std::string_view kEnabled = "ComboEnabled";
inline constexpr std::string_view kMouseIcon = "ComboMouseIcon";
inline constexpr std::string_view kMousePointer = "ComboMousePointer";
inline constexpr std::string_view kAppearance = "DropDownAppearance";
}  // namespace DropDownKeys

/// The window of a date box.
class BoxWindowing : public Windowing {
public:
    /// Asks for the keyboard focus; the host answers with `OnGotFocus`.
    virtual void SetFocus() = 0;
};

struct BoxPlatform {
    Drawing& drawing;
    BoxWindowing& windowing;
    Dates& dates;
    Hosting& hosting;
};

/// A date box: it shows a date as text and opens a calendar below it. Its calendar-facing
/// properties are those of `VmCalendar`, kept in a store of its own and refused with the same error
/// 380 at once; what is set while the calendar is open shows in it. Every handler may close,
/// reopen, change or destroy the box.
///
/// Life cycle: construct, connect to events, then exactly one of `InitProperties` and `ReadProps`.
class VmCalDropDown : public AutomationObject {
public:
    /// The form outlives the box.
    VmCalDropDown(const BoxPlatform& platform, DropDownForm& form);
    ~VmCalDropDown() override;
    VmCalDropDown(const VmCalDropDown&) = delete;
    VmCalDropDown& operator=(const VmCalDropDown&) = delete;

    /// Takes the defaults of a newly placed box: the present date and time, "Short Date".
    void InitProperties();
    /// A missing name, a value of the wrong type or one that is refused gives the default.
    void ReadProps(PropertyBag& bag);
    void WriteProps(PropertyBag& bag) const;

    DropDownEvents& Events() noexcept { return m_events; }

    /// A calendar-facing property by its row; `kMonthYearSelStyle` takes 0 and 1 only.
    template <class Row>
    typename Row::Value Get(const Row& property) const {
        return m_store.Get(property);
    }
    template <class Row>
    void Let(const Row& property, const typename Row::Value& value) {
        m_store.Let(property, value);
        StoreChanged(property.name, property.name);
    }
    void Let(const Property<VmMonthYearSelStyleConstants>& property,
             VmMonthYearSelStyleConstants value);
    void Let(const Property<VmAppearanceConstants>& property, VmAppearanceConstants value);
    std::string_view TypeName() const override { return "VmCalDropDown"; }
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;
    Date ToDate(const Variant& value) const { return m_platform.dates.ToDate(value); }

    /// Format expression or named format of the text; an empty one gives the general form.
    const std::string& DateFormat() const { return m_dateFormat; }
    void DateFormat(std::string value);
    /// The text that the box shows.
    const std::string& Text() const { return m_text; }

    /// As the calendar's limits; a date beyond them moves to them.
    Date DateMax() const { return m_store.DateMax(); }
    void DateMax(Date value);
    Date DateMin() const { return m_store.DateMin(); }
    void DateMin(Date value);
    /// Takes a date, a day number or date text; keeps its time; a date beyond the limits becomes
    /// the limit. Error 13: no date.
    Date DateValue() const { return m_store.DateValue(); }
    void DateValue(const Variant& value);

    /// The days of the month of `DateValue`; of the shown month while the calendar is open.
    const DaysRef& Days() const { return m_store.Days(); }
    DayRef SelectedDay() const { return m_store.SelectedDay(); }

    const FontRef& ComboFont() const { return m_comboFont; }
    void ComboFont(FontRef value);
    /// 0 or 1, else error 380.
    VmDropDownAlignmentConstants DropDownAlignment() const { return m_alignment; }
    void DropDownAlignment(VmDropDownAlignmentConstants value);
    /// Size of the drop-down in the units of the container. Error 380: below 0 pixels.
    std::int32_t DropDownHeight() const;
    void DropDownHeight(std::int32_t value);
    std::int32_t DropDownWidth() const;
    void DropDownWidth(std::int32_t value);
    bool Enabled() const { return m_platform.windowing.Enabled(); }
    void Enabled(bool value);
    PictureRef MouseIcon() const { return m_platform.windowing.MouseIcon(); }
    void MouseIcon(PictureRef value);
    std::int16_t MousePointer() const { return m_platform.windowing.MousePointer(); }
    void MousePointer(std::int16_t value);
    /// True from a successful or cancelled opening until the next close. True gives the box the
    /// focus and opens; False closes, with `CloseUp` also when it was closed. Nothing while
    /// disabled.
    bool DropDownState() const { return m_droppedDown; }
    void DropDownState(bool value);
    VmOLEDropModeConstants OLEDropMode() const;
    void OLEDropMode(VmOLEDropModeConstants value);
    /// While True the loss of focus does not close the drop-down.
    void NoLostFocus(bool value) { m_noLostFocus = value; }
    WindowHandle hWnd() const { return m_platform.windowing.Handle(); }

    void RepaintControl();
    /// Raise the events of these names; nothing else.
    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void MouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    void OleDrag() { m_platform.hosting.OleDrag(); }
    void AboutBox();

    // What a host tells the box. Coordinates are pixels of the client area.

    void OnPaint(SurfaceHandle surface);
    void OnGotFocus();
    void OnLostFocus();
    /// Hidden, disabled, moved or resized, or its window was: an open drop-down closes.
    void OnWindowChanged();
    void OnLocaleChanged();
    /// On return the key code is 0 when the box used the key.
    void OnKeyDown(std::int16_t& keyCode, std::int16_t& shift);
    void OnKeyPress(std::int16_t& keyAscii);
    void OnKeyUp(std::int16_t& keyCode, std::int16_t& shift);
    void OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    /// The platform's drag over the box or drop on it; the handlers may change the effect.
    void OnOLEDragDrop(DataRef data, std::int32_t& effect, std::int16_t button, std::int16_t shift,
                       float x, float y);
    void OnOLEDragOver(DataRef data, std::int32_t& effect, std::int16_t button, std::int16_t shift,
                       float x, float y, std::int16_t state);

    // What the form tells its owner.

    void OnCalendarDateChanged(Date newDate);
    void OnCalendarDayChanged();
    void OnCalendarMonthChanged();
    void OnCalendarYearChanged();
    void CloseDropDown();

private:
    bool OwnsForm() const noexcept { return m_form.GetOwner() == this; }
    bool TakesInput() const { return m_platform.windowing.TakesInput(); }
    void StoreChanged(std::string_view member, std::string_view key);
    void PassOn(std::string_view member);
    void Notify(std::string_view key);
    void UpdateDateText(Date date);
    void TakeCalendarDate();
    void CopyDecoration(Date day);

    void ShowDropDown();
    void Abandon();
    Rect DropDownPlace() const;
    void ToggleDropDown();
    bool ActOnKey(std::int16_t keyCode, std::int16_t shift);
    bool StepByKey(std::int16_t keyCode, std::int16_t shift);
    void StepOwnDate(Date date);

    bool Restore(std::string_view key, std::string_view member, const Variant& value,
                 Date& maximum);
    void SetSize(std::int32_t& pixels, std::int32_t value, Axis axis, std::string_view key);
    float InContainer(float pixels, Axis axis) const;
    std::int32_t SizeInContainer(std::int32_t pixels, Axis axis) const;

    BoxPlatform m_platform;
    DropDownForm& m_form;
    CProperties m_store;
    DropDownEvents m_events;
    Lifetime m_lifetime;
    std::string m_dateFormat = "Short Date";
    std::string m_text;
    FontRef m_comboFont;
    VmDropDownAlignmentConstants m_alignment = VmLeftJustified;
    std::int32_t m_heightPixels = 200;
    std::int32_t m_widthPixels = 250;
    bool m_droppedDown = false;
    bool m_hasFocus = false;
    bool m_loading = false;      // saved values come in, which is no news for the container
    bool m_opening = false;      // what the calendar reports while it is loaded is no news
    bool m_pendingDrop = false;  // opens with the focus that has been asked for
    bool m_noLostFocus = false;
    bool m_buttonDown = false;   // the left button is held on the box
    bool m_closedByAlt = false;  // the Alt of an Alt+Down has closed it: the Down is used up
    unsigned m_dateChanges = 0;  // tells an operation that a handler has moved the date again
};

}  // namespace velmora
