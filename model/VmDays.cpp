#include "model/VmDays.h"

#include "platform/AutomationError.h"

#include <algorithm>
#include <utility>

namespace velmora {

DayRef VmDays::Item(std::int16_t index) const {
    if (index < 1 || index > Count()) throw AutomationError(ErrorNumber::SubscriptOutOfRange);
    return m_items[static_cast<std::size_t>(index) - 1];
}

DayRef VmDays::AddDay(Date date, const Variant& backColor, const Variant& foreColor) {
    auto day = std::make_shared<VmDay>(weak_from_this(), DateOf(DayOf(date)));
    if (backColor.Type() != VarType::Empty) day->BackColor(backColor);
    if (foreColor.Type() != VarType::Empty) day->ForeColor(foreColor);
    m_items.push_back(day);
    return day;
}

void VmDays::RemoveDay(std::int16_t index) {
    if (index < 1 || index > Count()) throw AutomationError(ErrorNumber::SubscriptOutOfRange);
    m_items.erase(m_items.begin() + index - 1);
}

void VmDays::LoadMonth(DayNumber day) {
    const DayNumber first = FirstOfMonth(day);
    const auto count = static_cast<std::size_t>(LastOfMonth(day) - first) + 1;
    m_items.clear();
    m_items.reserve(count);
    for (DayNumber d = first; m_items.size() < count; ++d) AddDay(DateOf(d));
}

void VmDays::RaiseDayChanged(const VmDay& day, std::string_view property) {
    const auto alive = shared_from_this();  // a handler may drop the owner
    const auto item = std::find_if(m_items.begin(), m_items.end(), [&](const DayRef& candidate) {
        return candidate.get() == &day;
    });
    Date key = day.DayDate();
    if (item != m_items.end() && m_itemChanged) {
        m_itemChanged(static_cast<std::int16_t>(item - m_items.begin() + 1));
    }
    std::string name(property);
    DayChanged.Raise(key, name);
}

}  // namespace velmora
