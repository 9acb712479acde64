#include "calendar/CalendarMembers.h"

#include "calendar/VmCalendar.h"

#include <exception>
#include <functional>
#include <string>

namespace velmora {
namespace {

constexpr auto kMembers = CommonMembers<VmCalendar>();

/// The members that `SetProps` copies, in its order. The two limits stand for both of them.
constexpr std::string_view kCopied[] = {
    "Appearance",
    "SelectedDayBackColor",
    "SelectedDayForeColor",
    "DayAppearance",
    "DayCaptionAlignment",
    "DayFont",
    "DayNumberAlignment",
    "DayPictureAlignment",
    "Days",
    "FirstDayOfWeek",
    "MonthAppearance",
    "MonthBackColor",
    "MonthDisplay",
    "MonthFont",
    "MonthForeColor",
    "MouseIcon",
    "MousePointer",
    "DateMax",
    "DateValue",
    "MonthYearSelStyle",
    "ShowWeekend",
    "TodayBackColor",
    "TodayForeColor",
    "WeekDayAppearance",
    "WeekDayBackColor",
    "WeekDayDisplay",
    "WeekDayFont",
    "WeekDayCaptionAlignment",
    "WeekDayForeColor",
};

/// Copies one thing after the other as long as the target lives, and keeps the first refusal for
/// the end.
class Copier {
public:
    Copier(const AutomationObject& from, VmCalendar& to, const Lifetime::Watch& alive)
        : m_from(from), m_to(to), m_alive(alive) {}

    void Copy(std::string_view name) {
        Try([&] { m_to.LetMember(name, m_from.GetMember(name)); });
    }

    /// The one first that leaves the range open on the way to the other.
    void CopyLimits() {
        Try([&] {
            const Date maximum = m_to.ToDate(m_from.GetMember(kDateMax.name));
            const bool maximumFirst = DayOf(maximum) >= DayOf(m_to.DateMin());
            Copy(maximumFirst ? kDateMax.name : kDateMin.name);
            Copy(maximumFirst ? kDateMin.name : kDateMax.name);
        });
    }

    void CopyDayColors(const VmDays& days) {
        Try([&] { m_to.DayDefaultBackColor(days.DefaultBackColor()); });
        Try([&] { m_to.DayOtherMonthForeColor(days.OtherMonthForeColor()); });
        Try([&] { m_to.DayDefaultForeColor(days.DefaultForeColor()); });
    }

    void CopyDecorations(const VmDays& days) {
        for (std::int16_t i = 1; i <= days.Count(); ++i) {
            Try([&] {
                const DayRef from = days.Item(i);
                if (from->Dirty()) CopyDecoration(*from, *m_to.Days()->Item(i));
            });
        }
    }

    void Try(const std::function<void()>& step) {
        if (!m_alive) return;
        try {
            step();
        } catch (...) {
            if (!m_firstError) m_firstError = std::current_exception();
        }
    }

    void RaiseFirstError() const {
        if (m_firstError) std::rethrow_exception(m_firstError);
    }

private:
    static void CopyDecoration(const VmDay& from, VmDay& to) {
        to.BackColor(from.BackColor());
        to.Caption(from.Caption());
        to.ForeColor(from.ForeColor());
        to.Picture(from.Picture());
    }

    const AutomationObject& m_from;
    VmCalendar& m_to;
    const Lifetime::Watch& m_alive;
    std::exception_ptr m_firstError;
};

}  // namespace

Variant VmCalendar::GetMember(std::string_view name) const {
    return MemberOf(kMembers, name).get(*this);
}

void VmCalendar::LetMember(std::string_view name, const Variant& value) {
    LetByName(kMembers, *this, name, value);
}

void VmCalendar::SetProps(const AutomationObject& holder) {
    const Lifetime::Watch alive(m_lifetime);
    Copier copier(holder, *this, alive);
    std::shared_ptr<VmDays> days;
    copier.Try([&] { days = ToObject<VmDays>(holder.GetMember(kDays)); });

    m_copying = true;
    for (const std::string_view name : kCopied) {
        if (name == kDays) {
            if (days) copier.CopyDayColors(*days);
        } else if (name == kDateMax.name) {
            copier.CopyLimits();
        } else {
            copier.Copy(name);
        }
    }
    if (days) copier.CopyDecorations(*days);
    if (!alive) return;
    SyncSelectors();
    m_copying = false;
    RepaintControl();
    copier.RaiseFirstError();
}

}  // namespace velmora
