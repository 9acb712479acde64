#pragma once

#include "hosts/activex/control/ControlClass.h"
#include "hosts/activex/control/ControlPart.h"

#include <ocidl.h>

#include <string>

/// Not in the compiler's headers.
struct ICategorizeProperties : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property, int* category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(int category, LCID locale, BSTR* name) = 0;
};
__CRT_UUID_DECL(ICategorizeProperties, 0x4d07fc10, 0xf931, 0x11ce, 0xb0, 0x01, 0x00, 0xaa, 0x00,
                0x68, 0x84, 0xe5)

namespace velmora {

/// Which of its class's pages edits a property of a control, and what it is about, for a
/// container's list of properties.
class PropertyBrowsing final : public ControlPart<IPerPropertyBrowsing, ICategorizeProperties> {
public:
    PropertyBrowsing(IUnknown& identity, const ControlClass& controlClass)
        : ControlPart(identity), m_class(controlClass) {}

    // The container's own texts and lists do, by the type library.
    STDMETHODIMP GetDisplayString(DISPID, BSTR* text) override;
    STDMETHODIMP GetPredefinedStrings(DISPID, CALPOLESTR*, CADWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetPredefinedValue(DISPID, DWORD, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP MapPropertyToPage(DISPID property, CLSID* page) override;

    STDMETHODIMP MapPropertyToCategory(DISPID property, int* category) override;
    STDMETHODIMP GetCategoryName(int category, LCID locale, BSTR* name) override;

private:
    /// Empty: there is no such member.
    std::string NameOf(DISPID property);

    const ControlClass& m_class;
};

}  // namespace velmora
