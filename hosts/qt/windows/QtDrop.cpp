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

bool DropTarget::IsAutomatic() const {
    return std::visit([](auto* control) { return control->OLEDropMode(); }, m_control) ==
           VmOLEAutomatic;
}

bool DropTarget::CanSelect(const Variant& text) const {
    if (!text.As<std::string>()) return false;
    const auto isInLimits = [&text](auto* control) {
        const DayNumber day = DayOf(control->ToDate(text));
        return DayOf(control->DateMin()) <= day && day <= DayOf(control->DateMax());
    };
    try {
        return std::visit(isInLimits, m_control);
    } catch (const AutomationError&) {
        return false;
    }
}

void DropTarget::Enter(QDropEvent& event) {
    m_entered = true;
    m_last = {};
    event.accept();
}

void DropTarget::Move(QDropEvent& event) {
    if (IsAutomatic()) {
        Answer(event, CanSelect(TextOf(event)) ? kDropAny : kDropNone);
    } else {
        Ask(event);
    }
}

void DropTarget::Ask(QDropEvent& event) {
    const DragState state = m_last.data ? DragState::Over : DragState::Enter;
    m_last = {WrapData(event.mimeData()), ShiftOf(event.modifiers()), XOf(event), YOf(event)};
    std::int32_t effect = ToEffects(event.possibleActions());
    RaiseOver(Last(m_last), effect, ButtonsOf(event.buttons()), state);
    Answer(event, effect);
}

void DropTarget::RaiseOver(const Last& at, std::int32_t& effect, std::int16_t buttons,
                           DragState state) {
    std::visit(
        [&](auto* control) {
            control->OnOLEDragOver(at.data, effect, buttons, at.shift, at.x, at.y,
                                   static_cast<std::int16_t>(state));
        },
        m_control);
}

void DropTarget::Leave() {
    m_entered = false;
    const Last last = std::exchange(m_last, {});
    if (IsAutomatic() || !last.data) return;
    std::int32_t effect = kDropNone;
    RaiseOver(last, effect, 0, DragState::Leave);
}

void DropTarget::Drop(QDropEvent& event) {
    m_entered = false;
    m_last = {};
    if (!IsAutomatic()) {
        std::int32_t effect = ToEffects(event.possibleActions());
        std::visit(
            [&](auto* control) {
                control->OnOLEDragDrop(WrapData(event.mimeData()), effect,
                                       ButtonsOf(event.buttons()), ShiftOf(event.modifiers()),
                                       XOf(event), YOf(event));
            },
            m_control);
        Answer(event, effect);
        return;
    }
    const Variant text = TextOf(event);
    const bool can = CanSelect(text);
    Answer(event, can ? kDropAny : kDropNone);
    if (can) std::visit([&text](auto* control) { control->DateValue(text); }, m_control);
}

}  // namespace velmora
