#include "platform/stores/Base64.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<std::int16_t, 256> kDigits = [] {
    std::array<std::int16_t, 256> digits{};
    digits.fill(-1);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
        digits[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int16_t>(i);
    }
    return digits;
}();

}  // namespace

std::string ToBase64(std::span<const std::uint8_t> bytes) {
    std::string text;
    text.reserve(Base64Length(bytes.size()));
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;  // 24 bits
        for (std::size_t k = 0; k < 3; ++k) group = group << 8 | (k < count ? bytes[i + k] : 0u);
        for (std::size_t k = 0; k < 4; ++k) {
            text += k <= count ? kAlphabet[group >> (18 - 6 * k) & 63] : '=';
        }
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> FromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    const std::size_t digits = std::min(text.find('='), text.size());
    const std::size_t padding = text.size() - digits;  // 0..2
    if (padding > 2 || text.substr(digits) != std::string_view("==").substr(0, padding)) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t pending = 0;
    int bits = 0;  // of `pending` that are no byte yet: 0..7
    for (const char character : text.substr(0, digits)) {
        const int digit = kDigits[static_cast<unsigned char>(character)];
        if (digit < 0) return std::nullopt;
        pending = (pending << 6 | static_cast<std::uint32_t>(digit)) & 0x3FFF;
        bits += 6;
        if (bits < 8) continue;
        bits -= 8;
        bytes.push_back(static_cast<std::uint8_t>(pending >> bits & 0xFF));
    }
    if ((pending & ((1u << bits) - 1)) != 0) return std::nullopt;
    return bytes;
}

}  // namespace velmora
