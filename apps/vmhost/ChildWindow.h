#pragma once

#include <windows.h>

namespace velmora::vmhost {

/// Pixels of a screen with 96 an inch as those of this one.
LONG Scaled(LONG pixels);
RECT Scaled(const RECT& place);

/// A visible child window with the dialog font.
HWND MakeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style,
               const RECT& place, int id);

}  // namespace velmora::vmhost
