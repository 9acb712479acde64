#include "hosts/activex/control/OleControl.h"

#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/com/Enumerator.h"
#include "hosts/activex/win32/AboutDialog.h"
#include "hosts/activex/win32/WinLocale.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/ScaleMode.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

/// mingw-w64 knows this one by no `__uuidof`; its library of identifiers weighs 40 KiB.
constexpr IID kObjectSafetyId{
    0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};

HRESULT CopyText(const wchar_t* text, LPOLESTR* copy) {
    const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
    *copy = static_cast<LPOLESTR>(CoTaskMemAlloc(size));
    if (!*copy) return E_OUTOFMEMORY;
    std::copy_n(text, size / sizeof(wchar_t), *copy);
    return S_OK;
}

}  // namespace

template <>
struct ItemCopy<OLEVERB> {
    static HRESULT Copy(OLEVERB& to, const OLEVERB& from) noexcept {
        to = from;
        return CopyText(from.lpszVerbName, &to.lpszVerbName);
    }
    static void Free(OLEVERB& item) noexcept { CoTaskMemFree(item.lpszVerbName); }
};

OleControl::OleControl(const ControlClass& controlClass)
    : m_class(controlClass),
      m_window(*this),
      m_dates(SharedDateLocale(GetUserDefaultLCID()), LocalNow),
      m_locale(GetUserDefaultLCID()),
      m_activation(static_cast<IOleObject&>(*this), *this, m_site, m_window, controlClass.userType),
      m_storage(static_cast<IOleObject&>(*this), *this),
      m_browsing(static_cast<IOleObject&>(*this), controlClass),
      m_events(*this, controlClass.events, ConnectionPoint::Kind::Events),
      m_properties(*this, __uuidof(IPropertyNotifySink), ConnectionPoint::Kind::Interface) {
    const SIZE pixels = controlClass.defaultPixels;
    m_extent = {MulDiv(pixels.cx, kHimetricPerInch, USER_DEFAULT_SCREEN_DPI),
                MulDiv(pixels.cy, kHimetricPerInch, USER_DEFAULT_SCREEN_DPI)};
    m_drawing.Dpi(Dpi());
    ApplyExtent();
    m_drawing.WhenInvalidated([this](const Rect*) { ViewChanged(); });
}

OleControl::~OleControl() { m_drawing.WhenInvalidated(nullptr); }

void* OleControl::FindOle(REFIID iid) {
    const auto is = [&iid](REFIID other) { return IsEqualIID(iid, other) != FALSE; };
    if (is(__uuidof(IOleObject))) return static_cast<IOleObject*>(this);
    if (is(__uuidof(IOleControl))) return static_cast<IOleControl*>(this);
    if (is(__uuidof(IOleInPlaceObject)) || is(__uuidof(IOleWindow))) {
        return static_cast<IOleInPlaceObject*>(&m_activation);
    }
    if (is(__uuidof(IOleInPlaceActiveObject)))
        return static_cast<IOleInPlaceActiveObject*>(&m_activation);
    if (is(__uuidof(IViewObject)) || is(__uuidof(IViewObject2)) || is(__uuidof(IViewObjectEx))) {
        return static_cast<IViewObjectEx*>(this);
    }
    if (is(__uuidof(IPersistStreamInit)) || is(__uuidof(IPersistStream)) ||
        is(__uuidof(IPersist))) {
        return static_cast<IPersistStreamInit*>(this);
    }
    if (is(__uuidof(IPersistStorage))) return static_cast<IPersistStorage*>(&m_storage);
    if (is(__uuidof(IPersistPropertyBag))) return static_cast<IPersistPropertyBag*>(this);
    if (is(__uuidof(IConnectionPointContainer)))
        return static_cast<IConnectionPointContainer*>(this);
    if (is(__uuidof(IProvideClassInfo)) || is(__uuidof(IProvideClassInfo2))) {
        return static_cast<IProvideClassInfo2*>(this);
    }
    if (is(__uuidof(IPerPropertyBrowsing))) return static_cast<IPerPropertyBrowsing*>(&m_browsing);
    if (is(__uuidof(ICategorizeProperties))) {
        return static_cast<ICategorizeProperties*>(&m_browsing);
    }
    if (is(__uuidof(ISpecifyPropertyPages))) return static_cast<ISpecifyPropertyPages*>(this);
    if (is(__uuidof(IDataObject))) return static_cast<IDataObject*>(this);
    if (is(kObjectSafetyId)) return static_cast<IObjectSafety*>(this);
    if (is(__uuidof(ISupportErrorInfo))) return static_cast<ISupportErrorInfo*>(this);
    return nullptr;
}

STDMETHODIMP OleControl::SetClientSite(IOleClientSite* site) {
    const Hold hold(*this);
    return Guard([&] {
        if (site != m_site.Get().Get()) m_activation.InPlaceDeactivate();
        m_site.Set(site);
        if (!site) return;
        ReadLocale();
        if (m_initialized) OnAmbientChanged();
    });
}

STDMETHODIMP OleControl::GetClientSite(IOleClientSite** site) {
    return site ? m_site.Get().CopyTo(site) : E_POINTER;
}

STDMETHODIMP OleControl::Close(DWORD saveOption) {
    const Hold hold(*this);
    return Guard([&] {
        const ComPtr<IOleClientSite> site = m_site.Get();
        if (saveOption != OLECLOSE_NOSAVE && m_dirty && site) site->SaveObject();
        m_activation.InPlaceDeactivate();
        m_advises.Closed();
    });
}

STDMETHODIMP OleControl::GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) {
    if (!moniker) return E_POINTER;
    *moniker = nullptr;
    const ComPtr<IOleClientSite> site = m_site.Get();
    return site ? site->GetMoniker(assign, which, moniker) : E_UNEXPECTED;
}

STDMETHODIMP OleControl::GetClipboardData(DWORD, IDataObject** data) {
    if (!data) return E_POINTER;
    *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleControl::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent, LPCRECT) {
    const Hold hold(*this);
    return Guard([&]() -> HRESULT {
        EnsureInitialized();
        switch (verb) {
            case OLEIVERB_DISCARDUNDOSTATE: return S_OK;
            case OLEIVERB_HIDE: m_activation.Hide(); return S_OK;
            case OLEIVERB_PROPERTIES:
            case kVerbProperties: return ShowProperties(parent);
            case OLEIVERB_SHOW:
            case OLEIVERB_INPLACEACTIVATE: return m_activation.Activate();
            case OLEIVERB_PRIMARY:
            case OLEIVERB_OPEN:
            case OLEIVERB_UIACTIVATE: return m_activation.ActivateUi();
            default: break;
        }
        if (verb < 0) return E_NOTIMPL;
        const HRESULT activated = m_activation.ActivateUi();
        return FAILED(activated) ? activated : OLEOBJ_S_INVALIDVERB;
    });
}

HRESULT OleControl::ShowProperties(HWND parent) {
    const auto site = m_site.As<IOleControlSite>();
    if (site && SUCCEEDED(site->ShowPropertyFrame())) return S_OK;
    std::wstring title = m_site.DisplayName();
    if (title.empty()) title = m_class.userType;
    CAUUID pages{};
    if (const HRESULT got = GetPages(&pages); FAILED(got)) return got;
    IUnknown* object = static_cast<IOleObject*>(this);
    const HRESULT shown =
        OleCreatePropertyFrame(parent ? parent : m_activation.OwnerOfDialogs(), 0, 0, title.c_str(),
                               1, &object, pages.cElems, pages.pElems, m_locale, 0, nullptr);
    CoTaskMemFree(pages.pElems);
    return shown;
}

STDMETHODIMP OleControl::EnumVerbs(IEnumOLEVERB** verbs) {
    return Guard([&] {
        std::vector<OLEVERB> items;
        for (const ControlVerb& verb : kControlVerbs) {
            items.push_back({verb.number, const_cast<LPOLESTR>(verb.name), 0, verb.attributes});
        }
        return Enumerator<IEnumOLEVERB, OLEVERB>::Make(items, nullptr, verbs);
    });
}

STDMETHODIMP OleControl::GetUserType(DWORD form, LPOLESTR* type) {
    if (!type) return E_POINTER;
    const wchar_t* const shortName = std::wcsrchr(m_class.versionIndependentProgId, L'.') + 1;
    return CopyText(form == USERCLASSTYPE_FULL ? m_class.userType : shortName, type);
}

STDMETHODIMP OleControl::SetExtent(DWORD aspect, SIZEL* extent) {
    if (!extent) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (extent->cx < 0 || extent->cy < 0) return E_INVALIDARG;
    if (extent->cx == m_extent.cx && extent->cy == m_extent.cy) return S_OK;
    const Hold hold(*this);
    return Guard([&] {
        m_extent = *extent;
        m_dirty = true;
        ApplyExtent();
        if (m_initialized) OnWindowChanged();
        ViewChanged();
    });
}

STDMETHODIMP OleControl::GetExtent(DWORD aspect, SIZEL* extent) {
    if (!extent) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *extent = m_extent;
    return S_OK;
}

STDMETHODIMP OleControl::GetMiscStatus(DWORD, DWORD* status) {
    if (!status) return E_POINTER;
    *status = m_class.miscStatus;
    return S_OK;
}

STDMETHODIMP OleControl::GetControlInfo(CONTROLINFO* info) {
    if (!info) return E_POINTER;
    if (info->cb < sizeof *info) return E_INVALIDARG;
    DWORD flags = 0;
    if (WantsKey(VK_RETURN, false)) flags |= CTRLINFO_EATS_RETURN;
    if (WantsKey(VK_ESCAPE, false)) flags |= CTRLINFO_EATS_ESCAPE;
    *info = {sizeof *info, nullptr, 0, flags};
    return S_OK;
}

/// The controls have no captions, thus no mnemonics of their own.
STDMETHODIMP OleControl::OnMnemonic(MSG* message) {
    return message ? DoVerb(OLEIVERB_UIACTIVATE, message, nullptr, 0, nullptr, nullptr) : E_POINTER;
}

STDMETHODIMP OleControl::OnAmbientPropertyChange(DISPID property) {
    const Hold hold(*this);
    return Guard([&] {
        m_site.ReadModes();
        switch (property) {
            case DISPID_UNKNOWN:
            case DISPID_AMBIENT_LOCALEID:
            case DISPID_AMBIENT_RIGHTTOLEFT:
            case DISPID_AMBIENT_FONT:
            case DISPID_AMBIENT_BACKCOLOR:
            case DISPID_AMBIENT_FORECOLOR:
            case DISPID_AMBIENT_SCALEUNITS: break;
            default: return;
        }
        ReadLocale();
        if (m_initialized) OnAmbientChanged();
        ViewChanged();
    });
}

STDMETHODIMP OleControl::FreezeEvents(BOOL freeze) {
    if (freeze) {
        ++m_frozen;
    } else if (m_frozen > 0) {
        --m_frozen;
    }
    return S_OK;
}

void OleControl::ReadLocale() {
    m_window.RightToLeft(m_site.IsRightToLeft());
    const LCID locale = m_site.Locale();
    if (locale == m_locale) return;
    m_dates.Locale(SharedDateLocale(locale));
    m_locale = locale;
}

STDMETHODIMP OleControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return Guard([&] {
        return Enumerator<IEnumConnectionPoints, IConnectionPoint*>::Make(
            {&m_events, &m_properties}, static_cast<IOleObject*>(this), points);
    });
}

STDMETHODIMP OleControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* const known : {&m_events, &m_properties}) {
        if (iid == known->Iid()) *point = known;
    }
    if (!*point) return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

STDMETHODIMP OleControl::GetClassInfo(ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return Guard([&] { *info = OwnTypeInfo(m_class.clsid).Detach(); });
}

STDMETHODIMP OleControl::GetGUID(DWORD kind, GUID* guid) {
    if (!guid) return E_POINTER;
    *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? m_class.events : GUID{};
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

STDMETHODIMP OleControl::GetPages(CAUUID* pages) {
    if (!pages) return E_POINTER;
    *pages = {};
    return Guard([&] {
        const std::vector<CLSID> known = PagesOf(m_class);
        auto* const clsids = static_cast<GUID*>(CoTaskMemAlloc(known.size() * sizeof(GUID)));
        if (!clsids) return E_OUTOFMEMORY;
        std::ranges::copy(known, clsids);
        *pages = {static_cast<ULONG>(known.size()), clsids};
        return S_OK;
    });
}

STDMETHODIMP OleControl::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
    if (!supported || !enabled) return E_POINTER;
    *supported = *enabled = 0;
    if (!FindOle(iid) && iid != m_class.dispatch && iid != __uuidof(IDispatch))
        return E_NOINTERFACE;
    *supported = *enabled = INTERFACESAFE_FOR_UNTRUSTED_DATA;
    return S_OK;
}

/// Harmless data is no matter of choice: what is asked for beyond it is refused.
STDMETHODIMP OleControl::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
    DWORD supported = 0, present = 0;
    const HRESULT known = GetInterfaceSafetyOptions(iid, &supported, &present);
    if (FAILED(known)) return known;
    return (mask & enabled & ~supported) == 0 ? S_OK : E_FAIL;
}

STDMETHODIMP OleControl::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == m_class.dispatch ? S_OK : S_FALSE;
}

ITypeInfo* OleControl::TypeInfo() const {
    if (!m_type) m_type = OwnTypeInfo(m_class.dispatch);
    return m_type.Get();
}

DISPID OleControl::IdOf(std::string_view property) {
    const auto [entry, isNew] = m_ids.try_emplace(std::string(property), DISPID_UNKNOWN);
    if (isNew) {
        std::wstring name = ToWide(property);
        LPOLESTR names[] = {name.data()};
        TypeInfo()->GetIDsOfNames(names, 1, &entry->second);
    }
    return entry->second;
}

void OleControl::PropertyChanged(std::string_view name) {
    Access().Changed();
    if (m_loading) return;
    const Hold hold(*this);
    m_dirty = true;
    ViewChanged();
    if (!m_properties.IsConnected()) return;
    const DISPID id = IdOf(PropertyOfKey(name));
    m_properties.ForEach<IPropertyNotifySink>([id](IPropertyNotifySink& sink) {
        sink.OnChanged(id);
        return true;
    });
}

bool OleControl::RequestEdit(std::string_view name) {
    if (m_loading || !m_properties.IsConnected()) return true;
    const Hold hold(*this);
    const DISPID id = IdOf(name);
    bool granted = true;
    m_properties.ForEach<IPropertyNotifySink>([&](IPropertyNotifySink& sink) {
        granted = sink.OnRequestEdit(id) != S_FALSE;
        return granted;
    });
    return granted;
}

void OleControl::Raise(DISPID event, std::span<VARIANT> arguments) {
    if (m_frozen > 0) return;
    const Hold hold(*this);
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());  // references, not owned
    m_events.ForEach<IDispatch>([&](IDispatch& sink) {
        DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        OwnedVariant result;
        sink.Invoke(event, GUID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result,
                    nullptr, nullptr);
        return true;
    });
}

void OleControl::ShowAboutBox(const AboutText& text) {
    const Hold hold(*this);
    ShowAboutDialog(m_activation.OwnerOfDialogs(), text, m_site.Locale());
}

}  // namespace velmora
