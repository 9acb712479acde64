#pragma once

#include "platform/Hosting.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

struct NamedValue {
    std::string name;
    Variant value;
};

/// Whether a store leaves a value out. Numbers, dates and Booleans compare by their number, True is
/// -1; anything else must be of the same type, objects the same object. An Empty default: never.
bool IsDefaultValue(const Variant& value, const Variant& defaultValue);

/// A store that lasts as long as itself. It keeps copies of fonts, so what happens to a font later
/// does not reach what has been stored, and every reading gives a font of its own.
class MemoryBag : public PropertyBag {
public:
    Variant ReadProperty(std::string_view name, const Variant& defaultValue) override;
    /// A name that was there keeps its place; one whose value is the default now goes.
    /// Error 13: an object other than a font, a picture or none.
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& defaultValue) override;

    /// The same for a value that nobody else has, which is kept without a copy.
    void Keep(std::string name, Variant value);

    std::size_t Count() const noexcept { return m_slots.size(); }
    /// In the order of first writing.
    std::vector<NamedValue> Values() const;

private:
    struct Slot {
        std::size_t place = 0;
        Variant value;
    };

    std::map<std::string, Slot, std::less<>> m_slots;
    std::size_t m_nextPlace = 0;
};

}  // namespace velmora
