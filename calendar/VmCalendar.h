#pragma once

#include "calendar/CalendarDescription.h"
#include "calendar/CalendarEvents.h"
#include "calendar/CalendarLayout.h"
#include "calendar/CalendarProperties.h"
#include "calendar/CalendarState.h"
#include "calendar/DateLimits.h"
#include "calendar/Selectors.h"
#include "model/VmDays.h"
#include "platform/Automation.h"
#include "platform/AutomationError.h"
#include "platform/Platform.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace velmora {

/// A month calendar: it shows one month, selects one date of it, and decorates its days.
///
/// Setters of published properties refuse a wrong value with error 380, leave everything as it was,
/// tell the container of every success (`Hosting::PropertyChanged`) and ask for the repaint that
/// the change needs. Colours are refused when any bit of 0x7F000000 is set. Events are raised from
/// inside the operation that causes them; a handler may change anything, or destroy the calendar.
///
/// Life cycle: construct, connect to events, then exactly one of `InitProperties` and `ReadProps`.
class VmCalendar : public AutomationObject {
public:
    explicit VmCalendar(const Platform& platform);
    ~VmCalendar() override;
    VmCalendar(const VmCalendar&) = delete;
    VmCalendar& operator=(const VmCalendar&) = delete;

    /// Takes the defaults of a newly placed calendar, today or another date selected. Raises
    /// `MonthChanged` and `YearChanged`.
    void InitProperties();
    void InitProperties(Date selected);

    CalendarEvents& Events() noexcept { return m_events; }

    // The published properties, in the order of their slots.

    /// Outer frame, one pixel: sunken (3D) or a dark line (flat). 0..1.
    VmAppearanceConstants Appearance() const { return m_state.appearance; }
    void Appearance(VmAppearanceConstants value) { Let(kAppearance, value); }

    /// Latest date that can be selected; always the last day of its month. Setting it moves a later
    /// `DateValue` down to it without events and without a repaint. Error 380: year outside
    /// 200..4600, or earlier than `DateMin`.
    Date DateMax() const { return m_state.dateMax; }
    void DateMax(Date value) { Let(kDateMax, value); }

    /// Earliest date that can be selected; always the first day of its month. Setting it moves an
    /// earlier `DateValue` up to it without events and without a repaint. Error 380: year outside
    /// 200..4600, or later than `DateMax`.
    Date DateMin() const { return m_state.dateMin; }
    void DateMin(Date value) { Let(kDateMin, value); }

    /// The selected date. Reads as text in the locale's short form; takes a date, a number (day
    /// number) or text. Empty, and another time on the same day, change nothing. Raises, each only
    /// when its part changed, `DateChanged`, `DayChanged`, `MonthChanged`, `YearChanged`. When the
    /// grid leaves a month that the user has turned to, `MonthChanged` in any case.
    /// Error 13: no date. Error 380: year outside 200..4600, or outside `DateMin`..`DateMax`.
    Variant DateValue() const;
    void DateValue(const Variant& value);

    /// Edges of the day cells: raised (3D) or grid lines (flat). 0..1.
    VmAppearanceConstants DayAppearance() const { return m_state.dayAppearance; }
    void DayAppearance(VmAppearanceConstants value) { Let(kDayAppearance, value); }

    /// Colours of days without their own, and of the neighbouring months' days.
    OLE_COLOR DayDefaultBackColor() const { return m_days->DefaultBackColor(); }
    void DayDefaultBackColor(OLE_COLOR value) { Let(kDayDefaultBackColor, value); }
    OLE_COLOR DayOtherMonthForeColor() const { return m_days->OtherMonthForeColor(); }
    void DayOtherMonthForeColor(OLE_COLOR value) { Let(kDayOtherMonthForeColor, value); }
    OLE_COLOR DayDefaultForeColor() const { return m_days->DefaultForeColor(); }
    void DayDefaultForeColor(OLE_COLOR value) { Let(kDayDefaultForeColor, value); }

    /// Place of a day's caption in its cell. 0..8.
    VmTextAlignmentConstants DayCaptionAlignment() const { return m_state.dayCaptionAlignment; }
    void DayCaptionAlignment(VmTextAlignmentConstants value) { Let(kDayCaptionAlignment, value); }

    /// Font of the day numbers and captions; kept by reference. Null takes the container's font at
    /// the next paint.
    const FontRef& DayFont() const { return m_state.dayFont; }
    void DayFont(FontRef value) { Let(kDayFont, value); }

    /// Place of a day's number in its cell. 0..8.
    VmTextAlignmentConstants DayNumberAlignment() const { return m_state.dayNumberAlignment; }
    void DayNumberAlignment(VmTextAlignmentConstants value) { Let(kDayNumberAlignment, value); }

    /// Place of a day's picture in its cell, or how it fills it. 0..14.
    VmPictureAlignmentConstants DayPictureAlignment() const { return m_state.dayPictureAlignment; }
    void DayPictureAlignment(VmPictureAlignmentConstants value) {
        Let(kDayPictureAlignment, value);
    }

    /// The days of the shown month; the same object as long as the calendar lives. A change of the
    /// shown month rebuilds it, which discards the decorations.
    const DaysRef& Days() const { return m_days; }

    /// The control window's own state. A disabled calendar is grey and ignores keys and mouse.
    bool Enabled() const { return m_platform.windowing.Enabled(); }
    void Enabled(bool value) { Let(kEnabled, value); }

    /// First column of the full week, 1 (Sunday)..7. Without the weekend it is always Monday.
    VmWeekDays FirstDayOfWeek() const { return m_state.firstDayOfWeek; }
    void FirstDayOfWeek(VmWeekDays value) { Let(kFirstDayOfWeek, value); }

    WindowHandle hWnd() const { return m_platform.windowing.Handle(); }

    /// Look of the month band: raised (3D) or flat. 0..1.
    VmAppearanceConstants MonthAppearance() const { return m_state.monthAppearance; }
    void MonthAppearance(VmAppearanceConstants value) { Let(kMonthAppearance, value); }
    OLE_COLOR MonthBackColor() const { return m_state.monthBackColor; }
    void MonthBackColor(OLE_COLOR value) { Let(kMonthBackColor, value); }
    /// Full or abbreviated name of the month. 0..1.
    VmMonthDisplayConstants MonthDisplay() const { return m_state.monthDisplay; }
    void MonthDisplay(VmMonthDisplayConstants value) { Let(kMonthDisplay, value); }
    const FontRef& MonthFont() const { return m_state.monthFont; }
    void MonthFont(FontRef value) { Let(kMonthFont, value); }
    OLE_COLOR MonthForeColor() const { return m_state.monthForeColor; }
    void MonthForeColor(OLE_COLOR value) { Let(kMonthForeColor, value); }
    /// How the user changes month and year: not at all, arrow buttons, a list with a year box, or a
    /// scroll bar. 0..3.
    VmMonthYearSelStyleConstants MonthYearSelStyle() const { return m_state.monthYearSelStyle; }
    void MonthYearSelStyle(VmMonthYearSelStyleConstants value) { Let(kMonthYearSelStyle, value); }

    /// Pointer over the calendar while `MousePointer` is 99. Null for none. Error 380: a picture
    /// that is no icon.
    PictureRef MouseIcon() const { return m_platform.windowing.MouseIcon(); }
    void MouseIcon(const PictureRef& value) { Let(kMouseIcon, value); }
    /// 0..15 or 99; any other value is ignored without an error.
    std::int16_t MousePointer() const { return m_platform.windowing.MousePointer(); }
    void MousePointer(std::int16_t value) { Let(kMousePointer, value); }

    /// The day of the shown month whose number is that of `DateValue`. Error 381: a month without
    /// that day is shown.
    DayRef SelectedDay() const;
    OLE_COLOR SelectedDayBackColor() const { return m_state.selectedDayBackColor; }
    void SelectedDayBackColor(OLE_COLOR value) { Let(kSelectedDayBackColor, value); }
    OLE_COLOR SelectedDayForeColor() const { return m_state.selectedDayForeColor; }
    void SelectedDayForeColor(OLE_COLOR value) { Let(kSelectedDayForeColor, value); }
    OLE_COLOR TodayBackColor() const { return m_state.todayBackColor; }
    void TodayBackColor(OLE_COLOR value) { Let(kTodayBackColor, value); }
    OLE_COLOR TodayForeColor() const { return m_state.todayForeColor; }
    void TodayForeColor(OLE_COLOR value) { Let(kTodayForeColor, value); }

    /// Look of the week-day captions: raised (3D) or flat. 0..1.
    VmAppearanceConstants WeekDayAppearance() const { return m_state.weekDayAppearance; }
    void WeekDayAppearance(VmAppearanceConstants value) { Let(kWeekDayAppearance, value); }
    OLE_COLOR WeekDayBackColor() const { return m_state.weekDayBackColor; }
    void WeekDayBackColor(OLE_COLOR value) { Let(kWeekDayBackColor, value); }
    /// No captions, full names, abbreviations or first letters. 0..3.
    VmWeekDayDisplayConstants WeekDayDisplay() const { return m_state.weekDayDisplay; }
    void WeekDayDisplay(VmWeekDayDisplayConstants value) { Let(kWeekDayDisplay, value); }
    const FontRef& WeekDayFont() const { return m_state.weekDayFont; }
    void WeekDayFont(FontRef value) { Let(kWeekDayFont, value); }
    OLE_COLOR WeekDayForeColor() const { return m_state.weekDayForeColor; }
    void WeekDayForeColor(OLE_COLOR value) { Let(kWeekDayForeColor, value); }
    VmTextAlignmentConstants WeekDayCaptionAlignment() const {
        return m_state.weekDayCaptionAlignment;
    }
    void WeekDayCaptionAlignment(VmTextAlignmentConstants value) {
        Let(kWeekDayCaptionAlignment, value);
    }
    /// True: seven columns. False: the work week, Monday to Friday.
    bool ShowWeekend() const { return m_state.showWeekend; }
    void ShowWeekend(bool value) { Let(kShowWeekend, value); }

    /// Takes the properties from a bag, unchecked, instead of `InitProperties`. A missing name
    /// gives its default; dates may be text. Raises `MonthChanged`.
    void ReadProps(PropertyBag& bag);
    /// Leaves out a `DateValue` that nobody has chosen: it is the day of loading.
    void WriteProps(PropertyBag& bag) const;
    /// Copies a whole look from an object that has the calendar's property names, then shows the
    /// month of `DateValue` and copies the decorations of the holder's dirty days to the days of
    /// the same date. `Days` may be any object with the names of `VmDays` and `VmDay`; days without
    /// a `DayDate` count from the first. Every value passes its setter; a member that is missing or
    /// refused is skipped, the others are copied, and the first error is raised at the end.
    /// Repaints once.
    void SetProps(const AutomationObject& holder);

    /// While True nothing is painted, whoever asks for it. A `DateValue` that changes both month
    /// and year sets it to False.
    void NoRepaintControl(bool value) { m_state.noRepaintControl = value; }
    /// Stored without any effect.
    void NoResizeControl(bool value) { m_state.noResizeControl = value; }
    /// Recomputes the layout and repaints everything.
    void RepaintControl();
    /// Window of the month list, None as long as it has not been shown.
    WindowHandle cboMonthhwnd() const { return m_selectors.MonthListHandle(); }
    /// True: a click on the selected day raises `DayChanged`, which else raises nothing.
    void AlwaysDateChanged(bool value) { m_state.alwaysDateChanged = value; }
    /// True: Home and End select the first and the last day of the month, Ctrl+Home today; Enter
    /// and Space do what a click on the selected day does; the wheel turns the grid. What a key
    /// selects is always shown, page keys count from the selection, an arrow button that is held
    /// repeats, and one that leads nowhere looks disabled. False at first, not saved, not copied.
    bool ExtendedNavigation() const { return m_state.extendedNavigation; }
    void ExtendedNavigation(bool value);
    /// Starts a drag from the control; the drag events follow.
    void OleDrag();
    VmOLEDropModeConstants OLEDropMode() const;
    void OLEDropMode(VmOLEDropModeConstants value);
    void AboutBox();

    // What a host in C++ asks for besides.

    /// A property by its row: the getter and the setter of that name.
    template <class Row>
    typename Row::Value Get(const Row& property) const {
        return property.Get(PropertyStorage{m_state, *m_days, m_platform.windowing});
    }
    Variant Get(const DateProperty&) const { return DateValue(); }
    template <class Row>
    void Let(const Row& property, const typename Row::Value& value) {
        if (!Admit(property, value)) return;
        property.Store(Storage(), value);
        Announce(property.name, property.effect);
    }
    void Let(const WindowProperty<bool>& property, bool value);
    void Let(const LimitProperty& property, Date value);
    void Let(const DateProperty&, const Variant& value) { DateValue(value); }
    std::string_view TypeName() const override { return "VmCalendar"; }
    /// The published properties by name, in any case, converted to their types.
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;
    Date ToDate(const Variant& value) const { return m_platform.dates.ToDate(value); }

    /// `DateValue` as a date.
    Date SelectedDate() const noexcept { return m_state.dateValue; }
    /// The grid shows the month of this date. The selectors move it without `DateValue`.
    Date ShownDate() const noexcept { return m_state.shownDate; }
    /// The layout of what is on the screen, for hit tests.
    const CalendarLayout& Layout();
    std::optional<DayNumber> DateFromPoint(float x, float y);
    /// The smallest client area that cuts no number, no name of a week day or month, and no
    /// selector, in the fonts and the language as they are; and one that is pleasant to read, with
    /// cells wider than high. For hosts that are asked how large a calendar wants to be.
    Size LeastSize() { return SizeFor(1); }
    Size UsualSize() { return SizeFor(1.5); }
    /// What is on the screen, in words and places.
    CalendarDescription Describe();
    /// Nothing for a day that is not to be seen.
    std::optional<DayDescription> Describe(DayNumber day);
    CalendarNews News() const;

    // What a host tells the calendar. Coordinates are pixels of the client area.

    /// Paints what is exposed. The first paint raises `MonthChanged` before it draws. False when
    /// nothing was drawn: painting is suspended, or the properties are not there yet.
    bool OnPaint(SurfaceHandle surface, std::span<const Rect> exposed);
    /// The window has been shown, has another size, or looks enabled or disabled now.
    void OnWindowChanged();
    /// The window has gone or another one has come: the child controls are made anew for it with
    /// the next paint. To be called from outside of any child's own handler.
    void OnWindowRecreated();
    /// The window itself has the keyboard focus, none of its children; the selected day
    /// shows it, or the title while that day is not shown.
    void OnGotFocus() { FocusIs(true); }
    void OnLostFocus() { FocusIs(false); }
    /// The date services speak another language now, or the window runs in the other direction.
    void OnLocaleChanged();
    /// The clock may show another day: the time of the last answer has passed, clock or time zone
    /// have been set, or the machine has slept. Repaints when today's cell has moved, and answers
    /// when to tell it again, while the window is to be seen: at midnight, or in half a day, as a
    /// clock that is put forward by an hour brings midnight nearer.
    std::chrono::milliseconds OnClock();

    /// Virtual-key code and shift state; the handlers of `KeyDown` may change both. On return the
    /// key code is 0 when the calendar used the key. Arrow keys move `DateValue`, wherever the user
    /// has turned the grid; the grid follows when the month's number changes. So a date can be
    /// selected that is not to be seen. Page keys move the grid, and select where it arrives.
    /// `ExtendedNavigation` has it otherwise: all keys move `DateValue`, and the grid follows. From
    /// right to left the left arrow key leads to the next day, which is the cell at the left.
    void OnKeyDown(std::int16_t& keyCode, std::int16_t& shift);
    void OnKeyPress(std::int16_t& keyAscii);
    /// Whether the key belongs to the calendar before its container's own keys, or to the child
    /// that has the focus. Tab does not.
    bool WantsKey(std::int16_t keyCode, bool inChild) const;
    void OnKeyUp(std::int16_t& keyCode, std::int16_t& shift);

    void OnMouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void OnMouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    /// The second press of a double click, in place of a press: raises `MouseDown`, then, of the
    /// left button, `DblClick`.
    void OnMouseDoubleClick(std::int16_t button, std::int16_t shift, float x, float y);
    /// Raises `MouseUp`, then `Click` when the left button went down here, not as the second press
    /// of a double click, is released inside the window and nothing has ended the press between.
    void OnMouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    /// The window lost the mouse capture: nothing is chosen any more.
    void OnCaptureLost();
    /// The user has picked that day by other means than the mouse, as by a screen reader: does what
    /// a click on it does, without the events of the mouse.
    void OnDayPicked(DayNumber day);
    /// The same for an arrow button; nothing in another style.
    void OnArrowPicked(Arrow arrow);
    /// Asks the container before the user's input selects that day. False: it may not, or a handler
    /// has moved the date or ended the control.
    bool RequestUserDate(DayNumber day);
    /// The wheel over the grid, in 120ths of a notch, away from the user above 0: with
    /// `ExtendedNavigation` each notch turns to the month before or after, with Ctrl to the year.
    /// Raises `MonthChanged` and `YearChanged`. False: it is not for the calendar.
    bool OnWheel(int delta, std::int16_t shift);
    /// The platform's drag over the control or drop on it; the handlers may change the effect.
    void OnOLEDragDrop(DataRef data, std::int32_t& effect, std::int16_t button, std::int16_t shift,
                       float x, float y);
    void OnOLEDragOver(DataRef data, std::int32_t& effect, std::int16_t button, std::int16_t shift,
                       float x, float y, std::int16_t state);

    // What the user does with the child controls. Their focus, keys and values reach the calendar
    // here alone; values that it sets itself do not come back.

    /// The month list or the year box has got the focus: an Escape of before is forgotten.
    void OnSelectorEnter() { m_cancelled = false; }
    /// The month list or the year box has lost the focus, after what was typed has been committed:
    /// they show the shown month again.
    void OnSelectorLeave();
    /// An item has been chosen; it counts when the list is closed. Raises `DateChanged` with the
    /// shown date, then `MonthChanged`. A month outside the limits changes nothing, and stays in
    /// the list until the focus leaves it.
    void OnMonthListClick(int listIndex);
    /// Enter takes the month (raises `MonthChanged`); Escape makes choices void until its key is
    /// released, or a selector is entered.
    void OnMonthListKeyDown(std::int16_t keyCode);
    /// Escape brings the shown month back into the list and raises `MonthChanged`; choices count
    /// again.
    void OnMonthListKeyUp(std::int16_t keyCode);
    /// The year has been committed, by Enter or loss of focus. Raises `YearChanged`; with the shown
    /// year, which goes back into the box, when the text is no year or leaves the limits.
    void OnYearText(std::string_view text);
    /// Escape in the year box: the shown year goes back into it.
    void OnYearTextCancel();
    /// That many years on from the shown one, by a key of the year box or a step of its spinner.
    void OnYearStep(int years);
    /// New position of the spinner, a negated year. Raises `YearChanged`.
    void OnYearSpinner(int value);
    /// New position of the scroll bar, by its buttons or its thumb. Raises `MonthChanged` and
    /// `YearChanged`.
    void OnDateScroll(int value);

private:
    CalendarStorage Storage() { return {m_state, *m_days, m_platform.windowing}; }
    CalendarState NewState(Date selected) const;
    void Announce(std::string_view property, AfterEffect effect);

    // Dates
    bool IsSelectable(DayNumber day) const noexcept { return IsInLimits(m_state, day); }
    Date ShowDate(Date date);
    void SyncSelectors();
    /// Whether the grid goes along with the selection, or only when the month's number changes:
    /// then a month that the user has turned to stays while the arrow keys work within another.
    enum class Follow { Always, OtherMonths };
    void SelectDate(Date date, Follow follow = Follow::Always);
    /// Whether the grid turns to a month by the user's or a program's wish, or goes back to that of
    /// the selected date: then it tells of the month, although only the year may differ.
    enum class Turn { To, Back };
    void MoveShown(Date date, Turn turn = Turn::To);
    void ShowSelection();
    void RaiseDateParts(Date from, Date shownBefore, Date to);
    void SelectMonth(int month);
    void SelectYear(int year);

    // Keys
    bool StepByKey(std::int16_t keyCode, std::int16_t shift);
    bool ChooseSelected();
    bool StepShown(int months);

    // Mouse
    struct Press {
        bool active = false;              // the left button went down here and is still held
        bool clicks = false;              // its release inside the window is a click
        std::optional<Arrow> arrow;       // where it went down, arrows style
        bool onArrow = false;             // the pointer is on that arrow
        bool repeated = false;            // it has been held so long that it has stepped
        std::optional<DayNumber> chosen;  // the date under the pointer that would be selected
    };
    using MouseEvent = CalendarEvents::Mouse;
    struct Place {
        float x, y;
    };
    Place InContainer(float x, float y) const;
    void Raise(MouseEvent CalendarEvents::*event, std::int16_t button, std::int16_t shift, float x,
               float y);
    std::optional<Arrow> ArrowAt(float x, float y);
    std::optional<DayNumber> SelectableAt(float x, float y);
    void Track(float x, float y);
    void Choose(std::optional<DayNumber> day);
    Press EndPress();
    void Release(const Press& press, float x, float y);
    void Pick(DayNumber day);
    void RepeatArrow();
    void TurnBy(int months);
    void InvalidateArrow(Arrow arrow);

    void AcceptMonth();

    // Painting
    bool IsPaintable() const noexcept {
        return m_state.ready && !m_state.noRepaintControl && !m_copying;
    }
    LayoutMetrics Measure();
    const MonthGrid& Grid();
    CalendarLayout ComputeLayout() { return LayoutCalendar(m_state, Measure()); }
    Size SizeFor(double lines);
    void UpdateLayout();
    /// What all parts of the screen show together, as of the last repaint that was asked for.
    struct Screen {
        DayNumber selected = 0;
        DayNumber today = 0;
        std::array<OLE_COLOR, 3> dayColors{};
        friend bool operator==(const Screen&, const Screen&) = default;
    };
    Screen WhatToShow() const;
    void NoteScreen();
    bool IsOutdated() const;
    bool IsScreenStale();
    void AnnounceMonth();
    CalendarView View() const;
    void FocusIs(bool here);
    void Invalidate(const Rect& rect);
    void InvalidateDay(std::optional<DayNumber> day);
    void RepaintSelection();

    Platform m_platform;
    CalendarState m_state;
    DaysRef m_days;
    CalendarEvents m_events;
    Lifetime m_lifetime;
    Selectors m_selectors;
    CalendarLayout m_layout;
    std::optional<MonthGrid> m_grid;  // the one asked for last
    bool m_laidOut = false;
    bool m_focused = false;   // the window's
    bool m_dragging = false;  // a drag from here is under way
    bool m_copying = false;   // `SetProps` is at work: one repaint at its end
    Press m_press;
    int m_wheel = 0;             // what is not yet a notch
    bool m_cancelled = false;    // Escape in the month list, until a selector is entered again
    unsigned m_dateChanges = 0;  // tells an operation that a handler has moved the date again
    Screen m_onScreen;
    bool m_outdated = false;  // other days since then, or a repaint that was asked for in vain
};

}  // namespace velmora
