#pragma once

#include "calendar/PropertyRows.h"
#include "platform/Automation.h"
#include "platform/Hosting.h"
#include "platform/dates/Dates.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace velmora {

/// One step of saving and reading the properties that live in a `Storage`.
template <class Storage>
struct SavedProperty {
    std::string_view key;
    Saved saved;
    Variant (*get)(const Storage&);
    Variant (*defaultIn)(const Storage& defaults);
    /// Error 13 or 6: a value of the wrong type.
    void (*store)(const Storage&, const Variant&, const Dates&);
};

/// Small numbers are saved as 32-bit integers.
template <class T>
Variant ToSaved(const T& value) {
    if constexpr (std::is_same_v<T, std::int16_t>) {
        return std::int32_t{value};
    } else {
        return ToVariant(value);
    }
}

/// Dates may be text, as somebody writes them into a page.
template <class T>
T FromSaved(const Variant& value, const Dates& dates) {
    if constexpr (std::is_same_v<T, Date>) {
        const auto* text = value.As<std::string>();
        if (const auto date = text ? dates.TryParse(*text) : std::nullopt) return *date;
    }
    return FromVariant<T>(value);
}

/// A font that is taken as the default becomes a copy: each property has a font of its own.
template <class T>
T OwnCopy(const T& value) {
    if constexpr (std::is_same_v<T, FontRef>) {
        return CopyOf(value);
    } else {
        return value;
    }
}

/// A value equal to its default need not be stored, unless its row wants it stored in any case.
template <class Storage>
void WriteProperties(PropertyBag& bag, std::span<const SavedProperty<Storage>> properties,
                     const Storage& from, const Storage& defaults) {
    for (const auto& property : properties) {
        bag.WriteProperty(
            property.key, property.get(from),
            property.saved == Saved::Always ? Variant() : property.defaultIn(defaults));
    }
}

/// Takes what is stored without the setters' checks. A value of the wrong type counts as missing.
template <class Storage>
void ReadProperties(PropertyBag& bag, std::span<const SavedProperty<Storage>> properties,
                    const Storage& to, const Storage& defaults, const Dates& dates) {
    for (const auto& property : properties) {
        const Variant fallback = property.defaultIn(defaults);
        try {
            property.store(to, bag.ReadProperty(property.key, fallback), dates);
        } catch (const AutomationError&) {
            property.store(to, fallback, dates);
        }
    }
}

}  // namespace velmora
