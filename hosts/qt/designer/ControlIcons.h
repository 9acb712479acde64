#pragma once

class QIcon;

namespace velmora {

/// The controls in the widget box and the object inspector.
QIcon CalendarIcon();
QIcon DateBoxIcon();

}  // namespace velmora
