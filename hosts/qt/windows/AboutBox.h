#pragma once

#include "platform/Hosting.h"

class QWidget;

namespace velmora {

/// Shows the About box over the widget's window and returns. The box is modal to the application,
/// deletes itself when it is closed, and stays usable when the widget has gone.
void ShowAbout(const AboutText& text, const QWidget& widget);

}  // namespace velmora
