#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// What dates look like in one language and region; the host supplies it. Text is UTF-8.
/// The initialisers are English (United States).
struct DateLocale {
    std::array<std::string, 12> monthNames{"January",   "February", "March",    "April",
                                           "May",       "June",     "July",     "August",
                                           "September", "October",  "November", "December"};
    std::array<std::string, 12> monthAbbreviations{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    /// Sunday first.
    std::array<std::string, 7> weekDayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};
    std::array<std::string, 7> weekDayAbbreviations{"Sun", "Mon", "Tue", "Wed",
                                                    "Thu", "Fri", "Sat"};
    /// The shortest ones, of a letter or two; empty where there are none.
    std::array<std::string, 7> weekDayLetters{"S", "M", "T", "W", "T", "F", "S"};
    /// The forms beside the day of the month, where those differ ("marzec", but "15 marca").
    std::array<std::string, 12> monthNamesInDates, monthAbbreviationsInDates;
    std::array<std::string, 7> weekDayNamesInDates, weekDayAbbreviationsInDates;
    /// Patterns of d dd ddd dddd M MM MMM MMMM y yy yyyy, text in single quotes ('' is a quote),
    /// anything else as it stands. Every year is shown with four digits, so that it can be read
    /// again in its own century.
    std::string shortDatePattern = "M/d/yyyy";
    std::string longDatePattern = "dddd, MMMM d, yyyy";
    /// Shown for "/" and ":" in format expressions.
    std::string dateSeparator = "/";
    std::string timeSeparator = ":";
    std::string morning = "AM";
    std::string afternoon = "PM";
    bool hours24 = false;       // how "Long Time" and "General Date" show the time
    char32_t zeroDigit = U'0';  // the first of the ten in which numbers are shown

    friend bool operator==(const DateLocale&, const DateLocale&) = default;
};

/// The first letter of the week day's name, Sunday is 0; where those of most days are the same, as
/// in Chinese and Hebrew, the locale's own.
std::string LetterOf(const DateLocale& locale, std::size_t weekDay);

/// One piece of a locale's pattern: a field, or text that stands for itself.
struct PatternPiece {
    char field = 0;         // 'd', 'M' or 'y'; 0 is text
    int letters = 0;        // of the field, 1..4
    std::string_view text;  // inside the pattern, without quotes

    bool IsNumber() const noexcept { return field == 'y' || (field != 0 && letters <= 2); }
};

/// Takes a pattern apart, from left to right. Total: an unclosed quote ends with the pattern.
class PatternReader {
public:
    /// The text behind `pattern` must outlive the reader and its pieces.
    explicit PatternReader(std::string_view pattern) noexcept : m_pattern(pattern) {}

    /// Nothing at the end.
    std::optional<PatternPiece> Next() noexcept;

private:
    PatternPiece Field() noexcept;
    PatternPiece Text(std::string_view endings) noexcept;

    std::string_view m_pattern;
    std::size_t m_at = 0;
    bool m_quoted = false;
};

}  // namespace velmora
