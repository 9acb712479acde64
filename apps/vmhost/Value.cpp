#include "apps/vmhost/Value.h"

#include "hosts/activex/win32/WinText.h"

#include <iomanip>
#include <sstream>

namespace velmora::vmhost {
namespace {

std::string ReadableDate(double dayNumber) {
    SYSTEMTIME time{};
    if (!VariantTimeToSystemTime(dayNumber, &time)) return "date " + std::to_string(dayNumber);
    std::ostringstream text;
    text << std::setfill('0') << std::setw(4) << time.wYear << '-' << std::setw(2) << time.wMonth
         << '-' << std::setw(2) << time.wDay;
    return text.str();
}

std::string WithoutTrailingZeros(double number) {
    std::ostringstream text;
    text << std::setprecision(12) << number;
    return text.str();
}

}  // namespace

Value::Value(bool value) : Value() {
    V_VT(&m_variant) = VT_BOOL;
    V_BOOL(&m_variant) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Value::Value(short value) : Value() {
    V_VT(&m_variant) = VT_I2;
    V_I2(&m_variant) = value;
}

Value::Value(long value) : Value() {
    V_VT(&m_variant) = VT_I4;
    V_I4(&m_variant) = value;
}

Value::Value(double value) : Value() {
    V_VT(&m_variant) = VT_R8;
    V_R8(&m_variant) = value;
}

Value::Value(std::string_view text) : Value() {
    const std::wstring wide = ToWide(text);
    V_VT(&m_variant) = VT_BSTR;
    V_BSTR(&m_variant) = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

Value::Value(IDispatch* object) : Value() {
    V_VT(&m_variant) = VT_DISPATCH;
    V_DISPATCH(&m_variant) = object;
    if (object) object->AddRef();
}

Value Value::Date(double dayNumber) {
    Value value;
    V_VT(&value) = VT_DATE;
    V_DATE(&value) = dayNumber;
    return value;
}

Value Value::CopyOf(const VARIANT& variant) {
    Value value;
    VariantCopyInd(&value, const_cast<VARIANT*>(&variant));
    return value;
}

Value Value::As(VARTYPE type) const {
    Value value;
    if (FAILED(VariantChangeTypeEx(&value, const_cast<VARIANT*>(&m_variant), LOCALE_INVARIANT,
                                   VARIANT_ALPHABOOL, type))) {
        return {};
    }
    return value;
}

long Value::Number() const { return V_I4(&As(VT_I4).Get()); }

double Value::Real() const { return V_R8(&As(VT_R8).Get()); }

std::string Value::Text() const {
    const Value text = As(VT_BSTR);
    if (text.Type() != VT_BSTR) return {};
    return ToUtf8({V_BSTR(&text.Get()), SysStringLen(V_BSTR(&text.Get()))});
}

IUnknown* Value::Object() const {
    return Type() == VT_DISPATCH || Type() == VT_UNKNOWN ? V_UNKNOWN(&m_variant) : nullptr;
}

std::string Readable(const VARIANT& variant) {
    const Value value = Value::CopyOf(variant);
    switch (value.Type()) {
        case VT_EMPTY: return "Empty";
        case VT_NULL: return "Null";
        case VT_DISPATCH:
        case VT_UNKNOWN: return value.Object() ? "object" : "Nothing";
        case VT_DATE: return ReadableDate(V_DATE(&value.Get()));
        case VT_BSTR: return '"' + value.Text() + '"';
        case VT_R4:
        case VT_R8: return WithoutTrailingZeros(value.Real());
        default: return value.Text();
    }
}

}  // namespace velmora::vmhost
