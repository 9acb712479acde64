#pragma once

#include "calendar/DateLimits.h"
#include "calendar/PropertyRows.h"

#include <cstdint>

namespace velmora {

/// The signed value lies in the inclusive range.
template <auto kLowest, auto kHighest>
constexpr bool Within(const decltype(kLowest)& value) {
    return kLowest <= value && value <= kHighest;
}

/// 0..15 are the platform's pointers, 99 is the mouse icon.
constexpr bool IsMousePointer(const std::int16_t& value) {
    return (0 <= value && value <= 15) || value == 99;
}

inline bool IsIconOrNone(const PictureRef& picture) {
    return !picture || picture->Type() == PictureType::Icon;
}

constexpr bool AdmitsColor(const OLE_COLOR& color) { return IsPropertyColor(color); }

inline constexpr auto kAdmitsAppearance = Within<VmAppearanceFlat, VmAppearance3D>;
inline constexpr auto kAdmitsTextAlignment = Within<VmTextTopLeft, VmTextBottomRight>;

inline constexpr Property<VmAppearanceConstants> kAppearance{
    "Appearance", &CalendarState::appearance, kAdmitsAppearance};
inline constexpr LimitProperty kDateMax{"DateMax", &CalendarState::dateMax, StoreDateMax};
inline constexpr LimitProperty kDateMin{"DateMin", &CalendarState::dateMin, StoreDateMin};
inline constexpr DateProperty kDateValue{"DateValue", &CalendarState::dateValue};
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
inline constexpr Property<FontRef> kDayFont{"DayFont", &CalendarState::dayFont, nullptr,
                                            AfterEffect::Repaint, Saved::Always};
inline constexpr Property<VmTextAlignmentConstants> kDayNumberAlignment{
    "DayNumberAlignment", &CalendarState::dayNumberAlignment, kAdmitsTextAlignment};
inline constexpr Property<VmPictureAlignmentConstants> kDayPictureAlignment{
    "DayPictureAlignment", &CalendarState::dayPictureAlignment,
    Within<VmPictTopLeft, VmPictBelowText>};
inline constexpr Property<VmWeekDays> kFirstDayOfWeek{
    "FirstDayOfWeek", &CalendarState::firstDayOfWeek, Within<VmSunday, VmSaturday>};
inline constexpr Property<VmAppearanceConstants> kMonthAppearance{
    "MonthAppearance", &CalendarState::monthAppearance, kAdmitsAppearance, AfterEffect::Repaint,
    Saved::Always};
inline constexpr Property<OLE_COLOR> kMonthBackColor{"MonthBackColor",
                                                     &CalendarState::monthBackColor, AdmitsColor,
                                                     AfterEffect::MonthBand, Saved::Always};
inline constexpr Property<VmMonthDisplayConstants> kMonthDisplay{
    "MonthDisplay", &CalendarState::monthDisplay, Within<VmMonthFullName, VmMonthAbbrName>,
    AfterEffect::Repaint, Saved::Always};
inline constexpr Property<FontRef> kMonthFont{"MonthFont", &CalendarState::monthFont, nullptr,
                                              AfterEffect::Repaint, Saved::Always};
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
                                                     &CalendarState::todayBackColor, AdmitsColor,
                                                     AfterEffect::Repaint, Saved::Always};
inline constexpr Property<OLE_COLOR> kTodayForeColor{"TodayForeColor",
                                                     &CalendarState::todayForeColor, AdmitsColor,
                                                     AfterEffect::Repaint, Saved::Always};
inline constexpr Property<VmAppearanceConstants> kWeekDayAppearance{
    "WeekDayAppearance", &CalendarState::weekDayAppearance, kAdmitsAppearance, AfterEffect::Repaint,
    Saved::Always};
inline constexpr Property<OLE_COLOR> kWeekDayBackColor{
    "WeekDayBackColor", &CalendarState::weekDayBackColor, AdmitsColor, AfterEffect::WeekDayRow,
    Saved::Always};
inline constexpr Property<VmWeekDayDisplayConstants> kWeekDayDisplay{
    "WeekDayDisplay", &CalendarState::weekDayDisplay, Within<VmWeekdayNone, VmWeekDayLetter>,
    AfterEffect::Repaint, Saved::Always};
inline constexpr Property<FontRef> kWeekDayFont{"WeekDayFont", &CalendarState::weekDayFont, nullptr,
                                                AfterEffect::Repaint, Saved::Always};
inline constexpr Property<OLE_COLOR> kWeekDayForeColor{
    "WeekDayForeColor", &CalendarState::weekDayForeColor, AdmitsColor, AfterEffect::WeekDayRow};
inline constexpr Property<VmTextAlignmentConstants> kWeekDayCaptionAlignment{
    "WeekDayCaptionAlignment", &CalendarState::weekDayCaptionAlignment, kAdmitsTextAlignment};
inline constexpr Property<bool> kShowWeekend{"ShowWeekend", &CalendarState::showWeekend, nullptr,
                                             AfterEffect::Repaint, Saved::Always};

inline constexpr WindowProperty<bool> kEnabled{
    "Enabled", &WindowProperties::Enabled, &WindowProperties::Enabled,
    nullptr,   AfterEffect::Repaint,       Unfit::Refused,
    Copied::No};
inline constexpr WindowProperty<PictureRef> kMouseIcon{"MouseIcon", &WindowProperties::MouseIcon,
                                                       &WindowProperties::MouseIcon, IsIconOrNone};
inline constexpr WindowProperty<std::int16_t> kMousePointer{"MousePointer",
                                                            &WindowProperties::MousePointer,
                                                            &WindowProperties::MousePointer,
                                                            IsMousePointer,
                                                            AfterEffect::Nothing,
                                                            Unfit::Ignored};
inline constexpr DaysProperty kDays{"Days"};
inline constexpr SelectedDayProperty kSelectedDay{"SelectedDay"};

/// The properties that are reached by name, in the order of their slots.
using Slots = Rows<kAppearance, kDateMax, kDateMin, kDateValue, kDayAppearance,
                   kDayDefaultBackColor, kDayOtherMonthForeColor, kDayDefaultForeColor,
                   kDayCaptionAlignment, kDayFont, kDayNumberAlignment, kDayPictureAlignment, kDays,
                   kEnabled, kFirstDayOfWeek, kMonthAppearance, kMonthBackColor, kMonthDisplay,
                   kMonthFont, kMonthForeColor, kMonthYearSelStyle, kMouseIcon, kMousePointer,
                   kSelectedDay, kSelectedDayBackColor, kSelectedDayForeColor, kTodayBackColor,
                   kTodayForeColor, kWeekDayAppearance, kWeekDayBackColor, kWeekDayDisplay,
                   kWeekDayFont, kWeekDayForeColor, kWeekDayCaptionAlignment, kShowWeekend>;

/// The second day back colour is part of the saved format.
using WriteOrder =
    Rows<kAppearance, kSelectedDayBackColor, kSelectedDayForeColor, kDateValue, kDayAppearance,
         kDayCaptionAlignment, kDayDefaultBackColor, kDayOtherMonthForeColor, kDayDefaultForeColor,
         kDayFont, kDayNumberAlignment, kDayPictureAlignment, kDayDefaultBackColor, kEnabled,
         kFirstDayOfWeek, kMonthAppearance, kMonthBackColor, kMonthDisplay, kMonthFont,
         kMonthForeColor, kDateMax, kDateMin, kMonthYearSelStyle, kMouseIcon, kMousePointer,
         kShowWeekend, kTodayBackColor, kTodayForeColor, kWeekDayAppearance, kWeekDayBackColor,
         kWeekDayCaptionAlignment, kWeekDayDisplay, kWeekDayFont, kWeekDayForeColor>;
static_assert(Covers<WriteOrder>(Slots(), kIsSaved) && IsWithin<Slots>(WriteOrder()));

/// Two day colours are read twice.
using ReadOrder =
    Rows<kAppearance, kSelectedDayBackColor, kSelectedDayForeColor, kDayAppearance,
         kDayCaptionAlignment, kDayDefaultBackColor, kDayDefaultForeColor, kDayFont,
         kDayNumberAlignment, kDayPictureAlignment, kDayDefaultBackColor, kDayOtherMonthForeColor,
         kDayDefaultForeColor, kEnabled, kFirstDayOfWeek, kMonthAppearance, kMonthBackColor,
         kMonthDisplay, kMonthFont, kMonthForeColor, kMouseIcon, kMousePointer, kDateMax, kDateMin,
         kDateValue, kMonthYearSelStyle, kShowWeekend, kTodayBackColor, kTodayForeColor,
         kWeekDayAppearance, kWeekDayBackColor, kWeekDayDisplay, kWeekDayFont,
         kWeekDayCaptionAlignment, kWeekDayForeColor>;
static_assert(Covers<ReadOrder>(Slots(), kIsSaved) && IsWithin<Slots>(ReadOrder()));

/// The order of `SetProps`.
using CopyOrder =
    Rows<kAppearance, kSelectedDayBackColor, kSelectedDayForeColor, kDayAppearance,
         kDayCaptionAlignment, kDayFont, kDayNumberAlignment, kDayPictureAlignment,
         kDayDefaultBackColor, kDayOtherMonthForeColor, kDayDefaultForeColor, kFirstDayOfWeek,
         kMonthAppearance, kMonthBackColor, kMonthDisplay, kMonthFont, kMonthForeColor, kMouseIcon,
         kMousePointer, kDateMax, kDateMin, kDateValue, kMonthYearSelStyle, kShowWeekend,
         kTodayBackColor, kTodayForeColor, kWeekDayAppearance, kWeekDayBackColor, kWeekDayDisplay,
         kWeekDayFont, kWeekDayCaptionAlignment, kWeekDayForeColor>;
static_assert(Covers<CopyOrder>(Slots(), kIsCopied) && IsWithin<Slots>(CopyOrder()));

}  // namespace velmora
