#pragma once

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComVariant.h"
#include "platform/Automation.h"

#include <oleauto.h>
#include <windows.h>

#include <string>
#include <type_traits>

namespace velmora {

/// A property's value of the core as its getter in an interface gives it. The caller owns it.
template <class Value, class Out>
void ToClient(const Value& value, ObjectBridge& objects, Out& out) {
    if constexpr (std::is_same_v<Value, Variant>) {
        ToComVariant(value, objects, out);
    } else if constexpr (std::is_same_v<Value, std::string>) {
        out = ToBstr(value);
    } else if constexpr (std::is_same_v<Value, Date>) {
        out = value.value;
    } else if constexpr (std::is_same_v<Value, bool>) {
        out = value ? VARIANT_TRUE : VARIANT_FALSE;
    } else if constexpr (std::is_pointer_v<Out>) {
        const auto object = objects.ToClient(value);
        if (object) Require(object->QueryInterface(IID_PPV_ARGS(&out)));
    } else {
        static_assert(sizeof(Out) == sizeof(Value));
        out = static_cast<Out>(value);
    }
}

/// What a client hands to a setter in an interface, as the core's setter takes it. Error 13: an
/// object of another class.
template <class Value, class In>
Value FromClient(const In& value, ObjectBridge& objects) {
    if constexpr (std::is_same_v<Value, Variant>) {
        return FromComVariant(value, objects);
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return FromBstr(value);
    } else if constexpr (std::is_same_v<Value, bool>) {
        return value != VARIANT_FALSE;
    } else if constexpr (std::is_pointer_v<In>) {
        return ToObject<typename Value::element_type>(objects.FromClient(value));
    } else {
        static_assert(std::is_same_v<Value, Date> || sizeof(In) == sizeof(Value));
        return static_cast<Value>(value);
    }
}

}  // namespace velmora
