#pragma once

#include <QDate>

class QWidget;

namespace velmora {

/// Object name of the calendar on the live page.
inline constexpr char kLiveCalendar[] = "liveCalendar";

/// A calendar to play with: between the panel of its properties and the list of its events.
QWidget* MakeLivePage(QDate date);

}  // namespace velmora
