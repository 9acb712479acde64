#pragma once

#include <QDate>

class QWidget;

namespace velmora {

/// Date boxes of all kinds, beside the list of their events.
QWidget* MakeDateBoxPage(QDate date);

}  // namespace velmora
