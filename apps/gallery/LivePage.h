#pragma once

#include <QDate>

class QWidget;

namespace velmora {

/// A calendar to play with: between the panel of its properties and the list of its events.
QWidget* MakeLivePage(QDate date);

}  // namespace velmora
