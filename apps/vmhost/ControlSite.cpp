#include "apps/vmhost/ControlSite.h"

#include "apps/vmhost/ExtendedControl.h"
#include "apps/vmhost/Form.h"
#include "apps/vmhost/HostError.h"
#include "hosts/activex/win32/ScreenDpi.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/ScaleMode.h"

namespace velmora::vmhost {
namespace {

constexpr float kTwipsPerHimetric = 1440.0F / kHimetricPerInch;

}  // namespace

long ToHimetric(long pixels) { return MulDiv(pixels, kHimetricPerInch, ScreenDpi()); }

long ToPixels(long himetric) { return MulDiv(himetric, ScreenDpi(), kHimetricPerInch); }

ControlSite::ControlSite(Form& form, std::string name, const RECT& place)
    : m_form(&form), m_name(std::move(name)), m_place(place) {}

void* ControlSite::Find(REFIID id) {
    if (id == __uuidof(IOleWindow) || id == __uuidof(IOleInPlaceSite)) {
        return static_cast<IOleInPlaceSiteEx*>(this);
    }
    return ComObject::Find(id);
}

void ControlSite::Create(const CLSID& classId, const Saved& saved) {
    Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER,
                           IID_PPV_ARGS(m_object.GetAddressOf())),
          "making " + m_name);
    // A manifest gives out identifiers of its own, which no other process knows.
    Check(m_object->GetUserClassID(&m_classId), "identifying " + m_name);
    m_object->GetMiscStatus(DVASPECT_CONTENT, &m_miscStatus);
    const bool siteFirst = m_miscStatus & OLEMISC_SETCLIENTSITEFIRST;
    if (siteFirst) Check(m_object->SetClientSite(this), "placing " + m_name);
    LoadControl(*m_object.Get(), saved);
    if (!siteFirst) Check(m_object->SetClientSite(this), "placing " + m_name);
    m_object->SetHostNames(L"vmhost", ToWide(m_name).c_str());
    SIZEL extent{ToHimetric(m_place.right - m_place.left),
                 ToHimetric(m_place.bottom - m_place.top)};
    m_object->SetExtent(DVASPECT_CONTENT, &extent);
    Follow();
}

void ControlSite::Follow() {
    ComPtr<IViewObject> view;
    if (SUCCEEDED(m_object.As(&view))) view->SetAdvise(DVASPECT_CONTENT, 0, this);
    m_events = EventSink::Connect(m_object.Get(), [this](Event& event) {
        if (const EventSink::Handler handler = onEvent) handler(event);
    });
    ComPtr<IConnectionPointContainer> points;
    if (FAILED(m_object.As(&points)) ||
        FAILED(
            points->FindConnectionPoint(IID_IPropertyNotifySink, m_notifications.GetAddressOf()))) {
        return;
    }
    m_notifications->Advise(static_cast<IPropertyNotifySink*>(this), &m_notificationCookie);
}

void ControlSite::Unfollow() {
    if (const ComPtr<EventSink> events = std::move(m_events)) events->Disconnect();
    if (const ComPtr<IConnectionPoint> point = std::move(m_notifications)) {
        point->Unadvise(m_notificationCookie);
    }
    ComPtr<IViewObject> view;
    if (SUCCEEDED(m_object.As(&view))) view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
}

void ControlSite::Close() {
    if (!m_form) return;
    const ComPtr<ControlSite> alive(this);
    if (m_object) {
        Unfollow();
        Deactivate();
        const ComPtr<IOleObject> object = std::move(m_object);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    m_form = nullptr;
}

void ControlSite::MoveTo(const RECT& place) {
    m_place = place;
    if (!m_object) return;
    SIZEL extent{ToHimetric(place.right - place.left), ToHimetric(place.bottom - place.top)};
    m_object->SetExtent(DVASPECT_CONTENT, &extent);
    if (m_inPlaceObject) m_inPlaceObject->SetObjectRects(&m_place, &m_place);
    if (m_form) InvalidateRect(m_form->Window(), nullptr, TRUE);
}

void ControlSite::Activate(LONG verb, MSG* message) {
    if (!m_object || !m_form) return;
    const ComPtr<IOleObject> object = m_object;
    Check(object->DoVerb(verb, message, this, 0, m_form->Window(), &m_place),
          "activating " + m_name);
}

void ControlSite::Deactivate() {
    if (const ComPtr<IOleInPlaceObject> active = m_inPlaceObject) active->InPlaceDeactivate();
}

void ControlSite::UIDeactivate() {
    const ComPtr<IOleInPlaceObject> active = m_inPlaceObject;
    if (active && m_uiActive) active->UIDeactivate();
}

HWND ControlSite::ControlWindow() const {
    HWND window = nullptr;
    if (m_inPlaceObject) m_inPlaceObject->GetWindow(&window);
    return window;
}

void ControlSite::Draw(HDC context) const {
    if (!m_object) return;
    OleDraw(m_object.Get(), DVASPECT_CONTENT, context, &m_place);
}

void ControlSite::TellAmbientChange(DISPID id) {
    ComPtr<IOleControl> control;
    if (m_object && SUCCEEDED(m_object.As(&control))) control->OnAmbientPropertyChange(id);
}

bool ControlSite::TakesMnemonic(MSG& message) {
    ComPtr<IOleControl> control;
    CONTROLINFO info{};
    info.cb = sizeof(info);
    if (!m_object || FAILED(m_object.As(&control)) || FAILED(control->GetControlInfo(&info))) {
        return false;
    }
    return info.hAccel && IsAccelerator(info.hAccel, info.cAccel, &message, nullptr) &&
           SUCCEEDED(control->OnMnemonic(&message));
}

// IOleClientSite

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
    if (!container) return E_POINTER;
    *container = nullptr;
    return m_form ? m_form->QueryInterface(IID_PPV_ARGS(container)) : E_UNEXPECTED;
}

// IOleInPlaceSiteEx

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = m_form ? m_form->Window() : nullptr;
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP ControlSite::OnInPlaceActivate() {
    if (!m_form || !m_object) return E_UNEXPECTED;
    return m_object.As(&m_inPlaceObject);
}

STDMETHODIMP ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
    if (noRedraw) *noRedraw = FALSE;
    return OnInPlaceActivate();
}

STDMETHODIMP ControlSite::OnUIActivate() {
    if (!m_form) return E_UNEXPECTED;
    m_uiActive = true;
    m_form->UIActivated(*this);
    return S_OK;
}

STDMETHODIMP ControlSite::RequestUIActivate() {
    return m_form && m_form->IsUserMode() ? S_OK : S_FALSE;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    if (!frame || !document || !place || !clip || !info) return E_POINTER;
    *document = nullptr;
    *frame = nullptr;
    if (!m_form) return E_UNEXPECTED;
    *place = m_place;
    *clip = m_place;
    info->fMDIApp = FALSE;
    info->hwndFrame = m_form->Window();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return m_form->QueryInterface(IID_PPV_ARGS(frame));
}

STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) {
    m_uiActive = false;
    if (m_form) m_form->UIDeactivated(*this);
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivate() {
    m_inPlaceObject.Reset();
    m_uiActive = false;
    if (m_form) InvalidateRect(m_form->Window(), &m_place, TRUE);
    return S_OK;
}

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT place) {
    if (!place) return E_POINTER;
    m_place = *place;
    if (m_inPlaceObject) m_inPlaceObject->SetObjectRects(&m_place, &m_place);
    return S_OK;
}

// IOleControlSite

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** control) {
    if (!control) return E_POINTER;
    *control = new ExtendedControl(ComPtr<ControlSite>(this));
    return S_OK;
}

STDMETHODIMP ControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
    if (!himetric || !container) return E_POINTER;
    // The form's own units are twips, whatever text its ambient property shows.
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        container->x = static_cast<float>(himetric->x) * kTwipsPerHimetric;
        container->y = static_cast<float>(himetric->y) * kTwipsPerHimetric;
    } else if (flags & XFORMCOORDS_CONTAINERTOHIMETRIC) {
        himetric->x = static_cast<LONG>(container->x / kTwipsPerHimetric);
        himetric->y = static_cast<LONG>(container->y / kTwipsPerHimetric);
    } else {
        return E_INVALIDARG;
    }
    return S_OK;
}

STDMETHODIMP ControlSite::TranslateAccelerator(MSG* message, DWORD) {
    if (!message) return E_POINTER;
    return m_form && m_form->TranslateForControl(*message) ? S_OK : S_FALSE;
}

STDMETHODIMP ControlSite::OnFocus(BOOL gotFocus) {
    if (m_form && gotFocus) m_form->FocusReached(*this);
    return S_OK;
}

// IDispatch

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids) return E_POINTER;
    const bool known = count == 1 && _wcsicmp(names[0], L"KeepDropDownOnScreen") == 0;
    *ids = known ? kAmbientKeepDropDownOnScreen : DISPID_UNKNOWN;
    return known ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ControlSite::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result,
                                 EXCEPINFO*, UINT*) {
    if (!(kind & DISPATCH_PROPERTYGET)) return DISP_E_MEMBERNOTFOUND;
    if (!result) return E_POINTER;
    if (!m_form) return E_UNEXPECTED;
    Value value;
    const HRESULT code = m_form->GetAmbients().Get(id, m_name, value);
    if (FAILED(code)) return code;
    VariantInit(result);
    return VariantCopy(result, &value);
}

// IPropertyNotifySink

std::string ControlSite::PropertyName(DISPID id) const {
    for (const PropertyInfo& property : PropertiesOf(m_object.Get())) {
        if (property.id == id) return property.name;
    }
    return std::to_string(id);
}

STDMETHODIMP ControlSite::OnChanged(DISPID id) {
    if (const PropertyTold told = onChanged) told(PropertyName(id));
    return S_OK;
}

STDMETHODIMP ControlSite::OnRequestEdit(DISPID id) {
    const PropertyAsked asked = onRequestEdit;
    return !asked || asked(PropertyName(id)) ? S_OK : S_FALSE;
}

// IAdviseSink

STDMETHODIMP_(void) ControlSite::OnViewChange(DWORD, LONG) {
    if (m_form && !IsInPlace()) InvalidateRect(m_form->Window(), &m_place, FALSE);
}

}  // namespace velmora::vmhost
