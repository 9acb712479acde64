#include "platform/dates/DateLocale.h"

#include <algorithm>
#include <set>

namespace velmora {
namespace {

constexpr std::string_view kEndsPlainText = "'dMy";
constexpr std::string_view kEndsQuotedText = "'";

/// The first character of UTF-8 text.
std::string_view FirstLetter(std::string_view text) noexcept {
    std::size_t length = std::min<std::size_t>(text.size(), 1);
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
        ++length;
    }
    return text.substr(0, length);
}

}  // namespace

std::string LetterOf(const DateLocale& locale, std::size_t weekDay) {
    constexpr std::size_t kFew = 3;
    std::set<std::string_view> letters;
    for (const std::string& name : locale.weekDayNames) letters.insert(FirstLetter(name));
    const std::string& own = locale.weekDayLetters[weekDay];
    if (letters.size() <= kFew && !own.empty()) return own;
    return std::string(FirstLetter(locale.weekDayNames[weekDay]));
}

std::optional<PatternPiece> PatternReader::Next() noexcept {
    while (m_at < m_pattern.size()) {
        if (m_pattern[m_at] != '\'') {
            if (m_quoted) return Text(kEndsQuotedText);
            return kEndsPlainText.find(m_pattern[m_at]) == std::string_view::npos
                       ? Text(kEndsPlainText)
                       : Field();
        }
        if (m_pattern.substr(m_at, 2) == "''") {
            m_at += 2;
            return PatternPiece{0, 0, m_pattern.substr(m_at - 1, 1)};
        }
        m_quoted = !m_quoted;
        ++m_at;
    }
    return std::nullopt;
}

PatternPiece PatternReader::Field() noexcept {
    constexpr std::size_t kLongestField = 4;
    const std::size_t end = std::min(m_pattern.find_first_not_of(m_pattern[m_at], m_at),
                                     std::min(m_at + kLongestField, m_pattern.size()));
    const std::string_view text = m_pattern.substr(m_at, end - m_at);
    m_at = end;
    return {text.front(), static_cast<int>(text.size()), text};
}

PatternPiece PatternReader::Text(std::string_view endings) noexcept {
    const std::size_t end = std::min(m_pattern.find_first_of(endings, m_at), m_pattern.size());
    const std::string_view text = m_pattern.substr(m_at, end - m_at);
    m_at = end;
    return {0, 0, text};
}

}  // namespace velmora
