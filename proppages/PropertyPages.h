#pragma once

#include "proppages/PropertyPage.h"

#include <string_view>

namespace velmora {

/// How the day cells look, and which day begins the week.
class DayPP : public PropertyPage {
public:
    struct Controls {
        PageList& cboFirstDayOfWeek;
        PageList& cboDayAppearance;
        PageList& cboDayNumberAlignment;
        PageList& cboDayCaptionAlignment;
        PageList& cboDayPicAlignment;
    };
    /// Fills the lists.
    DayPP(const Controls& controls, PageSite& site, const Dates& dates);

private:
    void Load() override;
    void Store() override;

    Controls m_controls;
};

/// Whether the page's text boxes take a text as a number: digits with at most one ".", and a "-"
/// only in front. A lone "-" or "." passes.
bool IsNumber(std::string_view text) noexcept;

/// The enabled state and the drop-down size of a date box.
class DropDownPP : public PropertyPage {
public:
    struct Controls {
        PageCheckBox& chkEnabled;
        PageText& txtDropDownWidth;
        PageText& txtDropDownHeight;
    };
    DropDownPP(const Controls& controls, PageSite& site, const Dates& dates);

    void OnWidthText();
    void OnHeightText();

private:
    void Load() override;
    void Store() override;
    void StoreNumber(PageText& text, std::string_view property);

    Controls m_controls;
};

/// Appearance, captions, selectors, the range of dates and the date; for a date box the date
/// format.
class GeneralPP : public PropertyPage {
public:
    struct Controls {
        PageList& cboAppearance;
        PageList& cboWeekDayDisplay;
        PageCheckBox& chkShowWeekend;
        PageList& cboWeekDayCaptionAlignment;
        PageList& cboWeekDayAppearance;
        PageList& cboMonthDisplay;
        PageList& cboMonthAppearance;
        PageList& cboMonthYearSelStyle;
        PageText& txtDateMin;
        PageText& txtDateMax;
        PageText& txtDateValue;
        PageText& txtDateFormat;
    };
    /// Fills the lists; that of the selector styles depends on what is selected.
    GeneralPP(const Controls& controls, PageSite& site, const Dates& dates);

    /// A date text has been edited; red while it is no date.
    void OnDateText(PageText& text);
    void OnFormatText();

private:
    void Load() override;
    void Store() override;
    bool IsCalendar() const;
    std::string_view AppearanceName() const;
    void StoreDate(const PageText& text, std::string_view property);
    void StoreFormat();

    Controls m_controls;
};

}  // namespace velmora
