#pragma once

#include "fuzz/FuzzCalendar.h"
#include "model/VmDay.h"
#include "platform/Automation.h"
#include "platform/stores/PropertiesText.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmora::fuzz {

/// A value of any type; of pictures also those with more or fewer pixels than their size says.
Variant TakeValue(ByteReader& bytes);

using Names = std::vector<std::string_view>;
/// What a calendar saves, by the names in its store; and whatever either control has or saves.
const Names& CalendarKeys();
const Names& AllNames();
std::string_view TakeName(ByteReader& bytes, const Names& names = AllNames());

/// Any property of the object, to any value. False when it is refused.
bool Set(AutomationObject& object, ByteReader& bytes);
/// Any decoration.
void Decorate(VmDay& day, ByteReader& bytes);

/// All that a control saves, as text.
template <class Control>
std::string Saved(const Control& control) {
    MemoryBag bag;
    control.WriteProps(bag);
    return FormatProperties(bag);
}

}  // namespace velmora::fuzz
