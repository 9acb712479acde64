#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

inline constexpr int kSecondsPerDay = 86400;

constexpr bool IsDigit(char character) noexcept { return character >= '0' && character <= '9'; }

constexpr char LowerAscii(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

/// The length of `prefix` when `text` begins with it, else 0. Upper and lower case are the same in
/// the Latin, Greek and Cyrillic alphabets; other bytes, also of broken UTF-8, must be equal.
std::size_t PrefixLength(std::string_view text, std::string_view prefix) noexcept;

/// Bytes of the space or invisible direction mark that `text` begins with, else 0.
std::size_t SpaceLength(std::string_view text) noexcept;

/// The text with the digits of all scripts as ASCII ones.
std::string WithPlainDigits(std::string_view text);

/// Appends a number from 0 with at least that many of the digits that begin with `zero`.
void AppendNumber(std::string& text, int value, int leastDigits, char32_t zero);

/// Bytes of the ending by which a number that `text` goes on behind is an ordinal one, as in "4th"
/// and "1er", else 0.
std::size_t OrdinalLength(std::string_view text) noexcept;

/// Bytes of letters (everything beyond ASCII counts as one, except spaces) that `text` begins with.
std::size_t WordLength(std::string_view text) noexcept;

/// A name of a list, found in a text.
struct FoundName {
    int number = 0;          // from 1; 0 is none
    std::size_t length = 0;  // bytes
};

/// The longest of `names` that `text` begins with, if it is longer than `best`.
template <class Names>
FoundName LongestName(const Names& names, std::string_view text, FoundName best = {}) {
    int number = 0;
    for (const auto& name : names) {
        ++number;
        if (const std::size_t length = PrefixLength(text, name); length > best.length) {
            best = {number, length};
        }
    }
    return best;
}

/// The one name that the whole of `word`, an abbreviation of at least three letters, begins.
template <class Names>
int OnlyNameBeginningWith(const Names& names, std::string_view word) {
    std::size_t letters = 0;
    for (const char byte : word) letters += (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    if (letters < 3) return 0;
    int found = 0;
    int number = 0;
    for (const auto& name : names) {
        ++number;
        if (PrefixLength(name, word) == 0) continue;
        if (found != 0) return 0;
        found = number;
    }
    return found;
}

/// Whether a name of `length` bytes that `text` begins with ends there, where text goes on with
/// something else; not for length 0.
bool EndsName(std::string_view text, std::size_t length) noexcept;

std::string_view TrimmedSpaces(std::string_view text) noexcept;

/// A number as it was written.
struct WrittenNumber {
    int value = 0;   // 0..9999
    int digits = 0;  // with leading zeros, 1..4
};

/// A position in text that goes forward, through any bytes.
class TextCursor {
public:
    /// The text behind `text` must outlive the cursor.
    explicit TextCursor(std::string_view text) noexcept : m_text(text) {}

    bool AtEnd() const noexcept { return m_at == m_text.size(); }
    bool AtDigit() const noexcept { return !AtEnd() && IsDigit(m_text[m_at]); }
    std::size_t Position() const noexcept { return m_at; }
    std::string_view Rest() const noexcept { return m_text.substr(m_at); }

    /// `length` must not exceed the rest.
    void Skip(std::size_t length) noexcept { m_at += length; }
    bool SkipSpaces() noexcept;
    /// One character of `characters`; the character, or 0 when another one stands here.
    char SkipOneOf(std::string_view characters) noexcept;
    /// Up to `mostDigits` (1..4) digits, whatever follows.
    std::optional<WrittenNumber> ReadNumber(int mostDigits) noexcept;

private:
    std::string_view m_text;
    std::size_t m_at = 0;
};

}  // namespace velmora
