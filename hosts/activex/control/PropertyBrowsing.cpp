#include "hosts/activex/control/PropertyBrowsing.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComVariant.h"
#include "proppages/PageDefinitions.h"
#include "proppages/PropertyGroups.h"

#include <oleauto.h>
#include <olectl.h>

#include <algorithm>

namespace velmora {

using Microsoft::WRL::ComPtr;

std::string PropertyBrowsing::NameOf(DISPID property) {
    ComPtr<IDispatch> control;
    ComPtr<ITypeInfo> type;
    BSTR text = nullptr;
    QueryInterface(IID_PPV_ARGS(&control));
    if (SUCCEEDED(control->GetTypeInfo(0, 0, &type))) {
        type->GetDocumentation(property, &text, nullptr, nullptr, nullptr);
    }
    std::string name = FromBstr(text);
    SysFreeString(text);
    return name;
}

STDMETHODIMP PropertyBrowsing::GetDisplayString(DISPID, BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    return S_FALSE;
}

STDMETHODIMP PropertyBrowsing::MapPropertyToPage(DISPID property, CLSID* page) {
    if (!page) return E_POINTER;
    *page = {};
    return Guard([&]() -> HRESULT {
        const std::string name = NameOf(property);
        if (name.empty()) return DISP_E_MEMBERNOTFOUND;
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

/// Numbers above 0 are the control's own groups.
STDMETHODIMP PropertyBrowsing::MapPropertyToCategory(DISPID property, int* category) {
    if (!category) return E_POINTER;
    *category = 0;
    return Guard([&]() -> HRESULT {
        const std::string name = NameOf(property);
        if (name.empty()) return E_FAIL;
        *category = static_cast<int>(GroupOf(name)) + 1;
        return S_OK;
    });
}

STDMETHODIMP PropertyBrowsing::GetCategoryName(int category, LCID, BSTR* name) {
    if (!name) return E_POINTER;
    *name = nullptr;
    if (category < 1 || category > static_cast<int>(std::size(kPropertyGroups))) return E_FAIL;
    return Guard([&] { *name = ToBstr(kPropertyGroups[category - 1]); });
}

}  // namespace velmora
