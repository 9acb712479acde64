#include "hosts/activex/com/ComDispatch.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/ThreadShared.h"

#include <oleauto.h>

#include <cmath>
#include <utility>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

/// The module's type library, which is parsed once: each parse takes longer than making a control.
/// A plain pointer, because nothing may be released when the process ends.
struct {
    SRWLOCK lock = SRWLOCK_INIT;
    ITypeLib* loaded = nullptr;
} g_library;

HRESULT OwnLibrary(ComPtr<ITypeLib>& library) {
    const ExclusiveLock locked(g_library.lock);
    HRESULT result = S_OK;
    if (!g_library.loaded) {
        result = LoadTypeLibEx(ThisFile().c_str(), REGKIND_NONE, &g_library.loaded);
    }
    library = g_library.loaded;
    return result;
}

/// Whether setting the member takes an unsigned 32-bit number, which is a colour here.
bool PutsColor(ITypeInfo& type, DISPID member) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(type.GetTypeAttr(&attributes))) return false;
    const UINT count = attributes->cFuncs;
    type.ReleaseTypeAttr(attributes);
    bool found = false;
    for (UINT i = 0; i < count && !found; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type.GetFuncDesc(i, &function))) continue;
        if (function->memid == member && function->invkind == INVOKE_PROPERTYPUT &&
            function->cParams == 1) {
            const TYPEDESC& parameter = function->lprgelemdescParam[0].tdesc;
            ComPtr<ITypeInfo> alias;
            TYPEATTR* target = nullptr;
            if (parameter.vt == VT_UI4) found = true;
            if (parameter.vt == VT_USERDEFINED &&
                SUCCEEDED(type.GetRefTypeInfo(parameter.hreftype, &alias)) &&
                SUCCEEDED(alias->GetTypeAttr(&target))) {
                found = target->typekind == TKIND_ALIAS && target->tdescAlias.vt == VT_UI4;
                alias->ReleaseTypeAttr(target);
            }
        }
        type.ReleaseFuncDesc(function);
    }
    return found;
}

/// A negative number, as scripts write system colours, with the same 32 bits as an unsigned one.
bool ReadNegative(const VARIANT& argument, ULONG& bits) {
    OwnedVariant plain;
    if (FAILED(VariantCopyInd(&plain, const_cast<VARIANT*>(&argument)))) return false;
    double number = 0;
    switch (V_VT(&plain)) {
        case VT_I2: number = V_I2(&plain); break;
        case VT_I4: number = V_I4(&plain); break;
        case VT_INT: number = V_INT(&plain); break;
        case VT_I8: number = static_cast<double>(V_I8(&plain)); break;
        case VT_R8: number = std::nearbyint(V_R8(&plain)); break;
        default: return false;
    }
    if (!(number < 0) || number < -2147483648.0) return false;
    bits = static_cast<ULONG>(static_cast<LONG>(number));
    return true;
}

}  // namespace

HRESULT LoadOwnTypeInfo(REFGUID guid, ComPtr<ITypeInfo>& type) noexcept {
    return Guard([&] {
        ComPtr<ITypeLib> library;
        const HRESULT loaded = OwnLibrary(library);
        return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(guid, &type);
    });
}

void ReleaseOwnLibrary() noexcept {
    const ExclusiveLock locked(g_library.lock);
    if (ITypeLib* const library = std::exchange(g_library.loaded, nullptr)) library->Release();
}

ComPtr<ITypeInfo> OwnTypeInfo(REFGUID guid) {
    ComPtr<ITypeInfo> type;
    Require(LoadOwnTypeInfo(guid, type));
    return type;
}

HRESULT InvokeDual(ITypeInfo& type, IDispatch& instance, DISPID member, WORD flags,
                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                   UINT* badArgument) noexcept {
    DISPPARAMS own = *arguments;
    VARIANT color;
    ULONG bits = 0;
    if ((flags & DISPATCH_PROPERTYPUT) && own.cArgs == 1 && ReadNegative(own.rgvarg[0], bits) &&
        PutsColor(type, member)) {
        V_VT(&color) = VT_UI4;
        V_UI4(&color) = bits;
        own.rgvarg = &color;
    }
    SetErrorInfo(0, nullptr);
    const HRESULT invoked =
        type.Invoke(&instance, member, flags, &own, result, exception, badArgument);
    if (SUCCEEDED(invoked) && result && V_VT(result) == VT_UI4) V_VT(result) = VT_I4;
    return invoked;
}

}  // namespace velmora
