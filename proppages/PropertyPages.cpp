#include "proppages/PropertyPages.h"

#include "platform/AutomationError.h"

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

}  // namespace

DayPP::DayPP(const Controls& controls, PageSite& site, const Dates& dates)
    : PropertyPage(site, dates), m_controls(controls) {
    controls.cboFirstDayOfWeek.Items(kWeekDayNames);
    controls.cboDayAppearance.Items(kAppearances);
    controls.cboDayNumberAlignment.Items(kTextAlignments);
    controls.cboDayCaptionAlignment.Items(kTextAlignments);
    controls.cboDayPicAlignment.Items(kPictureAlignments);
}

void DayPP::Load() {
    LoadList(m_controls.cboFirstDayOfWeek, "FirstDayOfWeek", 1);
    LoadList(m_controls.cboDayAppearance, "DayAppearance");
    LoadList(m_controls.cboDayNumberAlignment, "DayNumberAlignment");
    LoadList(m_controls.cboDayCaptionAlignment, "DayCaptionAlignment");
    LoadList(m_controls.cboDayPicAlignment, "DayPictureAlignment");
}

void DayPP::Store() {
    StoreList(m_controls.cboFirstDayOfWeek, "FirstDayOfWeek", 1);
    StoreList(m_controls.cboDayAppearance, "DayAppearance");
    StoreList(m_controls.cboDayNumberAlignment, "DayNumberAlignment");
    StoreList(m_controls.cboDayCaptionAlignment, "DayCaptionAlignment");
    StoreList(m_controls.cboDayPicAlignment, "DayPictureAlignment");
}

bool IsNumber(std::string_view text) noexcept {
    constexpr std::string_view kDigitsAndPoint = "0123456789.";
    if (text.empty() || text.find('.') != text.rfind('.')) return false;
    const std::string_view rest = text.front() == '-' ? text.substr(1) : text;
    return rest.find_first_not_of(kDigitsAndPoint) == std::string_view::npos;
}

DropDownPP::DropDownPP(const Controls& controls, PageSite& site, const Dates& dates)
    : PropertyPage(site, dates), m_controls(controls) {}

void DropDownPP::OnWidthText() { OnText(m_controls.txtDropDownWidth, IsNumber); }
void DropDownPP::OnHeightText() { OnText(m_controls.txtDropDownHeight, IsNumber); }

void DropDownPP::Load() {
    LoadCheck(m_controls.chkEnabled, "Enabled");
    LoadText(m_controls.txtDropDownWidth, "DropDownWidth");
    LoadText(m_controls.txtDropDownHeight, "DropDownHeight");
}

void DropDownPP::Store() {
    StoreCheck(m_controls.chkEnabled, "Enabled");
    StoreNumber(m_controls.txtDropDownWidth, "DropDownWidth");
    StoreNumber(m_controls.txtDropDownHeight, "DropDownHeight");
}

/// The message names the width for the height too; its wording is published.
void DropDownPP::StoreNumber(PageText& text, std::string_view property) {
    if (!Has(property)) return;
    if (IsNumber(text.Text())) {
        StoreText(text, property);
    } else {
        Complain("Property 'DropDownWidth' must a number.");
    }
}

GeneralPP::GeneralPP(const Controls& controls, PageSite& site, const Dates& dates)
    : PropertyPage(site, dates), m_controls(controls) {
    controls.cboAppearance.Items(kAppearances);
    controls.cboWeekDayDisplay.Items(kWeekDayDisplays);
    controls.cboWeekDayCaptionAlignment.Items(kTextAlignments);
    controls.cboWeekDayAppearance.Items(kAppearances);
    controls.cboMonthDisplay.Items(kMonthDisplays);
    controls.cboMonthAppearance.Items(kAppearances);
}

void GeneralPP::OnDateText(PageText& text) {
    OnText(text, [this](const std::string& date) { return m_dates.TryParse(date).has_value(); });
}

void GeneralPP::OnFormatText() { MarkChanged(); }

bool GeneralPP::IsCalendar() const { return Selected() && Selected()->TypeName() == "VmCalendar"; }

std::string_view GeneralPP::AppearanceName() const {
    return IsCalendar() ? "Appearance" : "DropDownAppearance";
}

void GeneralPP::Load() {
    const std::size_t styles = IsCalendar() ? 4 : 2;
    m_controls.cboMonthYearSelStyle.Items(std::span(kSelStyles).first(styles));
    LoadList(m_controls.cboAppearance, AppearanceName());
    LoadList(m_controls.cboWeekDayDisplay, "WeekDayDisplay");
    LoadCheck(m_controls.chkShowWeekend, "ShowWeekend");
    LoadList(m_controls.cboWeekDayCaptionAlignment, "WeekDayCaptionAlignment");
    LoadList(m_controls.cboWeekDayAppearance, "WeekDayAppearance");
    LoadList(m_controls.cboMonthDisplay, "MonthDisplay");
    LoadList(m_controls.cboMonthAppearance, "MonthAppearance");
    LoadList(m_controls.cboMonthYearSelStyle, "MonthYearSelStyle");
    LoadText(m_controls.txtDateMin, "DateMin");
    LoadText(m_controls.txtDateMax, "DateMax");
    LoadText(m_controls.txtDateValue, "DateValue");
    LoadText(m_controls.txtDateFormat, "DateFormat");
}

void GeneralPP::Store() {
    StoreList(m_controls.cboAppearance, AppearanceName());
    StoreList(m_controls.cboWeekDayDisplay, "WeekDayDisplay");
    StoreCheck(m_controls.chkShowWeekend, "ShowWeekend");
    StoreList(m_controls.cboWeekDayCaptionAlignment, "WeekDayCaptionAlignment");
    StoreList(m_controls.cboWeekDayAppearance, "WeekDayAppearance");
    StoreList(m_controls.cboMonthDisplay, "MonthDisplay");
    StoreList(m_controls.cboMonthAppearance, "MonthAppearance");
    StoreList(m_controls.cboMonthYearSelStyle, "MonthYearSelStyle");
    StoreDate(m_controls.txtDateMin, "DateMin");
    StoreDate(m_controls.txtDateMax, "DateMax");
    StoreDate(m_controls.txtDateValue, "DateValue");
    StoreFormat();
}

void GeneralPP::StoreDate(const PageText& text, std::string_view property) {
    if (!Has(property)) return;
    if (text.Text().empty()) {
        Complain("Property '" + std::string(property) + "' cannot be blank");
    } else {
        StoreText(text, property);
    }
}

void GeneralPP::StoreFormat() {
    if (!Has("DateFormat")) return;
    const std::string format = m_controls.txtDateFormat.Text();
    if (!format.empty()) {
        try {
            m_dates.Format(m_dates.ToDate(Selected()->GetMember("DateValue")), format);
        } catch (const AutomationError& error) {
            Complain(std::string("Invalid Date Format") + error.what());
            return;
        }
    }
    StoreText(m_controls.txtDateFormat, "DateFormat");
}

}  // namespace velmora
