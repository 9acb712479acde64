#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>

class QHelpEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
class QWidget;

namespace velmora {

class VmCalendar;
class VmDateWidget;

// Keys and buttons in the numbers of the published events.

/// The virtual-key code; 0 for a key without one. Punctuation is as on an English (US) keyboard.
std::int16_t VirtualKeyOf(const QKeyEvent& event);
/// The character that the key types; 0 for none.
std::int16_t CharacterOf(const QKeyEvent& event);
/// 1 Shift, 2 Ctrl, 4 Alt.
std::int16_t ShiftOf(Qt::KeyboardModifiers modifiers);
/// 1 left, 2 right, 4 middle.
std::int16_t ButtonsOf(Qt::MouseButtons buttons);
/// A mouse event as the controls' members take it: the button, of a move those that are held, and
/// the place in pixels of the widget that gets it.
struct MouseInput {
    std::int16_t button;
    std::int16_t shift;
    float x;
    float y;
};
MouseInput MouseInputOf(const QMouseEvent& event);

/// Leaves it to the widgets around when the calendar has no use for it.
void TellWheel(VmCalendar& calendar, QWheelEvent& event);

template <class Control>
void TellMouse(Control& control, void (Control::*member)(std::int16_t, std::int16_t, float, float),
               const QMouseEvent& event) {
    const auto [button, shift, x, y] = MouseInputOf(event);
    (control.*member)(button, shift, x, y);
}

/// Shows what `texts` says of the day under the mouse of the widget that the calendar fills. False
/// when that is nothing.
bool ShowDayToolTip(QWidget& widget, VmCalendar& calendar, const VmDateWidget& texts,
                    const QHelpEvent& event);

}  // namespace velmora
