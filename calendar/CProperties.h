#pragma once

#include "calendar/CalendarProperties.h"
#include "platform/Automation.h"
#include "platform/dates/Dates.h"

#include <cstdint>

namespace velmora {

/// A complete set of calendar properties without a calendar, decorated days included, for
/// `VmCalendar::SetProps`. Refuses what the calendar refuses, with the same error 380. Its days are
/// those of the month of `DateValue`; another month discards the decorations.
class CProperties : public AutomationObject {
public:
    /// A new calendar's values, today selected; the fonts are null. `window` holds what belongs on
    /// a window and outlives this object; without one it has a place of its own for that.
    explicit CProperties(const Dates& dates, WindowProperties* window = nullptr);

    template <class Row>
    typename Row::Value Get(const Row& property) const {
        return property.Get(PropertyStorage{m_state, *m_days, m_window});
    }
    Variant Get(const DateProperty&) const { return DateValue(); }
    template <class Row>
    void Let(const Row& property, const typename Row::Value& value) {
        if (Admit(property, value)) property.Store(Storage(), value);
    }
    void Let(const LimitProperty& property, Date value);
    void Let(const DateProperty&, const Variant& value);
    const CalendarState& Values() const noexcept { return m_state; }
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;
    Date ToDate(const Variant& value) const { return m_dates.ToDate(value); }

    /// The limits move a `DateValue` that lies beyond them.
    Date DateMax() const { return m_state.dateMax; }
    void DateMax(Date value) { Let(kDateMax, value); }
    Date DateMin() const { return m_state.dateMin; }
    void DateMin(Date value) { Let(kDateMin, value); }
    /// Clipped into the limits. Keeps its time of day. Error 13: no date. Empty changes nothing.
    Date DateValue() const { return m_state.dateValue; }
    void DateValue(const Variant& value) { Let(kDateValue, value); }

    const DaysRef& Days() const { return m_days; }
    /// Makes the days those of another month than that of `DateValue`, until either moves again.
    void FollowMonth(DayNumber day);
    /// The day of `DateValue`.
    DayRef SelectedDay() const;

    /// For who restores the values without the checks: `Restored` comes last, with the limits to
    /// take when those that were stored are none.
    CalendarStorage Storage() { return {m_state, *m_days, m_window}; }
    void Restored(const CalendarState& defaults);

private:
    void MoveInto(Date date);
    void Move(Date date);

    const Dates& m_dates;
    CalendarState m_state;
    DaysRef m_days = std::make_shared<VmDays>();
    StoredWindow m_ownWindow;
    WindowProperties& m_window;
};

}  // namespace velmora
