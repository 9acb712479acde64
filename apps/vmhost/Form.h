#pragma once

#include "apps/vmhost/Ambients.h"
#include "apps/vmhost/ControlSite.h"
#include "hosts/activex/com/ComObject.h"

#include <functional>
#include <string>
#include <vector>

namespace velmora::vmhost {

/// A window that holds controls, as a form designer's form does: in user mode they are active and
/// the user works with them, in design mode it draws them and the user selects one.
class Form : public ComObject<IOleInPlaceFrame, IOleContainer> {
public:
    /// `parent` null: a window of its own. Coordinates are pixels.
    static ComPtr<Form> Open(HWND parent, const RECT& place, const std::string& title);
    /// Closes every control and the window; may be called from inside any event.
    void Close();
    bool IsOpen() const { return m_window != nullptr; }

    HWND Window() const { return m_window; }
    /// Makes, places and (in user mode) activates a control by its program id or "{class id}".
    /// Throws `HostError`.
    ControlSite& Add(const std::string& classText, const std::string& name, const RECT& place,
                     const Saved& saved = {});
    void Remove(ControlSite& site);
    void RemoveAll();
    const std::vector<ComPtr<ControlSite>>& Sites() const { return m_sites; }

    const Ambients& GetAmbients() const { return m_ambients; }
    /// Changes the ambients and tells every control which one it was.
    template <class Change>
    void ChangeAmbient(DISPID id, Change change) {
        change(m_ambients);
        TellAmbientChange(id);
    }
    bool IsUserMode() const { return m_ambients.userMode; }
    void SetUserMode(bool userMode);

    /// What a message loop asks before `::TranslateMessage`: true when the message was one of the
    /// keys by which the active control or the form acts.
    bool PreTranslate(MSG& message);
    /// To the next control in the order of creation, or back. Beyond the last one the form asks
    /// `onTabOut`, and without it goes round.
    void MoveFocus(bool forward);
    ControlSite* Active() const { return m_active.Get(); }
    ControlSite* Selected() const { return m_selected.Get(); }
    void Select(ControlSite* site);

    std::function<bool(bool forward)> onTabOut;  // true: the focus has gone elsewhere
    std::function<void()> onSelected;

    // What its sites report.

    void UIActivated(ControlSite& site);
    void UIDeactivated(ControlSite& site);
    void FocusReached(ControlSite& site);
    /// A key that the control gives back to its container.
    bool TranslateForControl(MSG& message);

    // IOleInPlaceFrame

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    // IOleContainer

    STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP EnumObjects(DWORD, IEnumUnknown** objects) override;
    STDMETHODIMP LockContainer(BOOL) override { return S_OK; }

protected:
    void* Find(REFIID id) override;

private:
    Form() = default;
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT OnMessage(UINT message, WPARAM w, LPARAM l);
    void Paint(HDC context);
    void TellAmbientChange(DISPID id);
    void ActivateAll();
    ControlSite* SiteAt(POINT point) const;

    HWND m_window = nullptr;
    Ambients m_ambients;
    std::vector<ComPtr<ControlSite>> m_sites;
    ComPtr<ControlSite> m_active;    // has the user interface
    ComPtr<ControlSite> m_selected;  // in design mode
    ComPtr<IOleInPlaceActiveObject> m_activeObject;
};

/// Serves the messages of this thread until the condition holds; false when `milliseconds` have
/// gone by first.
bool ServeUntil(Form* form, const std::function<bool()>& condition, DWORD milliseconds);
/// Serves the messages that are waiting; how many they were.
int ServeWaiting(Form* form);

}  // namespace velmora::vmhost
