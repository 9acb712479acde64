#pragma once

#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/win32/WinText.h"

#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velmora {

/// A foreign object: members by name, without type information.
class FakeObject final : public ComObject<IDispatch> {
public:
    std::map<std::wstring, OwnedVariant> members;
    std::set<std::wstring> refused;     // with error 380
    std::vector<std::wstring> written;  // names, in order
    std::function<void()> onWrite = [] {};

    void Set(const wchar_t* name, int value) {
        members[name].vt = VT_I4;
        members[name].lVal = value;
    }
    void SetDate(const wchar_t* name, double value) {
        members[name].vt = VT_DATE;
        members[name].date = value;
    }
    void SetText(const wchar_t* name, const wchar_t* value) {
        members[name].vt = VT_BSTR;
        members[name].bstrVal = SysAllocString(value);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const auto found = members.find(names[0]);
        ids[0] = found == members.end()
                     ? DISPID_UNKNOWN
                     : static_cast<DISPID>(std::distance(members.begin(), found));
        return found == members.end() ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        const auto member = std::next(members.begin(), id);
        if (flags & DISPATCH_PROPERTYGET) return VariantCopy(result, &member->second);
        written.push_back(member->first);
        if (refused.contains(member->first)) {
            *exception = {};
            exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 380);
            exception->bstrDescription = SysAllocString(L"refused");
            return DISP_E_EXCEPTION;
        }
        VariantCopy(&member->second, arguments->rgvarg);
        onWrite();
        return S_OK;
    }

private:
    void* Find(REFIID iid) override {
        return iid == IID_IDispatch ? static_cast<IDispatch*>(this) : ComObject::Find(iid);
    }
};

/// The frame around a page.
class FakeSite final : public ComObject<IPropertyPageSite> {
public:
    LCID locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    std::vector<DWORD> status;
    int keys = 0;  // offered by the page
    std::function<void()> onStatus = [] {};

    STDMETHODIMP OnStatusChange(DWORD flags) override {
        status.push_back(flags);
        onStatus();
        return S_OK;
    }
    STDMETHODIMP GetLocaleID(LCID* id) override {
        *id = locale;
        return S_OK;
    }
    STDMETHODIMP GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) override {
        ++keys;
        return S_OK;
    }
};

}  // namespace velmora
