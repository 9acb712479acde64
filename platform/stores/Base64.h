#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Bytes as text, RFC 4648 with padding, in one line.
std::string ToBase64(std::span<const std::uint8_t> bytes);
/// Nothing for text that `ToBase64` cannot have made.
std::optional<std::vector<std::uint8_t>> FromBase64(std::string_view text);

constexpr std::size_t Base64Length(std::size_t bytes) noexcept { return (bytes + 2) / 3 * 4; }

}  // namespace velmora
