#include "apps/vmhost/ChildWindow.h"

#include "hosts/activex/win32/ScreenDpi.h"

namespace velmora::vmhost {

LONG Scaled(LONG pixels) { return MulDiv(pixels, ScreenDpi(), 96); }

RECT Scaled(const RECT& place) {
    return {Scaled(place.left), Scaled(place.top), Scaled(place.right), Scaled(place.bottom)};
}

HWND MakeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style,
               const RECT& place, int id) {
    const HWND window = CreateWindowW(kind, text, WS_CHILD | WS_VISIBLE | style, place.left,
                                      place.top, place.right - place.left, place.bottom - place.top,
                                      parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                      GetModuleHandleW(nullptr), nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), 0);
    return window;
}

}  // namespace velmora::vmhost
