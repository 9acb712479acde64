#include "platform/AutomationError.h"

namespace velmora {

const char* AutomationError::what() const noexcept {
    switch (m_number) {
        case ErrorNumber::InvalidProcedureCall: return "Invalid procedure call or argument";
        case ErrorNumber::Overflow: return "Overflow";
        case ErrorNumber::TypeMismatch: return "Type mismatch";
        case ErrorNumber::InvalidPropertyValue: return "Invalid property value";
        case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
        case ErrorNumber::MemberNotFound: return "Object doesn't support this property or method";
    }
    return "Automation error";
}

}  // namespace velmora
