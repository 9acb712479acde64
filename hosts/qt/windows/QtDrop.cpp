#include "hosts/qt/windows/QtDrop.h"

#include "calendar/VmCalendar.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/windows/QtDrag.h"
#include "hosts/qt/windows/QtInput.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace velmora {
namespace {

DragOver DragOf(const QDropEvent& event) {
    return {.data = WrapData(event.mimeData()),
            .allowed = ToEffects(event.possibleActions()),
            .button = ButtonsOf(event.buttons()),
            .shift = ShiftOf(event.modifiers()),
            .x = static_cast<float>(event.position().x()),
            .y = static_cast<float>(event.position().y())};
}

void Answer(QDropEvent& event, std::int32_t effect) {
    event.setDropAction(static_cast<Qt::DropAction>(ToActions(effect).toInt()));
    event.setAccepted(effect != kDropNone);
}

}  // namespace

void LeaveDrag(QWidget& widget) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&widget, &leave);
}

QtDropTarget::QtDropTarget(AnyControl control, const Dates& dates)
    : m_target(std::visit([&](auto* of) { return decltype(m_target)(DropTarget(*of, dates)); },
                          control)) {}

void QtDropTarget::Enter(QDropEvent& event) {
    m_entered = true;
    std::visit([](auto& target) { target.Enter(); }, m_target);
    event.accept();
}

void QtDropTarget::Move(QDropEvent& event) {
    Answer(event, std::visit([&](auto& target) { return target.Move(DragOf(event)); }, m_target));
}

void QtDropTarget::Leave() {
    m_entered = false;
    std::visit([](auto& target) { target.Leave(); }, m_target);
}

void QtDropTarget::Drop(QDropEvent& event) {
    m_entered = false;
    Answer(event, std::visit([&](auto& target) { return target.Drop(DragOf(event)); }, m_target));
}

}  // namespace velmora
