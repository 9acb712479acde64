#pragma once

#include "platform/Automation.h"
#include "platform/Dates.h"
#include "proppages/PageControls.h"

#include <exception>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What the three pages share: they edit the first of the selected objects, by the names of its
/// properties. A property that the object lacks leaves its control empty and disabled, and is not
/// written.
class PropertyPage {
public:
    virtual ~PropertyPage() = default;
    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;

    /// Loads the controls from the first object; marks nothing as changed. The objects outlive the
    /// page or its next selection.
    void SelectionChanged(std::span<AutomationObject* const> selected);
    /// Writes every control back. What the object refuses does not keep the rest from being
    /// written; the first refusal is raised at the end. False: the page found fault with a text and
    /// has said so. In both cases the page stays changed.
    bool ApplyChanges();

    /// A list or a check box has been clicked.
    void OnClick();

protected:
    PropertyPage(PageSite& site, const Dates& dates) : m_dates(dates), m_site(site) {}

    virtual void Load() = 0;
    virtual void Store() = 0;

    const AutomationObject* Selected() const noexcept { return m_selected; }
    bool IsLoading() const noexcept { return m_loading; }
    void MarkChanged();

    /// The property's value is the list index plus `first`.
    void LoadList(PageList& list, std::string_view property, int first = 0);
    void LoadCheck(PageCheckBox& box, std::string_view property);
    /// Dates in the locale's short form, anything else as text.
    void LoadText(PageText& text, std::string_view property);

    void StoreList(const PageList& list, std::string_view property, int first = 0);
    void StoreCheck(const PageCheckBox& box, std::string_view property);
    void StoreText(const PageText& text, std::string_view property);
    /// Tells what is wrong with a text that is not written.
    void Complain(const std::string& message);
    /// Whether the property has been loaded, and so may be written.
    bool Has(std::string_view property) const;

    /// A text has been edited: red and no change while it is not valid.
    void OnText(PageText& text, const std::function<bool(const std::string&)>& isValid);

    const Dates& m_dates;

private:
    bool TryLoad(PageControl& control, std::string_view property,
                 const std::function<void(const Variant&)>& show);
    void Write(std::string_view property, const Variant& value);

    PageSite& m_site;
    AutomationObject* m_selected = nullptr;
    std::vector<std::string_view> m_loaded;  // names of properties that the object has
    bool m_loading = false;
    bool m_complained = false;
    std::exception_ptr m_firstError;
};

}  // namespace velmora
