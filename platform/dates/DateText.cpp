#include "platform/dates/DateText.h"

#include <algorithm>

namespace velmora {
namespace {

struct Character {
    char32_t code = 0;
    std::size_t length = 0;  // bytes
};

constexpr bool Within(char32_t code, char32_t first, char32_t last) noexcept {
    return code >= first && code <= last;
}

// The simple pairs of upper and lower case among U+0080..U+07FF; both of a pair take two bytes, so
// folding never changes the length of a text.
constexpr char32_t FoldTwoByte(char32_t code) noexcept {
    if (Within(code, 0xC0, 0xDE) && code != 0xD7) return code + 0x20;
    if (Within(code, 0x100, 0x12F) || Within(code, 0x132, 0x137) || Within(code, 0x14A, 0x177)) {
        return code | 1;
    }
    if (Within(code, 0x139, 0x148) || Within(code, 0x179, 0x17E)) return code + (code & 1);
    if (code == 0x386) return 0x3AC;
    if (Within(code, 0x388, 0x38A)) return code + 37;
    if (code == 0x38C) return 0x3CC;
    if (Within(code, 0x38E, 0x38F)) return code + 63;
    if (Within(code, 0x391, 0x3AB)) return code + 0x20;
    if (code == 0x3C2) return 0x3C3;  // the sigma that ends a word
    if (Within(code, 0x400, 0x40F)) return code + 0x50;
    if (Within(code, 0x410, 0x42F)) return code + 0x20;
    if (Within(code, 0x460, 0x481) || Within(code, 0x48A, 0x4BF)) return code | 1;
    return code;
}

// Bytes that are no complete two-byte character count singly, above all characters.
Character FoldedAt(std::string_view text, std::size_t at) noexcept {
    constexpr char32_t kBareByte = 0x110000;
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) return {static_cast<unsigned char>(LowerAscii(text[at])), 1};
    if (lead >= 0xC2 && lead <= 0xDF && at + 1 < text.size()) {
        const auto next = static_cast<unsigned char>(text[at + 1]);
        if ((next & 0xC0) == 0x80) return {FoldTwoByte((lead & 0x1Fu) << 6 | (next & 0x3Fu)), 2};
    }
    return {kBareByte + lead, 1};
}

/// Where the ten digits of each script begin, in order.
constexpr char32_t kZeroDigits[] = {0x0660, 0x06F0, 0x07C0, 0x0966, 0x09E6, 0x0A66,  0x0AE6, 0x0B66,
                                    0x0BE6, 0x0C66, 0x0CE6, 0x0D66, 0x0E50, 0x0ED0,  0x0F20, 0x1040,
                                    0x1090, 0x17E0, 0x1810, 0x1946, 0x1C40, 0x1C50,  0xA620, 0xA8D0,
                                    0xA9D0, 0xA9F0, 0xAA50, 0xABF0, 0xFF10, 0x11136, 0x1E950};

/// The character that `text` begins with; code 0 and one byte for what is none.
Character CharacterAt(std::string_view text) noexcept {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 1 || length > text.size()) return {lead < 0x80 ? lead : char32_t{0}, 1};
    char32_t code = lead & (0x7Fu >> length);
    for (const char byte : text.substr(1, length - 1)) {
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) return {0, 1};
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
    }
    return {code, length};
}

void AppendCharacter(std::string& text, char32_t code) {
    const auto append = [&](char32_t bits) { text += static_cast<char>(bits); };
    if (code < 0x80) return append(code);
    if (code < 0x800) {
        append(0xC0 | code >> 6);
    } else {
        append(code < 0x10000 ? 0xE0 | code >> 12 : 0xF0 | code >> 18);
        if (code >= 0x10000) append(0x80 | (code >> 12 & 0x3F));
        append(0x80 | (code >> 6 & 0x3F));
    }
    append(0x80 | (code & 0x3F));
}

constexpr bool IsAsciiLetter(char character) noexcept {
    return LowerAscii(character) >= 'a' && LowerAscii(character) <= 'z';
}

}  // namespace

std::size_t PrefixLength(std::string_view text, std::string_view prefix) noexcept {
    if (text.size() < prefix.size()) return 0;
    for (std::size_t at = 0; at < prefix.size();) {
        const Character wanted = FoldedAt(prefix, at);
        if (FoldedAt(text, at).code != wanted.code) return 0;
        at += wanted.length;
    }
    return prefix.size();
}

std::size_t SpaceLength(std::string_view text) noexcept {
    if (text.empty()) return 0;
    if (text[0] == ' ' || (text[0] >= '\t' && text[0] <= '\r')) return 1;
    // No-break space and Arabic letter mark; spaces of typography, direction marks, the narrow
    // no-break space, the ideographic space.
    if (text.substr(0, 2) == "\xC2\xA0" || text.substr(0, 2) == "\xD8\x9C") return 2;
    if (text.size() < 3) return 0;
    const auto last = static_cast<unsigned char>(text[2]);
    const bool wide = text.substr(0, 3) == "\xE3\x80\x80";
    const bool general =
        text.substr(0, 2) == "\xE2\x80" && ((last >= 0x80 && last <= 0x8F) || last == 0xAF);
    return wide || general ? 3 : 0;
}

std::string WithPlainDigits(std::string_view text) {
    const auto isAscii = [](char character) {
        return static_cast<unsigned char>(character) < 0x80;
    };
    if (std::all_of(text.begin(), text.end(), isAscii)) return std::string(text);
    std::string plain;
    while (!text.empty()) {
        const Character character = CharacterAt(text);
        const auto* const end =
            std::upper_bound(std::begin(kZeroDigits), std::end(kZeroDigits), character.code);
        const char32_t zero = end == std::begin(kZeroDigits) ? 0 : *(end - 1);
        if (zero != 0 && character.code < zero + 10) {
            plain += static_cast<char>('0' + (character.code - zero));
        } else {
            plain += text.substr(0, character.length);
        }
        text.remove_prefix(character.length);
    }
    return plain;
}

void AppendNumber(std::string& text, int value, int leastDigits, char32_t zero) {
    int power = 1;
    for (int digits = 1; digits < leastDigits || value / power >= 10; ++digits) power *= 10;
    for (; power > 0; power /= 10) {
        AppendCharacter(text, zero + static_cast<char32_t>(value / power % 10));
    }
}

std::size_t OrdinalLength(std::string_view text) noexcept {
    constexpr std::string_view kEndings[] = {"st", "nd", "rd", "th", "er", "re", "e",  "ème",
                                             "º",  ".º", "ª",  ".ª", "r",  "η",  "-го"};
    for (const std::string_view ending : kEndings) {
        const std::size_t length = PrefixLength(text, ending);
        if (EndsName(text, length) && (length == text.size() || !IsDigit(text[length]))) {
            return length;
        }
    }
    return 0;
}

std::size_t WordLength(std::string_view text) noexcept {
    std::size_t length = 0;
    while (length < text.size()) {
        const bool beyondAscii = static_cast<unsigned char>(text[length]) >= 0x80;
        if (!beyondAscii && !IsAsciiLetter(text[length])) break;
        if (beyondAscii && SpaceLength(text.substr(length)) != 0) break;
        ++length;
    }
    return length;
}

bool EndsName(std::string_view text, std::size_t length) noexcept {
    if (length == 0 || length == text.size()) return length != 0;
    if (IsDigit(text[length - 1])) return !IsDigit(text[length]);
    return WordLength(text.substr(length)) == 0;
}

std::string_view TrimmedSpaces(std::string_view text) noexcept {
    while (const std::size_t space = SpaceLength(text)) text.remove_prefix(space);
    for (std::size_t last = 1; last <= std::min<std::size_t>(3, text.size());) {
        if (SpaceLength(text.substr(text.size() - last)) == last) {
            text.remove_suffix(last);
            last = 1;
        } else {
            ++last;
        }
    }
    return text;
}

bool TextCursor::SkipSpaces() noexcept {
    const std::size_t before = m_at;
    while (const std::size_t space = SpaceLength(Rest())) m_at += space;
    return m_at != before;
}

char TextCursor::SkipOneOf(std::string_view characters) noexcept {
    if (AtEnd() || characters.find(m_text[m_at]) == std::string_view::npos) return 0;
    return m_text[m_at++];
}

std::optional<WrittenNumber> TextCursor::ReadNumber(int mostDigits) noexcept {
    WrittenNumber number;
    while (number.digits < mostDigits && AtDigit()) {
        number.value = number.value * 10 + (m_text[m_at] - '0');
        ++number.digits;
        ++m_at;
    }
    return number.digits == 0 ? std::nullopt : std::optional(number);
}

}  // namespace velmora
