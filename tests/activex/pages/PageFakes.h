#pragma once

#include "hosts/activex/win32/WinText.h"
#include "tests/activex/objects/ObjectsTest.h"
#include "tests/support/PageScript.h"

#include <ocidl.h>
#include <olectl.h>

namespace velmora {

/// The foreign object as a client has it: members by name, without type information.
class ForeignDispatch final : public ComObject<IDispatch> {
public:
    explicit ForeignDispatch(test::ForeignObject& object) : m_object(object) {}

    std::function<void()> onWrite = [] {};

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const auto found = m_object.values.find(ToUtf8(names[0]));
        if (found == m_object.values.end()) return DISP_E_UNKNOWNNAME;
        ids[0] = static_cast<DISPID>(std::distance(m_object.values.begin(), found));
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        const std::string name = std::next(m_object.values.begin(), id)->first;
        if (flags & DISPATCH_PROPERTYGET) {
            ToComVariant(m_object.GetMember(name), *m_bridge, *result);
            return S_OK;
        }
        try {
            m_object.LetMember(name, FromComVariant(*arguments->rgvarg, *m_bridge));
        } catch (const AutomationError& error) {
            *exception = {};
            exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 380);
            exception->bstrDescription = ToBstr(error.what());
            return DISP_E_EXCEPTION;
        }
        onWrite();
        return S_OK;
    }

private:
    void* Find(REFIID iid) override {
        return iid == IID_IDispatch ? static_cast<IDispatch*>(this) : ComObject::Find(iid);
    }

    test::ForeignObject& m_object;
    std::shared_ptr<ObjectBridge> m_bridge = std::make_shared<ObjectBridge>();
};

/// The frame around a page.
class FrameSite final : public ComObject<IPropertyPageSite> {
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
