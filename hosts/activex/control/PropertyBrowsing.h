#pragma once

#include "hosts/activex/control/ControlClass.h"
#include "hosts/activex/control/ControlPart.h"

#include <ocidl.h>

namespace velmora {

/// Which of its class's pages edits a property of a control, for a container's list of properties.
class PropertyBrowsing final : public ControlPart<IPerPropertyBrowsing> {
public:
    PropertyBrowsing(IUnknown& identity, const ControlClass& controlClass)
        : ControlPart(identity), m_class(controlClass) {}

    // The container's own texts and lists do, by the type library.
    STDMETHODIMP GetDisplayString(DISPID, BSTR* text) override;
    STDMETHODIMP GetPredefinedStrings(DISPID, CALPOLESTR*, CADWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetPredefinedValue(DISPID, DWORD, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP MapPropertyToPage(DISPID property, CLSID* page) override;

private:
    const ControlClass& m_class;
};

}  // namespace velmora
