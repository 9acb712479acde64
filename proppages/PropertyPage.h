#pragma once

#include "platform/Automation.h"
#include "platform/dates/Dates.h"
#include "proppages/PageControls.h"
#include "proppages/PageDefinitions.h"

#include <exception>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmora {

/// The control of a field, by its kind.
using PageControlRef = std::variant<PageList*, PageCheckBox*, PageText*, PageChoice*>;

/// The logic of a property page: it edits the first of the selected objects, by the names of its
/// properties. A property that the object lacks leaves its control empty and disabled, and is not
/// written.
class PropertyPage {
public:
    /// Fills the lists. The controls stand in the order of the definition's fields, each of its
    /// field's kind, and outlive the page.
    PropertyPage(const PageDefinition& definition, std::vector<PageControlRef> controls,
                 PageSite& site, const Dates& dates);
    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;

    /// Loads the controls from the first object; marks nothing as changed. The objects outlive the
    /// page or its next selection.
    void SelectionChanged(std::span<AutomationObject* const> selected);
    /// Writes every control back, but no date whose day is that of the object. What the object
    /// refuses is tried once more behind the next field and does not keep the rest from being
    /// written; the first refusal is raised at the end. False: the page found fault with a text and
    /// has said so. In both cases the page stays changed, and the text red.
    bool ApplyChanges();

    /// The control of that field has been clicked or edited. A text that is not valid is red and
    /// marks nothing as changed.
    void OnEdited(std::size_t index);

private:
    bool IsCalendar() const;
    std::string_view PropertyOf(const FieldDefinition& field) const;
    std::span<const std::string_view> ItemsOf(const FieldDefinition& field) const;
    bool IsValid(const FieldDefinition& field, const std::string& text) const;

    void Load(std::size_t index);
    void Show(const FieldDefinition& field, PageList& list, const Variant* value);
    void Show(const FieldDefinition& field, PageCheckBox& box, const Variant* value);
    void Show(const FieldDefinition& field, PageText& text, const Variant* value);
    void Show(const FieldDefinition& field, PageChoice& choice, const Variant* value);
    std::exception_ptr Store(std::size_t index);
    void Store(const FieldDefinition& field, const PageList& list);
    void Store(const FieldDefinition& field, const PageCheckBox& box);
    void Store(const FieldDefinition& field, PageText& text);
    void Store(const FieldDefinition& field, const PageChoice& choice);
    bool IsKept(std::size_t index) const;
    void Write(const FieldDefinition& field, const Variant& value);
    /// What is wrong with a text that must not be written; empty for nothing.
    std::string Message(std::string_view text, std::string_view value = {}) const;
    std::string FaultOf(const FieldDefinition& field, const std::string& text) const;

    const PageDefinition& m_definition;
    const std::vector<PageControlRef> m_controls;
    PageSite& m_site;
    const Dates& m_dates;
    AutomationObject* m_selected = nullptr;
    std::vector<bool> m_loaded;   // by field: the object has the property
    std::vector<bool> m_toWrite;  // by field, while changes are applied
    bool m_loading = false;
    bool m_complained = false;
};

/// Whether the page's text boxes take a text as a number: digits with at most one ".", and a "-"
/// only in front. A lone "-" or "." passes.
bool IsNumber(std::string_view text) noexcept;

}  // namespace velmora
