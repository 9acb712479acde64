#pragma once

#include "hosts/activex/access/WindowAccess.h"
#include "hosts/activex/com/ComObject.h"

#include <optional>
#include <vector>

namespace velmora {

/// `IAccessible` of a window for as long as that lives: the whole is child 0, parts without an
/// object of their own are the next numbers, and windows in it, which have objects, the last ones.
class AccessObject final : public ComObject<IAccessible, IOleWindow> {
public:
    AccessObject(WindowAccess& access, HWND window) : m_access(&access), m_window(window) {}

    /// From now on every member answers `CO_E_OBJNOTCONNECTED`.
    void Disconnect();

    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(long* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
        return TextOf(child, &AccessItem::name, name);
    }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
        return TextOf(child, &AccessItem::value, value);
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override {
        return TextOf(child, &AccessItem::description, description);
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT, BSTR* help) override { return NoText(help); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT, long*) override { return NoText(file); }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT, BSTR* key) override { return NoText(key); }
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* children) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(long flags, VARIANT child) override;
    STDMETHODIMP accLocation(long* left, long* top, long* width, long* height,
                             VARIANT child) override;
    STDMETHODIMP accNavigate(long direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(long left, long top, VARIANT* child) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // The interface is there for those who know it; none of its members by name.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return E_NOTIMPL;
    }

protected:
    void* Find(REFIID iid) override;

private:
    using Items = std::vector<AccessItem>;

    template <class Read>
    HRESULT Ask(Read read);
    template <class Read>
    HRESULT AskOf(const VARIANT& child, Read read);
    template <class Is>
    HRESULT Answer(VARIANT* answer, Is is);
    HRESULT TextOf(const VARIANT& child, std::string AccessItem::*text, BSTR* out);
    HRESULT NoText(BSTR* out) const;
    HRESULT Part(const Items& items, std::size_t number, VARIANT* part);
    static HRESULT ObjectOf(HWND window, LONG which, IDispatch** object);
    long StateOf(const Items& items, std::size_t item) const;
    HRESULT Act(const Items& items, std::size_t item);

    WindowAccess* m_access;  // null: gone
    const HWND m_window;
};

}  // namespace velmora
