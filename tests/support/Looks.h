#pragma once

#include "tests/support/TestBoxes.h"

#include <cstdlib>
#include <filesystem>

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
inline PictureRef PatternPicture(PictureType type, Size size) {
    auto image = std::make_shared<PixelImage>();
    image->width = size.width;
    image->height = size.height;
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const bool side = x == 0 || y == 0 || x == size.width - 1 || y == size.height - 1;
            const std::uint32_t mixed =
                0xFF4000A0u + static_cast<std::uint32_t>(x * 5 << 16 | y * 5 << 8);
            image->pixels.push_back(side ? 0xFFD02010u : x > y ? mixed : x == y ? 0x80FFFFFFu : 0u);
        }
    }
    const auto himetric = [](int pixels) { return (pixels * 2540 + 48) / 96; };
    return std::make_shared<StdPicture>(type, Size{himetric(size.width), himetric(size.height)},
                                        image);
}

inline ObjectRef DecoratedFont(double points) {
    auto font = std::make_shared<StdFont>();
    font->name = "DejaVu Sans";
    font->size = points;
    font->bold = font->underline = true;
    return font;
}

inline void PressArrow(TestCalendar& test, Arrow arrow) {
    const Rect& at = test.calendar->Layout().arrows[static_cast<std::size_t>(arrow)];
    test.calendar->OnMouseDown(1, 0, static_cast<float>(at.left), static_cast<float>(at.top));
}

inline void Turn(TestCalendar& test) {
    test.rightToLeft = true;
    test.calendar->OnLocaleChanged();
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
             test.calendar->OnGotFocus();
         }},
        {"focused",
         kUsual,
         {{"SelectedDayBackColor", 0xC0FFFF}, {"TodayBackColor", 0x400000}},
         [](TestCalendar& test) { test.calendar->OnGotFocus(); }},
        {"right_to_left", {256, 202}, {{"MonthYearSelStyle", arrows}}, &Turn},
        {"right_to_left_flat",
         {340, 202},
         {{"DayAppearance", flat}, {"MonthYearSelStyle", combo}, {"DayPictureAlignment", 11}},
         &Turn},
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
         [](TestBoxes& test) { test.a.control->OnGotFocus(), test.a.control->Enabled(false); }},
        {"box_button_down", kUsual,
         [](TestBoxes& test) { test.a.control->OnMouseDown(1, 0, 140, 10); }},
        {"box_open", kUsual,
         [](TestBoxes& test) {
             test.a.control->OnMouseDown(1, 0, 140, 10), test.a.control->OnMouseUp(1, 0, 140, 10);
         }},
        {"box_right_to_left", kUsual,
         [](TestBoxes& test) { test.a.window->rightToLeft = true, test.a.control->OnGotFocus(); }},
        {"box_tall", {120, 44}, [](TestBoxes&) {}},
        {"box_18_wide", {18, 22}, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
        {"box_5_wide", {5, 22}, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
        {"box_3_high", {150, 3}, [](TestBoxes& test) { test.a.control->OnGotFocus(); }},
    };
}

/// Makes a surface ready, has `paint` draw on it, and takes `part` of what is there now.
using Canvas =
    std::function<void(const Rect& part, const std::function<void(SurfaceHandle)>& paint)>;
inline void Decorate(const VmDays& days) {
    days.Item(8)->Picture(PatternPicture(PictureType::Bitmap, {9, 7}));
    days.Item(9)->Picture(PatternPicture(PictureType::Bitmap, {60, 50}));
    days.Item(10)->Picture(PatternPicture(PictureType::Icon, {16, 16}));
    days.Item(11)->Caption("R&B\t1");
    days.Item(12)->Caption("a caption that is too long for its cell");
    days.Item(13)->ForeColor(0x0000FF);
    days.Item(13)->BackColor(0x80FFFF);
    days.Item(13)->Caption("own");
    for (const std::int16_t special : {std::int16_t{15}, std::int16_t{20}}) {
        days.Item(special)->BackColor(0x00FF00);
    }
}

inline Rect PartOf(const Look& look, const CalendarLayout& layout) {
    if (look.sweep.empty()) return layout.Client();
    if (look.sweep.starts_with("WeekDay")) return layout.WeekDayRow();
    const int top = layout.gridTop + 1 + 2 * layout.rowHeight;  // the decorated week
    return {1, top, layout.client.width - 1, top + layout.rowHeight};
}

/// Returns where its child controls stand.
inline std::vector<std::string> Paint(const Look& look, Drawing& drawing, const Canvas& canvas) {
    TestCalendar test(look.size, &drawing);
    VmCalendar& calendar = *test.calendar;
    calendar.DateValue("3/20/2020");
    for (const auto& [name, value] : look.values) calendar.LetMember(name, value);
    Decorate(*calendar.Days());
    if (look.input) look.input(test);
    for (std::int32_t value = 0; value <= look.last; ++value) {
        if (!look.sweep.empty()) calendar.LetMember(look.sweep, value);
        const Rect part = PartOf(look, calendar.Layout());
        canvas(part, [&](SurfaceHandle surface) { calendar.OnPaint(surface, {&part, 1}); });
    }
    std::vector<std::string> children;
    for (const FakeChild* child :
         {&test.monthList, &test.yearText, &test.yearSpinner, &test.dateScroll}) {
        const auto [left, top, right, bottom] = child->rect;
        if (!child->visible) continue;
        children.push_back("child " + std::to_string(left) + ',' + std::to_string(top) + ' ' +
                           std::to_string(right) + ',' + std::to_string(bottom));
    }
    return children;
}

inline std::vector<std::string> Paint(const BoxLook& look, Drawing& drawing, const Canvas& canvas) {
    TestBoxes test(&drawing);
    test.a.window->screen = {0, 0, look.size.width, look.size.height};
    look.input(test);
    canvas({0, 0, look.size.width, look.size.height},
           [&](SurfaceHandle surface) { test.a.control->OnPaint(surface); });
    return {};
}

/// The picture or log that a look is compared with, and where what there is instead is written.
struct Reference {
    std::string kept;
    std::string actual;
    std::string difference;
};

/// Whether references are written instead of compared: VELMORA_RENEW_LOOKS=1.
inline bool RenewsLooks() { return std::getenv("VELMORA_RENEW_LOOKS") != nullptr; }

inline Reference ReferenceOf(const std::string& name, const std::string& folder,
                             const std::string& ending) {
    const std::string kept = VELMORA_TESTS_FOLDER "/" + folder + "/looks/";
    const std::string actual = VELMORA_TESTS_OUTPUT "/" + folder + "/looks/";
    std::filesystem::create_directories(RenewsLooks() ? kept : actual);
    return {kept + name + ending, actual + name + ending, actual + name + ".difference" + ending};
}

}  // namespace velmora::test
