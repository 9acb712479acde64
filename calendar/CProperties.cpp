#include "calendar/CProperties.h"

#include <utility>

namespace velmora {
namespace {

constexpr auto kMembers = CommonMembers<CProperties>();

}  // namespace

CProperties::CProperties(const Dates& dates) : m_dates(dates) { Move(DateOf(dates.Today())); }

Variant CProperties::GetMember(std::string_view name) const {
    return MemberOf(kMembers, name).get(*this);
}

void CProperties::LetMember(std::string_view name, const Variant& value) {
    LetByName(kMembers, *this, name, value);
}

void CProperties::DateMax(Date value) {
    if (StoreDateMax(m_state, value)) Move(m_state.dateMax);
}

void CProperties::DateMin(Date value) {
    if (StoreDateMin(m_state, value)) Move(m_state.dateMin);
}

void CProperties::Limits(Date minimum, Date maximum) {
    CalendarState checked;
    checked.dateMin = Date(kFirstDay);
    checked.dateMax = Date(kLastDay);
    StoreDateMin(checked, minimum);
    StoreDateMax(checked, maximum);
    m_state.dateMin = checked.dateMin;
    m_state.dateMax = checked.dateMax;
    DateValue(Variant(m_state.dateValue));
}

void CProperties::DateValue(const Variant& value) {
    if (value.Type() == VarType::Empty) return;
    const Date date = ToDate(value);
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

void CProperties::MouseIcon(PictureRef value) {
    if (value && value->Type() != PictureType::Icon) {
        throw AutomationError(ErrorNumber::InvalidPropertyValue);
    }
    m_mouseIcon = std::move(value);
}

void CProperties::MousePointer(std::int16_t value) {
    if (IsMousePointer(value)) m_mousePointer = value;
}

}  // namespace velmora
