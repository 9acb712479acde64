#include "apps/vmhost/Form.h"

#include "apps/vmhost/HostError.h"
#include "hosts/activex/win32/WinText.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

constexpr wchar_t kWindowClass[] = L"VmHostForm";
constexpr int kHandle = 3;  // pixels that a selection frame stands out

bool IsKey(const MSG& message) {
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

bool IsTab(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == VK_TAB &&
           GetKeyState(VK_CONTROL) >= 0 && GetKeyState(VK_MENU) >= 0;
}

/// Once for all threads.
void RegisterFormClass(HINSTANCE instance, WNDPROC procedure) {
    static const ATOM registered = [&] {
        WNDCLASSW windowClass{};
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = procedure;
        windowClass.hInstance = instance;
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.lpszClassName = kWindowClass;
        return RegisterClassW(&windowClass);
    }();
    (void)registered;
}

}  // namespace

ComPtr<Form> Form::Open(HWND parent, const RECT& place, const std::string& title) {
    ComPtr<Form> form;
    form = Adopt(new Form);
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    RegisterFormClass(instance, WindowProcedure);
    const DWORD style = parent ? WS_CHILD | WS_BORDER : WS_OVERLAPPEDWINDOW;
    const HWND window = CreateWindowExW(WS_EX_CONTROLPARENT, kWindowClass, ToWide(title).c_str(),
                                        style | WS_VISIBLE | WS_CLIPCHILDREN, place.left, place.top,
                                        place.right - place.left, place.bottom - place.top, parent,
                                        nullptr, instance, form.Get());
    if (!window) throw HostError("opening the form", HRESULT_FROM_WIN32(GetLastError()));
    return form;
}

void Form::Close() {
    const ComPtr<Form> alive(this);
    RemoveAll();
    if (m_window) DestroyWindow(m_window);
}

void* Form::Find(REFIID id) {
    if (id == __uuidof(IOleWindow) || id == __uuidof(IOleInPlaceUIWindow)) {
        return static_cast<IOleInPlaceFrame*>(this);
    }
    if (id == __uuidof(IParseDisplayName)) return static_cast<IOleContainer*>(this);
    return ComObject::Find(id);
}

ControlSite& Form::Add(const std::string& classText, const std::string& name, const RECT& place,
                       const Saved& saved) {
    CLSID classId{};
    const std::wstring wide = ToWide(classText);
    Check(wide.rfind(L'{', 0) == 0 ? CLSIDFromString(wide.c_str(), &classId)
                                   : CLSIDFromProgID(wide.c_str(), &classId),
          "finding " + classText);
    ComPtr<ControlSite> site;
    site = Adopt(new ControlSite(*this, name, place));
    try {
        site->Create(classId, saved);
    } catch (const HostError&) {
        site->Close();
        throw;
    }
    m_sites.push_back(site);
    if (IsUserMode()) site->Activate(OLEIVERB_INPLACEACTIVATE);
    InvalidateRect(m_window, &place, TRUE);
    return *site.Get();
}

void Form::Remove(ControlSite& site) {
    const ComPtr<ControlSite> alive(&site);
    std::erase_if(m_sites, [&](const auto& each) { return each.Get() == &site; });
    if (m_selected.Get() == &site) m_selected.Reset();
    site.Close();
    if (m_active.Get() == &site) m_active.Reset();
    if (m_window) InvalidateRect(m_window, nullptr, TRUE);
}

void Form::RemoveAll() {
    m_activeObject.Reset();
    while (!m_sites.empty()) Remove(*m_sites.back().Get());
}

void Form::SetUserMode(bool userMode) {
    if (userMode == IsUserMode()) return;
    m_ambients.userMode = userMode;
    if (!userMode) {
        for (const ComPtr<ControlSite>& site : std::vector(m_sites)) site->Deactivate();
    }
    TellAmbientChange(DISPID_AMBIENT_USERMODE);
    if (userMode) ActivateAll();
    InvalidateRect(m_window, nullptr, TRUE);
}

void Form::ActivateAll() {
    m_selected.Reset();
    for (const ComPtr<ControlSite>& site : std::vector(m_sites)) {
        site->Activate(OLEIVERB_INPLACEACTIVATE);
    }
}

void Form::TellAmbientChange(DISPID id) {
    for (const ComPtr<ControlSite>& site : std::vector(m_sites)) site->TellAmbientChange(id);
}

void Form::Select(ControlSite* site) {
    m_selected = site;
    InvalidateRect(m_window, nullptr, TRUE);
    if (onSelected) onSelected();
}

bool Form::PreTranslate(MSG& message) {
    if (!IsKey(message) || (message.hwnd != m_window && !IsChild(m_window, message.hwnd))) {
        return false;
    }
    if (const ComPtr<IOleInPlaceActiveObject> active = m_activeObject) {
        if (active->TranslateAccelerator(&message) == S_OK) return true;
    }
    return m_window && TranslateForControl(message);
}

bool Form::TranslateForControl(MSG& message) {
    if (IsTab(message)) {
        MoveFocus(GetKeyState(VK_SHIFT) >= 0);
        return true;
    }
    if (message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR) return false;
    for (const ComPtr<ControlSite>& site : std::vector(m_sites)) {
        if (site->TakesMnemonic(message)) return true;
    }
    return false;
}

void Form::MoveFocus(bool forward) {
    if (m_sites.empty()) return;
    const auto count = static_cast<std::ptrdiff_t>(m_sites.size());
    const auto found = std::find_if(m_sites.begin(), m_sites.end(),
                                    [&](const auto& each) { return each.Get() == m_active.Get(); });
    std::ptrdiff_t next = found == m_sites.end() ? (forward ? 0 : count - 1)
                                                 : found - m_sites.begin() + (forward ? 1 : -1);
    if (next < 0 || next >= count) {
        if (onTabOut && onTabOut(forward)) return;
        next = (next + count) % count;
    }
    const ComPtr<ControlSite> site = m_sites[static_cast<std::size_t>(next)];
    site->Activate(OLEIVERB_UIACTIVATE);
}

void Form::UIActivated(ControlSite& site) {
    const ComPtr<ControlSite> before = m_active;
    m_active = &site;
    if (before && before.Get() != &site) before->UIDeactivate();
}

void Form::UIDeactivated(ControlSite& site) {
    if (m_active.Get() == &site) m_active.Reset();
}

void Form::FocusReached(ControlSite& site) {
    if (!site.IsUIActive() && IsUserMode()) site.Activate(OLEIVERB_UIACTIVATE);
}

STDMETHODIMP Form::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = m_window;
    return m_window ? S_OK : E_FAIL;
}

STDMETHODIMP Form::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    m_activeObject = object;
    return S_OK;
}

STDMETHODIMP Form::EnumObjects(DWORD, IEnumUnknown** objects) {
    if (!objects) return E_POINTER;
    *objects = nullptr;
    return E_NOTIMPL;
}

LRESULT CALLBACK Form::WindowProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<CREATESTRUCTW*>(l);
        auto* form = static_cast<Form*>(creation->lpCreateParams);
        form->m_window = window;
        form->AddRef();  // the window's
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
    }
    auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form) return DefWindowProcW(window, message, w, l);
    const ComPtr<Form> alive(form);
    const LRESULT result = form->OnMessage(message, w, l);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        form->m_window = nullptr;
        form->Release();
    }
    return result;
}

LRESULT Form::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint{};
            Paint(BeginPaint(m_window, &paint));
            EndPaint(m_window, &paint);
            return 0;
        }
        case WM_LBUTTONDOWN:
            if (!IsUserMode())
                Select(SiteAt({static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))}));
            return 0;
        case WM_ACTIVATE:
            if (m_activeObject) m_activeObject->OnFrameWindowActivate(LOWORD(w) != WA_INACTIVE);
            break;
        case WM_DESTROY: RemoveAll(); return 0;
        default: break;
    }
    return DefWindowProcW(m_window, message, w, l);
}

void Form::Paint(HDC context) {
    RECT all{};
    GetClientRect(m_window, &all);
    COLORREF color = 0;
    OleTranslateColor(m_ambients.backColor, nullptr, &color);
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(context, &all, brush);
    DeleteObject(brush);
    for (const ComPtr<ControlSite>& site : std::vector(m_sites)) {
        if (site->IsInPlace()) continue;
        site->Draw(context);
        if (site.Get() != m_selected.Get()) continue;
        RECT frame = site->Place();
        InflateRect(&frame, kHandle, kHandle);
        DrawFocusRect(context, &frame);
    }
}

ControlSite* Form::SiteAt(POINT point) const {
    const auto found = std::find_if(m_sites.rbegin(), m_sites.rend(), [&](const auto& site) {
        return PtInRect(&site->Place(), point);
    });
    return found == m_sites.rend() ? nullptr : found->Get();
}

bool ServeUntil(Form* form, const std::function<bool()>& condition, DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (!condition()) {
        if (GetTickCount64() >= end) return false;
        if (!ServeWaiting(form)) MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}

int ServeWaiting(Form* form) {
    const ComPtr<Form> alive(form);
    int served = 0;
    for (MSG message{}; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++served) {
        if (form && form->PreTranslate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return served;
}

}  // namespace velmora::vmhost
