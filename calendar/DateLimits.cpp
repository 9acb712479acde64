#include "calendar/DateLimits.h"

#include "platform/AutomationError.h"

namespace velmora {
namespace {

constexpr int kFirstYear = 200;
constexpr int kLastYear = 4600;

void Require(bool condition) {
    if (!condition) throw AutomationError(ErrorNumber::InvalidPropertyValue);
}

}  // namespace

void CheckYear(Date date) {
    const int year = YearOf(DayOf(date));
    Require(kFirstYear <= year && year <= kLastYear);
}

bool IsInLimits(const CalendarState& state, DayNumber day) noexcept {
    return DayOf(state.dateMin) <= day && day <= DayOf(state.dateMax);
}

std::optional<DayNumber> ShownAfter(const CalendarState& state, int months) noexcept {
    const DayNumber day = AddMonths(DayOf(state.shownDate), months);
    if (months < 0 ? day < DayOf(state.dateMin) : day > DayOf(state.dateMax)) return std::nullopt;
    return day;
}

void CheckDateValue(const CalendarState& state, Date date) {
    CheckYear(date);
    Require(IsInLimits(state, DayOf(date)));
}

bool StoreDateMax(CalendarState& state, Date value) {
    CheckYear(value);
    Require(DayOf(value) >= DayOf(state.dateMin));
    state.dateMax = DateOf(LastOfMonth(DayOf(value)));
    return DayOf(state.dateValue) > DayOf(state.dateMax);
}

bool StoreDateMin(CalendarState& state, Date value) {
    CheckYear(value);
    Require(DayOf(value) <= DayOf(state.dateMax));
    state.dateMin = DateOf(FirstOfMonth(DayOf(value)));
    return DayOf(state.dateValue) < DayOf(state.dateMin);
}

}  // namespace velmora
