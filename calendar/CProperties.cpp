#include "calendar/CProperties.h"

#include "calendar/PropertyAccess.h"

namespace velmora {
namespace {

constexpr auto kMembers = MembersOf<CProperties>(Slots());

/// Whether setters would have taken both limits.
bool AreLimits(const CalendarState& state) {
    try {
        CheckYear(state.dateMin);
        CheckYear(state.dateMax);
    } catch (const AutomationError&) {
        return false;
    }
    return DayOf(state.dateMin) <= DayOf(state.dateMax);
}

}  // namespace

CProperties::CProperties(const Dates& dates, WindowProperties* window)
    : m_dates(dates), m_window(window ? *window : m_ownWindow) {
    Move(DateOf(dates.Today()));
}

Variant CProperties::GetMember(std::string_view name) const { return kMembers.Get(*this, name); }

void CProperties::LetMember(std::string_view name, const Variant& value) {
    kMembers.Let(*this, name, value);
}

void CProperties::Let(const LimitProperty& property, Date value) {
    if (property.keep(m_state, value)) Move(m_state.*property.field);
}

void CProperties::Let(const DateProperty&, const Variant& value) {
    if (value.Type() != VarType::Empty) MoveInto(ToDate(value));
}

void CProperties::Restored(const CalendarState& defaults) {
    if (!AreLimits(m_state)) {
        m_state.dateMin = defaults.dateMin;
        m_state.dateMax = defaults.dateMax;
    }
    m_state.dateMin = DateOf(FirstOfMonth(DayOf(m_state.dateMin)));
    m_state.dateMax = DateOf(LastOfMonth(DayOf(m_state.dateMax)));
    MoveInto(m_state.dateValue);
}

void CProperties::MoveInto(Date date) {
    if (DayOf(date) < DayOf(m_state.dateMin)) {
        Move(m_state.dateMin);
    } else {
        Move(DayOf(date) > DayOf(m_state.dateMax) ? m_state.dateMax : date);
    }
}

void CProperties::Move(Date date) {
    m_state.dateValue = date;
    FollowMonth(DayOf(date));
}

void CProperties::FollowMonth(DayNumber day) {
    if (m_days->Count() != 0 && MonthsBetween(DayOf(m_state.shownDate), day) == 0) return;
    m_state.shownDate = DateOf(day);
    m_days->LoadMonth(day);
}

DayRef CProperties::SelectedDay() const {
    return m_days->Item(static_cast<std::int16_t>(DayOfMonth(DayOf(m_state.dateValue))));
}

}  // namespace velmora
