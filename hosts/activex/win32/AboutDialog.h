#pragma once

#include "platform/Hosting.h"

#include <windows.h>

namespace velmora {

/// Shows the About box over a window, which may be null, and returns when the user has closed it.
/// The link opens in the user's browser; the button starts the system-information tool or says
/// that there is none.
void ShowAboutDialog(HWND owner, const AboutText& text, LCID locale);

}  // namespace velmora
