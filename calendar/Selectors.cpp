#include "calendar/Selectors.h"

namespace velmora {
namespace {

Size ExtentOf(const ChildControl* child) { return child ? child->Extent() : Size{}; }

void PlaceChild(ChildControl* child, bool visible, const Rect& rect) {
    if (!child) return;
    if (visible) child->Move(rect);
    child->Visible(visible);
}

}  // namespace

void Selectors::FollowLocale() {
    PushMonthNames();
    PushYear();
}

void Selectors::Prepare(VmMonthYearSelStyleConstants style, LayoutMetrics& metrics) {
    if (style == VmMonthSelCombo) {
        if (!m_monthList && (m_monthList = m_windowing.CreateMonthList())) {
            PushMonthNames();
        }
        if (!m_yearText) m_yearText = m_windowing.CreateYearText();
        if (!m_yearSpinnerBar) {
            m_yearSpinnerBar = m_windowing.CreateYearSpinner();
            PushYear();
        }
        metrics.monthList = ExtentOf(m_monthList.get());
        metrics.yearText = ExtentOf(m_yearText.get());
        metrics.yearSpinner = ExtentOf(m_yearSpinnerBar.get());
    } else if (style == VmMonthSelScrollbar) {
        if (!m_dateScrollBar) {
            m_dateScrollBar = m_windowing.CreateDateScroll();
            PushDate();
        }
        metrics.dateScroll = ExtentOf(m_dateScrollBar.get());
    }
}

void Selectors::Place(VmMonthYearSelStyleConstants style, const CalendarLayout& layout) {
    const bool combo = style == VmMonthSelCombo;
    PlaceChild(m_monthList.get(), combo, layout.monthList);
    PlaceChild(m_yearText.get(), combo, layout.yearText);
    PlaceChild(m_yearSpinnerBar.get(), combo, layout.yearSpinner);
    PlaceChild(m_dateScrollBar.get(), style == VmMonthSelScrollbar, layout.dateScroll);
}

WindowHandle Selectors::MonthListHandle() const {
    return m_monthList ? m_monthList->Handle() : WindowHandle::None;
}

void Selectors::DropNative() {
    m_monthList.reset();
    m_yearText.reset();
    m_yearSpinnerBar.reset();
    m_dateScrollBar.reset();
}

void Selectors::Month(int month) {
    m_listIndex = month - 1;
    PushMonth();
}

void Selectors::Year(int year) {
    m_yearSpinner.value = -year;
    PushYear();
}

void Selectors::YearRange(int firstYear, int lastYear) {
    m_yearSpinner.minimum = -lastYear;
    m_yearSpinner.maximum = -firstYear;
    PushYear();
}

void Selectors::MonthPosition(int monthIndex) {
    m_dateScroll.value = monthIndex;
    PushDate();
}

void Selectors::MonthPositionRange(int first, int last) {
    m_dateScroll.minimum = first;
    m_dateScroll.maximum = last;
    PushDate();
}

void Selectors::PushMonthNames() {
    if (!m_monthList) return;
    m_monthList->Items(m_dates.Locale().monthNames);
    PushMonth();
}

void Selectors::PushMonth() {
    if (m_monthList) m_monthList->ListIndex(m_listIndex);
}

void Selectors::PushYear() {
    if (m_yearText) m_yearText->Text(m_dates.Number(-m_yearSpinner.value));
    if (m_yearSpinnerBar) {
        m_yearSpinnerBar->Position(m_yearSpinner.minimum, m_yearSpinner.maximum,
                                   m_yearSpinner.value);
    }
}

void Selectors::PushDate() {
    if (m_dateScrollBar) {
        m_dateScrollBar->Position(m_dateScroll.minimum, m_dateScroll.maximum, m_dateScroll.value);
    }
}

}  // namespace velmora
