#include "hosts/qt/windows/QtDrop.h"

#include "calendar/VmCalendar.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/windows/QtDrag.h"
#include "hosts/qt/windows/QtInput.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

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

}  // namespace

void LeaveDrag(QWidget& widget) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&widget, &leave);
}

template <class Control>
bool DropTarget<Control>::IsAutomatic() const {
    return m_control.OLEDropMode() == VmOLEAutomatic;
}

template <class Control>
bool DropTarget<Control>::CanSelect(const Variant& text) const {
    if (!text.As<std::string>()) return false;
    try {
        const DayNumber day = DayOf(m_control.ToDate(text));
        return DayOf(m_control.DateMin()) <= day && day <= DayOf(m_control.DateMax());
    } catch (const AutomationError&) {
        return false;
    }
}

template <class Control>
void DropTarget<Control>::Enter(QDropEvent& event) {
    m_entered = true;
    m_last = {};
    event.accept();
}

template <class Control>
void DropTarget<Control>::Move(QDropEvent& event) {
    if (IsAutomatic()) {
        Answer(event, CanSelect(TextOf(event)) ? kDropAny : kDropNone);
    } else {
        Ask(event);
    }
}

template <class Control>
void DropTarget<Control>::Ask(QDropEvent& event) {
    const DragState state = m_last.data ? DragState::Over : DragState::Enter;
    m_last = {WrapData(event.mimeData()), ShiftOf(event.modifiers()), XOf(event), YOf(event)};
    const Last now = m_last;
    std::int32_t effect = ToEffects(event.possibleActions());
    m_control.OnOLEDragOver(now.data, effect, ButtonsOf(event.buttons()), now.shift, now.x, now.y,
                            static_cast<std::int16_t>(state));
    Answer(event, effect);
}

template <class Control>
void DropTarget<Control>::Leave() {
    m_entered = false;
    const Last last = std::exchange(m_last, {});
    if (IsAutomatic() || !last.data) return;
    std::int32_t effect = kDropNone;
    m_control.OnOLEDragOver(last.data, effect, 0, last.shift, last.x, last.y,
                            static_cast<std::int16_t>(DragState::Leave));
}

template <class Control>
void DropTarget<Control>::Drop(QDropEvent& event) {
    m_entered = false;
    m_last = {};
    if (!IsAutomatic()) {
        std::int32_t effect = ToEffects(event.possibleActions());
        m_control.OnOLEDragDrop(WrapData(event.mimeData()), effect, ButtonsOf(event.buttons()),
                                ShiftOf(event.modifiers()), XOf(event), YOf(event));
        Answer(event, effect);
        return;
    }
    const Variant text = TextOf(event);
    const bool can = CanSelect(text);
    Answer(event, can ? kDropAny : kDropNone);
    if (can) m_control.DateValue(text);
}

template class DropTarget<VmCalendar>;
template class DropTarget<VmCalDropDown>;

}  // namespace velmora
