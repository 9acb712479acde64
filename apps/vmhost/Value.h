#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

namespace velmora::vmhost {

/// A VARIANT that clears itself.
class Value {
public:
    Value() noexcept { VariantInit(&m_variant); }
    Value(const Value& other) : Value() { other.CopyTo(m_variant); }
    Value(Value&& other) noexcept : Value() { std::swap(m_variant, other.m_variant); }
    Value& operator=(Value other) noexcept {
        std::swap(m_variant, other.m_variant);
        return *this;
    }
    ~Value() { VariantClear(&m_variant); }

    Value(bool value);
    Value(short value);
    Value(long value);
    Value(int value) : Value(static_cast<long>(value)) {}
    Value(double value);
    Value(std::string_view text);
    Value(const char* text) : Value(std::string_view(text)) {}
    Value(IDispatch* object);
    static Value Date(double dayNumber);
    static Value Color(unsigned long color) { return Value(static_cast<long>(color)); }
    /// A copy that refers to nothing by address.
    static Value CopyOf(const VARIANT& variant);

    VARTYPE Type() const { return V_VT(&m_variant); }
    const VARIANT& Get() const { return m_variant; }
    VARIANT* operator&() { return &m_variant; }
    /// Over what is there.
    HRESULT CopyTo(VARIANT& target) const {
        return VariantCopy(&target, const_cast<VARIANT*>(&m_variant));
    }

    /// As type `type` in the invariant form (English names, point as decimal separator); Empty
    /// where it cannot be converted.
    Value As(VARTYPE type) const;
    long Number() const;
    double Real() const;
    std::string Text() const;
    IUnknown* Object() const;  // null when it is none

private:
    VARIANT m_variant;
};

/// For lists and test output: dates as 2024-03-02, texts in quotes, objects as "object" or
/// "Nothing", a reference as what it refers to.
std::string Readable(const VARIANT& variant);

}  // namespace velmora::vmhost
