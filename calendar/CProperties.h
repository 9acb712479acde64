#pragma once

#include "calendar/CalendarMembers.h"
#include "calendar/DateLimits.h"
#include "platform/Dates.h"

#include <cstdint>

namespace velmora {

/// A complete set of calendar properties without a calendar, decorated days included, for
/// `VmCalendar::SetProps`. Refuses what the calendar refuses, with the same error 380. Its days are
/// those of the month of `DateValue`; another month discards the decorations.
class CProperties : public AutomationObject {
public:
    /// A new calendar's values, today selected; the fonts are null.
    explicit CProperties(const Dates& dates);

    template <class Row>
    typename Row::Value Get(const Row& property) const {
        return property.Get(m_state, *m_days);
    }
    template <class Row>
    void Let(const Row& property, const typename Row::Value& value) {
        if (property.admits && !property.admits(value)) {
            throw AutomationError(ErrorNumber::InvalidPropertyValue);
        }
        property.Store(m_state, *m_days, value);
    }
    const CalendarState& Values() const noexcept { return m_state; }
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;
    Date ToDate(const Variant& value) const { return m_dates.ToDate(value); }

    /// The limits move a `DateValue` that lies beyond them.
    Date DateMax() const { return m_state.dateMax; }
    void DateMax(Date value);
    Date DateMin() const { return m_state.dateMin; }
    void DateMin(Date value);
    /// Both at once, whatever they were. Error 380 as for each of them.
    void Limits(Date minimum, Date maximum);
    /// Clipped into the limits. Keeps its time of day. Error 13: no date. Empty changes nothing.
    Date DateValue() const { return m_state.dateValue; }
    void DateValue(const Variant& value);

    const DaysRef& Days() const { return m_days; }
    /// Makes the days those of another month than that of `DateValue`, until either moves again.
    void FollowMonth(DayNumber day);
    /// The day of `DateValue`.
    DayRef SelectedDay() const;
    bool Enabled() const { return m_enabled; }
    void Enabled(bool value) { m_enabled = value; }
    PictureRef MouseIcon() const { return m_mouseIcon; }
    void MouseIcon(PictureRef value);
    std::int16_t MousePointer() const { return m_mousePointer; }
    /// Any value other than 0..15 and 99 is ignored.
    void MousePointer(std::int16_t value);

private:
    void Move(Date date);

    const Dates& m_dates;
    CalendarState m_state;
    DaysRef m_days = std::make_shared<VmDays>();
    bool m_enabled = true;
    PictureRef m_mouseIcon;
    std::int16_t m_mousePointer = 0;
};

}  // namespace velmora
