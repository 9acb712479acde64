#include "calendar/PropertyAccess.h"
#include "calendar/VmCalendar.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace velmora {
namespace {

/// The days of a holder: this library's own, or any objects that answer by the same names.
class HolderDays {
public:
    HolderDays() = default;
    /// Error 13: no object, or one without names.
    explicit HolderDays(const Variant& days) {
        const auto object = ToObject<Object>(days);
        m_own = std::dynamic_pointer_cast<VmDays>(object);
        m_named = std::dynamic_pointer_cast<AutomationObject>(object);
        if (!m_own && !m_named) RaiseTypeMismatch();
    }

    explicit operator bool() const noexcept { return m_own || m_named; }
    std::int32_t Count() const {
        return m_own ? m_own->Count() : ToInt32(m_named->GetMember("Count"));
    }
    OLE_COLOR Color(const DayColorProperty& row) const {
        constexpr std::size_t kDay = 3;  // "DayDefaultBackColor" is their "DefaultBackColor"
        return m_own ? (*m_own.*row.get)()
                     : FromVariant<OLE_COLOR>(m_named->GetMember(row.name.substr(kDay)));
    }
    ObjectRef Item(std::int16_t index) const {
        return m_own ? m_own->Item(index) : ToObject<Object>(m_named->GetItem(index));
    }

private:
    std::shared_ptr<VmDays> m_own;
    std::shared_ptr<AutomationObject> m_named;
};

/// Copies one thing after the other as long as the target lives, and keeps the first refusal for
/// the end.
class Copier {
public:
    Copier(const AutomationObject& from, VmCalendar& to, const Lifetime::Watch& alive)
        : m_from(from), m_to(to), m_alive(alive) {
        Try([&] { m_days = HolderDays(from.GetMember(kDays.name)); });
    }

    template <const auto&... kRow>
    void CopyAll(Rows<kRow...>) {
        (Copy(kRow), ...);
    }

    template <class Row>
    void Copy(const Row& row) {
        Try([&] { m_to.Let(row, ForSetter<Row>(m_to, m_from.GetMember(row.name))); });
    }
    /// Both limits, the one first that leaves the range open on the way to the other.
    void Copy(const LimitProperty& row) {
        if (row.name != kDateMax.name) return;
        Try([&] {
            const Date maximum = m_to.ToDate(m_from.GetMember(kDateMax.name));
            const bool maximumFirst = DayOf(maximum) >= DayOf(m_to.DateMin());
            const LimitProperty& first = maximumFirst ? kDateMax : kDateMin;
            const LimitProperty& second = maximumFirst ? kDateMin : kDateMax;
            Copy<LimitProperty>(first);
            Copy<LimitProperty>(second);
        });
    }
    void Copy(const DayColorProperty& row) {
        if (m_days) Try([&] { m_to.Let(row, m_days.Color(row)); });
    }

    void CopyDecorations() {
        constexpr std::int32_t kLongestMonth = 31;
        std::int32_t count = 0;
        if (m_days) Try([&] { count = std::min(m_days.Count(), kLongestMonth); });
        for (std::int32_t i = 1; i <= count; ++i) {
            Try([&] {
                const ObjectRef day = m_days.Item(static_cast<std::int16_t>(i));
                if (const auto* own = dynamic_cast<const VmDay*>(day.get())) {
                    CopyOwn(*own);
                } else if (const auto* named = dynamic_cast<const AutomationObject*>(day.get())) {
                    CopyNamed(*named, i);
                }
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
    /// The target's day of that date; null where another month is shown.
    DayRef DayOfDate(DayNumber day) const {
        if (MonthsBetween(DayOf(m_to.ShownDate()), day) != 0) return nullptr;
        return m_to.Days()->Item(static_cast<std::int16_t>(DayOfMonth(day)));
    }

    void CopyOwn(const VmDay& from) {
        const DayRef to = from.Dirty() ? DayOfDate(DayOf(from.DayDate())) : nullptr;
        if (!to) return;
        to->BackColor(from.BackColor());
        to->Caption(from.Caption());
        to->ForeColor(from.ForeColor());
        to->Picture(from.Picture());
    }

    void CopyNamed(const AutomationObject& from, std::int32_t index) {
        if (!ToBoolean(from.GetMember("Dirty"))) return;
        DayNumber day = 0;
        try {
            day = DayOf(m_to.ToDate(from.GetMember("DayDate")));
        } catch (const AutomationError&) {
            day = FirstOfMonth(DayOf(m_to.ShownDate())) + index - 1;  // counted from the first
        }
        const DayRef to = DayOfDate(day);
        if (!to) return;
        Try([&] { to->BackColor(from.GetMember("BackColor")); });
        Try([&] { to->Caption(FromVariant<std::string>(from.GetMember("Caption"))); });
        Try([&] { to->ForeColor(from.GetMember("ForeColor")); });
        Try([&] { to->Picture(FromVariant<PictureRef>(from.GetMember("Picture"))); });
    }

    const AutomationObject& m_from;
    VmCalendar& m_to;
    const Lifetime::Watch& m_alive;
    HolderDays m_days;  // none: the holder has none
    std::exception_ptr m_firstError;
};

}  // namespace

void VmCalendar::SetProps(const AutomationObject& holder) {
    const Lifetime::Watch alive(m_lifetime);
    Copier copier(holder, *this, alive);
    m_copying = true;
    copier.CopyAll(CopyOrder());
    copier.Try([&] { ShowSelection(); });
    copier.CopyDecorations();
    if (!alive) return;
    SyncSelectors();
    m_copying = false;
    RepaintControl();
    copier.RaiseFirstError();
}

}  // namespace velmora
