#include "hosts/activex/pages/PageTarget.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/stores/NumberText.h"

#include <optional>
#include <string>

namespace velmora {
namespace {

std::optional<double> NumberOf(const std::string& text) {
    double number = 0;
    if (ParseNumber(text, number) != std::errc()) return {};
    return number;
}

}  // namespace

PageTarget::PageTarget(IDispatch& object, const Dates& dates)
    : m_object(object, *m_objects), m_dates(dates) {}

Variant PageTarget::GetMember(std::string_view name) const {
    try {
        return m_object.GetMember(name);
    } catch (const ComFailure&) {
        throw AutomationError(ErrorNumber::MemberNotFound);
    }
}

void PageTarget::LetMember(std::string_view name, const Variant& value) {
    const auto* const text = value.As<std::string>();
    if (!text) return m_object.LetMember(name, value);
    const Variant present = m_object.GetMember(name);
    if (present.As<Date>()) {
        if (const auto date = m_dates.TryParse(*text)) return m_object.LetMember(name, *date);
    } else if (!present.As<std::string>()) {
        if (const auto number = NumberOf(*text)) return m_object.LetMember(name, *number);
    }
    m_object.LetMember(name, value);
}

bool PageTarget::HasMember(std::string_view name, DISPID id) const {
    std::wstring wide = ToWide(name);
    LPOLESTR names = wide.data();
    DISPID found = DISPID_UNKNOWN;
    return SUCCEEDED(
               m_object.Client()->GetIDsOfNames(GUID{}, &names, 1, LOCALE_USER_DEFAULT, &found)) &&
           found == id;
}

}  // namespace velmora
