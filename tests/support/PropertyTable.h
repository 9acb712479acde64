#pragma once

#include <string_view>
#include <vector>

/// What the two controls publish, said a second time in plain names and numbers: the core and every
/// host are held against it.
namespace velmora::test {

/// What a property takes. A value is a number here, whatever it travels as.
enum class Kind {
    Choice,   // a whole number
    Color,    // 0x00BBGGRR, or 0x80000000 and the index of a system colour
    Flag,     // 1 is True
    Limit,    // the number of a day, the first or last of its month
    Day,      // the number of a day, refused outside the limits
    Moment,   // the number of a day with its time, moved to the limits
    Font,     // a font of that many points
    Icon,     // an icon that many pixels wide, 0 is none
    Pointer,  // 0..15 and 99; anything else is ignored
    Extent,   // of the drop-down, in pixels
    Format,   // the text at that place of `kFormats`
};

/// The type of a saved value.
enum class Form { Integer, Boolean, Date, Text, Object };

/// What a calendar repaints after a change.
enum class Repaint { Nothing, MonthBand, WeekDayRow, Whole };

inline constexpr std::string_view kFormats[] = {"Short Date", "yyyy, \"m\"", ""};
inline constexpr double kToday =
    1e9;  // as the initial value: the day, for a `Moment` with the time

struct PropertyRow {
    std::string_view name;
    Kind kind;
    double initial, low, high;  // of a new control; two others that it takes, ends of its range
    Form form = Form::Integer;
    std::string_view otherKey = {};
    bool always = false;  // saved also when it has its initial value
    bool copied = true;   // by `SetProps`, and from a box to its calendar
    Repaint repaint = Repaint::Whole;

    // In front of what uses it: clang instantiates it there.
    template <class T>
    constexpr PropertyRow With(T PropertyRow::*field, T value) const {
        PropertyRow row = *this;
        row.*field = value;
        return row;
    }

    /// A value that differs from the initial one.
    constexpr double Changed() const { return low != initial ? low : high; }
    /// The name under which it is saved and its change is reported.
    constexpr std::string_view Key() const { return otherKey.empty() ? name : otherKey; }
    constexpr PropertyRow KeyIs(std::string_view other) const {
        return With(&PropertyRow::otherKey, other);
    }
    constexpr PropertyRow Always() const { return With(&PropertyRow::always, true); }
    constexpr PropertyRow NotCopied() const { return With(&PropertyRow::copied, false); }
    constexpr PropertyRow As(Form other) const { return With(&PropertyRow::form, other); }
    constexpr PropertyRow Repaints(Repaint part) const { return With(&PropertyRow::repaint, part); }
};

/// Numbers that are refused with error 380; a `Pointer` ignores them. Text that is none, Null and
/// an object of another kind are error 13 wherever they mean nothing, 5000000000 is error 6 where
/// whole numbers are taken, and a bitmap as an `Icon` error 380.
inline std::vector<double> RefusedNumbers(const PropertyRow& row) {
    switch (row.kind) {
        case Kind::Choice: return {row.low - 1, row.high + 1, -2147483648.0, 2147483647};
        case Kind::Color: return {0x01000000, 0x7F000000, 0xFF000000, 0x40ABCDEF};
        case Kind::Limit: {  // also beyond the other limit as a calendar and a box have it at first
            const bool box = row.form == Form::Integer, isMax = row.name == "DateMax";
            const double beyond = box ? (isMax ? -292193 : 292561) : isMax ? -328717 : 401769;
            return {-620911, 986522, beyond};
        }
        case Kind::Day: return {-620911, 986522};  // 31 December 199, 1 January 4601
        case Kind::Pointer: return {-1, 16, 98, 100};
        case Kind::Extent: return {-15};
        default: return {};
    }
}

constexpr PropertyRow Choice(std::string_view name, double initial, double high, double low = 0) {
    return {name, Kind::Choice, initial, low, high};
}
constexpr PropertyRow Color(std::string_view name, double initial) {
    return {name, Kind::Color, initial, 0x123456, 0x80FFFFFF};
}
constexpr PropertyRow Flag(std::string_view name) {
    return {name, Kind::Flag, 1, 0, 1, Form::Boolean};
}
constexpr PropertyRow Font(std::string_view name) {
    return PropertyRow{name, Kind::Font, 9, 8.25, 30, Form::Object}.Always();
}
constexpr PropertyRow Limit(std::string_view name, double initial, double low, double high) {
    return PropertyRow{name, Kind::Limit, initial, low, high, Form::Date}.Repaints(
        Repaint::Nothing);
}
constexpr PropertyRow Pointer() {
    return PropertyRow{"MousePointer", Kind::Pointer, 0, 15, 99}.Repaints(Repaint::Nothing);
}
constexpr PropertyRow Icon() {
    return PropertyRow{"MouseIcon", Kind::Icon, 0, 2, 3, Form::Object}.Repaints(Repaint::Nothing);
}

/// A calendar's saved properties in the order of writing. `DayDefaultBackColor` is written twice.
inline constexpr PropertyRow kCalendarRows[] = {
    Choice("Appearance", 1, 1),
    Color("SelectedDayBackColor", 0x8000000D),
    Color("SelectedDayForeColor", 0x8000000E),
    {"DateValue", Kind::Day, kToday, -108841, 219206, Form::Date},
    Choice("DayAppearance", 1, 1),
    Choice("DayCaptionAlignment", 5, 8),
    Color("DayDefaultBackColor", 0x8000000F),
    Color("DayOtherMonthForeColor", 0x80000011),
    Color("DayDefaultForeColor", 0x80000008),
    Font("DayFont"),
    Choice("DayNumberAlignment", 6, 8),
    Choice("DayPictureAlignment", 0, 14),
    Color("DayDefaultBackColor", 0x8000000F),
    Flag("Enabled").NotCopied(),
    Choice("FirstDayOfWeek", 1, 7, 1),
    Choice("MonthAppearance", 1, 1).Always(),
    Color("MonthBackColor", 0x8000000F).Always().Repaints(Repaint::MonthBand),
    Choice("MonthDisplay", 0, 1).Always(),
    Font("MonthFont"),
    Color("MonthForeColor", 0x80000008).Repaints(Repaint::MonthBand),
    Limit("DateMax", 401768, 219206, 986521),     // 28 February 2500, 31 December 4600
    Limit("DateMin", -328716, -620910, -146064),  // 1 January 200, 1 February 1500
    Choice("MonthYearSelStyle", 0, 3),
    Icon(),
    Pointer(),
    Flag("ShowWeekend").Always(),
    Color("TodayBackColor", 0x00FFFF00).Always(),
    Color("TodayForeColor", 0x80000008).Always(),
    Choice("WeekDayAppearance", 1, 1).Always(),
    Color("WeekDayBackColor", 0x8000000F).Always().Repaints(Repaint::WeekDayRow),
    Choice("WeekDayCaptionAlignment", 4, 8),
    Choice("WeekDayDisplay", 2, 3).Always(),
    Font("WeekDayFont"),
    Color("WeekDayForeColor", 0x80000008).Repaints(Repaint::WeekDayRow),
};

/// A date box's, in the order of writing and reading. `DateFormat` is written twice; the limits are
/// saved as whole numbers; fonts always differ from the ones that stand for them.
inline constexpr PropertyRow kBoxRows[] = {
    Font("ComboFont").NotCopied(),
    PropertyRow{"DateFormat", Kind::Format, 0, 1, 2, Form::Text}
        .KeyIs("ComboDateFormat")
        .NotCopied(),
    Choice("DropDownAlignment", 0, 1).NotCopied(),
    PropertyRow{"DropDownHeight", Kind::Extent, 200, 0, 300}.NotCopied(),
    PropertyRow{"DropDownWidth", Kind::Extent, 250, 0, 300}.NotCopied(),
    Flag("Enabled").KeyIs("ComboEnabled").NotCopied(),
    Icon().KeyIs("ComboMouseIcon"),
    Pointer().KeyIs("ComboMousePointer"),
    Choice("DropDownAppearance", 1, 1),
    PropertyRow{"DateFormat", Kind::Format, 0, 1, 2, Form::Text}
        .KeyIs("ComboDateFormat")
        .NotCopied(),
    Limit("DateMax", 292560, 219206, 986521).As(Form::Integer),
    Limit("DateMin", -292192, -620910, -146064).As(Form::Integer),
    {"DateValue", Kind::Moment, kToday, -108841.25, 219206.5, Form::Date},
    Choice("DayAppearance", 1, 1),
    Choice("DayCaptionAlignment", 5, 8),
    Color("DayDefaultBackColor", 0x8000000F),
    Color("DayDefaultForeColor", 0x80000008),
    Color("DayOtherMonthForeColor", 0x80000011),
    Font("DayFont"),
    Choice("DayNumberAlignment", 6, 8),
    Choice("DayPictureAlignment", 0, 14),
    Choice("FirstDayOfWeek", 1, 7, 1),
    Choice("MonthAppearance", 1, 1),
    Color("MonthBackColor", 0x8000000F),
    Choice("MonthDisplay", 0, 1),
    Color("MonthForeColor", 0x80000008),
    Font("MonthFont"),
    Choice("MonthYearSelStyle", 0, 1),
    Color("SelectedDayBackColor", 0x8000000D),
    Color("SelectedDayForeColor", 0x8000000E),
    Color("TodayBackColor", 0x00FFFF00),
    Color("TodayForeColor", 0x80000008),
    Choice("WeekDayAppearance", 1, 1),
    Color("WeekDayBackColor", 0x8000000F),
    Color("WeekDayForeColor", 0x80000008),
    Choice("WeekDayDisplay", 2, 3),
    Font("WeekDayFont"),
    Choice("WeekDayCaptionAlignment", 4, 8),
    Flag("ShowWeekend"),
};

}  // namespace velmora::test
