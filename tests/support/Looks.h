#pragma once

#include "tests/support/TestBoxes.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velmora::test {

/// A setting that is painted and compared with a kept reference, by every drawing alike. All of
/// them are decorated: own colours, captions and pictures in the week of 8 March 2020; the 15th
/// is today, the 20th selected.
struct Look {
    std::string name;  // of its references
    Size size;
    std::vector<std::pair<std::string_view, Variant>> values;  // by published names
    void (*input)(TestCalendar& test) = nullptr;               // what the user does before
    /// Each of the values 0..`last` of this property is painted: the part that it shows in alone.
    std::string_view sweep = {};
    int last = 0;
};

/// The same of a date box.
struct BoxLook {
    std::string name;
    Size size;
    void (*input)(TestBoxes& test);
};

/// Pixels that show where each side of a picture is; what is left is transparent.
PictureRef PatternPicture(PictureType type, Size size);
ObjectRef DecoratedFont(double points);

inline void PressArrow(TestCalendar& test, Arrow arrow) {
    const Rect& at = test.calendar->Layout().arrows[static_cast<std::size_t>(arrow)];
    test.calendar->OnMouseDown(1, 0, static_cast<float>(at.left), static_cast<float>(at.top));
}

inline std::vector<Look> Looks() {
    constexpr Size kUsual{252, 202};
    constexpr Size kRoomy{280, 302};
    const std::int32_t flat = 0, none = 0, letter = 3, fullName = 1, arrows = 1, combo = 2, bar = 3;
    return {
        {"raised", kUsual, {{"WeekDayFont", DecoratedFont(8)}}},
        {"flat",
         kUsual,
         {{"Appearance", flat},
          {"DayAppearance", flat},
          {"MonthAppearance", flat},
          {"WeekDayAppearance", flat},
          {"FirstDayOfWeek", 2},
          {"WeekDayDisplay", letter},
          {"DayNumberAlignment", 4},
          {"MonthBackColor", 0x80000005},
          {"WeekDayBackColor", 0xC0E0FF}}},
        {"flat_days", {200, 163}, {{"DayAppearance", flat}, {"WeekDayDisplay", none}}},
        {"raised_days_alone",
         {203, 163},
         {{"MonthAppearance", flat}, {"WeekDayAppearance", flat}, {"FirstDayOfWeek", 7}}},
        {"work_week",
         {255, 202},
         {{"ShowWeekend", false},
          {"FirstDayOfWeek", 4},
          {"WeekDayDisplay", fullName},
          {"MonthDisplay", 1},
          {"MonthForeColor", 0x8000000D}}},
        {"disabled_arrows", {240, 202}, {{"MonthYearSelStyle", arrows}, {"Enabled", false}}},
        {"pressed_arrow",
         {300, 352},
         {{"MonthYearSelStyle", arrows}},
         [](TestCalendar& test) { PressArrow(test, Arrow::MonthForward); }},
        {"pressed_day",
         kUsual,
         {{"MonthYearSelStyle", arrows}},
         [](TestCalendar& test) { test.Press(Day(2020, 4, 2)); }},
        {"selected_in_next_month",
         kUsual,
         {{"MonthYearSelStyle", bar}, {"DateValue", "3/31/2020"}},
         [](TestCalendar& test) {
             test.calendar->OnDateScroll(MonthIndex(Day(2020, 4, 1)));
             test.now = DateOf(Day(2020, 5, 2), 0.5);
         }},
        {"caption_beside_the_list", {340, 202}, {{"MonthYearSelStyle", combo}}},
        {"no_room_beside_the_list", {222, 162}, {{"MonthYearSelStyle", combo}}},
        {"narrow", {66, 72}, {{"MonthYearSelStyle", arrows}, {"WeekDayDisplay", fullName}}},
        {"tiny", {16, 13}, {{"DayAppearance", flat}}},
        {"picture_alignments", kRoomy, {}, nullptr, "DayPictureAlignment", 14},
        {"number_alignments", kRoomy, {{"DayAppearance", flat}}, nullptr, "DayNumberAlignment", 8},
        {"caption_alignments", kRoomy, {}, nullptr, "DayCaptionAlignment", 8},
        {"week_day_alignments", kRoomy, {}, nullptr, "WeekDayCaptionAlignment", 8},
    };
}

inline std::vector<BoxLook> BoxLooks() {
    constexpr Size kUsual{150, 22};
    return {
        {"box", kUsual, [](TestBoxes&) {}},
        {"box_focused", kUsual, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
        {"box_disabled", kUsual, [](TestBoxes& test) { test.a.control->Enabled(false); }},
        {"box_disabled_focused", kUsual,
         [](TestBoxes& test) {
             test.a.control->OnGotFocus();
             test.a.control->Enabled(false);
         }},
        {"box_button_down", kUsual,
         [](TestBoxes& test) { test.a.control->OnMouseDown(1, 0, 140, 10); }},
        {"box_open", kUsual,
         [](TestBoxes& test) {
             test.a.control->OnMouseDown(1, 0, 140, 10);
             test.a.control->OnMouseUp(1, 0, 140, 10);
         }},
        {"box_tall", {120, 44}, [](TestBoxes&) {}},
        {"box_18_wide", {18, 22}, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
        {"box_5_wide", {5, 22}, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
        {"box_3_high", {150, 3}, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
    };
}

/// Makes a surface ready, has `paint` draw on it, and takes `part` of what is there now.
using Canvas =
    std::function<void(const Rect& part, const std::function<void(SurfaceHandle)>& paint)>;
/// Returns where its child controls stand.
std::vector<std::string> Paint(const Look& look, Drawing& drawing, const Canvas& canvas);
std::vector<std::string> Paint(const BoxLook& look, Drawing& drawing, const Canvas& canvas);

/// The picture or log that a look is compared with, and where what there is instead is written.
struct Reference {
    std::string kept;
    std::string actual;
    std::string difference;
};
Reference ReferenceOf(const std::string& name, const std::string& folder,
                      const std::string& ending);
/// Whether references are written instead of compared: VELMORA_RENEW_LOOKS=1.
bool RenewsLooks();

}  // namespace velmora::test
