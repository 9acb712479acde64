#pragma once

#include "platform/Automation.h"
#include "platform/AutomationError.h"
#include "platform/dates/Date.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::test {

/// An object of somebody else's with some of the names; it keeps what it is given.
struct ForeignObject : AutomationObject {
    Variant GetMember(std::string_view name) const override {
        const auto found = values.find(std::string(name));
        if (found == values.end()) throw AutomationError(ErrorNumber::MemberNotFound);
        return found->second;
    }
    void LetMember(std::string_view name, const Variant& value) override {
        writes += (writes.empty() ? "" : " ") + std::string(name);
        if (name == "ShowWeekend") throw AutomationError(ErrorNumber::InvalidPropertyValue);
        values[std::string(name)] = value;
    }
    std::map<std::string, Variant> values{
        {"WeekDayDisplay", std::int32_t{77}},  // no item of it
        {"MonthDisplay", std::int32_t{1}},     {"ShowWeekend", true},  {"DateMin", Date(43000)},
        {"DateValue", "no date at all"},       {"DateFormat", "yyyy"}, {"DropDownWidth", 100.0},
        {"MonthYearSelStyle", std::int32_t{3}}};  // none of two
    std::string writes;                           // names, in order
};

/// The property pages as a host shows them, English (United States). Only pages that have been
/// changed are applied.
class PagePlayer {
public:
    virtual ~PagePlayer() = default;
    /// A new "calendar" or "box" at noon of 15 May 2024, "foreign", "nothing"; "same" is loaded
    /// again.
    virtual void Select(const std::string& object) = 0;
    /// Chooses that item, sets the check box ("true", "false") or the text.
    virtual void Enter(const std::string& control, const std::string& input) = 0;
    /// What a list, check box or text box shows, with " red" or " disabled".
    virtual std::string Shown(const std::string& control) = 0;
    virtual bool IsChanged() = 0;
    /// The page's messages and the object's refusal, with "|" between them.
    virtual std::string Apply() = 0;
    virtual Variant Property(const std::string& name) = 0;

    ForeignObject foreign;
};

/// Steps, between which there is ';' or a new line, and remarks. "select" takes an object; ':'
/// tells what a control or property shows, '=' what is entered then, with " red" and " *", while
/// Apply is possible, as it is shown. "Apply" gives its messages, "writes" those of the foreign
/// object.
inline constexpr std::string_view kPageSteps = R"(
# Text is red while it is no date or number, and black when it is loaded again.
select box; txtDateMin=12x red; txtDateMin=1/1/2001 *; txtDateMax= red *
txtDropDownWidth=12a red *; txtDropDownHeight=-- red *
select same; txtDateMax: 12/31/2700
# What a page finds fault with is told, the rest is written, and the page stays changed.
chkEnabled=false *; txtDropDownWidth=300 *; txtDropDownHeight=1.2.3 red *
Apply: Property 'DropDownWidth' must a number.; DropDownWidth: 300; Enabled: false
txtDropDownHeight=240 *; Apply:
# The first refusal is told and keeps nothing else from being written.
txtDateMin=1/1/4000 *; txtDateMax=12x red *; txtDateValue=6/7/2024 *
Apply: Invalid property value; DateMin: 1100-01-01; DateValue: 2024-06-07
txtDateMin: 1/1/4000 red *; txtDateMin=1/1/2000 *; Apply: Type mismatch
txtDateMin=12/31/1999 *; txtDateMax= red *; txtDateValue= red *; txtDateFormat=yyyy *
Apply: Property 'DateMax' cannot be blank|Property 'DateValue' cannot be blank
DateMin: 1999-12-01; DateFormat: yyyy
# The latest date is written before the date, which may need it.
select calendar; txtDateFormat:  disabled; txtDateMax=12/31/4000 *; txtDateValue=1/2/3500 *
Apply:; DateValue: 1/2/3500
# An earliest date behind the latest one waits for it, and both move the date.
txtDateMin=1/1/4100 *; txtDateMax=12/31/4200 *; Apply:; txtDateValue: 1/1/4100
# What an object lacks is disabled and not written, nor is a value that no item stands for.
select foreign; cboAppearance:  disabled; cboWeekDayDisplay:; chkEnabled: false disabled
txtDateMin: 9/22/2017; txtDateMax:  disabled; txtDateValue: no date at all; cboMonthYearSelStyle:
txtDropDownWidth=120 *; Apply:; writes: DropDownWidth; cboMonthDisplay=VmMonthFullName *
Apply: Invalid Date FormatType mismatch|Invalid property value
writes: DropDownWidth ShowWeekend ShowWeekend MonthDisplay DateValue; txtDateFormat= *
Apply: Invalid property value; DateFormat:; MonthDisplay: 0
select nothing; txtDateMin:  disabled; chkShowWeekend: false disabled; cboMonthDisplay:  disabled
)";

/// Every field: what it shows, what is entered and applied then, and what this has made of it.
inline constexpr std::string_view kEditsOfBoth = R"(
cboFirstDayOfWeek: VmSunday=VmMonday *; Apply:; FirstDayOfWeek: 2
cboDayAppearance: VmAppearance3D=VmAppearanceFlat *; Apply:; DayAppearance: 0
cboDayNumberAlignment: VmTextTopRight=VmTextTopCenter *; Apply:; DayNumberAlignment: 3
cboDayCaptionAlignment: VmTextBottomCenter=VmTextMiddleLeft *; Apply:; DayCaptionAlignment: 1
cboDayPicAlignment: VmPictTopLeft=VmPictTile *; Apply:; DayPictureAlignment: 10
cboWeekDayDisplay: VmWeekDayAbbrName=VmWeekDayLetter *; Apply:; WeekDayDisplay: 3
chkShowWeekend: true=false *; Apply:; ShowWeekend: false
cboWeekDayCaptionAlignment: VmTextMiddleCenter=VmTextBottomLeft *; Apply:
WeekDayCaptionAlignment: 2
cboWeekDayAppearance: VmAppearance3D=VmAppearanceFlat *; Apply:; WeekDayAppearance: 0
cboMonthDisplay: VmMonthFullName=VmMonthAbbrName *; Apply:; MonthDisplay: 1
cboMonthAppearance: VmAppearance3D=VmAppearanceFlat *; Apply:; MonthAppearance: 0
cboMonthYearSelStyle: VmMonthSelNone=VmMonthSelArrows *; Apply:; MonthYearSelStyle: 1
)";
inline constexpr std::string_view kEditsOfCalendar = R"(
cboAppearance: VmAppearance3D=VmAppearanceFlat *; Apply:; Appearance: 0
cboMonthYearSelStyle: VmMonthSelArrows=VmMonthSelScrollbar *; Apply:; MonthYearSelStyle: 3
txtDateMin: 1/1/1000=2/14/2020 *; Apply:; DateMin: 2020-02-01; txtDateMin: 2/1/2020
txtDateMax: 12/31/2999=2/14/2030 *; Apply:; DateMax: 2030-02-28; txtDateMax: 2/28/2030
txtDateValue: 5/15/2024=Jun 7, 2024 *; Apply:; DateValue: 6/7/2024; txtDateValue: 6/7/2024
)";
inline constexpr std::string_view kEditsOfBox = R"(
cboAppearance: VmAppearance3D=VmAppearanceFlat *; Apply:; DropDownAppearance: 0
txtDateMin: 1/1/1100=2/14/2020 *; Apply:; DateMin: 2020-02-01; txtDateMin: 2/1/2020
txtDateMax: 12/31/2700=2/14/2030 *; Apply:; DateMax: 2030-02-28; txtDateMax: 2/28/2030
txtDateValue: 5/15/2024=May 15, 2024 *; Apply:; DateValue: 2024-05-15 12:00; txtDateValue: 5/15/2024
txtDateValue: 5/15/2024=Jun 7, 2024 *; Apply:; DateValue: 2024-06-07; txtDateValue: 6/7/2024
txtDateFormat: Short Date=yyyy *; Apply:; DateFormat: yyyy
txtDateFormat: yyyy= *; Apply:; DateFormat:; chkEnabled: true=false *; Apply:; Enabled: false
txtDropDownWidth=300 *; Apply:; DropDownWidth: 300
txtDropDownHeight=240 *; Apply:; DropDownHeight: 240
)";

inline std::string PlainText(const Variant& value) {
    if (const auto* text = value.As<std::string>()) return *text;
    if (const auto* flag = value.As<bool>()) return *flag ? "true" : "false";
    const auto* date = value.As<Date>();
    if (!date) return std::to_string(ToInt32(value));
    const CivilDate civil = CivilOf(DayOf(*date));
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d%s", civil.year, civil.month, civil.day,
                  TimeOf(*date) == 0.5 ? " 12:00" : "");
    return text;
}

inline std::string LookOf(PagePlayer& player, const std::string& control) {
    return player.Shown(control) + (player.IsChanged() ? " *" : "");
}

inline std::string ResultOf(PagePlayer& player, const std::string& what) {
    if (what == "Apply") return player.Apply();
    if (what == "writes") return player.foreign.writes;
    const bool isControl = std::islower(static_cast<unsigned char>(what[0])) != 0;
    return isControl ? LookOf(player, what) : PlainText(player.Property(what));
}

inline void PlayStep(PagePlayer& player, const std::string& step) {
    SCOPED_TRACE(step);
    const std::size_t end = step.find_first_of(" =:"), input = step.find('=');
    const std::string what = step.substr(0, end);
    if (step[end] == ' ') return player.Select(step.substr(end + 1));
    if (step[end] == ':') {
        const std::string shown = step.substr(0, input).substr(end + 1);
        EXPECT_EQ(ResultOf(player, what), shown.empty() ? shown : shown.substr(1));
    }
    if (input == step.npos) return;
    const std::string text = step.substr(input + 1);
    player.Enter(what, text.substr(0, std::min(text.find(" *"), text.find(" red"))));
    EXPECT_EQ(ResultOf(player, what), text);
}

inline void PlaySteps(PagePlayer& player, std::string_view script) {
    std::istringstream lines{std::string(script)};
    for (std::string line; std::getline(lines >> std::ws, line);) {
        std::istringstream steps(line.starts_with('#') ? "" : line);
        for (std::string step; std::getline(steps >> std::ws, step, ';');) PlayStep(player, step);
    }
}

/// Every field of both controls, and the stories.
inline void PlayPages(PagePlayer& player) {
    for (const auto& [object, edits] :
         {std::pair("calendar", kEditsOfCalendar), std::pair("box", kEditsOfBox)}) {
        SCOPED_TRACE(object);
        player.Select(object);
        PlaySteps(player, kEditsOfBoth);
        PlaySteps(player, edits);
    }
    PlaySteps(player, kPageSteps);
}

}  // namespace velmora::test
