#include "platform/stores/MemoryBag.h"

#include "platform/Automation.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace velmora {
namespace {

bool IsNumeric(VarType type) {
    switch (type) {
        case VarType::Int16:
        case VarType::Int32:
        case VarType::Double:
        case VarType::Date:
        case VarType::Boolean: return true;
        default: return false;
    }
}

/// Fonts change, pictures do not. Error 13: another object.
Variant Unshared(const Variant& value) {
    const auto* object = value.As<ObjectRef>();
    if (!object || !*object) return value;
    if (const auto font = std::dynamic_pointer_cast<StdFont>(*object)) {
        return ObjectRef(CopyOf(font));
    }
    if (!std::dynamic_pointer_cast<StdPicture>(*object)) RaiseTypeMismatch();
    return value;
}

}  // namespace

bool IsDefaultValue(const Variant& value, const Variant& defaultValue) {
    if (defaultValue.Type() == VarType::Empty) return false;
    if (IsNumeric(value.Type()) && IsNumeric(defaultValue.Type())) {
        return ToDouble(value) == ToDouble(defaultValue);
    }
    return value == defaultValue;
}

Variant MemoryBag::ReadProperty(std::string_view name, const Variant& defaultValue) {
    const auto found = m_slots.find(name);
    return found == m_slots.end() ? defaultValue : Unshared(found->second.value);
}

void MemoryBag::WriteProperty(std::string_view name, const Variant& value,
                              const Variant& defaultValue) {
    Variant copy = Unshared(value);
    const auto found = m_slots.find(name);
    if (IsDefaultValue(value, defaultValue)) {
        if (found != m_slots.end()) m_slots.erase(found);
    } else if (found != m_slots.end()) {
        found->second.value = std::move(copy);
    } else {
        m_slots.emplace(name, Slot{m_nextPlace++, std::move(copy)});
    }
}

void MemoryBag::Keep(std::string name, Variant value) {
    const auto [slot, isNew] = m_slots.try_emplace(std::move(name), Slot{m_nextPlace, {}});
    if (isNew) ++m_nextPlace;
    slot->second.value = std::move(value);
}

std::vector<NamedValue> MemoryBag::Values() const {
    std::vector<const std::pair<const std::string, Slot>*> slots;
    slots.reserve(m_slots.size());
    for (const auto& slot : m_slots) slots.push_back(&slot);
    std::sort(slots.begin(), slots.end(),
              [](const auto* a, const auto* b) { return a->second.place < b->second.place; });
    std::vector<NamedValue> values;
    values.reserve(slots.size());
    for (const auto* slot : slots) values.push_back({slot->first, Unshared(slot->second.value)});
    return values;
}

}  // namespace velmora
