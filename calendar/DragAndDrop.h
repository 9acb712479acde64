#pragma once

#include "model/Enumerations.h"
#include "platform/AutomationError.h"
#include "platform/Events.h"
#include "platform/Hosting.h"
#include "platform/dates/Dates.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

/// Drag and drop as a calendar and a date box have it. Hosts translate the platform's calls.
namespace velmora {

/// Where a drag over a control stands, as its event says it.
enum class DragState : std::int16_t { Enter = 0, Leave = 1, Over = 2 };

/// A drag over a control, or a drop on it. Pixels of the client area.
struct DragOver {
    DataRef data;  // null: nothing that could be dropped
    std::int32_t allowed = kDropNone;
    std::int16_t button = 0;
    std::int16_t shift = 0;
    float x = 0;
    float y = 0;
};

/// What is dragged over a control and dropped on it. Manual drops are events, whose handlers decide
/// on the effect; an automatic drop of a date that can be selected selects it. A handler may
/// destroy the control, and this object with it.
template <class Control>
class DropTarget {
public:
    /// Both outlive it.
    DropTarget(Control& control, const Dates& dates) : m_control(control), m_dates(dates) {}

    /// A drag comes in: what was before is forgotten. `Move` follows.
    void Enter() { m_last = {}; }
    /// The effect that a drop would have here, one of those allowed or none. The first move after
    /// an entrance is the published entrance.
    std::int32_t Move(const DragOver& now) {
        const DragState state = m_last.data ? DragState::Over : DragState::Enter;
        m_last = now;
        if (!now.data) return kDropNone;
        if (IsAutomatic()) return OneOf(DayIn(now.data) ? kDropAny : kDropNone, now.allowed);
        return OneOf(Ask(now, now.allowed, state), now.allowed);
    }
    /// The event of a leave has the place of the last move, and no button.
    void Leave() {
        DragOver last = std::exchange(m_last, {});
        if (!last.data || IsAutomatic()) return;
        last.button = 0;
        Ask(last, kDropNone, DragState::Leave);
    }
    /// Returns the effect that it had.
    std::int32_t Drop(const DragOver& now) {
        m_last = {};
        if (!now.data) return kDropNone;
        if (IsAutomatic()) {
            const auto day = DayIn(now.data);
            const std::int32_t effect = OneOf(day ? kDropAny : kDropNone, now.allowed);
            if (effect == kDropNone || !m_control.RequestUserDate(*day)) return kDropNone;
            m_control.DateValue(now.data->GetData(kTextFormat));
            return effect;
        }
        std::int32_t effect = now.allowed;
        m_control.OnOLEDragDrop(now.data, effect, now.button, now.shift, now.x, now.y);
        return OneOf(effect, now.allowed);
    }

private:
    /// Effects that no handler has narrowed to one become the most harmless of them.
    static std::int32_t OneOf(std::int32_t effects, std::int32_t allowed) {
        for (const std::int32_t effect : {kDropCopy, kDropLink, kDropMove}) {
            if ((effects & allowed & effect) != 0) return effect;
        }
        return kDropNone;
    }
    bool IsAutomatic() const { return m_control.OLEDropMode() == VmOLEAutomatic; }
    std::int32_t Ask(const DragOver& now, std::int32_t effect, DragState state) {
        m_control.OnOLEDragOver(now.data, effect, now.button, now.shift, now.x, now.y,
                                static_cast<std::int16_t>(state));
        return effect;
    }
    /// The day that the text names, if it can be selected; a time alone names none.
    std::optional<DayNumber> DayIn(const DataRef& data) const {
        const Variant value = data->GetData(kTextFormat);
        const auto* const text = value.As<std::string>();
        const auto day = text ? m_dates.TryParseDay(*text) : std::nullopt;
        const bool isSelectable =
            day && DayOf(m_control.DateMin()) <= *day && *day <= DayOf(m_control.DateMax());
        return isSelectable ? day : std::nullopt;
    }

    Control& m_control;
    const Dates& m_dates;
    DragOver m_last;  // without data before the entrance
};

/// Drags the text from a control, with its events, until the user drops it. One drag at a time:
/// `dragging` is a member of the control, whose lifetime is given too.
template <class Events>
void DragText(const std::string& text, Hosting& hosting, Events& events, const Lifetime& lifetime,
              bool& dragging) {
    if (std::exchange(dragging, true)) return;
    const Lifetime::Watch alive(lifetime);
    DataRef data = std::make_shared<HeldData>();
    data->SetData(kTextFormat, text);
    std::int32_t effect = kDropCopy;
    const DragEvents asked{.setData =
                               [alive, &events](DataRef wanted, std::int16_t format) {
                                   if (alive) events.OLESetData.Raise(wanted, format);
                               },
                           .giveFeedback =
                               [alive, &events](std::int32_t now) {
                                   bool defaultCursors = true;
                                   if (alive) events.OLEGiveFeedback.Raise(now, defaultCursors);
                                   return defaultCursors;
                               }};
    try {
        events.OLEStartDrag.Raise(data, effect);
        if (!alive) return;
        effect = data ? hosting.Drag(data, effect & kDropAny, asked) : kDropNone;
    } catch (...) {
        if (alive) dragging = false;
        throw;
    }
    if (!alive) return;
    dragging = false;
    events.OLECompleteDrag.Raise(effect);
}

}  // namespace velmora
