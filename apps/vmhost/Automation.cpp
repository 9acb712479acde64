#include "apps/vmhost/Automation.h"

#include "hosts/activex/win32/WinText.h"

#include <algorithm>
#include <iterator>

namespace velmora::vmhost {
namespace {

std::string TakeText(BSTR text) {
    const std::string result = text ? ToUtf8({text, SysStringLen(text)}) : std::string();
    SysFreeString(text);
    return result;
}

void TakeException(EXCEPINFO& exception, Outcome& outcome) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    outcome.source = TakeText(exception.bstrSource);
    outcome.description = TakeText(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    if (outcome.code != DISP_E_EXCEPTION) return;
    outcome.code =
        exception.scode ? exception.scode : MAKE_HRESULT(1, FACILITY_CONTROL, exception.wCode);
}

Outcome Invoke(IUnknown* object, std::string_view name, WORD kind, std::vector<Value> arguments) {
    Outcome outcome;
    ComPtr<IDispatch> dispatch;
    outcome.code =
        object ? object->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf())) : E_POINTER;
    if (!outcome.Succeeded()) return outcome;

    std::wstring wide = ToWide(name);
    LPOLESTR names = wide.data();
    DISPID id = DISPID_UNKNOWN;
    outcome.code = dispatch->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (!outcome.Succeeded()) return outcome;

    std::vector<VARIANT> reversed;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                   [](const Value& value) { return value.Get(); });
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr,
                          static_cast<UINT>(reversed.size()), puts ? 1u : 0u};
    EXCEPINFO exception{};
    outcome.code = dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                    puts ? nullptr : &outcome.result, &exception, nullptr);
    TakeException(exception, outcome);
    return outcome;
}

std::string NameOf(ITypeInfo& type, MEMBERID id) {
    BSTR name = nullptr;
    UINT count = 0;
    type.GetNames(id, &name, 1, &count);
    return TakeText(name);
}

void AddProperty(ITypeInfo& type, const FUNCDESC& function, std::vector<PropertyInfo>& properties) {
    const auto known =
        std::find_if(properties.begin(), properties.end(),
                     [&](const auto& property) { return property.id == function.memid; });
    if (function.invkind == INVOKE_PROPERTYGET) {
        const bool shown = !(function.wFuncFlags & (FUNCFLAG_FHIDDEN | FUNCFLAG_FRESTRICTED));
        if (shown && function.cParams == 0 && known == properties.end()) {
            properties.push_back({NameOf(type, function.memid), function.memid, false});
        }
    } else if (function.invkind != INVOKE_FUNC && known != properties.end()) {
        known->writable = true;
    }
}

}  // namespace

long Outcome::Number() const {
    if (Succeeded()) return 0;
    if (HRESULT_FACILITY(code) == FACILITY_CONTROL) return HRESULT_CODE(code);
    switch (code) {
        case DISP_E_TYPEMISMATCH: return 13;
        case DISP_E_OVERFLOW: return 6;
        case DISP_E_UNKNOWNNAME:
        case DISP_E_MEMBERNOTFOUND: return 438;
        case DISP_E_BADPARAMCOUNT:
        case DISP_E_PARAMNOTOPTIONAL: return 450;
        default: return code;
    }
}

std::string Outcome::Text() const {
    if (Succeeded()) return {};
    return std::to_string(Number()) + (description.empty() ? "" : ": " + description);
}

Outcome GetProperty(IUnknown* object, std::string_view name, std::vector<Value> arguments) {
    return Invoke(object, name, DISPATCH_PROPERTYGET, std::move(arguments));
}

Outcome PutProperty(IUnknown* object, std::string_view name, const Value& value,
                    std::vector<Value> arguments) {
    arguments.push_back(value);
    if (value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN) {
        const Outcome outcome = Invoke(object, name, DISPATCH_PROPERTYPUTREF, arguments);
        if (outcome.code != DISP_E_MEMBERNOTFOUND) return outcome;
    }
    return Invoke(object, name, DISPATCH_PROPERTYPUT, std::move(arguments));
}

Outcome CallMethod(IUnknown* object, std::string_view name, std::vector<Value> arguments) {
    return Invoke(object, name, DISPATCH_METHOD, std::move(arguments));
}

std::vector<PropertyInfo> PropertiesOf(IUnknown* object) {
    std::vector<PropertyInfo> properties;
    ComPtr<IDispatch> dispatch;
    ComPtr<ITypeInfo> type;
    if (!object || FAILED(object->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf()))) ||
        FAILED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.GetAddressOf()))) {
        return properties;
    }
    TYPEATTR* attributes = nullptr;
    if (FAILED(type->GetTypeAttr(&attributes))) return properties;
    const UINT count = attributes->cFuncs;
    type->ReleaseTypeAttr(attributes);
    for (UINT index = 0; index < count; ++index) {
        FUNCDESC* function = nullptr;
        if (FAILED(type->GetFuncDesc(index, &function))) continue;
        AddProperty(*type.Get(), *function, properties);
        type->ReleaseFuncDesc(function);
    }
    return properties;
}

}  // namespace velmora::vmhost
