#include "hosts/activex/control/OleControl.h"

#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WindowPaint.h"

#include <olectl.h>

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

constexpr wchar_t kClassName[] = L"VelmoraCalendar.Control";
constexpr UINT kDpiChanged = 0x02E3;  // WM_DPICHANGED_AFTERPARENT, of newer systems

/// Registered from first use until the module ends.
class WindowClass {
public:
    explicit WindowClass(WNDPROC procedure) {
        WNDCLASSEXW window{};
        window.cbSize = sizeof window;
        window.style = CS_DBLCLKS;
        window.lpfnWndProc = procedure;
        window.hInstance = ThisModule();
        window.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
        window.lpszClassName = kClassName;
        RegisterClassExW(&window);
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(kClassName, ThisModule()); }
};

bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

}  // namespace

HRESULT OleControl::CreateControlWindow(HWND parent, const RECT& place) {
    static const WindowClass registered(&OleControl::Procedure);
    const HWND window = CreateWindowExW(
        0, kClassName, nullptr, WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, place.left, place.top,
        place.right - place.left, place.bottom - place.top, parent, nullptr, ThisModule(), this);
    if (!window) return HRESULT_FROM_WIN32(GetLastError());
    m_window.Attach(window);
    FollowDpi();
    return m_window.Window() ? S_OK : E_UNEXPECTED;
}

LRESULT CALLBACK OleControl::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        auto* const control =
            static_cast<OleControl*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
        static_cast<IOleObject*>(control)->AddRef();
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(control));
    }
    auto* const control = reinterpret_cast<OleControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!control) return DefWindowProcW(window, message, w, l);
    const Hold hold(*control);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        static_cast<IOleObject*>(control)->Release();
    } else if (control->m_window.Window() == window) {
        LRESULT result = 0;
        if (SUCCEEDED(
                Guard([&] { return control->Serve(message, w, l, result) ? S_OK : E_FAIL; }))) {
            return result;
        }
        if (!IsWindow(window)) return 0;
    }
    return DefWindowProcW(window, message, w, l);
}

bool OleControl::Serve(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (ServeInShell(message, w, l, result)) return true;
    const HWND window = m_window.Window();
    if (!window) return message != WM_DESTROY;  // a handler has destroyed it
    if (Access().OnAccessMessage(message, w, l, result)) return true;
    if (IsInput(message) && !m_site.IsInUse()) return false;
    return OnMessage(message, w, l, result);
}

bool OleControl::ServeInShell(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    const HWND window = m_window.Window();
    switch (message) {
        case WM_ERASEBKGND: result = 1; return true;
        case WM_PAINT: {
            const WindowPaint paint(window);
            if (!paint.Exposed().empty()) Paint(paint.Context(), paint.Exposed());
            return true;
        }
        case WM_PRINTCLIENT: PaintAll(reinterpret_cast<HDC>(w)); return true;
        case WM_SETCURSOR:
            result = LOWORD(l) == HTCLIENT && reinterpret_cast<HWND>(w) == window &&
                     m_window.OnSetCursor();
            return result != 0;
        case WM_GETDLGCODE: result = DialogCode(reinterpret_cast<const MSG*>(l)); return true;
        case WM_SIZE:
        case WM_MOVE:
            if (m_drawing.Dpi() != Dpi()) FollowDpi();
            [[fallthrough]];
        case WM_ENABLE:
        case WM_SHOWWINDOW: OnWindowChanged(); return false;
        case kDpiChanged: FollowDpi(); return false;
        case WM_DESTROY: EndWindow(); return false;
        default: m_activation.OnMessage(message, w); return false;
    }
}

LRESULT OleControl::DialogCode(const MSG* message) const {
    const bool isWanted = message && message->message == WM_KEYDOWN &&
                          WantsKey(static_cast<WORD>(message->wParam), false);
    return DLGC_WANTARROWS | DLGC_WANTCHARS | (isWanted ? DLGC_WANTMESSAGE : 0);
}

void OleControl::EndWindow() {
    Access().End();
    m_window.Detach();
    m_activation.OnWindowEnded();
    FollowDpi();
}

/// The fonts and the selectors are made for a resolution.
void OleControl::FollowDpi() {
    m_drawing.Dpi(Dpi());
    OnWindowRecreated();
}

}  // namespace velmora
