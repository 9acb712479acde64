#pragma once

#include "apps/vmhost/ControlSite.h"

namespace velmora::vmhost {

/// The control as the form's scripts see it: `Name`, `Left`, `Top`, `Width`, `Height` (pixels) and
/// `Object`, the control itself. Read-only.
class ExtendedControl : public ComObject<IDispatch> {
public:
    explicit ExtendedControl(ComPtr<ControlSite> site) : m_site(std::move(site)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

private:
    Value Member(DISPID id) const;

    ComPtr<ControlSite> m_site;
};

}  // namespace velmora::vmhost
