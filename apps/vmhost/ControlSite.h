#pragma once

#include "apps/vmhost/Ambients.h"
#include "apps/vmhost/EventSink.h"
#include "apps/vmhost/Persistence.h"
#include "hosts/activex/com/ComObject.h"

#include <ocidl.h>

#include <functional>
#include <string>

namespace velmora::vmhost {

class Form;

/// The place of one control on a form: makes the control, tells it about the form and hears from
/// it. Its form closes it; after that it answers the control with errors and does nothing.
class ControlSite : public ComObject<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, IDispatch,
                                     IPropertyNotifySink, IAdviseSink> {
public:
    using PropertyAsked = std::function<bool(const std::string& name)>;  // false refuses
    using PropertyTold = std::function<void(const std::string& name)>;

    ControlSite(Form& form, std::string name, const RECT& place);

    /// Makes the control from a class that is known or given by the manifest. Throws `HostError`.
    void Create(const CLSID& classId, const Saved& saved);
    /// Closes and releases the control, which lives on only where others hold it.
    void Close();

    const std::string& Name() const { return m_name; }
    const CLSID& ClassId() const { return m_classId; }
    IOleObject* Control() const { return m_object.Get(); }
    DWORD MiscStatus() const { return m_miscStatus; }
    const RECT& Place() const { return m_place; }  // pixels of the form's client area
    void MoveTo(const RECT& place);

    void Activate(LONG verb, MSG* message = nullptr);
    void Deactivate();
    void UIDeactivate();
    bool IsInPlace() const { return m_inPlaceObject != nullptr; }
    bool IsUIActive() const { return m_uiActive; }
    HWND ControlWindow() const;  // null while not active
    /// Draws the control's picture in its place, as a form does in design mode and in print.
    void Draw(HDC context) const;
    void TellAmbientChange(DISPID id);
    /// Whether the control acts on the message, which names one of its mnemonics.
    bool TakesMnemonic(MSG& message);

    EventSink::Handler onEvent;
    PropertyAsked onRequestEdit;
    PropertyTold onChanged;

    // IOleClientSite

    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSiteEx

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override;
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT place) override;
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL) override { return OnInPlaceDeactivate(); }
    STDMETHODIMP RequestUIActivate() override;

    // IOleControlSite

    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL gotFocus) override;
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // IDispatch: the ambient properties

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

    // IPropertyNotifySink

    STDMETHODIMP OnChanged(DISPID id) override;
    STDMETHODIMP OnRequestEdit(DISPID id) override;

    // IAdviseSink

    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override;
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override {}
    STDMETHODIMP_(void) OnClose() override {}

protected:
    void* Find(REFIID id) override;

private:
    void Follow();
    void Unfollow();
    std::string PropertyName(DISPID id) const;

    Form* m_form;  // null once closed
    std::string m_name;
    RECT m_place;
    CLSID m_classId = {};
    DWORD m_miscStatus = 0;
    ComPtr<IOleObject> m_object;
    ComPtr<IOleInPlaceObject> m_inPlaceObject;  // while active
    bool m_uiActive = false;
    ComPtr<EventSink> m_events;
    ComPtr<IConnectionPoint> m_notifications;
    DWORD m_notificationCookie = 0;
};

/// Pixels of the screen to hundredths of a millimetre and back.
long ToHimetric(long pixels);
long ToPixels(long himetric);

}  // namespace velmora::vmhost
