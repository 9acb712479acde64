#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>

class QKeyEvent;
class QMouseEvent;

/// Keys and buttons in the numbers of the published events.
namespace velmora {

/// The virtual-key code; 0 for a key without one. Punctuation is as on an English (US) keyboard.
std::int16_t VirtualKeyOf(const QKeyEvent& event);
/// The character that the key types; 0 for none.
std::int16_t CharacterOf(const QKeyEvent& event);
/// 1 Shift, 2 Ctrl, 4 Alt.
std::int16_t ShiftOf(Qt::KeyboardModifiers modifiers);
/// 1 left, 2 right, 4 middle.
std::int16_t ButtonsOf(Qt::MouseButtons buttons);
/// Pixels of the widget that gets the event.
float XOf(const QMouseEvent& event);
float YOf(const QMouseEvent& event);

}  // namespace velmora
