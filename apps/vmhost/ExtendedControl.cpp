#include "apps/vmhost/ExtendedControl.h"

#include <array>
#include <cwchar>

namespace velmora::vmhost {
namespace {

enum Members : DISPID { kName = 1, kLeft, kTop, kWidth, kHeight, kObject };
constexpr std::array kNames{L"Name", L"Left", L"Top", L"Width", L"Height", L"Object"};

}  // namespace

STDMETHODIMP ExtendedControl::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ExtendedControl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) {
    if (!names || !ids) return E_POINTER;
    if (count != 1) return DISP_E_UNKNOWNNAME;
    for (std::size_t index = 0; index < kNames.size(); ++index) {
        if (_wcsicmp(names[0], kNames[index]) != 0) continue;
        ids[0] = static_cast<DISPID>(index) + kName;
        return S_OK;
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

Value ExtendedControl::Member(DISPID id) const {
    const RECT& place = m_site->Place();
    switch (id) {
        case kName: return Value(m_site->Name());
        case kLeft: return Value(place.left);
        case kTop: return Value(place.top);
        case kWidth: return Value(place.right - place.left);
        case kHeight: return Value(place.bottom - place.top);
        default: break;
    }
    ComPtr<IDispatch> control;
    if (m_site->Control()) m_site->Control()->QueryInterface(IID_PPV_ARGS(control.GetAddressOf()));
    return Value(control.Get());
}

STDMETHODIMP ExtendedControl::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*,
                                     VARIANT* result, EXCEPINFO*, UINT*) {
    if (id < kName || id > kObject || !(kind & DISPATCH_PROPERTYGET)) return DISP_E_MEMBERNOTFOUND;
    if (!result) return E_POINTER;
    Value value = Member(id);
    VariantInit(result);
    return VariantCopy(result, &value);
}

}  // namespace velmora::vmhost
