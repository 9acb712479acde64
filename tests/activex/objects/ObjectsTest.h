#pragma once

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/control/CalendarControl.h"
#include "hosts/activex/control/DropDownControl.h"

#include <VelmoraCalendarInterfaces.h>
#include <gtest/gtest.h>
#include <ole2.h>
#include <windows.h>
#include <wrl/client.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmora {

using Microsoft::WRL::ComPtr;

/// Both controls, not placed anywhere.
inline ComPtr<::_VmCalendar> NewCalendar() { return Adopt<::_VmCalendar>(new CalendarControl); }
inline ComPtr<::_VmCalDropDown> NewBox() { return Adopt<::_VmCalDropDown>(new DropDownControl); }

template <class Interface>
ComPtr<Interface> Query(IUnknown* object) {
    ComPtr<Interface> other;
    EXPECT_HRESULT_SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&other)));
    return other;
}

inline DISPID IdOf(IDispatch* object, const wchar_t* name) {
    auto* text = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &text, 1, 0, &id), S_OK);
    return id;
}

/// What a script sees of a refusal: its number, 0 for success.
inline int Put(IDispatch* object, const wchar_t* name, const VARIANT& value) {
    VARIANT argument = value;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{&argument, &put, 1, 1};
    EXCEPINFO exception{};
    const HRESULT result = object->Invoke(IdOf(object, name), IID_NULL, 0, DISPATCH_PROPERTYPUT,
                                          &arguments, nullptr, &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    if (result == DISP_E_TYPEMISMATCH) return 13;
    if (result == DISP_E_OVERFLOW) return 6;
    if (result == DISP_E_EXCEPTION) return HRESULT_CODE(exception.scode);
    return result == S_OK ? 0 : result;
}

inline VARIANT Number(LONG value) {
    VARIANT variant;
    V_VT(&variant) = VT_I4;
    V_I4(&variant) = value;
    return variant;
}

inline VARIANT Real(double value, VARTYPE type = VT_R8) {
    VARIANT variant;
    V_VT(&variant) = type;
    V_R8(&variant) = value;
    return variant;
}

/// An event sink that calls a function with the arguments in the order of their declaration.
class Sink final : public ComObject<IDispatch> {
public:
    using Handler = std::function<void(DISPID, std::vector<VARIANT>&)>;
    explicit Sink(Handler handler) : m_handler(std::move(handler)) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        std::vector<VARIANT> values(arguments->rgvarg, arguments->rgvarg + arguments->cArgs);
        std::reverse(values.begin(), values.end());
        m_handler(id, values);
        return S_OK;
    }

private:
    Handler m_handler;
};

/// Connects until the source ends.
inline void Listen(IUnknown* source, const IID& events, Sink::Handler handler) {
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(Query<IConnectionPointContainer>(source)->FindConnectionPoint(events, &point), S_OK);
    const ComPtr<Sink> sink = Adopt(new Sink(std::move(handler)));
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
}

/// A container's bag that keeps what it is given.
class TestBag final : public ComObject<IPropertyBag> {
public:
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto found = values.find(name);
        return found == values.end() ? E_INVALIDARG : VariantCopy(value, &found->second);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        return VariantCopy(&values[name], value);
    }

    std::map<std::wstring, OwnedVariant> values;
};

}  // namespace velmora
