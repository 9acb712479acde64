#pragma once

#include <QDate>

class QWidget;

namespace velmora {

/// Object name of the date box whose calendar is open on pictures.
inline constexpr char kOpenedInPicture[] = "openedInPicture";

/// Date boxes of all kinds, beside the list of their events.
QWidget* MakeDateBoxPage(QDate date);

}  // namespace velmora
