#pragma once

#include "platform/Variant.h"

#include <string_view>

namespace velmora {

/// The container's named values, from one run of its program to the next.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;

    /// The stored value, or `defaultValue` when the name is missing.
    virtual Variant ReadProperty(std::string_view name, const Variant& defaultValue) = 0;
    /// Stores the value; one equal to the default need not be stored. An Empty default stores it in
    /// any case.
    virtual void WriteProperty(std::string_view name, const Variant& value,
                               const Variant& defaultValue) = 0;
};

}  // namespace velmora
