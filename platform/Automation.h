#pragma once

#include "platform/FontAndPicture.h"
#include "platform/Values.h"
#include "platform/Variant.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace velmora {

/// An object whose members are reached by their published names, as scripts and property pages do.
class AutomationObject : public Object {
public:
    /// Name of the published class; empty for one that is not published.
    virtual std::string_view TypeName() const { return {}; }
    /// Error 438: no member of that name, or one that cannot be read.
    virtual Variant GetMember(std::string_view name) const = 0;
    /// Error 438 as above; error 13 for a value that does not convert; else the setter's own
    /// errors.
    virtual void LetMember(std::string_view name, const Variant& value) = 0;
    /// The member `Item` of a collection, which takes an index from 1. Error 438: there is none.
    virtual Variant GetItem(std::int16_t index) const;
};

/// Conversions of a value that somebody hands in. Error 13: it does not convert. Error 6: a number
/// too large. Numbers are rounded to the nearest, halves to even; True is -1.
std::int32_t ToInt32(const Variant& value);
bool ToBoolean(const Variant& value);
double ToDouble(const Variant& value);

/// The object in a variant as a `T`; null for Empty, Null and no object. Error 13: another object.
template <class T>
std::shared_ptr<T> ToObject(const Variant& value);

/// To and from the types that properties have. Dates convert without a locale: numbers, not text.
template <class T>
T FromVariant(const Variant& value);
template <class T>
Variant ToVariant(const T& value);

[[noreturn]] void RaiseTypeMismatch();

/// The order of member names, which are the same in any case (ASCII).
constexpr bool PrecedesIgnoringCase(std::string_view a, std::string_view b) noexcept {
    constexpr auto lower = [](char c) {
        return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [=](char x, char y) { return lower(x) < lower(y); });
}

template <class T>
std::shared_ptr<T> ToObject(const Variant& value) {
    if (value.Type() == VarType::Empty || value.Type() == VarType::Null) return nullptr;
    const auto* object = value.As<ObjectRef>();
    if (!object) RaiseTypeMismatch();
    auto result = std::dynamic_pointer_cast<T>(*object);
    if (*object && !result) RaiseTypeMismatch();
    return result;
}

template <class T>
T FromVariant(const Variant& value) {
    if constexpr (std::is_enum_v<T>) {
        return static_cast<T>(ToInt32(value));
    } else if constexpr (std::is_same_v<T, bool>) {
        return ToBoolean(value);
    } else if constexpr (std::is_same_v<T, OLE_COLOR>) {
        return static_cast<OLE_COLOR>(ToInt32(value));
    } else if constexpr (std::is_same_v<T, Date>) {
        const auto* date = value.As<Date>();
        return date ? *date : Date(ToDouble(value));
    } else if constexpr (std::is_same_v<T, FontRef> || std::is_same_v<T, PictureRef>) {
        return ToObject<typename T::element_type>(value);
    } else if constexpr (std::is_same_v<T, std::string>) {
        const auto* text = value.As<std::string>();
        if (!text) RaiseTypeMismatch();
        return *text;
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        return ToInt32(value);
    } else {
        static_assert(std::is_same_v<T, std::int16_t>);
        const std::int32_t number = ToInt32(value);
        return static_cast<std::int16_t>(number == static_cast<std::int16_t>(number) ? number : -1);
    }
}

template <class T>
Variant ToVariant(const T& value) {
    if constexpr (std::is_enum_v<T>) {
        return static_cast<std::int32_t>(value);
    } else if constexpr (std::is_same_v<T, FontRef> || std::is_same_v<T, PictureRef>) {
        return ObjectRef(value);
    } else {
        return value;
    }
}

}  // namespace velmora
