#pragma once

#include "platform/dates/Date.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace velmora {

/// Base of everything that a variant refers to: fonts, pictures, days, collections, controls.
class Object {
public:
    virtual ~Object() = default;

protected:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
};

using ObjectRef = std::shared_ptr<Object>;

struct Null {
    friend constexpr bool operator==(Null, Null) = default;
};

/// The published type tags.
enum class VarType : std::uint16_t {
    Empty = 0,
    Null = 1,
    Int16 = 2,
    Int32 = 3,
    Double = 5,
    Date = 7,
    Text = 8,
    Object = 9,
    Boolean = 11,
};

/// A value that carries its type. Text is UTF-8.
class Variant {
public:
    Variant() = default;
    Variant(Null value) : m_value(value) {}
    Variant(std::int16_t value) : m_value(value) {}
    Variant(std::int32_t value) : m_value(value) {}
    /// Colours travel as 32-bit integers.
    Variant(std::uint32_t value) : m_value(static_cast<std::int32_t>(value)) {}
    Variant(double value) : m_value(value) {}
    Variant(Date value) : m_value(value) {}
    Variant(std::string value) : m_value(std::move(value)) {}
    Variant(const char* value) : m_value(std::string(value)) {}
    Variant(bool value) : m_value(value) {}
    Variant(ObjectRef value) : m_value(std::move(value)) {}

    VarType Type() const noexcept;

    /// The value when it has exactly this type, else null. Nothing is converted.
    template <class T>
    const T* As() const noexcept {
        return std::get_if<T>(&m_value);
    }

    /// Objects compare by identity.
    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::variant<std::monostate, Null, std::int16_t, std::int32_t, double, Date, std::string,
                 ObjectRef, bool>
        m_value;
};

}  // namespace velmora
