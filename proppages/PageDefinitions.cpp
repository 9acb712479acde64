#include "proppages/PageDefinitions.h"

namespace velmora {
namespace {

// The names of the published values, in value order.
constexpr std::string_view kAppearances[] = {"VmAppearanceFlat", "VmAppearance3D"};
constexpr std::string_view kTextAlignments[] = {
    "VmTextTopLeft",   "VmTextMiddleLeft",   "VmTextBottomLeft",
    "VmTextTopCenter", "VmTextMiddleCenter", "VmTextBottomCenter",
    "VmTextTopRight",  "VmTextMiddleRight",  "VmTextBottomRight"};
constexpr std::string_view kPictureAlignments[] = {
    "VmPictTopLeft",      "VmPictMiddleLeft",   "VmPictBottomLeft", "VmPictTopCenter",
    "VmPictMiddleCenter", "VmPictBottomCenter", "VmPictTopRight",   "VmPictMiddleRight",
    "VmPictBottomRight",  "VmPictStretch",      "VmPictTile",       "VmPictLeftOfText",
    "VmPictRightOfText",  "VmPictAboveText",    "VmPictBelowText"};
constexpr std::string_view kWeekDayNames[] = {"VmSunday",   "VmMonday", "VmTuesday", "VmWednesday",
                                              "VmThursday", "VmFriday", "VmSaturday"};
constexpr std::string_view kWeekDayDisplays[] = {"VmWeekdayNone", "VmWeekDayFullName",
                                                 "VmWeekDayAbbrName", "VmWeekDayLetter"};
constexpr std::string_view kMonthDisplays[] = {"VmMonthFullName", "VmMonthAbbrName"};
constexpr std::string_view kSelStyles[] = {"VmMonthSelNone", "VmMonthSelArrows", "VmMonthSelCombo",
                                           "VmMonthSelScrollbar"};

using enum FieldKind;

constexpr FieldDefinition kGeneralFields[] = {
    {List, "cboAppearance", "&Appearance:", "Appearance", kAppearances, 0, "DropDownAppearance"},
    {List, "cboWeekDayDisplay", "&Week day captions:", "WeekDayDisplay", kWeekDayDisplays},
    {CheckBox, "chkShowWeekend", "Show week&end", "ShowWeekend"},
    {List, "cboWeekDayCaptionAlignment", "Week day a&lignment:", "WeekDayCaptionAlignment",
     kTextAlignments},
    {List, "cboWeekDayAppearance", "Wee&k day appearance:", "WeekDayAppearance", kAppearances},
    {List, "cboMonthDisplay", "&Month caption:", "MonthDisplay", kMonthDisplays},
    {List, "cboMonthAppearance", "M&onth appearance:", "MonthAppearance", kAppearances},
    {List, "cboMonthYearSelStyle", "Month and year &selectors:", "MonthYearSelStyle", kSelStyles, 0,
     "MonthYearSelStyle", 2},
    {Date, "txtDateMin", "Ea&rliest date:", "DateMin"},
    {Date, "txtDateMax", "La&test date:", "DateMax"},
    {Date, "txtDateValue", "&Date:", "DateValue"},
    {Format, "txtDateFormat", "Date &format:", "DateFormat"}};

constexpr FieldDefinition kDropDownFields[] = {
    {CheckBox, "chkEnabled", "&Enabled", "Enabled"},
    {Number, "txtDropDownWidth", "Drop-down &width:", "DropDownWidth"},
    {Number, "txtDropDownHeight", "Drop-down &height:", "DropDownHeight"}};

constexpr FieldDefinition kDayFields[] = {
    {List, "cboFirstDayOfWeek", "&First day of the week:", "FirstDayOfWeek", kWeekDayNames, 1},
    {List, "cboDayAppearance", "&Appearance:", "DayAppearance", kAppearances},
    {List, "cboDayNumberAlignment", "&Number alignment:", "DayNumberAlignment", kTextAlignments},
    {List, "cboDayCaptionAlignment", "&Caption alignment:", "DayCaptionAlignment", kTextAlignments},
    {List, "cboDayPicAlignment", "&Picture alignment:", "DayPictureAlignment", kPictureAlignments}};

constexpr FieldDefinition kLookFields[] = {
    {Color, "cmdDayBackColor", "&Day background:", "DayDefaultBackColor"},
    {Color, "cmdDayForeColor", "Day &text:", "DayDefaultForeColor"},
    {Color, "cmdOtherForeColor", "&Other months' days:", "DayOtherMonthForeColor"},
    {Color, "cmdSelectedBackColor", "&Selected background:", "SelectedDayBackColor"},
    {Color, "cmdSelectedForeColor", "S&elected text:", "SelectedDayForeColor"},
    {Color, "cmdTodayBackColor", "Tod&ay background:", "TodayBackColor"},
    {Color, "cmdTodayForeColor", "Today te&xt:", "TodayForeColor"},
    {Color, "cmdMonthBackColor", "&Month background:", "MonthBackColor"},
    {Color, "cmdMonthForeColor", "Mo&nth text:", "MonthForeColor"},
    {Color, "cmdWeekDayBackColor", "&Week day background:", "WeekDayBackColor"},
    {Color, "cmdWeekDayForeColor", "Wee&k day text:", "WeekDayForeColor"},
    {Font, "cmdDayFont", "Day &font:", "DayFont"},
    {Font, "cmdMonthFont", "Mont&h font:", "MonthFont"},
    {Font, "cmdWeekDayFont", "Week da&y font:", "WeekDayFont"},
    {Font, "cmdComboFont", "Date &box font:", "ComboFont"}};

}  // namespace

constinit const PageDefinition kGeneralPP{"General", "Appearance, captions, selectors and dates",
                                          kGeneralFields};
constinit const PageDefinition kDropDownPP{
    "Drop-down", "The enabled state and the size of the drop-down", kDropDownFields};
constinit const PageDefinition kDayPP{"Days", "The look of the days and the first day of the week",
                                      kDayFields};
constinit const PageDefinition kLookPP{"Colors and fonts", "The colors and fonts of all parts",
                                       kLookFields};

}  // namespace velmora
