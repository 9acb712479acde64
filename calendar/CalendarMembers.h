#pragma once

#include "calendar/CalendarProperties.h"
#include "platform/Automation.h"
#include "platform/AutomationError.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velmora {

/// A published property reached by its name.
template <class Owner>
struct Member {
    std::string_view name;
    Variant (*get)(const Owner&);
    void (*let)(Owner&, const Variant&);  // null: read-only
};

/// A property that its row describes completely. The owner has `Get` and `Let` for rows.
template <class Owner, const auto& kProperty>
constexpr Member<Owner> Described() {
    using T = typename std::remove_cvref_t<decltype(kProperty)>::Value;
    return {
        kProperty.name, [](const Owner& owner) { return ToVariant<T>(owner.Get(kProperty)); },
        [](Owner& owner, const Variant& value) { owner.Let(kProperty, FromVariant<T>(value)); }};
}

/// The properties that a calendar and everything that stands in for one have in common. The owner
/// has the published members for those with a story of their own, and `ToDate` for what a client
/// hands in as a date.
template <class Owner>
constexpr auto CommonMembers() {
    using M = Member<Owner>;
    return std::array{
        Described<Owner, kAppearance>(),
        M{kDateMax.name, [](const Owner& o) { return Variant(o.DateMax()); },
          [](Owner& o, const Variant& v) { o.DateMax(o.ToDate(v)); }},
        M{kDateMin.name, [](const Owner& o) { return Variant(o.DateMin()); },
          [](Owner& o, const Variant& v) { o.DateMin(o.ToDate(v)); }},
        M{kDateValue.name, [](const Owner& o) { return Variant(o.DateValue()); },
          [](Owner& o, const Variant& v) { o.DateValue(v); }},
        Described<Owner, kDayAppearance>(),
        Described<Owner, kDayDefaultBackColor>(),
        Described<Owner, kDayOtherMonthForeColor>(),
        Described<Owner, kDayDefaultForeColor>(),
        Described<Owner, kDayCaptionAlignment>(),
        Described<Owner, kDayFont>(),
        Described<Owner, kDayNumberAlignment>(),
        Described<Owner, kDayPictureAlignment>(),
        M{kDays, [](const Owner& o) { return Variant(ObjectRef(o.Days())); }, nullptr},
        M{kEnabled, [](const Owner& o) { return Variant(o.Enabled()); },
          [](Owner& o, const Variant& v) { o.Enabled(FromVariant<bool>(v)); }},
        Described<Owner, kFirstDayOfWeek>(),
        Described<Owner, kMonthAppearance>(),
        Described<Owner, kMonthBackColor>(),
        Described<Owner, kMonthDisplay>(),
        Described<Owner, kMonthFont>(),
        Described<Owner, kMonthForeColor>(),
        Described<Owner, kMonthYearSelStyle>(),
        M{kMouseIcon, [](const Owner& o) { return ToVariant(o.MouseIcon()); },
          [](Owner& o, const Variant& v) { o.MouseIcon(FromVariant<PictureRef>(v)); }},
        M{kMousePointer, [](const Owner& o) { return Variant(o.MousePointer()); },
          [](Owner& o, const Variant& v) { o.MousePointer(FromVariant<std::int16_t>(v)); }},
        M{"SelectedDay", [](const Owner& o) { return Variant(ObjectRef(o.SelectedDay())); },
          nullptr},
        Described<Owner, kSelectedDayBackColor>(),
        Described<Owner, kSelectedDayForeColor>(),
        Described<Owner, kTodayBackColor>(),
        Described<Owner, kTodayForeColor>(),
        Described<Owner, kWeekDayAppearance>(),
        Described<Owner, kWeekDayBackColor>(),
        Described<Owner, kWeekDayDisplay>(),
        Described<Owner, kWeekDayFont>(),
        Described<Owner, kWeekDayForeColor>(),
        Described<Owner, kWeekDayCaptionAlignment>(),
        Described<Owner, kShowWeekend>(),
    };
}

/// The member of that name, in any case. Error 438: there is none.
template <class Members>
const auto& MemberOf(const Members& members, std::string_view name) {
    const auto found = std::find_if(std::begin(members), std::end(members), [name](const auto& m) {
        return EqualsIgnoringCase(m.name, name);
    });
    if (found == std::end(members)) throw AutomationError(ErrorNumber::MemberNotFound);
    return *found;
}

template <class Members, class Owner>
void LetByName(const Members& members, Owner& owner, std::string_view name, const Variant& value) {
    const auto& member = MemberOf(members, name);
    if (!member.let) throw AutomationError(ErrorNumber::MemberNotFound);
    member.let(owner, value);
}

}  // namespace velmora
