#pragma once

#include <windows.h>

namespace velmora::vmhost {

/// A visible child window with the dialog font.
HWND MakeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style,
               const RECT& place, int id);

}  // namespace velmora::vmhost
