#pragma once

#include <concepts>
#include <type_traits>

namespace velmora {

/// The quotient rounded down, also of negative values; `divisor` is positive.
template <std::signed_integral T>
constexpr T FloorDiv(T value, std::type_identity_t<T> divisor) noexcept {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

}  // namespace velmora
