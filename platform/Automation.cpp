#include "platform/Automation.h"

#include "platform/AutomationError.h"
#include "platform/stores/NumberText.h"

#include <cmath>
#include <limits>
#include <string>

namespace velmora {
namespace {

double TextToDouble(const std::string& text) {
    double number = 0;
    if (ParseNumber(text, number) != std::errc()) RaiseTypeMismatch();
    return number;
}

}  // namespace

void RaiseTypeMismatch() { throw AutomationError(ErrorNumber::TypeMismatch); }

Variant AutomationObject::GetItem(std::int16_t) const {
    throw AutomationError(ErrorNumber::MemberNotFound);
}

double ToDouble(const Variant& value) {
    if (const auto* whole = value.As<std::int32_t>()) return *whole;
    if (const auto* small = value.As<std::int16_t>()) return *small;
    if (const auto* number = value.As<double>()) return *number;
    if (const auto* date = value.As<Date>()) return date->value;
    if (const auto* flag = value.As<bool>()) return *flag ? -1 : 0;
    if (const auto* text = value.As<std::string>()) return TextToDouble(*text);
    RaiseTypeMismatch();
}

std::int32_t ToInt32(const Variant& value) {
    const double number = std::nearbyint(ToDouble(value));
    if (!(number >= std::numeric_limits<std::int32_t>::min() &&
          number <= std::numeric_limits<std::uint32_t>::max())) {
        throw AutomationError(ErrorNumber::Overflow);
    }
    // Colours with the top bit set may arrive as unsigned numbers.
    return static_cast<std::int32_t>(static_cast<std::int64_t>(number));
}

bool ToBoolean(const Variant& value) {
    if (const auto* flag = value.As<bool>()) return *flag;
    return ToDouble(value) != 0;
}

}  // namespace velmora
