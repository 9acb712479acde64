#include "hosts/activex/pages/PropertyPageObject.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/control/ControlClass.h"
#include "hosts/activex/pages/PageForm.h"
#include "hosts/activex/pages/PageKeys.h"
#include "hosts/activex/pages/PageTarget.h"
#include "hosts/activex/win32/WinLocale.h"
#include "hosts/activex/win32/WinText.h"

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <cwchar>
#include <new>
#include <utility>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

Dates DatesOf(LCID locale) { return {SharedDateLocale(locale), LocalNow}; }

/// For a caller who frees it; null when there is no memory.
LPOLESTR CopyText(const std::wstring& text) {
    auto* const copy = static_cast<LPOLESTR>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t)));
    return copy ? std::wcscpy(copy, text.c_str()) : nullptr;
}

/// Whatever calls the object or the site keeps both, and the page: any of them may be taken away
/// by what is called.
class PropertyPageObject final : public ComObject<IPropertyPage2, ISupportErrorInfo> {
public:
    explicit PropertyPageObject(const PageDefinition& definition)
        : m_definition(definition), m_dates(DatesOf(LOCALE_USER_DEFAULT)) {
        MakeForm(LOCALE_USER_DEFAULT);
    }

    STDMETHODIMP SetPageSite(IPropertyPageSite* site) override;
    STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) override;
    STDMETHODIMP Deactivate() override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) override;
    STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) override;
    STDMETHODIMP Show(UINT command) override;
    STDMETHODIMP Move(LPCRECT place) override;
    STDMETHODIMP IsPageDirty() override { return m_form->IsChanged() ? S_OK : S_FALSE; }
    STDMETHODIMP Apply() override;
    STDMETHODIMP Help(LPCOLESTR) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG* message) override;
    STDMETHODIMP EditProperty(DISPID member) override;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == __uuidof(IPropertyPage) || iid == __uuidof(IPropertyPage2) ? S_OK : S_FALSE;
    }

private:
    ~PropertyPageObject() override { m_form->ChangeListener({}); }

    void* Find(REFIID iid) override {
        if (iid == __uuidof(IPropertyPage)) return static_cast<IPropertyPage*>(this);
        return ComObject::Find(iid);
    }
    void MakeForm(LCID locale) {
        m_form = std::make_shared<PageForm>(m_definition, m_dates, locale);
        m_form->ChangeListener([this] { NotifySite(); });
    }
    void Select(std::shared_ptr<PageTarget> target);
    void NotifySite();

    const PageDefinition& m_definition;
    Dates m_dates;
    std::shared_ptr<PageForm> m_form;
    std::shared_ptr<PageTarget> m_target;
    ComPtr<IPropertyPageSite> m_site;
};

STDMETHODIMP PropertyPageObject::SetPageSite(IPropertyPageSite* site) {
    if (site && m_site) return E_UNEXPECTED;
    m_site = site;
    LCID locale = 0;
    if (!site || FAILED(site->GetLocaleID(&locale))) return S_OK;
    return Guard([&] {
        m_dates = DatesOf(locale);
        if (!m_form->Window() && !m_target) MakeForm(locale);
    });
}

STDMETHODIMP PropertyPageObject::Activate(HWND parent, LPCRECT place, BOOL) {
    if (!place) return E_POINTER;
    if (!IsWindow(parent)) return E_INVALIDARG;
    if (m_form->Window()) return E_UNEXPECTED;
    return m_form->Open(parent, *place) ? S_OK : E_FAIL;
}

STDMETHODIMP PropertyPageObject::Deactivate() {
    if (!m_form->Window()) return E_UNEXPECTED;
    m_form->Close();
    return S_OK;
}

STDMETHODIMP PropertyPageObject::GetPageInfo(PROPPAGEINFO* info) {
    if (!info) return E_POINTER;
    *info = {info->cb, CopyText(m_form->Title()), m_form->Size(), CopyText(m_form->Help()), {}, 0};
    return info->pszTitle ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP PropertyPageObject::SetObjects(ULONG count, IUnknown** objects) {
    const ComPtr<IUnknown> self = static_cast<IPropertyPage*>(this);
    if (count == 0) return Guard([&] { Select(nullptr); });
    if (!objects || !objects[0]) return E_POINTER;
    ComPtr<IDispatch> first;
    if (FAILED(objects[0]->QueryInterface(IID_PPV_ARGS(&first)))) return E_NOINTERFACE;
    return Guard([&] { Select(std::make_shared<PageTarget>(*first.Get(), m_dates)); });
}

void PropertyPageObject::Select(std::shared_ptr<PageTarget> target) {
    const auto form = m_form;
    const auto previous = std::exchange(m_target, target);
    AutomationObject* const selected = target.get();
    form->Page().SelectionChanged(
        std::span<AutomationObject* const>(&selected, selected ? std::size_t{1} : 0));
}

STDMETHODIMP PropertyPageObject::Show(UINT command) {
    if (!m_form->Window()) return E_UNEXPECTED;
    if (command != SW_HIDE && command != SW_SHOW && command != SW_SHOWNORMAL) return E_INVALIDARG;
    m_form->Show(static_cast<int>(command));
    return S_OK;
}

STDMETHODIMP PropertyPageObject::Move(LPCRECT place) {
    if (!place) return E_POINTER;
    if (!m_form->Window()) return E_UNEXPECTED;
    MoveWindow(m_form->Window(), place->left, place->top, place->right - place->left,
               place->bottom - place->top, TRUE);
    return S_OK;
}

/// The object may have moved what it was given, as a date to the end of its month: afterwards the
/// page shows what it has. What it has refused stays to be corrected.
STDMETHODIMP PropertyPageObject::Apply() {
    if (!m_target) return E_UNEXPECTED;
    const ComPtr<IUnknown> self = static_cast<IPropertyPage*>(this);
    const auto form = m_form;
    const auto target = m_target;
    bool complete = false;
    const HRESULT applied = Guard([&] {
        complete = form->Page().ApplyChanges();
        if (complete) Select(m_target);
    });
    return SUCCEEDED(applied) && !complete ? E_ABORT : applied;
}

STDMETHODIMP PropertyPageObject::TranslateAccelerator(MSG* message) {
    if (!message) return E_POINTER;
    if (!m_form->Window()) return E_UNEXPECTED;
    const ComPtr<IUnknown> self = static_cast<IPropertyPage*>(this);
    const auto form = m_form;
    switch (PageKeyOf(form->Window(), *message)) {
        case PageKey::None: return S_FALSE;
        case PageKey::ForPage: return IsDialogMessageW(form->Window(), message) ? S_OK : S_FALSE;
        case PageKey::IntoPage: EnterPage(form->Window()); return S_OK;
        case PageKey::ForSite: break;
    }
    const ComPtr<IPropertyPageSite> site = m_site;
    return site && site->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
}

STDMETHODIMP PropertyPageObject::EditProperty(DISPID member) {
    const auto target = m_target;
    if (!target) return E_UNEXPECTED;
    bool found = false;
    const HRESULT asked = Guard([&] {
        found = m_form->FocusOn(
            [&](std::string_view property) { return target->HasMember(property, member); });
    });
    return SUCCEEDED(asked) && !found ? E_INVALIDARG : asked;
}

void PropertyPageObject::NotifySite() {
    const ComPtr<IUnknown> self = static_cast<IPropertyPage*>(this);
    const ComPtr<IPropertyPageSite> site = m_site;
    if (site)
        site->OnStatusChange(m_form->IsChanged() ? PROPPAGESTATUS_DIRTY : PROPPAGESTATUS_CLEAN);
}

const PageDefinition* DefinitionOf(REFCLSID classId) {
    if (classId == kGeneralPage) return &kGeneralPP;
    if (classId == kDayPage) return &kDayPP;
    if (classId == kDropDownPage) return &kDropDownPP;
    if (classId == kLookPage) return &kLookPP;
    return nullptr;
}

}  // namespace

HRESULT CreatePropertyPage(REFCLSID classId, REFIID iid, void** page) noexcept {
    if (!page) return E_POINTER;
    *page = nullptr;
    const PageDefinition* const definition = DefinitionOf(classId);
    if (!definition) return CLASS_E_CLASSNOTAVAILABLE;
    try {
        return Adopt(new PropertyPageObject(*definition))->QueryInterface(iid, page);
    } catch (...) {
        return RefusalOfException();
    }
}

}  // namespace velmora
