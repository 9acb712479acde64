#pragma once

#include <windows.h>

namespace velmora {

enum class PageKey {
    None,      // not a key
    ForPage,   // moves inside of the page, presses an access key, edits
    IntoPage,  // Tab with the focus outside
    ForSite,   // leaves the page at its last or first field, OK, Cancel, anything else
};

/// Whose a message is that the frame's loop has got, asked before anybody has translated it.
PageKey PageKeyOf(HWND page, const MSG& message);

/// Gives the focus to the first field; to the last one while Shift is down.
void EnterPage(HWND page);

}  // namespace velmora
