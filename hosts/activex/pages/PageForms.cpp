#include "hosts/activex/pages/PageForm.h"

namespace velmora {
namespace {

class GeneralPage final : public PageForm {
public:
    explicit GeneralPage(const Dates& dates)
        : PageForm(L"General"),
          m_page({AddList(L"&Appearance:", {"Appearance", "DropDownAppearance"}),
                  AddList(L"&Week day captions:", {"WeekDayDisplay"}),
                  AddCheckBox(L"Show week&end", {"ShowWeekend"}),
                  AddList(L"Week day a&lignment:", {"WeekDayCaptionAlignment"}),
                  AddList(L"Wee&k day appearance:", {"WeekDayAppearance"}),
                  AddList(L"&Month caption:", {"MonthDisplay"}),
                  AddList(L"M&onth appearance:", {"MonthAppearance"}),
                  AddList(L"Month and year &selectors:", {"MonthYearSelStyle"}),
                  AddDate(L"Ea&rliest date:", {"DateMin"}), AddDate(L"La&test date:", {"DateMax"}),
                  AddDate(L"&Date:", {"DateValue"}),
                  AddText(L"Date &format:", {"DateFormat"},
                          [this](PageText&) { m_page.OnFormatText(); })},
                 *this, dates) {}
    PropertyPage& Page() override { return m_page; }

private:
    WinPageText& AddDate(const wchar_t* label, Properties properties) {
        return AddText(label, properties, [this](PageText& text) { m_page.OnDateText(text); });
    }

    GeneralPP m_page;
};

class DropDownPage final : public PageForm {
public:
    explicit DropDownPage(const Dates& dates)
        : PageForm(L"Drop-down"),
          m_page({AddCheckBox(L"&Enabled", {"Enabled"}),
                  AddText(L"Drop-down &width:", {"DropDownWidth"},
                          [this](PageText&) { m_page.OnWidthText(); }),
                  AddText(L"Drop-down &height:", {"DropDownHeight"},
                          [this](PageText&) { m_page.OnHeightText(); })},
                 *this, dates) {}
    PropertyPage& Page() override { return m_page; }

private:
    DropDownPP m_page;
};

class DayPage final : public PageForm {
public:
    explicit DayPage(const Dates& dates)
        : PageForm(L"Days"),
          m_page({AddList(L"&First day of the week:", {"FirstDayOfWeek"}),
                  AddList(L"&Appearance:", {"DayAppearance"}),
                  AddList(L"&Number alignment:", {"DayNumberAlignment"}),
                  AddList(L"&Caption alignment:", {"DayCaptionAlignment"}),
                  AddList(L"&Picture alignment:", {"DayPictureAlignment"})},
                 *this, dates) {}
    PropertyPage& Page() override { return m_page; }

private:
    DayPP m_page;
};

}  // namespace

std::shared_ptr<PageForm> MakeGeneralForm(const Dates& dates) {
    return std::make_shared<GeneralPage>(dates);
}

std::shared_ptr<PageForm> MakeDropDownForm(const Dates& dates) {
    return std::make_shared<DropDownPage>(dates);
}

std::shared_ptr<PageForm> MakeDayForm(const Dates& dates) {
    return std::make_shared<DayPage>(dates);
}

}  // namespace velmora
