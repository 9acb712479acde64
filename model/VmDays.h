#pragma once

#include "model/VmDay.h"
#include "platform/Events.h"
#include "platform/Values.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The days of the shown month in order, one `VmDay` each, and the three default day colours. The
/// owner rebuilds it for another month, which discards the decorations without an event.
class VmDays : public Object, public std::enable_shared_from_this<VmDays> {
public:
    /// Colours of days without their own, and of the neighbouring months' days. Stored as they are:
    /// the control that owns the collection checks them in its own properties.
    OLE_COLOR DefaultBackColor() const noexcept { return m_defaultBackColor; }
    void DefaultBackColor(OLE_COLOR value) noexcept { m_defaultBackColor = value; }
    OLE_COLOR OtherMonthForeColor() const noexcept { return m_otherMonthForeColor; }
    void OtherMonthForeColor(OLE_COLOR value) noexcept { m_otherMonthForeColor = value; }
    OLE_COLOR DefaultForeColor() const noexcept { return m_defaultForeColor; }
    void DefaultForeColor(OLE_COLOR value) noexcept { m_defaultForeColor = value; }

    /// The day with that day of month, 1..`Count`. Error 381: any other index.
    DayRef Item(std::int16_t index) const;
    /// 0 before the first month has been loaded.
    std::int32_t Count() const noexcept { return static_cast<std::int32_t>(m_items.size()); }
    /// The days in order, for enumeration. Every rebuild invalidates it.
    const std::vector<DayRef>& Items() const noexcept { return m_items; }

    /// Raised by any change of a day that this collection made: its `DayDate` and the name of the
    /// changed property.
    Event<Date&, std::string&> DayChanged;

    // For the owner of the collection, and for its days.

    /// Appends a day, without its time. Error 380 for a colour of the wrong type; nothing is added.
    DayRef AddDay(Date date, const Variant& backColor = {}, const Variant& foreColor = {});
    /// Removes the item at that position. Error 381: outside 1..`Count`.
    void RemoveDay(std::int16_t index);
    void ClearDays() noexcept { m_items.clear(); }
    /// Holds the days of that month from now on, undecorated. Raises nothing.
    void LoadMonth(DayNumber day);
    void RaiseDayChanged(const VmDay& day, std::string_view property);
    /// Called with the position (1..`Count`) of a changed day before `DayChanged` is raised, but
    /// not for days that no longer belong to the collection.
    void WhenItemChanges(std::function<void(std::int16_t)> hook) {
        m_itemChanged = std::move(hook);
    }

private:
    OLE_COLOR m_defaultBackColor = kButtonFace;
    OLE_COLOR m_otherMonthForeColor = kGrayText;
    OLE_COLOR m_defaultForeColor = kWindowText;
    std::vector<DayRef> m_items;
    std::function<void(std::int16_t)> m_itemChanged;
};

using DaysRef = std::shared_ptr<VmDays>;

}  // namespace velmora
