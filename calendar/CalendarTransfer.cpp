#include "calendar/PropertyAccess.h"
#include "calendar/VmCalendar.h"

#include <exception>
#include <functional>
#include <string>

namespace velmora {
namespace {

/// Copies one thing after the other as long as the target lives, and keeps the first refusal for
/// the end.
class Copier {
public:
    Copier(const AutomationObject& from, VmCalendar& to, const Lifetime::Watch& alive)
        : m_from(from), m_to(to), m_alive(alive) {
        Try([&] { m_days = ToObject<VmDays>(from.GetMember(kDays.name)); });
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
        if (m_days) Try([&] { m_to.Let(row, (*m_days.*row.get)()); });
    }

    void CopyDecorations() {
        for (std::int16_t i = 1; m_days && i <= m_days->Count(); ++i) {
            Try([&] {
                const DayRef from = m_days->Item(i);
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
    std::shared_ptr<VmDays> m_days;  // null: the holder has none
    std::exception_ptr m_firstError;
};

}  // namespace

void VmCalendar::SetProps(const AutomationObject& holder) {
    const Lifetime::Watch alive(m_lifetime);
    Copier copier(holder, *this, alive);
    m_copying = true;
    copier.CopyAll(CopyOrder());
    copier.CopyDecorations();
    if (!alive) return;
    SyncSelectors();
    m_copying = false;
    RepaintControl();
    copier.RaiseFirstError();
}

}  // namespace velmora
