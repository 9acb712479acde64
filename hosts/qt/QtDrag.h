#pragma once

#include "platform/Hosting.h"

#include <cstdint>

namespace velmora {

/// Effects of a drag, as bits.
inline constexpr std::int32_t kDropNone = 0;
inline constexpr std::int32_t kDropCopy = 1;
inline constexpr std::int32_t kDropMove = 2;

inline constexpr std::int16_t kTextFormat = 1;

/// An empty data object that holds what is put into it.
DataRef MakeDataObject();

/// Drags the object's text until the user drops it, and returns the effect. Without text, or
/// without an effect that is allowed, nothing is dragged.
std::int32_t RunDrag(const DataObject& data, std::int32_t allowedEffects);

}  // namespace velmora
