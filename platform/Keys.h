#pragma once

#include <cstdint>

namespace velmora {

/// Virtual-key codes that the controls act on.
inline constexpr std::int16_t kKeyEnter = 13;
inline constexpr std::int16_t kKeyAlt = 18;
inline constexpr std::int16_t kKeyEscape = 27;
inline constexpr std::int16_t kKeySpace = 32;
inline constexpr std::int16_t kKeyPageUp = 33;
inline constexpr std::int16_t kKeyPageDown = 34;
inline constexpr std::int16_t kKeyEnd = 35;
inline constexpr std::int16_t kKeyHome = 36;
inline constexpr std::int16_t kKeyLeft = 37;
inline constexpr std::int16_t kKeyUp = 38;
inline constexpr std::int16_t kKeyRight = 39;
inline constexpr std::int16_t kKeyDown = 40;
inline constexpr std::int16_t kKeyF4 = 115;

/// The key that leads the same way in a mirrored window.
constexpr std::int16_t MirroredKey(std::int16_t keyCode) noexcept {
    if (keyCode == kKeyLeft) return kKeyRight;
    return keyCode == kKeyRight ? kKeyLeft : keyCode;
}

/// Bits of a shift state.
inline constexpr std::int16_t kShiftShift = 1;
inline constexpr std::int16_t kShiftCtrl = 2;
inline constexpr std::int16_t kShiftAlt = 4;

/// Bits of the mouse buttons.
inline constexpr std::int16_t kButtonLeft = 1;
inline constexpr std::int16_t kButtonRight = 2;
inline constexpr std::int16_t kButtonMiddle = 4;

}  // namespace velmora
