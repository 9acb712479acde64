#pragma once

#include "hosts/activex/control/ContainerSite.h"
#include "hosts/activex/control/ControlPart.h"
#include "hosts/activex/win32/WinWindowing.h"

#include <ocidl.h>

namespace velmora {

/// The course of a control's activation in its container's window. The container may interfere
/// with every call that it gets.
class InPlaceActivation final : public ControlPart<IOleInPlaceObject, IOleInPlaceActiveObject> {
public:
    /// What is activated.
    class Control {
    public:
        virtual HRESULT CreateControlWindow(HWND parent, const RECT& place) = 0;
        /// Whether the control itself uses the key before the container's accelerators (arrows, Tab
        /// not). `inChild`: one of its child windows has the focus.
        virtual bool WantsKey(WORD virtualKey, bool inChild) const = 0;

    protected:
        ~Control() = default;
    };

    /// `name` is what the container's frame calls it.
    InPlaceActivation(IUnknown& identity, Control& control, const ContainerSite& site,
                      const WinWindowing& window, const wchar_t* name)
        : ControlPart(identity), m_control(control), m_site(site), m_window(window), m_name(name) {}

    HRESULT Activate();
    HRESULT ActivateUi();
    void Hide();
    /// Asks the container for a place of that size.
    void AskForSize(Size pixels);
    /// To be told of every message of the window: a press gives the control the focus and makes it
    /// the active one; the focus alone does, too.
    void OnMessage(UINT message, WPARAM w);
    /// The window is being destroyed.
    void OnWindowEnded() { TellFocus(false); }
    HWND OwnerOfDialogs() const;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // IOleInPlaceObject
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(MSG* message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

private:
    HRESULT MakeWindow();
    void TellFrames(IOleInPlaceActiveObject* active);
    bool HasFocus(bool& inChild) const;
    void TakeFocus();
    void TellFocus(bool hasFocus);

    Control& m_control;
    const ContainerSite& m_site;
    const WinWindowing& m_window;
    const wchar_t* m_name;
    Microsoft::WRL::ComPtr<IOleInPlaceSite> m_inPlaceSite;  // while active
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> m_frame;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> m_document;
    bool m_activating = false;
    bool m_uiActive = false;
    bool m_focusTold = false;  // the container knows that the control has the focus
};

}  // namespace velmora
