#pragma once

#include <exception>

namespace velmora {

/// The published error numbers.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,    // a date operation whose result lies outside the years 100..9999
    Overflow = 6,                // integer overflow in date or grid arithmetic
    TypeMismatch = 13,           // a value that does not convert, as text that is no date
    InvalidPropertyValue = 380,  // out of range, colour bits, wrong picture type
    SubscriptOutOfRange = 381,   // a collection index outside 1..Count
    MemberNotFound = 438,        // an object without the member of that name
};

/// A refusal. Thrown before anything has been stored, so the object is as it was.
/// `what()` is the standard text of the number.
class AutomationError : public std::exception {
public:
    explicit AutomationError(ErrorNumber number) noexcept : m_number(number) {}

    const char* what() const noexcept override;
    ErrorNumber Number() const noexcept { return m_number; }

private:
    ErrorNumber m_number;
};

}  // namespace velmora
