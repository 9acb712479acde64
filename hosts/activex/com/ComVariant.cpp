#include "hosts/activex/com/ComVariant.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/AutomationError.h"

#include <ocidl.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

/// The core's type for an integer of that many bits.
Variant WholeNumber(LONGLONG number) {
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
        throw AutomationError(ErrorNumber::Overflow);
    }
    return static_cast<std::int32_t>(number);
}

Variant BigNumber(ULONGLONG number) {
    if (number > static_cast<ULONGLONG>(std::numeric_limits<std::int32_t>::max())) {
        throw AutomationError(ErrorNumber::Overflow);
    }
    return static_cast<std::int32_t>(number);
}

Variant AsDouble(const VARIANT& value) {
    OwnedVariant number;
    Require(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_R8));
    return V_R8(&number);
}

Variant OfPlain(const VARIANT& value, ObjectBridge& objects) {
    switch (V_VT(&value)) {
        case VT_EMPTY: return {};
        case VT_NULL: return Null();
        case VT_I1: return static_cast<std::int16_t>(static_cast<signed char>(V_I1(&value)));
        case VT_UI1: return static_cast<std::int16_t>(V_UI1(&value));
        case VT_I2: return V_I2(&value);
        case VT_UI2: return static_cast<std::int32_t>(V_UI2(&value));
        case VT_I4: return static_cast<std::int32_t>(V_I4(&value));
        case VT_INT: return static_cast<std::int32_t>(V_INT(&value));
        case VT_UI4: return static_cast<std::uint32_t>(V_UI4(&value));
        case VT_UINT: return static_cast<std::uint32_t>(V_UINT(&value));
        case VT_I8: return WholeNumber(V_I8(&value));
        case VT_UI8: return BigNumber(V_UI8(&value));
        case VT_R4: return static_cast<double>(V_R4(&value));
        case VT_R8: return V_R8(&value);
        case VT_CY:
        case VT_DECIMAL: return AsDouble(value);
        case VT_DATE: return Date(V_DATE(&value));
        case VT_BSTR: return FromBstr(V_BSTR(&value));
        case VT_BOOL: return V_BOOL(&value) != VARIANT_FALSE;
        case VT_DISPATCH:
        case VT_UNKNOWN: return objects.FromClient(V_UNKNOWN(&value));
        case VT_ERROR:
            if (V_ERROR(&value) == DISP_E_PARAMNOTFOUND) return {};
            [[fallthrough]];
        default: RaiseTypeMismatch();
    }
}

/// What a call of a client's object has been refused with.
[[noreturn]] void RaiseRefusal(HRESULT failure, EXCEPINFO& exception) {
    if (failure == DISP_E_EXCEPTION && exception.pfnDeferredFillIn) {
        exception.pfnDeferredFillIn(&exception);
    }
    const std::string description = FromBstr(exception.bstrDescription);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    switch (failure) {
        case DISP_E_UNKNOWNNAME:
        case DISP_E_MEMBERNOTFOUND: throw AutomationError(ErrorNumber::MemberNotFound);
        case DISP_E_TYPEMISMATCH: throw AutomationError(ErrorNumber::TypeMismatch);
        case DISP_E_OVERFLOW: throw AutomationError(ErrorNumber::Overflow);
        case DISP_E_EXCEPTION: break;
        default: throw ComFailure(failure);
    }
    const HRESULT code =
        exception.scode ? exception.scode : HresultOf(static_cast<ErrorNumber>(exception.wCode));
    for (const ErrorNumber known :
         {ErrorNumber::InvalidProcedureCall, ErrorNumber::Overflow, ErrorNumber::TypeMismatch,
          ErrorNumber::InvalidPropertyValue, ErrorNumber::SubscriptOutOfRange,
          ErrorNumber::MemberNotFound}) {
        if (code == HresultOf(known)) throw AutomationError(known);
    }
    throw ComFailure(FAILED(code) ? code : E_FAIL,
                     description.empty() ? "Automation error" : description.c_str());
}

std::string NameOf(ITypeInfo& type) {
    BSTR name = nullptr;
    type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    std::string text = FromBstr(name);
    SysFreeString(name);
    return text;
}

std::string TypeNameOf(IDispatch& object) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> type;
    if (SUCCEEDED(object.QueryInterface(IID_PPV_ARGS(&provider))) &&
        SUCCEEDED(provider->GetClassInfo(&type)) && type) {
        return NameOf(*type.Get());
    }
    if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, &type)) || !type) return {};
    const std::string name = NameOf(*type.Get());
    return name.starts_with('_') ? name.substr(1) : name;
}

DISPID MemberOfClient(IDispatch& object, std::string_view name) {
    std::wstring wide = ToWide(name);
    LPOLESTR text = wide.data();
    DISPID member = DISPID_UNKNOWN;
    const HRESULT found = object.GetIDsOfNames(GUID{}, &text, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(found)) throw AutomationError(ErrorNumber::MemberNotFound);
    return member;
}

void InvokeClient(IDispatch& object, DISPID member, WORD flags, DISPPARAMS& arguments,
                  VARIANT* result) {
    EXCEPINFO exception{};
    const HRESULT invoked = object.Invoke(member, GUID{}, LOCALE_USER_DEFAULT, flags, &arguments,
                                          result, &exception, nullptr);
    if (FAILED(invoked)) RaiseRefusal(invoked, exception);
}

}  // namespace

std::string FromBstr(BSTR text) {
    return text ? ToUtf8(std::wstring_view(text, SysStringLen(text))) : std::string();
}

BSTR ToBstr(std::string_view text) {
    const std::wstring wide = ToWide(text);
    BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (!made) throw std::bad_alloc();
    return made;
}

Variant FromComVariant(const VARIANT& value, ObjectBridge& objects) {
    if (!(V_VT(&value) & VT_BYREF)) return OfPlain(value, objects);
    OwnedVariant plain;
    if (FAILED(VariantCopyInd(&plain, const_cast<VARIANT*>(&value)))) RaiseTypeMismatch();
    return OfPlain(plain, objects);
}

void ToComVariant(const Variant& value, ObjectBridge& objects, VARIANT& out) {
    if (const auto* text = value.As<std::string>()) {
        V_BSTR(&out) = ToBstr(*text);
    } else if (const auto* object = value.As<ObjectRef>()) {
        V_DISPATCH(&out) = objects.ToClient(*object).Detach();
    } else if (const auto* small = value.As<std::int16_t>()) {
        V_I2(&out) = *small;
    } else if (const auto* whole = value.As<std::int32_t>()) {
        V_I4(&out) = *whole;
    } else if (const auto* number = value.As<double>()) {
        V_R8(&out) = *number;
    } else if (const auto* date = value.As<Date>()) {
        V_DATE(&out) = date->value;
    } else if (const auto* flag = value.As<bool>()) {
        V_BOOL(&out) = *flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    V_VT(&out) = static_cast<VARTYPE>(value.Type());  // the published tags are the system's
}

ComAutomation::ComAutomation(IDispatch& object, ObjectBridge& objects)
    : m_object(&object), m_objects(objects.shared_from_this()) {}

std::string_view ComAutomation::TypeName() const {
    if (!m_typeName) m_typeName = TypeNameOf(*m_object.Get());
    return *m_typeName;
}

Variant ComAutomation::GetItem(std::int16_t index) const {
    OwnedVariant argument, result;
    V_VT(&argument) = VT_I2;
    V_I2(&argument) = index;
    DISPPARAMS arguments{&argument, nullptr, 1, 0};
    InvokeClient(*m_object.Get(), MemberOfClient(*m_object.Get(), "Item"),
                 DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, &result);
    return FromComVariant(result, *m_objects);
}

Variant ComAutomation::GetMember(std::string_view name) const {
    OwnedVariant result;
    DISPPARAMS none{};
    InvokeClient(*m_object.Get(), MemberOfClient(*m_object.Get(), name), DISPATCH_PROPERTYGET, none,
                 &result);
    return FromComVariant(result, *m_objects);
}

/// Objects are set by reference where the object knows that, else as values.
void ComAutomation::LetMember(std::string_view name, const Variant& value) {
    const DISPID member = MemberOfClient(*m_object.Get(), name);
    OwnedVariant argument;
    ToComVariant(value, *m_objects, argument);
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{&argument, &put, 1, 1};
    if (V_VT(&argument) == VT_DISPATCH) {
        try {
            return InvokeClient(*m_object.Get(), member, DISPATCH_PROPERTYPUTREF, arguments,
                                nullptr);
        } catch (const AutomationError& error) {
            if (error.Number() != ErrorNumber::MemberNotFound) throw;
        }
    }
    InvokeClient(*m_object.Get(), member, DISPATCH_PROPERTYPUT, arguments, nullptr);
}

void ComAutomation::CallMember(std::string_view name, std::vector<Variant> arguments,
                               Variant* result) const {
    const DISPID member = MemberOfClient(*m_object.Get(), name);
    std::vector<OwnedVariant> values(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        ToComVariant(arguments[arguments.size() - 1 - i], *m_objects, values[i]);
    }
    DISPPARAMS given{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
    OwnedVariant returned;
    InvokeClient(*m_object.Get(), member, DISPATCH_METHOD, given, &returned);
    if (result) *result = FromComVariant(returned, *m_objects);
}

}  // namespace velmora
