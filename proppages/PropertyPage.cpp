#include "proppages/PropertyPage.h"

#include "platform/AutomationError.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

std::string TextOf(const Variant& value, const Dates& dates) {
    if (const auto* text = value.As<std::string>()) return *text;
    if (const auto* date = value.As<Date>()) return dates.Format(*date, "Short Date");
    return std::to_string(ToInt32(value));
}

}  // namespace

void PropertyPage::SelectionChanged(std::span<AutomationObject* const> selected) {
    m_selected = selected.empty() ? nullptr : selected.front();
    m_loaded.clear();
    m_loading = true;
    Load();
    m_loading = false;
    m_site.Changed(false);
}

bool PropertyPage::ApplyChanges() {
    m_firstError = nullptr;
    m_complained = false;
    Store();
    if (m_firstError) std::rethrow_exception(std::exchange(m_firstError, nullptr));
    if (!m_complained) m_site.Changed(false);
    return !m_complained;
}

void PropertyPage::Complain(const std::string& message) {
    m_complained = true;
    m_site.MessageBox(message);
}

void PropertyPage::OnClick() { MarkChanged(); }

void PropertyPage::MarkChanged() {
    if (!m_loading) m_site.Changed(true);
}

bool PropertyPage::Has(std::string_view property) const {
    return std::find(m_loaded.begin(), m_loaded.end(), property) != m_loaded.end();
}

bool PropertyPage::TryLoad(PageControl& control, std::string_view property,
                           const std::function<void(const Variant&)>& show) {
    bool known = false;
    try {
        if (m_selected) {
            show(m_selected->GetMember(property));
            known = true;
        }
    } catch (const AutomationError&) {
        // The object has no such property, or none that this control can show.
    }
    if (known) m_loaded.push_back(property);
    control.Enabled(known);
    return known;
}

void PropertyPage::LoadList(PageList& list, std::string_view property, int first) {
    if (!TryLoad(list, property,
                 [&](const Variant& value) { list.ListIndex(ToInt32(value) - first); })) {
        list.ListIndex(-1);
    }
}

void PropertyPage::LoadCheck(PageCheckBox& box, std::string_view property) {
    if (!TryLoad(box, property, [&](const Variant& value) { box.Checked(ToBoolean(value)); })) {
        box.Checked(false);
    }
}

void PropertyPage::LoadText(PageText& text, std::string_view property) {
    if (!TryLoad(text, property,
                 [&](const Variant& value) { text.Text(TextOf(value, m_dates)); })) {
        text.Text({});
    }
    text.ForeColor(kValidText);
}

void PropertyPage::StoreList(const PageList& list, std::string_view property, int first) {
    if (list.ListIndex() >= 0) Write(property, std::int32_t{list.ListIndex() + first});
}

void PropertyPage::StoreCheck(const PageCheckBox& box, std::string_view property) {
    Write(property, box.Checked());
}

void PropertyPage::StoreText(const PageText& text, std::string_view property) {
    Write(property, text.Text());
}

void PropertyPage::Write(std::string_view property, const Variant& value) {
    if (!Has(property)) return;
    try {
        m_selected->LetMember(property, value);
    } catch (...) {
        if (!m_firstError) m_firstError = std::current_exception();
    }
}

void PropertyPage::OnText(PageText& text, const std::function<bool(const std::string&)>& isValid) {
    const bool valid = isValid(text.Text());
    text.ForeColor(valid ? kValidText : kInvalidText);
    if (valid) MarkChanged();
}

}  // namespace velmora
