#include "platform/TextCut.h"

#include "platform/Drawing.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

// The smallest font has letters of a third of a pixel; marks and joiners have no width at all.
constexpr std::size_t kCharactersPerPixel = 4;
constexpr std::size_t kLeastCharacters = 1024;
constexpr std::size_t kLongestCharacter = 4;  // bytes; damaged text has no other ends

bool Continues(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Where the `count`-th character behind `at` ends.
std::size_t Behind(std::string_view text, std::size_t at, std::size_t count) noexcept {
    for (; count > 0 && at < text.size(); --count) {
        const std::size_t end = std::min(at + kLongestCharacter, text.size());
        do ++at;
        while (at < end && Continues(text[at]));
    }
    return at;
}

/// Where the `count`-th character before `at` begins.
std::size_t Before(std::string_view text, std::size_t at, std::size_t count) noexcept {
    for (; count > 0 && at > 0; --count) {
        const std::size_t begin = at - std::min(at, kLongestCharacter);
        do --at;
        while (at > begin && Continues(text[at]));
    }
    return at;
}

}  // namespace

std::optional<std::string> CutToWidth(std::string_view text, int width, std::uint32_t flags) {
    const std::size_t count =
        kLeastCharacters + kCharactersPerPixel * static_cast<std::size_t>(std::max(width, 0));
    if (text.size() <= 2 * count) return std::nullopt;
    if ((flags & kTextCenter) != 0) {
        const std::size_t begin = Before(text, text.size() / 2, count);
        const std::size_t end = Behind(text, text.size() / 2, count);
        if (begin == 0 && end == text.size()) return std::nullopt;
        return std::string(text.substr(begin, end - begin));
    }
    const std::size_t headEnd = Behind(text, 0, count);
    const std::size_t tailBegin = Before(text, text.size(), count);
    if (headEnd >= tailBegin) return std::nullopt;
    return std::string(text.substr(0, headEnd)).append(text.substr(tailBegin));
}

}  // namespace velmora
