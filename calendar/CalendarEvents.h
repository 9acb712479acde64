#pragma once

#include "platform/Events.h"
#include "platform/Hosting.h"

#include <cstdint>

namespace velmora {

/// The events of a calendar, in the order of their published identifiers 1..18. Arguments are by
/// reference; a handler may change those that say so. Coordinates are in the units of the control's
/// container. Buttons: 1 left, 2 right, 4 middle. Shift: 1 Shift, 2 Ctrl, 4 Alt.
struct CalendarEvents {
    Event<> Click;                              // 1
    Event<Date&> DateChanged;                   // 2: NewDate
    Event<std::int16_t&> DayChanged;            // 3: NewDay, 1..31
    Event<> DblClick;                           // 4
    Event<std::int16_t&, std::int16_t&> KeyUp;  // 5: KeyCode, Shift
    Event<std::int16_t&> KeyPress;              // 6: KeyAscii
    /// 7: KeyCode, Shift; raised before the calendar acts on the key, with what the handler leaves.
    Event<std::int16_t&, std::int16_t&> KeyDown;
    Event<std::int16_t&> MonthChanged;                                  // 8: NewMonth, 1..12
    using Mouse = Event<std::int16_t&, std::int16_t&, float&, float&>;  // Button, Shift, x, y
    Mouse MouseDown;                                                    // 9
    Mouse MouseMove;                                                    // 10
    Mouse MouseUp;                                                      // 11
    Event<std::int32_t&> OLECompleteDrag;                               // 12: Effect
    /// 13: Data, Effect, Button, Shift, x, y
    Event<DataRef&, std::int32_t&, std::int16_t&, std::int16_t&, float&, float&> OLEDragDrop;
    /// 14: the same and State (0 enter, 1 leave, 2 over)
    Event<DataRef&, std::int32_t&, std::int16_t&, std::int16_t&, float&, float&, std::int16_t&>
        OLEDragOver;
    Event<std::int32_t&, bool&> OLEGiveFeedback;  // 15: Effect, DefaultCursors
    Event<DataRef&, std::int16_t&> OLESetData;    // 16: Data, DataFormat
    Event<DataRef&, std::int32_t&> OLEStartDrag;  // 17: Data, AllowedEffects
    Event<std::int16_t&> YearChanged;             // 18: NewYear
};

}  // namespace velmora
