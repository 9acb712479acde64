#include "hosts/activex/control/OleControl.h"

#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WindowPaint.h"

#include <olectl.h>

#include <utility>

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

constexpr wchar_t kClassName[] = L"VelmoraCalendar.Control";
constexpr UINT kFocusMoved = WM_USER + 0x6FF;  // where the focus went is known only afterwards

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

bool IsPress(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK: return true;
        default: return false;
    }
}

bool IsChildFocus(WPARAM command) {
    const WORD code = HIWORD(command);
    return code == CBN_SETFOCUS || code == CBN_KILLFOCUS || code == EN_SETFOCUS ||
           code == EN_KILLFOCUS;
}

}  // namespace

HRESULT OleControl::CreateControlWindow(HWND parent, const RECT& place) {
    static const WindowClass registered(&OleControl::Procedure);
    const HWND window = CreateWindowExW(
        0, kClassName, nullptr, WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, place.left, place.top,
        place.right - place.left, place.bottom - place.top, parent, nullptr, ThisModule(), this);
    if (!window) return HRESULT_FROM_WIN32(GetLastError());
    m_window.Attach(window);
    m_drawing.Dpi(Dpi());
    OnWindowRecreated();
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
    if (IsInput(message) && !IsInUse()) return false;
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
        case WM_ENABLE:
        case WM_SHOWWINDOW: OnWindowChanged(); return false;
        case WM_DESTROY: EndWindow(); return false;
        default: ServeFocus(message, w); return false;
    }
}

LRESULT OleControl::DialogCode(const MSG* message) const {
    const bool isWanted = message && message->message == WM_KEYDOWN &&
                          WantsKey(static_cast<WORD>(message->wParam), false);
    return DLGC_WANTARROWS | DLGC_WANTCHARS | (isWanted ? DLGC_WANTMESSAGE : 0);
}

/// A press gives the control the focus and makes it the active one; the focus alone does, too.
void OleControl::ServeFocus(UINT message, WPARAM w) {
    const HWND window = m_window.Window();
    if (message == WM_SETFOCUS || (IsPress(message) && IsInUse())) {
        if (IsInUse() && !m_uiActive) ActivateUi();
        if (IsPress(message) && m_window.Window() && GetFocus() != window) SetFocus(window);
        TellFocus(true);
    } else if (message == WM_MOUSEACTIVATE) {
        if (IsInUse() && !m_uiActive) ActivateUi();
    } else if (message == WM_KILLFOCUS) {
        const auto next = reinterpret_cast<HWND>(w);
        TellFocus(next && IsChild(window, next));
    } else if (message == WM_COMMAND && IsChildFocus(w)) {
        PostMessageW(window, kFocusMoved, 0, 0);
    } else if (message == kFocusMoved) {
        bool inChild = false;
        TellFocus(HasFocus(inChild));
    }
}

void OleControl::TellFocus(bool hasFocus) {
    if (std::exchange(m_focusTold, hasFocus) == hasFocus) return;
    if (const auto site = m_site.As<IOleControlSite>()) site->OnFocus(hasFocus);
}

void OleControl::EndWindow() {
    m_window.Detach();
    m_drawing.Dpi(Dpi());
    TellFocus(false);
    OnWindowRecreated();
}

}  // namespace velmora
