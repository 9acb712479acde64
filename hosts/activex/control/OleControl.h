#pragma once

#include "hosts/activex/access/WindowAccess.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ConnectionPoint.h"
#include "hosts/activex/com/ObjectBridge.h"
#include "hosts/activex/control/ContainerSite.h"
#include "hosts/activex/control/ControlClass.h"
#include "hosts/activex/control/ControlStorage.h"
#include "hosts/activex/control/InPlaceActivation.h"
#include "hosts/activex/control/PropertyBrowsing.h"
#include "hosts/activex/control/ViewAdvises.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinWindowing.h"
#include "platform/Hosting.h"
#include "platform/dates/Dates.h"

#include <objsafe.h>
#include <ocidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace velmora {

/// Everything that both controls share as members of an OLE container: sites, activation, window,
/// view, storage, connection points. The control proper derives from it.
///
/// Reference counting and `QueryInterface` are the derived class's, which asks `FindOle`. Whatever
/// may call foreign code holds a reference to the control, so a handler may drop the last one of
/// the container: the control then ends when the outermost call returns. While it has a window, the
/// window holds one, too.
///
/// A control without a site has values, can be saved and drawn, but cannot be activated. Closing it
/// takes its window away; it may be activated again.
class OleControl : public IOleObject,
                   public IOleControl,
                   public IViewObjectEx,
                   public IPersistStreamInit,
                   public IPersistPropertyBag,
                   public IConnectionPointContainer,
                   public IProvideClassInfo2,
                   public ISpecifyPropertyPages,
                   public IDataObject,
                   public IObjectSafety,
                   public ISupportErrorInfo,
                   public Hosting,
                   private InPlaceActivation::Control,
                   private ControlStorage::Control {
public:
    OleControl(const OleControl&) = delete;
    OleControl& operator=(const OleControl&) = delete;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return S_OK; }
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject** data) override;
    STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT place) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* clsid) override { return GetClassID(clsid); }
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* extent) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* extent) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override {
        return m_advises.OfObject(&IOleAdviseHolder::Advise, sink, connection);
    }
    STDMETHODIMP Unadvise(DWORD connection) override {
        return m_advises.OfObject(&IOleAdviseHolder::Unadvise, connection);
    }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) override {
        return m_advises.OfObject(&IOleAdviseHolder::EnumAdvise, advises);
    }
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG* message) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

    // IViewObjectEx
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                      HDC information, HDC context, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR argument) override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                             HDC information, LOGPALETTE** colors) override;
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override {
        return m_advises.GetView(aspects, flags, sink);
    }
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                           SIZEL* extent) override;
    STDMETHODIMP GetRect(DWORD aspect, RECTL* rect) override;
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint,
                               DWORD* result) override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rect, LONG closeHint,
                              DWORD* result) override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC information,
                                  DVEXTENTINFO* info, SIZEL* extent) override;

    // IPersist and its kinds
    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP IsDirty() override { return m_dirty ? S_OK : S_FALSE; }
    STDMETHODIMP InitNew() override;
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

    // ISpecifyPropertyPages
    STDMETHODIMP GetPages(CAUUID* pages) override;

    // IDataObject
    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return DV_E_FORMATETC; }
    STDMETHODIMP QueryGetData(FORMATETC* format) override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                         DWORD* connection) override {
        return m_advises.OfData(&IDataAdviseHolder::Advise, this, format, flags, sink, connection);
    }
    STDMETHODIMP DUnadvise(DWORD connection) override {
        return m_advises.OfData(&IDataAdviseHolder::Unadvise, connection);
    }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** advises) override {
        return m_advises.OfData(&IDataAdviseHolder::EnumAdvise, advises);
    }

    // IObjectSafety: whatever data it is loaded with does no harm. Nothing is promised about what
    // a script may call.
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;

    // Hosting
    void PropertyChanged(std::string_view name) override;
    /// `name` is the published one.
    bool RequestEdit(std::string_view name) override;
    FontRef AmbientFont() const override { return m_site.Font(); }
    std::optional<std::int16_t> ContainerScaleMode() const override { return m_site.ScaleMode(); }
    std::optional<std::int16_t> ParentScaleMode() const override {
        return m_site.ParentScaleMode();
    }
    void ShowAboutBox(const AboutText& text) override;

protected:
    explicit OleControl(const ControlClass& controlClass);
    ~OleControl() override;

    /// The shell's interface of that identifier, not counted; null for none. `IUnknown` is the
    /// derived class's.
    void* FindOle(REFIID iid);

    /// Holds a reference for the duration of a call.
    class Hold {
    public:
        explicit Hold(OleControl& control) : m_object(static_cast<IOleObject*>(&control)) {}

    private:
        Microsoft::WRL::ComPtr<IOleObject> m_object;
    };

    // What the control proper answers.

    /// Takes the defaults of a new control, or those and the bag's values.
    virtual void InitProperties() = 0;
    virtual void ReadProperties(PropertyBag& bag) = 0;
    virtual void WriteProperties(PropertyBag& bag) = 0;
    virtual ObjectBridge& Objects() = 0;
    /// What screen readers see of it.
    virtual WindowAccess& Access() = 0;
    /// Paints the client area of `Window()`'s size at the origin of the context, without its child
    /// controls.
    virtual void Paint(HDC context, std::span<const Rect> exposed) = 0;
    /// The window's messages except those that the shell uses up: painting, `WM_SETCURSOR` over the
    /// client area, `WM_GETDLGCODE`. While a form is designed, or the container has the user kept
    /// from it, no keys and no mouse arrive. A press has given the control the focus before. False:
    /// `DefWindowProc` gets it.
    virtual bool OnMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) = 0;
    /// Shown, hidden, moved, resized, enabled or disabled; also without a window.
    virtual void OnWindowChanged() = 0;
    /// The native window has been made, or is being destroyed with all its children.
    virtual void OnWindowRecreated() = 0;
    /// `DateServices()` speak another language or in another direction, or the container's font or
    /// units have changed.
    virtual void OnAmbientChanged() = 0;
    /// `Window().OLEDropMode` has been set, or a window has come for it.
    virtual void OnDropModeChanged() {}
    /// The published property behind a key that the core reports a change of.
    virtual std::string_view PropertyOfKey(std::string_view key) const { return key; }

    // What the shell gives it.

    WinDrawing& Drawing() noexcept { return m_drawing; }
    WinWindowing& Window() noexcept { return m_window; }
    Dates& DateServices() noexcept { return m_dates; }
    /// A control that is used before it has been initialised or loaded gets its defaults. Every
    /// published member begins with it.
    void EnsureInitialized();
    /// Raises an event: arguments in the order of the declaration, by reference. Changed ones come
    /// back. Nothing while the container has events frozen.
    void Raise(DISPID event, std::span<VARIANT> arguments);
    bool IsUserMode() const { return m_site.IsUserMode(); }
    bool KeepsDropDownOnScreen() const { return m_site.KeepsDropDownOnScreen(); }
    /// The default interface. Error: the type library is missing.
    ITypeInfo* TypeInfo() const;

private:
    class ShellWindow final : public WinWindowing {
    public:
        explicit ShellWindow(OleControl& owner) : m_owner(owner) {}

    protected:
        void OnDropModeChanged() override { m_owner.OnDropModeChanged(); }

    private:
        OleControl& m_owner;
    };

    HRESULT ShowProperties(HWND parent);
    IPersistStreamInit& Stream() override { return *this; }
    void OnSaved(bool isCurrent) override;

    // Window
    HRESULT CreateControlWindow(HWND parent, const RECT& place) override;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    bool Serve(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    bool ServeInShell(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    LRESULT DialogCode(const MSG* message) const;
    void EndWindow();
    void FollowDpi();

    // View
    int Dpi() const { return m_window.Dpi(); }
    void ApplyExtent();
    void ViewChanged();
    void PaintAll(HDC context);
    void PaintInto(HDC context, const RECT& bounds, const RECTL* windowBounds);
    HGLOBAL MakeMetafilePicture();
    HENHMETAFILE MakeEnhancedMetafile();
    HBITMAP MakeBitmap();

    // Persistence
    void LoadFrom(PropertyBag& bag);
    void SaveTo(PropertyBag& bag);

    /// With the direction that it is written in.
    void ReadLocale();
    DISPID IdOf(std::string_view property);

    const ControlClass& m_class;
    WinDrawing m_drawing;
    ShellWindow m_window;
    Dates m_dates;
    LCID m_locale = 0;
    mutable Microsoft::WRL::ComPtr<ITypeInfo> m_type;
    std::unordered_map<std::string, DISPID> m_ids;  // of published properties, as they were needed

    ContainerSite m_site;
    InPlaceActivation m_activation;
    ControlStorage m_storage;
    PropertyBrowsing m_browsing;
    ViewAdvises m_advises;
    unsigned m_frozen = 0;

    SIZEL m_extent{};  // HIMETRIC, as it was set, so that it does not drift

    ConnectionPoint m_events;
    ConnectionPoint m_properties;

    bool m_initialized = false;
    bool m_loading = false;
    bool m_dirty = false;
};

}  // namespace velmora
