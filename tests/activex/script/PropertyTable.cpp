#include "tests/activex/script/PropertyTable.h"

namespace velmora::vmhost {
namespace {

constexpr long kTypeMismatch = 13;
constexpr long kOverflow = 6;
constexpr long kInvalidValue = 380;
constexpr long kNoSuchMember = 438;

/// Takes 0 (or `least`) to `most`.
ScriptProperty Choice(const std::string& name, int first, int most, int least = 0) {
    const std::string other = std::to_string(first == most ? least : most);
    const std::vector<Refusal> refused{{std::to_string(least - 1), kInvalidValue},
                                       {std::to_string(most + 1), kInvalidValue},
                                       {"\"text\"", kTypeMismatch},
                                       {"99999999999", kOverflow}};
    return {name, std::to_string(first), other, other, refused};
}

ScriptProperty Color(const std::string& name, const std::string& first) {
    const std::vector<Refusal> refused{{"&H01000000", kInvalidValue},
                                       {"&H7F000000", kInvalidValue},
                                       {"&HC0000000", kInvalidValue},
                                       {"\"text\"", kTypeMismatch},
                                       {"99999999999", kOverflow}};
    return {name, first, "&H123456", "123456", refused, true};
}

ScriptProperty YesNo(const std::string& name) {
    return {name, "True", "False", "False", {{"\"text\"", kTypeMismatch}}};
}

ScriptProperty ReadOnly(const std::string& name, const std::string& shown) {
    return {name, shown, "", "", {{"1", kNoSuchMember}}};
}

/// Set to a 3 February, and moved from there to the month's end or beginning.
ScriptProperty Limit(const std::string& name, const std::string& first, const std::string& shown,
                     const std::vector<std::string>& invalid) {
    const std::string literal = "DateSerial(" + shown.substr(0, 4) + ", 2, 3)";
    ScriptProperty row{name, first, literal, shown, {{"\"text\"", kTypeMismatch}}};
    for (const std::string& other : invalid) row.refused.push_back({other, kInvalidValue});
    return row;
}

/// What a calendar and a date box have in common.
std::vector<ScriptProperty> CommonProperties() {
    return {
        {"DateValue", "", "DateSerial(2024, 3, 2)", "", {{"\"text\"", kTypeMismatch}}},
        Choice("DayAppearance", 1, 1),
        Color("DayDefaultBackColor", "8000000F"),
        Color("DayDefaultForeColor", "80000008"),
        Color("DayOtherMonthForeColor", "80000011"),
        Choice("DayCaptionAlignment", 5, 8),
        Choice("DayNumberAlignment", 6, 8),
        Choice("DayPictureAlignment", 0, 14),
        YesNo("Enabled"),
        Choice("FirstDayOfWeek", 1, 7, 1),
        Choice("MonthAppearance", 1, 1),
        Color("MonthBackColor", "8000000F"),
        Choice("MonthDisplay", 0, 1),
        {"OLEDropMode", "0", "1", "1", {{"3", kInvalidValue}}},
        Color("MonthForeColor", "80000008"),
        {"MousePointer", "0", "15", "15", {{"\"text\"", kTypeMismatch}, {"70000", kOverflow}}},
        Color("SelectedDayBackColor", "8000000D"),
        Color("SelectedDayForeColor", "8000000E"),
        Color("TodayBackColor", "FFFF00"),
        Color("TodayForeColor", "80000008"),
        Choice("WeekDayAppearance", 1, 1),
        Color("WeekDayBackColor", "8000000F"),
        Choice("WeekDayDisplay", 2, 3),
        Color("WeekDayForeColor", "80000008"),
        Choice("WeekDayCaptionAlignment", 4, 8),
        YesNo("ShowWeekend"),
        ReadOnly("Days", ""),
        ReadOnly("SelectedDay", ""),
        ReadOnly("hWnd", ""),
    };
}

std::vector<ScriptProperty> With(std::vector<ScriptProperty> rows) {
    for (ScriptProperty& row : CommonProperties()) rows.push_back(std::move(row));
    return rows;
}

}  // namespace

std::vector<ScriptProperty> CalendarProperties() {
    return With({
        Choice("Appearance", 1, 1),
        Limit("DateMax", "2999-12-31", "2500-02-28",
              {"DateSerial(4601, 1, 1)", "DateSerial(999, 1, 1)"}),  // before DateMin
        Limit("DateMin", "1000-01-01", "1500-02-01",
              {"DateSerial(199, 12, 31)", "DateSerial(3000, 1, 1)"}),  // after DateMax
        Choice("MonthYearSelStyle", 0, 3),
        ReadOnly("cboMonthhwnd", ""),
    });
}

std::vector<ScriptProperty> BoxProperties() {
    return With({
        {"DateFormat", "Short Date", "\"yyyy-mm\"", "yyyy-mm", {}},
        Limit("DateMax", "2700-12-31", "2500-02-28", {"DateSerial(4601, 1, 1)"}),
        Limit("DateMin", "1100-01-01", "1500-02-01", {"DateSerial(199, 12, 31)"}),
        Choice("DropDownAppearance", 1, 1),
        Choice("MonthYearSelStyle", 0, 1),
        Choice("DropDownAlignment", 0, 1),
        {"DropDownHeight", "3000", "4500", "4500", {{"-15", kInvalidValue}}},  // twips
        {"DropDownWidth", "3750", "4500", "4500", {{"-15", kInvalidValue}}},
        {"DropDownState", "False", "", "", {{"\"text\"", kTypeMismatch}}},
    });
}

}  // namespace velmora::vmhost
