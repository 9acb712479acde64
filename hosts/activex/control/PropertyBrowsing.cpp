#include "hosts/activex/control/PropertyBrowsing.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/win32/WinText.h"
#include "proppages/PageDefinitions.h"

#include <oleauto.h>
#include <olectl.h>

#include <algorithm>

namespace velmora {

using Microsoft::WRL::ComPtr;

STDMETHODIMP PropertyBrowsing::GetDisplayString(DISPID, BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    return S_FALSE;
}

STDMETHODIMP PropertyBrowsing::MapPropertyToPage(DISPID property, CLSID* page) {
    if (!page) return E_POINTER;
    *page = {};
    return Guard([&]() -> HRESULT {
        ComPtr<IDispatch> control;
        ComPtr<ITypeInfo> type;
        BSTR text = nullptr;
        QueryInterface(IID_PPV_ARGS(&control));
        if (FAILED(control->GetTypeInfo(0, 0, &type)) ||
            FAILED(type->GetDocumentation(property, &text, nullptr, nullptr, nullptr))) {
            return DISP_E_MEMBERNOTFOUND;
        }
        const std::string name = ToUtf8({text, SysStringLen(text)});
        SysFreeString(text);
        const std::vector<CLSID> pages = PagesOf(m_class);
        for (const auto& [clsid, definition] : {std::pair(&kGeneralPage, &kGeneralPP),
                                                {&kDayPage, &kDayPP},
                                                {&kDropDownPage, &kDropDownPP},
                                                {&kLookPage, &kLookPP}}) {
            const bool isEdited = std::ranges::any_of(definition->fields, [&](const auto& field) {
                return field.property == name || field.boxProperty == name;
            });
            if (!isEdited || std::ranges::count(pages, *clsid) == 0) continue;
            *page = *clsid;
            return S_OK;
        }
        return PERPROP_E_NOPAGEAVAILABLE;
    });
}

}  // namespace velmora
