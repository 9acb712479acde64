#include "calendar/VmCalendar.h"

#include "calendar/SavedProperties.h"

#include <array>
#include <type_traits>
#include <utility>

namespace velmora {
namespace {

/// Dates are saved as they are; their defaults are day numbers. A chosen date has no default.
template <const auto& kRow>
constexpr SavedProperty<CalendarStorage> SavedAs() {
    using Row = std::remove_cvref_t<decltype(kRow)>;
    using T = typename Row::Value;
    constexpr bool isDateValue = std::is_same_v<Row, DateProperty>;
    return {kRow.name, kRow.saved,
            [](const CalendarStorage& from) { return ToSaved<T>(kRow.Get(from)); },
            [](const CalendarStorage& defaults) {
                if (isDateValue && defaults.state.dateChosen) return Variant();
                if constexpr (std::is_same_v<T, Date>) {
                    return Variant(DayOf(kRow.Get(defaults)));
                } else {
                    return ToSaved<T>(OwnCopy<T>(kRow.Get(defaults)));
                }
            },
            [](const CalendarStorage& to, const Variant& value, const Dates& dates) {
                kRow.Store(to, FromSaved<T>(value, dates));
                if (isDateValue) to.state.dateChosen = value != Variant(dates.Today());
            }};
}

template <const auto&... kRow>
constexpr auto InOrder(Rows<kRow...>) {
    return std::array{SavedAs<kRow>()...};
}

constexpr auto kWritten = InOrder(WriteOrder());
constexpr auto kRead = InOrder(ReadOrder());

}  // namespace

CalendarState VmCalendar::NewState(Date selected) const {
    CalendarState state;
    state.dateValue = selected;
    state.dayFont = m_platform.hosting.AmbientFont();
    state.monthFont = CopyOf(state.dayFont);
    state.weekDayFont = CopyOf(state.dayFont);
    return state;
}

void VmCalendar::ReadProps(PropertyBag& bag) {
    CalendarState defaults = NewState(DateOf(m_platform.dates.Today()));
    VmDays defaultDays;
    StoredWindow defaultWindow;
    CalendarState state;
    ReadProperties<CalendarStorage>(bag, kRead, {state, *m_days, m_platform.windowing},
                                    {defaults, defaultDays, defaultWindow}, m_platform.dates);
    state.monthAnnounced = m_state.monthAnnounced;
    state.alwaysDateChanged = m_state.alwaysDateChanged;
    state.noResizeControl = m_state.noResizeControl;
    state.extendedNavigation = m_state.extendedNavigation;
    state.shownDate = state.dateValue;
    state.ready = true;
    m_state = std::move(state);
    EndPress();
    ++m_dateChanges;
    m_days->LoadMonth(DayOf(m_state.shownDate));
    SyncSelectors();

    const Lifetime::Watch alive(m_lifetime);
    RaiseThen([&] { SelectMonth(MonthOf(DayOf(m_state.shownDate))); },
              [&] {
                  if (alive) RepaintControl();
              });
}

void VmCalendar::WriteProps(PropertyBag& bag) const {
    CalendarState defaults = NewState(m_state.dateValue);
    defaults.dateChosen = m_state.dateChosen;
    VmDays defaultDays;
    StoredWindow defaultWindow;
    CalendarState state = m_state;
    WriteProperties<CalendarStorage>(bag, kWritten, {state, *m_days, m_platform.windowing},
                                     {defaults, defaultDays, defaultWindow});
}

}  // namespace velmora
