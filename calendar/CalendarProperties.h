#pragma once

#include "calendar/CalendarState.h"
#include "model/VmDays.h"

#include <cstdint>
#include <string_view>

namespace velmora {

/// What a successful setter does after it has stored the value and told the container.
enum class AfterEffect { Nothing, Repaint, MonthBand, WeekDayRow };

/// A published property that lives in the state. Where that is all there is to it, the row serves
/// its setter; a property with a story of its own has a row for its name and storage.
template <class T>
struct Property {
    using Value = T;

    std::string_view name;  // published name, also the saved key
    T CalendarState::*field;
    bool (*admits)(const T&) = nullptr;  // false refuses with error 380
    AfterEffect effect = AfterEffect::Repaint;

    const T& Get(const CalendarState& state, const VmDays&) const { return state.*field; }
    void Store(CalendarState& state, VmDays&, const T& value) const { state.*field = value; }
};

/// A default colour of days: it lives in the day collection.
struct DayColorProperty {
    using Value = OLE_COLOR;

    std::string_view name;
    OLE_COLOR (VmDays::*get)() const noexcept;
    void (VmDays::*set)(OLE_COLOR) noexcept;
    bool (*admits)(const OLE_COLOR&);
    AfterEffect effect = AfterEffect::Repaint;

    OLE_COLOR Get(const CalendarState&, const VmDays& days) const { return (days.*get)(); }
    void Store(CalendarState&, VmDays& days, OLE_COLOR value) const { (days.*set)(value); }
};

/// The signed value lies in the inclusive range.
template <auto kLowest, auto kHighest>
constexpr bool Within(const decltype(kLowest)& value) {
    return kLowest <= value && value <= kHighest;
}

/// 0..15 are the platform's pointers, 99 is the mouse icon.
constexpr bool IsMousePointer(std::int16_t value) {
    return (0 <= value && value <= 15) || value == 99;
}

constexpr bool AdmitsColor(const OLE_COLOR& color) { return IsPropertyColor(color); }

inline constexpr auto kAdmitsAppearance = Within<VmAppearanceFlat, VmAppearance3D>;
inline constexpr auto kAdmitsTextAlignment = Within<VmTextTopLeft, VmTextBottomRight>;

inline constexpr Property<VmAppearanceConstants> kAppearance{
    "Appearance", &CalendarState::appearance, kAdmitsAppearance};
inline constexpr Property<Date> kDateMax{"DateMax", &CalendarState::dateMax};
inline constexpr Property<Date> kDateMin{"DateMin", &CalendarState::dateMin};
inline constexpr Property<Date> kDateValue{"DateValue", &CalendarState::dateValue};
inline constexpr Property<VmAppearanceConstants> kDayAppearance{
    "DayAppearance", &CalendarState::dayAppearance, kAdmitsAppearance};
inline constexpr DayColorProperty kDayDefaultBackColor{
    "DayDefaultBackColor", &VmDays::DefaultBackColor, &VmDays::DefaultBackColor, AdmitsColor};
inline constexpr DayColorProperty kDayOtherMonthForeColor{
    "DayOtherMonthForeColor", &VmDays::OtherMonthForeColor, &VmDays::OtherMonthForeColor,
    AdmitsColor};
inline constexpr DayColorProperty kDayDefaultForeColor{
    "DayDefaultForeColor", &VmDays::DefaultForeColor, &VmDays::DefaultForeColor, AdmitsColor};
inline constexpr Property<VmTextAlignmentConstants> kDayCaptionAlignment{
    "DayCaptionAlignment", &CalendarState::dayCaptionAlignment, kAdmitsTextAlignment};
inline constexpr Property<FontRef> kDayFont{"DayFont", &CalendarState::dayFont};
inline constexpr Property<VmTextAlignmentConstants> kDayNumberAlignment{
    "DayNumberAlignment", &CalendarState::dayNumberAlignment, kAdmitsTextAlignment};
inline constexpr Property<VmPictureAlignmentConstants> kDayPictureAlignment{
    "DayPictureAlignment", &CalendarState::dayPictureAlignment,
    Within<VmPictTopLeft, VmPictBelowText>};
inline constexpr Property<VmWeekDays> kFirstDayOfWeek{
    "FirstDayOfWeek", &CalendarState::firstDayOfWeek, Within<VmSunday, VmSaturday>};
inline constexpr Property<VmAppearanceConstants> kMonthAppearance{
    "MonthAppearance", &CalendarState::monthAppearance, kAdmitsAppearance};
inline constexpr Property<OLE_COLOR> kMonthBackColor{
    "MonthBackColor", &CalendarState::monthBackColor, AdmitsColor, AfterEffect::MonthBand};
inline constexpr Property<VmMonthDisplayConstants> kMonthDisplay{
    "MonthDisplay", &CalendarState::monthDisplay, Within<VmMonthFullName, VmMonthAbbrName>};
inline constexpr Property<FontRef> kMonthFont{"MonthFont", &CalendarState::monthFont};
inline constexpr Property<OLE_COLOR> kMonthForeColor{
    "MonthForeColor", &CalendarState::monthForeColor, AdmitsColor, AfterEffect::MonthBand};
inline constexpr Property<VmMonthYearSelStyleConstants> kMonthYearSelStyle{
    "MonthYearSelStyle", &CalendarState::monthYearSelStyle,
    Within<VmMonthSelNone, VmMonthSelScrollbar>};
inline constexpr Property<OLE_COLOR> kSelectedDayBackColor{
    "SelectedDayBackColor", &CalendarState::selectedDayBackColor, AdmitsColor};
inline constexpr Property<OLE_COLOR> kSelectedDayForeColor{
    "SelectedDayForeColor", &CalendarState::selectedDayForeColor, AdmitsColor};
inline constexpr Property<OLE_COLOR> kTodayBackColor{"TodayBackColor",
                                                     &CalendarState::todayBackColor, AdmitsColor};
inline constexpr Property<OLE_COLOR> kTodayForeColor{"TodayForeColor",
                                                     &CalendarState::todayForeColor, AdmitsColor};
inline constexpr Property<VmAppearanceConstants> kWeekDayAppearance{
    "WeekDayAppearance", &CalendarState::weekDayAppearance, kAdmitsAppearance};
inline constexpr Property<OLE_COLOR> kWeekDayBackColor{
    "WeekDayBackColor", &CalendarState::weekDayBackColor, AdmitsColor, AfterEffect::WeekDayRow};
inline constexpr Property<VmWeekDayDisplayConstants> kWeekDayDisplay{
    "WeekDayDisplay", &CalendarState::weekDayDisplay, Within<VmWeekdayNone, VmWeekDayLetter>};
inline constexpr Property<FontRef> kWeekDayFont{"WeekDayFont", &CalendarState::weekDayFont};
inline constexpr Property<OLE_COLOR> kWeekDayForeColor{
    "WeekDayForeColor", &CalendarState::weekDayForeColor, AdmitsColor, AfterEffect::WeekDayRow};
inline constexpr Property<VmTextAlignmentConstants> kWeekDayCaptionAlignment{
    "WeekDayCaptionAlignment", &CalendarState::weekDayCaptionAlignment, kAdmitsTextAlignment};
inline constexpr Property<bool> kShowWeekend{"ShowWeekend", &CalendarState::showWeekend};

/// Properties that live elsewhere: only their names are here.
inline constexpr std::string_view kDays = "Days";
inline constexpr std::string_view kEnabled = "Enabled";
inline constexpr std::string_view kMouseIcon = "MouseIcon";
inline constexpr std::string_view kMousePointer = "MousePointer";

}  // namespace velmora
