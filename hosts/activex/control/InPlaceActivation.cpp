#include "hosts/activex/control/InPlaceActivation.h"

#include "hosts/activex/com/ComError.h"
#include "platform/FlagScope.h"

#include <olectl.h>

#include <utility>

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

constexpr UINT kFocusMoved = WM_USER + 0x6FF;  // where the focus went is known only afterwards

constexpr DWORD kModifierShift = 1, kModifierControl = 2, kModifierAlt = 4;  // KEYMODIFIERS

DWORD ModifiersNow() {
    const auto down = [](int key) { return GetKeyState(key) < 0; };
    return (down(VK_SHIFT) ? kModifierShift : 0) | (down(VK_CONTROL) ? kModifierControl : 0) |
           (down(VK_MENU) ? kModifierAlt : 0);
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

HRESULT InPlaceActivation::Activate() {
    if (!m_site) return Refuse(E_UNEXPECTED, "The control has no container.");
    if (m_window.Window()) {
        ShowWindow(m_window.Window(), SW_SHOWNA);
        return S_OK;
    }
    if (m_activating) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    const FlagScope activating(m_activating);
    InPlaceDeactivate();  // the window may have gone with the one around it
    const auto site = m_site.As<IOleInPlaceSite>();
    if (!site) return E_NOINTERFACE;
    if (const HRESULT can = site->CanInPlaceActivate(); can != S_OK) {
        return FAILED(can) ? can : E_FAIL;
    }
    if (m_site.As<IOleInPlaceSite>() != site) return E_UNEXPECTED;  // closed by the container
    m_inPlaceSite = site;
    HRESULT result = site->OnInPlaceActivate();
    if (FAILED(result)) {
        m_inPlaceSite.Reset();
        return result;
    }
    result = MakeWindow();
    if (FAILED(result)) {
        InPlaceDeactivate();
        return result;
    }
    if (const ComPtr<IOleClientSite> client = m_site.Get()) client->ShowObject();
    return m_window.Window() ? S_OK : OLE_E_NOT_INPLACEACTIVE;
}

HRESULT InPlaceActivation::MakeWindow() {
    const ComPtr<IOleInPlaceSite> site = m_inPlaceSite;
    if (!site) return E_UNEXPECTED;  // the container has deactivated it in the meantime
    HWND parent = nullptr;
    RECT place{}, clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    if (const HRESULT got = site->GetWindow(&parent); FAILED(got)) return got;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    const HRESULT got = site->GetWindowContext(&frame, &document, &place, &clip, &info);
    if (FAILED(got)) return got;
    if (m_inPlaceSite.Get() != site.Get() || m_window.Window()) return E_UNEXPECTED;
    m_frame = frame;
    m_document = document;
    if (const HRESULT created = m_control.CreateControlWindow(parent, place); FAILED(created))
        return created;
    SetObjectRects(&place, &clip);
    ShowWindow(m_window.Window(), SW_SHOWNA);
    return S_OK;
}

HRESULT InPlaceActivation::ActivateUi() {
    if (const HRESULT activated = Activate(); FAILED(activated)) return activated;
    const ComPtr<IOleInPlaceSite> site = m_inPlaceSite;
    if (!site) return OLE_E_NOT_INPLACEACTIVE;
    if (!m_uiActive) {
        m_uiActive = true;
        if (const HRESULT result = site->OnUIActivate(); FAILED(result)) {
            m_uiActive = false;
            return result;
        }
        TakeFocus();
        if (m_uiActive) TellFrames(this);
        const ComPtr<IOleInPlaceFrame> frame = m_frame;
        if (m_uiActive && frame) frame->SetBorderSpace(nullptr);
    } else {
        TakeFocus();
    }
    return m_uiActive ? S_OK : OLE_E_NOT_INPLACEACTIVE;
}

void InPlaceActivation::TellFrames(IOleInPlaceActiveObject* active) {
    const ComPtr<IOleInPlaceFrame> frame = m_frame;
    const ComPtr<IOleInPlaceUIWindow> document = m_document;
    const wchar_t* const name = active ? m_name : nullptr;
    if (frame) frame->SetActiveObject(active, name);
    if (document) document->SetActiveObject(active, name);
}

STDMETHODIMP InPlaceActivation::UIDeactivate() {
    const auto hold = Hold();
    return Guard([&] {
        if (!m_uiActive) return;
        m_uiActive = false;
        TellFrames(nullptr);
        if (const ComPtr<IOleInPlaceSite> site = m_inPlaceSite) site->OnUIDeactivate(FALSE);
    });
}

STDMETHODIMP InPlaceActivation::InPlaceDeactivate() {
    const auto hold = Hold();
    return Guard([&] {
        if (!m_inPlaceSite) return;
        UIDeactivate();
        const ComPtr<IOleInPlaceSite> site = std::move(m_inPlaceSite);
        m_inPlaceSite.Reset();
        m_frame.Reset();
        m_document.Reset();
        if (m_window.Window()) DestroyWindow(m_window.Window());
        if (site) site->OnInPlaceDeactivate();
    });
}

void InPlaceActivation::AskForSize(Size pixels) {
    const HWND window = m_window.Window();
    const ComPtr<IOleInPlaceSite> site = m_inPlaceSite;
    if (!window || !site) return;
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    place.right = place.left + pixels.width;
    place.bottom = place.top + pixels.height;
    site->OnPosRectChange(&place);
}

void InPlaceActivation::Hide() {
    UIDeactivate();
    if (m_window.Window()) ShowWindow(m_window.Window(), SW_HIDE);
}

STDMETHODIMP InPlaceActivation::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = m_window.Window();
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP InPlaceActivation::SetObjectRects(LPCRECT place, LPCRECT clip) {
    if (!place || !clip) return E_POINTER;
    const auto hold = Hold();
    return Guard([&]() -> HRESULT {
        const HWND window = m_window.Window();
        if (!window) return OLE_E_NOT_INPLACEACTIVE;
        RECT visible{};
        IntersectRect(&visible, place, clip);
        HRGN region = nullptr;
        if (!EqualRect(&visible, place)) {
            OffsetRect(&visible, -place->left, -place->top);
            region = CreateRectRgnIndirect(&visible);
        }
        SetWindowRgn(window, region, TRUE);
        SetWindowPos(window, nullptr, place->left, place->top, place->right - place->left,
                     place->bottom - place->top, SWP_NOZORDER | SWP_NOACTIVATE);
        return S_OK;
    });
}

bool InPlaceActivation::HasFocus(bool& inChild) const {
    const HWND window = m_window.Window();
    const HWND focus = window ? GetFocus() : nullptr;
    inChild = focus && IsChild(window, focus);
    return focus && (focus == window || inChild);
}

void InPlaceActivation::TakeFocus() {
    bool inChild = false;
    if (m_window.Window() && !HasFocus(inChild)) SetFocus(m_window.Window());
}

/// Alt belongs to the container, but for Alt with the arrows up and down.
STDMETHODIMP InPlaceActivation::TranslateAccelerator(MSG* message) {
    if (!message) return E_POINTER;
    const auto hold = Hold();
    return Guard([&]() -> HRESULT {
        bool inChild = false;
        if (!HasFocus(inChild)) return S_FALSE;
        const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
        const auto key = static_cast<WORD>(message->wParam);
        const bool isOwn = message->message == WM_KEYDOWN || key == VK_UP || key == VK_DOWN;
        if (isKey && isOwn && m_site.IsInUse() && m_control.WantsKey(key, inChild)) {
            TranslateMessage(message);
            DispatchMessageW(message);
            return S_OK;
        }
        const DWORD held = ModifiersNow();
        if (message->message == WM_KEYDOWN && key == VK_TAB && (held & kModifierControl) == 0 &&
            m_site.IsInUse() && m_window.FocusNext((held & kModifierShift) == 0)) {
            return S_OK;
        }
        const auto site = m_site.As<IOleControlSite>();
        if (!site) return S_FALSE;
        return site->TranslateAccelerator(message, held) == S_OK ? S_OK : S_FALSE;
    });
}

void InPlaceActivation::OnMessage(UINT message, WPARAM w) {
    const HWND window = m_window.Window();
    if (message == WM_SETFOCUS || (IsPress(message) && m_site.IsInUse())) {
        if (m_site.IsInUse() && !m_uiActive) ActivateUi();
        if (IsPress(message) && m_window.Window() && GetFocus() != window) SetFocus(window);
        TellFocus(true);
    } else if (message == WM_MOUSEACTIVATE) {
        if (m_site.IsInUse() && !m_uiActive) ActivateUi();
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

void InPlaceActivation::TellFocus(bool hasFocus) {
    if (std::exchange(m_focusTold, hasFocus) == hasFocus) return;
    if (const auto site = m_site.As<IOleControlSite>()) site->OnFocus(hasFocus);
}

HWND InPlaceActivation::OwnerOfDialogs() const {
    HWND window = nullptr;
    const ComPtr<IOleInPlaceSite> active = m_inPlaceSite;
    const auto site = active ? active : m_site.As<IOleInPlaceSite>();
    if (!site || FAILED(site->GetWindow(&window)) || !window) return GetActiveWindow();
    return GetAncestor(window, GA_ROOT);
}

}  // namespace velmora
