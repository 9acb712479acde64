#pragma once

#include "apps/vmhost/Automation.h"
#include "apps/vmhost/EventSink.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/control/CalendarControl.h"
#include "hosts/activex/control/DropDownControl.h"

#include <gtest/gtest.h>

#include <olectl.h>

namespace velmora {

using vmhost::ComPtr;
using vmhost::GetProperty;
using vmhost::PutProperty;

/// Both controls, not placed anywhere.
inline ComPtr<::_VmCalendar> NewCalendar() { return Adopt<::_VmCalendar>(new CalendarControl); }
inline ComPtr<::_VmCalDropDown> NewBox() { return Adopt<::_VmCalDropDown>(new DropDownControl); }

/// A container that notes what a control asks of it, and can refuse or interfere with every call.
/// It is a document's window in its frame, too.
class ScriptedContainer final
    : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, IDispatch,
                       IOleInPlaceFrame, IPropertyNotifySink, IAdviseSink> {
public:
    /// The calls since the last time, separated by spaces.
    std::string TakeLog() { return std::exchange(m_log, {}); }

    HWND window =  // what controls are placed in
        CreateWindowExW(0, L"STATIC", L"container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400,
                        300, nullptr, nullptr, nullptr, nullptr);
    RECT place{10, 20, 260, 220};
    RECT clip{0, 0, 400, 300};
    std::string refused;         // the call of this name fails
    std::string interferesWith;  // when it is called, once:
    std::function<void()> interference;
    std::map<DISPID, vmhost::Value> ambients;  // those that it knows
    std::map<std::wstring, short> scaleModes;  // of the `Container` and `Parent` of its controls

    STDMETHODIMP SaveObject() override { return Note("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHODIMP ShowObject() override { return Note("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* its) override {
        *its = window;
        return Note("GetWindow");
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return Note("CanInPlaceActivate"); }
    STDMETHODIMP OnInPlaceActivate() override { return Note("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() override { return Note("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  RECT* its, RECT* visible, OLEINPLACEFRAMEINFO*) override {
        *document = nullptr;
        *frame = nullptr;
        *its = place;
        *visible = clip;
        const HRESULT result = Note("GetWindowContext");
        if (FAILED(result)) return result;
        *document = *frame = this;
        AddRef();
        AddRef();
        return result;
    }
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT its) override {
        std::string text;
        for (const LONG edge : {its->left, its->top, its->right, its->bottom}) {
            text += (text.empty() ? "" : ",") + std::to_string(edge);
        }
        return Note("OnPosRectChange(" + text + ")");
    }

    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) override {
        return QueryInterface(IID_PPV_ARGS(control));
    }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD modifiers) override {
        return Note("TranslateAccelerator(" + std::to_string(modifiers) + ")");
    }
    STDMETHODIMP OnFocus(BOOL has) override { return Note(has ? "OnFocus(1)" : "OnFocus(0)"); }
    STDMETHODIMP ShowPropertyFrame() override { return Note("ShowPropertyFrame"); }

    STDMETHODIMP GetBorder(RECT*) override { return E_NOTIMPL; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        return Note(object ? "SetActiveObject" : "SetActiveObject(0)");
    }
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }

    STDMETHODIMP OnChanged(DISPID id) override {
        return Note("OnChanged(" + std::to_string(id) + ")");
    }
    STDMETHODIMP OnRequestEdit(DISPID id) override {
        return FAILED(Note("OnRequestEdit(" + std::to_string(id) + ")")) ? S_FALSE : S_OK;
    }

    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { Note("OnDataChange"); }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { Note("OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override { Note("OnSave"); }
    STDMETHODIMP_(void) OnClose() override { Note("OnClose"); }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const std::wstring name = *names;
        if (name != L"ScaleMode" && !scaleModes.contains(name)) return DISP_E_UNKNOWNNAME;
        *ids = name[0];  // ambient properties have negative ones
        if (name != L"ScaleMode") m_scaleMode = scaleModes[name];
        return S_OK;
    }
    /// Ambient properties, events of a control that it is connected to, and scale modes.
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        if (flags & DISPATCH_METHOD) {
            return Note(vmhost::Event("Event" + std::to_string(id), *arguments).Text());
        }
        if (id == L'S') {
            V_VT(result) = VT_I2;
            V_I2(result) = m_scaleMode;
        } else if (id > 0) {
            V_VT(result) = VT_DISPATCH;
            V_DISPATCH(result) = this;
            AddRef();
        } else {
            const auto found = ambients.find(id);
            return found == ambients.end() ? DISP_E_MEMBERNOTFOUND : found->second.CopyTo(*result);
        }
        return S_OK;
    }

protected:
    ~ScriptedContainer() override {
        if (window) DestroyWindow(window);
    }
    void* Find(REFIID iid) override {
        if (iid == IID_IOleWindow) return static_cast<IOleInPlaceSite*>(this);
        return ComObject::Find(iid);
    }

private:
    HRESULT Note(const std::string& call) {
        m_log += m_log.empty() ? call : " " + call;
        if (call == interferesWith) {
            interferesWith.clear();
            interference();
        }
        return call == refused ? E_FAIL : S_OK;
    }

    std::string m_log;
    short m_scaleMode = 0;  // of the object asked for last
};

/// What is done to the control, what it calls then, and what it has become.
struct Step {
    const char* what;
    std::function<HRESULT()> act;
    std::string calls;
    std::string state = "inactive";
    HRESULT result = S_OK;
};

inline void ServeWaiting() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

/// A calendar and a container for it. Whatever a test does, nothing may be left of the control.
class ComponentTest : public testing::Test {
protected:
    ComponentTest() {
        m_before = ModuleLock::Count();
        object = Adopt<IOleObject>(new CalendarControl);
    }
    ~ComponentTest() override {
        Drop();
        EXPECT_EQ(ModuleLock::Count(), m_before) << "a reference to the control was left";
        EXPECT_FALSE(container->window && ::GetWindow(container->window, GW_CHILD));
    }

    template <class Interface>
    ComPtr<Interface> As() const {
        ComPtr<Interface> other;
        object.As(&other);
        return other;
    }
    void Drop() {
        if (object) {
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        }
        object.Reset();
    }
    void Renew() {
        Drop();
        object = Adopt<IOleObject>(new CalendarControl);
    }
    HRESULT Do(LONG verb) { return object->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr); }
    /// Turns the page, which raises MonthChanged and YearChanged.
    HRESULT SetDate(DATE date) {
        return As<::_VmCalendar>()->put_DateValue(vmhost::Value::Date(date).Get());
    }
    /// Site given, so that it can be activated.
    void Place() { object->SetClientSite(container.Get()); }
    HWND Window() const {
        HWND window = nullptr;
        As<IOleInPlaceObject>()->GetWindow(&window);
        return window;
    }
    ComPtr<IConnectionPoint> Point(REFIID iid) {
        ComPtr<IConnectionPoint> point;
        As<IConnectionPointContainer>()->FindConnectionPoint(iid, &point);
        return point;
    }
    DWORD Connect(REFIID events) {
        DWORD cookie = 0;
        IUnknown* const sink = static_cast<IOleClientSite*>(container.Get());
        EXPECT_EQ(Point(events)->Advise(sink, &cookie), S_OK);
        return cookie;
    }

    void Play(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            EXPECT_EQ(step.act(), step.result) << step.what;
            ServeWaiting();
            EXPECT_EQ(container->TakeLog(), step.calls) << step.what;
            EXPECT_EQ(State(), step.state) << step.what;
        }
    }
    std::string State() const {
        std::string state = "inactive";
        const HWND window = Window();
        if (window) state = IsWindowVisible(window) ? "shown" : "hidden";
        if (window && GetFocus() == window) state += " focus";
        if (As<IPersistStreamInit>()->IsDirty() == S_OK) state += " dirty";
        return state;
    }
    HRESULT Change(::VmMonthDisplayConstants display) {
        return As<::_VmCalendar>()->put_MonthDisplay(display);
    }
    long Display() const { return GetProperty(object.Get(), "MonthDisplay").result.Number(); }
    HRESULT AmbientChanged(DISPID id) { return As<IOleControl>()->OnAmbientPropertyChange(id); }
    HWND MonthList() const {
        const long window = GetProperty(object.Get(), "cboMonthhwnd").result.Number();
        return static_cast<HWND>(LongToHandle(window));
    }

    ComPtr<ScriptedContainer> container = Adopt(new ScriptedContainer);
    ComPtr<IOleObject> object;

private:
    long m_before = 0;
};

}  // namespace velmora
