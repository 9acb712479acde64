#pragma once

#include "hosts/activex/com/ComObject.h"

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

namespace velmora {

/// The type information of that identifier in this module's own type library. Error: there is none.
Microsoft::WRL::ComPtr<ITypeInfo> OwnTypeInfo(REFGUID guid);

/// `IDispatch::Invoke` on the dual interface that `type` describes: colours come out as signed
/// numbers, which scripts know, and go in with whatever sign they have.
HRESULT InvokeDual(ITypeInfo& type, IDispatch& instance, DISPID member, WORD flags,
                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                   UINT* badArgument) noexcept;

HRESULT LoadOwnTypeInfo(REFGUID guid, Microsoft::WRL::ComPtr<ITypeInfo>& type) noexcept;

/// The type library stays loaded from its first use until this call, when the module is about to
/// go.
void ReleaseOwnLibrary() noexcept;

/// The four members of `IDispatch` for a dual interface; `Base` derives from it, if only as itself.
template <class Interface, class Base = Interface>
class Dual : public Base {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        if (!info) return E_POINTER;
        *info = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        const HRESULT loaded = LoadType();
        return FAILED(loaded) ? loaded : m_type.CopyTo(info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) override {
        if (!names || !ids) return E_POINTER;
        if (iid != GUID{}) return DISP_E_UNKNOWNINTERFACE;
        const HRESULT loaded = LoadType();
        return FAILED(loaded) ? loaded : m_type->GetIDsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
        if (!arguments) return E_POINTER;
        if (iid != GUID{}) return DISP_E_UNKNOWNINTERFACE;
        const HRESULT loaded = LoadType();
        if (FAILED(loaded)) return loaded;
        const Microsoft::WRL::ComPtr<ITypeInfo> type = m_type;
        const Microsoft::WRL::ComPtr<Interface> self = this;  // a handler may drop the last one
        return InvokeDual(*type.Get(), *self.Get(), member, flags, arguments, result, exception,
                          badArgument);
    }

private:
    HRESULT LoadType() noexcept {
        return m_type ? S_OK : LoadOwnTypeInfo(__uuidof(Interface), m_type);
    }

    Microsoft::WRL::ComPtr<ITypeInfo> m_type;
};

/// An object of a published class: its dual interface with error information, and others.
template <class Interface, class... Others>
class DualObject : public Dual<Interface, ComObject<Interface, ISupportErrorInfo, Others...>> {
public:
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == __uuidof(Interface) ? S_OK : S_FALSE;
    }

protected:
    void* Find(REFIID iid) override {
        if (iid == __uuidof(IDispatch)) return static_cast<IDispatch*>(this);
        return ComObject<Interface, ISupportErrorInfo, Others...>::Find(iid);
    }
};

}  // namespace velmora
