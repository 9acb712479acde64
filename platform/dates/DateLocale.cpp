#include "platform/dates/DateLocale.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr std::string_view kEndsPlainText = "'dMy";
constexpr std::string_view kEndsQuotedText = "'";

}  // namespace

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
