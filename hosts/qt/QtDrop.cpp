#include "hosts/qt/QtDrop.h"

#include "hosts/qt/QtDrag.h"
#include "hosts/qt/QtInput.h"
#include "hosts/qt/VmCalendarWidget.h"

#include <QDropEvent>
#include <QMimeData>

#include <utility>

namespace velmora {
namespace {

float XOf(const QDropEvent& event) { return static_cast<float>(event.position().x()); }
float YOf(const QDropEvent& event) { return static_cast<float>(event.position().y()); }

/// An effect that no handler has narrowed to one becomes the most harmless of them.
void Answer(QDropEvent& event, std::int32_t effects) {
    const Qt::DropActions wanted = ToActions(effects) & event.possibleActions();
    for (const auto action : {Qt::CopyAction, Qt::LinkAction, Qt::MoveAction}) {
        if (!wanted.testFlag(action)) continue;
        event.setDropAction(action);
        event.accept();
        return;
    }
    event.setDropAction(Qt::IgnoreAction);
    event.ignore();
}

Variant TextOf(const QDropEvent& event) { return WrapData(event.mimeData())->GetData(kTextFormat); }

bool CanSelect(VmCalendar& calendar, const Variant& text) {
    if (!text.As<std::string>()) return false;
    try {
        const DayNumber day = DayOf(calendar.ToDate(text));
        return DayOf(calendar.DateMin()) <= day && day <= DayOf(calendar.DateMax());
    } catch (const AutomationError&) {
        return false;
    }
}

}  // namespace

VmCalendar& DropTarget::Calendar() const { return m_widget.calendar(); }

void DropTarget::Enter(QDropEvent& event) {
    m_entered = true;
    m_last = {};
    event.accept();
}

void DropTarget::Move(QDropEvent& event) {
    if (IsAutomatic()) {
        Answer(event, CanSelect(Calendar(), TextOf(event)) ? kDropAny : kDropNone);
    } else {
        Ask(event);
    }
}

void DropTarget::Ask(QDropEvent& event) {
    const DragState state = m_last.data ? DragState::Over : DragState::Enter;
    m_last = {WrapData(event.mimeData()), ShiftOf(event.modifiers()), XOf(event), YOf(event)};
    const Last now = m_last;
    std::int32_t effect = ToEffects(event.possibleActions());
    Calendar().OnOLEDragOver(now.data, effect, ButtonsOf(event.buttons()), now.shift, now.x, now.y,
                             static_cast<std::int16_t>(state));
    Answer(event, effect);
}

void DropTarget::Leave() {
    m_entered = false;
    const Last last = std::exchange(m_last, {});
    if (IsAutomatic() || !last.data) return;
    std::int32_t effect = kDropNone;
    Calendar().OnOLEDragOver(last.data, effect, 0, last.shift, last.x, last.y,
                             static_cast<std::int16_t>(DragState::Leave));
}

void DropTarget::Drop(QDropEvent& event) {
    m_entered = false;
    m_last = {};
    if (!IsAutomatic()) {
        std::int32_t effect = ToEffects(event.possibleActions());
        Calendar().OnOLEDragDrop(WrapData(event.mimeData()), effect, ButtonsOf(event.buttons()),
                                 ShiftOf(event.modifiers()), XOf(event), YOf(event));
        Answer(event, effect);
        return;
    }
    const Variant text = TextOf(event);
    const bool can = CanSelect(Calendar(), text);
    Answer(event, can ? kDropAny : kDropNone);
    if (can) Calendar().DateValue(text);
}

}  // namespace velmora
