#include "calendar/VmCalendar.h"
#include "platform/Keys.h"
#include "platform/dates/DateText.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace velmora {
namespace {

/// A whole 16-bit number, or nothing.
std::optional<std::int16_t> ToYear(std::string_view typed) {
    const std::string plain = WithPlainDigits(typed);
    const std::string_view text = TrimmedSpaces(plain);
    std::int16_t year = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), year);
    if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
    return year;
}

}  // namespace

void VmCalendar::OnSelectorLeave() { SyncSelectors(); }

void VmCalendar::OnMonthListClick(int listIndex) {
    if (m_selectors.MonthListDropped() || m_cancelled || listIndex < 0 || listIndex > 11) return;
    const DayNumber shown = DayOf(m_state.shownDate);
    const DayNumber day = AddMonths(shown, listIndex + 1 - MonthOf(shown));
    if (!IsSelectable(day) || day == shown) return;

    ShowDate(DateOf(day));
    const unsigned change = m_dateChanges;
    const Lifetime::Watch alive(m_lifetime);
    RaiseThen(
        [&] {
            Date newDate = m_state.shownDate;
            m_events.DateChanged.Raise(newDate);
            if (alive && change == m_dateChanges) AcceptMonth();
        },
        [&] {
            if (alive) RepaintSelection();
        });
}

void VmCalendar::AcceptMonth() {
    if (!m_cancelled) SelectMonth(MonthOf(DayOf(m_state.shownDate)));
}

void VmCalendar::OnMonthListKeyDown(std::int16_t keyCode) {
    if (keyCode == kKeyEnter) AcceptMonth();
    if (keyCode == kKeyEscape) m_cancelled = true;
}

void VmCalendar::OnMonthListKeyUp(std::int16_t keyCode) {
    if (keyCode != kKeyEscape) return;
    // The Escape has done what it is for: the next choice counts, though the focus never left.
    m_cancelled = false;
    SelectMonth(MonthOf(DayOf(m_state.shownDate)));
}

void VmCalendar::OnYearText(std::string_view text) {
    if (m_cancelled) return;
    const bool inUse =
        m_platform.windowing.TakesInput() && m_state.monthYearSelStyle == VmMonthSelCombo;
    const DayNumber shown = DayOf(m_state.shownDate);
    const int shownYear = YearOf(shown);
    const auto year = inUse ? ToYear(text) : static_cast<std::int16_t>(shownYear);
    const DayNumber day = year ? AddMonths(shown, (*year - shownYear) * 12) : shown;
    if (!year || !IsSelectable(day)) {
        SelectYear(shownYear);
    } else if (day == shown) {
        m_selectors.Year(shownYear);
    } else {
        MoveShown(DateOf(day));
    }
}

void VmCalendar::OnYearTextCancel() { m_selectors.Year(YearOf(DayOf(m_state.shownDate))); }

/// The years of both limits are the only bounds, so that the shown month may come to lie outside
/// them inside their years.
void VmCalendar::OnYearSpinner(int value) {
    if (!m_state.ready) return;
    const auto& spinner = m_selectors.YearSpinner();
    const int year =
        -std::clamp(value, spinner.minimum, std::max(spinner.minimum, spinner.maximum));
    const DayNumber shown = DayOf(m_state.shownDate);
    if (year == YearOf(shown)) {
        m_selectors.Year(year);
        RepaintControl();
    } else {
        MoveShown(DateOf(AddMonths(shown, (year - YearOf(shown)) * 12)));
    }
}

void VmCalendar::OnYearStep(int years) { OnYearSpinner(-YearOf(DayOf(m_state.shownDate)) - years); }

void VmCalendar::OnDateScroll(int value) {
    if (!m_state.ready) return;
    const auto& scroll = m_selectors.DateScroll();
    const int position =
        std::clamp(value, scroll.minimum, std::max(scroll.minimum, scroll.maximum));
    const int months = position - scroll.value;
    if (months != 0) MoveShown(DateOf(AddMonths(DayOf(m_state.shownDate), months)));
}

}  // namespace velmora
