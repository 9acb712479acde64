#pragma once

#include "platform/Events.h"
#include "platform/Hosting.h"

#include <cstdint>

namespace velmora {

/// The events of a date box, in the order of their published identifiers 1..18. Arguments as in
/// `CalendarEvents`.
struct DropDownEvents {
    Event<> CloseUp;                  // 1: last of closing, the text is up to date
    Event<Date&> DateChanged;         // 2: NewDate; the text shows it already
    Event<std::int16_t&> DayChanged;  // 3: NewDay, 1..31
    Event<bool&> DropDown;            // 4: before the window shows; Cancel keeps it hidden
    Event<std::int16_t&, std::int16_t&> KeyUp;  // 5: KeyCode, Shift
    Event<std::int16_t&> KeyPress;              // 6: KeyAscii
    /// 7: KeyCode, Shift; raised before the box acts on the key, with what the handler leaves.
    Event<std::int16_t&, std::int16_t&> KeyDown;
    Event<std::int16_t&> MonthChanged;  // 8: NewMonth, 1..12; `Days` are that month's
    using Mouse = Event<std::int16_t&, std::int16_t&, float&, float&>;  // Button, Shift, x, y
    Mouse MouseDown;                       // 9: on the box or on its open calendar
    Mouse MouseMove;                       // 10
    Mouse MouseUp;                         // 11
    Event<std::int32_t&> OLECompleteDrag;  // 12: Effect
    /// 13: Data, Effect, Button, Shift, x, y
    Event<DataRef&, std::int32_t&, std::int16_t&, std::int16_t&, float&, float&> OLEDragDrop;
    /// 14: the same and State
    Event<DataRef&, std::int32_t&, std::int16_t&, std::int16_t&, float&, float&, std::int16_t&>
        OLEDragOver;
    Event<std::int32_t&, bool&> OLEGiveFeedback;  // 15: Effect, DefaultCursors
    Event<DataRef&, std::int16_t&> OLESetData;    // 16: Data, DataFormat
    Event<DataRef&, std::int32_t&> OLEStartDrag;  // 17: Data, AllowedEffects
    Event<std::int16_t&> YearChanged;             // 18: NewYear
};

}  // namespace velmora
