#include "proppages/PropertyPage.h"

#include "platform/AutomationError.h"

#include <utility>

namespace velmora {
namespace {

std::string TextOf(const Variant& value, const Dates& dates) {
    if (const auto* text = value.As<std::string>()) return *text;
    if (const auto* date = value.As<Date>()) return dates.Format(*date, "Short Date");
    return std::to_string(ToInt32(value));
}

}  // namespace

PropertyPage::PropertyPage(const PageDefinition& definition, std::vector<PageControlRef> controls,
                           PageSite& site, const Dates& dates)
    : m_definition(definition),
      m_controls(std::move(controls)),
      m_site(site),
      m_dates(dates),
      m_loaded(m_controls.size()),
      m_toWrite(m_controls.size()) {
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        if (auto* const list = std::get_if<PageList*>(&m_controls[i])) {
            (*list)->Items(definition.fields[i].items);
        }
    }
}

bool PropertyPage::IsCalendar() const {
    return m_selected && m_selected->TypeName() == "VmCalendar";
}

std::string_view PropertyPage::PropertyOf(const FieldDefinition& field) const {
    return field.boxProperty.empty() || IsCalendar() ? field.property : field.boxProperty;
}

std::span<const std::string_view> PropertyPage::ItemsOf(const FieldDefinition& field) const {
    return field.boxItems == 0 || IsCalendar() ? field.items : field.items.first(field.boxItems);
}

void PropertyPage::SelectionChanged(std::span<AutomationObject* const> selected) {
    m_selected = selected.empty() ? nullptr : selected.front();
    m_loading = true;
    for (std::size_t i = 0; i < m_controls.size(); ++i) Load(i);
    m_loading = false;
    m_site.Changed(false);
}

void PropertyPage::Load(std::size_t index) {
    const FieldDefinition& field = m_definition.fields[index];
    std::visit(
        [&](auto* control) {
            m_loaded[index] = false;
            try {
                if (m_selected) {
                    const Variant value = m_selected->GetMember(PropertyOf(field));
                    Show(field, *control, &value);
                    m_loaded[index] = true;
                }
            } catch (const AutomationError&) {
                // The object has no such property, or none that this control can show.
            }
            control->Enabled(m_loaded[index]);
            if (!m_loaded[index]) Show(field, *control, nullptr);
        },
        m_controls[index]);
}

void PropertyPage::Show(const FieldDefinition& field, PageList& list, const Variant* value) {
    if (field.boxItems != 0) list.Items(ItemsOf(field));
    list.ListIndex(value ? ToInt32(*value) - field.first : -1);
}

void PropertyPage::Show(const FieldDefinition&, PageCheckBox& box, const Variant* value) {
    box.Checked(value && ToBoolean(*value));
}

/// Dates in the locale's short form, anything else as text.
void PropertyPage::Show(const FieldDefinition&, PageText& text, const Variant* value) {
    text.Text(value ? TextOf(*value, m_dates) : std::string());
    text.ForeColor(kValidText);
}

void PropertyPage::Show(const FieldDefinition&, PageChoice& choice, const Variant* value) {
    choice.Value(value ? *value : Variant());
}

bool PropertyPage::ApplyChanges() {
    m_complained = false;
    for (std::size_t i = 0; i < m_controls.size(); ++i) m_toWrite[i] = m_loaded[i] && !IsKept(i);
    std::exception_ptr firstError, refusal;
    const auto keep = [&firstError](const std::exception_ptr& error) {
        if (!firstError) firstError = error;
    };
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        const bool again = std::exchange(refusal, Store(i)) != nullptr;
        if (again) keep(Store(i - 1));  // as the latest date makes room for the earliest
    }
    keep(refusal);
    if (firstError) std::rethrow_exception(firstError);
    if (!m_complained) m_site.Changed(false);
    return !m_complained;
}

/// Returns the object's refusal, or null.
std::exception_ptr PropertyPage::Store(std::size_t index) {
    if (!m_loaded[index] || !m_toWrite[index]) return nullptr;
    try {
        std::visit([&](auto* control) { Store(m_definition.fields[index], *control); },
                   m_controls[index]);
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

void PropertyPage::Store(const FieldDefinition& field, const PageList& list) {
    if (list.ListIndex() >= 0) Write(field, std::int32_t{list.ListIndex() + field.first});
}

void PropertyPage::Store(const FieldDefinition& field, const PageCheckBox& box) {
    Write(field, box.Checked());
}

void PropertyPage::Store(const FieldDefinition& field, const PageChoice& choice) {
    Write(field, choice.Value());
}

/// A text is red until it has been taken.
void PropertyPage::Store(const FieldDefinition& field, PageText& text) {
    text.ForeColor(kInvalidText);
    const std::string fault = FaultOf(field, text.Text());
    if (!fault.empty()) {
        m_complained = true;
        m_site.MessageBox(fault);
        return;
    }
    Write(field, text.Text());
    text.ForeColor(kValidText);
}

/// Whether a date field shows the day that the object has: written, the date would lose its time of
/// day, and a limit could not move it.
bool PropertyPage::IsKept(std::size_t index) const {
    const FieldDefinition& field = m_definition.fields[index];
    if (field.kind != FieldKind::Date) return false;
    const auto shown = m_dates.TryParse(std::get<PageText*>(m_controls[index])->Text());
    const Variant value = m_selected->GetMember(PropertyOf(field));
    return shown && shown == m_dates.TryParse(TextOf(value, m_dates));
}

/// In the user's language, with the value in place of "%1".
std::string PropertyPage::Message(std::string_view text, std::string_view value) const {
    constexpr std::string_view kPlace = "%1";
    std::string message = m_site.Translated(text);
    if (const auto at = message.find(kPlace); at != std::string::npos) {
        message.replace(at, kPlace.size(), value);
    }
    return message;
}

std::string PropertyPage::FaultOf(const FieldDefinition& field, const std::string& text) const {
    switch (field.kind) {
        case FieldKind::Date:
            if (!text.empty()) return {};
            return Message("Property '%1' cannot be blank", field.property);
        case FieldKind::Number:  // it names the width for the height too; its wording is published
            if (IsNumber(text)) return {};
            return Message("Property 'DropDownWidth' must a number.");
        case FieldKind::Format:
            if (text.empty()) return {};
            try {
                m_dates.Format(m_dates.ToDate(m_selected->GetMember("DateValue")), text);
            } catch (const AutomationError& error) {
                return Message("Invalid Date Format%1", m_site.Translated(error.what()));
            }
            return {};
        default: return {};
    }
}

void PropertyPage::Write(const FieldDefinition& field, const Variant& value) {
    m_selected->LetMember(PropertyOf(field), value);
}

bool PropertyPage::IsValid(const FieldDefinition& field, const std::string& text) const {
    switch (field.kind) {
        case FieldKind::Date: return m_dates.TryParse(text).has_value();
        case FieldKind::Number: return IsNumber(text);
        default: return true;
    }
}

void PropertyPage::OnEdited(std::size_t index) {
    if (m_loading) return;
    if (auto* const text = std::get_if<PageText*>(&m_controls[index])) {
        const bool valid = IsValid(m_definition.fields[index], (*text)->Text());
        (*text)->ForeColor(valid ? kValidText : kInvalidText);
        if (!valid) return;
    }
    m_site.Changed(true);
}

bool IsNumber(std::string_view text) noexcept {
    constexpr std::string_view kDigitsAndPoint = "0123456789.";
    if (text.empty() || text.find('.') != text.rfind('.')) return false;
    const std::string_view rest = text.front() == '-' ? text.substr(1) : text;
    return rest.find_first_not_of(kDigitsAndPoint) == std::string_view::npos;
}

}  // namespace velmora
