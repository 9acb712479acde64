#include "hosts/activex/pages/PageKeys.h"

namespace velmora {
namespace {

bool IsShiftDown() { return GetKeyState(VK_SHIFT) < 0; }

HWND First(HWND page) { return GetNextDlgTabItem(page, nullptr, FALSE); }
HWND Last(HWND page) { return GetNextDlgTabItem(page, First(page), TRUE); }

PageKey OwnerOfKeyDown(HWND page, HWND focus, WPARAM key) {
    switch (key) {
        case VK_TAB:
            return focus == (IsShiftDown() ? First(page) : Last(page)) ? PageKey::ForSite
                                                                       : PageKey::ForPage;
        case VK_RETURN:
        case VK_ESCAPE:
            return SendMessageW(focus, CB_GETDROPPEDSTATE, 0, 0) ? PageKey::ForPage
                                                                 : PageKey::ForSite;
        default: return PageKey::ForPage;
    }
}

}  // namespace

PageKey PageKeyOf(HWND page, const MSG& message) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (!isKey) return PageKey::None;
    const HWND focus = GetFocus();
    if (!focus || !IsChild(page, focus)) {
        const bool isTab = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
        return isTab ? PageKey::IntoPage : PageKey::ForSite;
    }
    return message.message == WM_KEYDOWN ? OwnerOfKeyDown(page, focus, message.wParam)
                                         : PageKey::ForPage;
}

void EnterPage(HWND page) { SetFocus(IsShiftDown() ? Last(page) : First(page)); }

}  // namespace velmora
