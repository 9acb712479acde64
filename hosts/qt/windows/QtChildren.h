#pragma once

#include "platform/Windowing.h"

#include <memory>

class QWidget;

/// The selectors as native widgets, which post what the user does. Each is made hidden, as a child
/// of the calendar's widget, whose font, colours and enabled state it follows. The owner's end
/// deletes the widget, unless the calendar's widget has done so before.
namespace velmora {

class SelectorInput;

std::unique_ptr<ComboBox> MakeMonthList(QWidget& parent, SelectorInput& input);
std::unique_ptr<TextBox> MakeYearText(QWidget& parent, SelectorInput& input);
/// As high as the year box made for the same widget, so that it is little more than its two arrows.
std::unique_ptr<ScrollBar> MakeYearSpinner(QWidget& parent, SelectorInput& input);
std::unique_ptr<ScrollBar> MakeDateScroll(QWidget& parent, SelectorInput& input);

}  // namespace velmora
