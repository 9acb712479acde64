#include "platform/dates/DateParse.h"

#include "platform/dates/DateText.h"

#include <array>

namespace velmora {
namespace {

constexpr std::string_view kSeparators = "/-.,";

constexpr std::array<std::string_view, 12> kEnglishMonths{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<std::string_view, 7> kEnglishWeekDays{
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 7> kEnglishWeekDayAbbreviations{"Sun", "Mon", "Tue", "Wed",
                                                                       "Thu", "Fri", "Sat"};

bool IsYear(WrittenNumber number) { return number.digits > 2 || number.value > 31; }

int YearOf(WrittenNumber number) {
    if (number.digits > 2) return number.value;
    return number.value + (number.value < 30 ? 2000 : 1900);
}

std::optional<DayNumber> DayIfReal(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12) return std::nullopt;
    if (day < 1 || day > detail::DaysIn(year, month)) return std::nullopt;
    return DayFromCivil(year, month, day);
}

/// Where day, month and year stand among the three of a pattern: 0..2.
struct FieldOrder {
    int day = 1, month = 0, year = 2;
};

FieldOrder OrderOf(std::string_view pattern) {
    FieldOrder order;
    int fields = 0;
    bool day = false, month = false, year = false;
    for (PatternReader reader(pattern); const auto piece = reader.Next();) {
        if (piece->field == 'd' && piece->IsNumber() && !day) order.day = fields++, day = true;
        if (piece->field == 'M' && !month) order.month = fields++, month = true;
        if (piece->field == 'y' && !year) order.year = fields++, year = true;
    }
    return fields == 3 ? order : FieldOrder{};
}

/// What a text has been found to hold, before it is known what the numbers mean.
struct Found {
    std::array<WrittenNumber, 3> numbers;
    std::size_t count = 0;
    int month = 0;  // by name; 0 is none
    bool weekDay = false;
    std::optional<int> seconds;  // of the day, 0..86399

    bool HasWholeDate() const { return count == 3 || (count == 2 && month != 0); }
};

/// What a text says: a day, a time of day or both.
struct Written {
    std::optional<DayNumber> day;
    int seconds = 0;
};

/// Reads one date text; its functions move the cursor only over what they could read.
class Parser {
public:
    Parser(const DateLocale& locale, const std::function<DayNumber()>& today)
        : m_locale(locale), m_today(today) {}

    std::optional<Written> Parse(std::string_view text) const;

private:
    enum class TimeSeparators { Colon, ColonAndLocale };

    std::optional<DayNumber> IsoDay(std::string_view text) const;
    std::optional<Written> ByPattern(TextCursor cursor, std::string_view pattern) const;
    std::optional<Written> WithTime(DayNumber day, TextCursor cursor) const;
    bool ReadName(TextCursor& cursor, const PatternPiece& piece, CivilDate& date) const;
    static bool ReadNumber(TextCursor& cursor, const PatternPiece& piece, CivilDate& date);
    static bool ReadText(TextCursor& cursor, std::string_view text);

    std::optional<Written> BySense(TextCursor cursor) const;
    bool ReadElement(TextCursor& cursor, Found& found, bool apart) const;
    bool ReadFoundName(TextCursor& cursor, Found& found) const;
    FoundName FindMonth(std::string_view text) const;
    FoundName WholeMonth(std::string_view text, FoundName best = {}) const;
    FoundName AbbreviatedMonth(std::string_view text, FoundName best = {}) const;
    FoundName FindWeekDay(std::string_view text) const;
    std::size_t PatternWordLength(std::string_view text) const;

    std::optional<DayNumber> DayOf(const Found& found) const;
    std::optional<DayNumber> DayWithMonthName(const Found& found) const;
    std::optional<DayNumber> DayOfTwo(WrittenNumber first, WrittenNumber second) const;
    std::optional<DayNumber> DayOfThree(const std::array<WrittenNumber, 3>& numbers) const;
    std::optional<DayNumber> InLocaleOrder(int year, int first, int second) const;
    int ThisYear() const { return velmora::YearOf(m_today()); }

    std::optional<int> ReadTime(TextCursor& cursor, TimeSeparators separators) const;
    bool SkipTimeSeparator(TextCursor& cursor, TimeSeparators separators) const;
    std::optional<bool> ReadAfternoon(TextCursor& cursor) const;
    std::optional<Written> OnlyTime(TextCursor cursor) const;

    const DateLocale& m_locale;
    const std::function<DayNumber()>& m_today;
};

std::optional<Written> Parser::Parse(std::string_view text) const {
    constexpr std::size_t kLongestText = 512;  // bytes
    text = TrimmedSpaces(text);
    if (text.empty() || text.size() > kLongestText) return std::nullopt;
    if (const auto day = IsoDay(text)) return Written{day};
    const std::string plain = WithPlainDigits(text);
    const TextCursor cursor(plain);
    if (plain != text) {  // it has digits of another script
        if (const auto day = IsoDay(plain)) return Written{day};
    }
    if (const auto date = ByPattern(cursor, m_locale.shortDatePattern)) return date;
    if (const auto date = ByPattern(cursor, m_locale.longDatePattern)) return date;
    if (const auto date = BySense(cursor)) return date;
    return OnlyTime(cursor);
}

/// "2023-03-15": that in every locale but those that write the day before the month behind a year.
/// It could be found below too, after most other ways have been tried.
std::optional<DayNumber> Parser::IsoDay(std::string_view text) const {
    constexpr std::size_t kLength = 10;
    if (text.size() != kLength || text[4] != '-' || text[7] != '-') return std::nullopt;
    TextCursor cursor(text);
    const auto year = cursor.ReadNumber(4);
    cursor.Skip(1);
    const auto month = cursor.ReadNumber(2);
    cursor.Skip(1);
    const auto day = cursor.ReadNumber(2);
    if (!year || !month || !day || !cursor.AtEnd()) return std::nullopt;
    const std::string& pattern = m_locale.shortDatePattern;
    const std::size_t field = pattern.find_first_of("dMy");
    if (field != std::string::npos && pattern[field] == 'y') {
        const FieldOrder order = OrderOf(pattern);
        if (order.day < order.month) return std::nullopt;
    }
    return DayIfReal(year->value, month->value, day->value);
}

// By a pattern: every field in its place. Separators may be other ones, spaces more or fewer.

std::optional<Written> Parser::ByPattern(TextCursor cursor, std::string_view pattern) const {
    CivilDate date;
    bool apart = false;  // the pattern has text before the next field
    std::size_t fieldEnd = 0;
    for (PatternReader reader(pattern); const auto piece = reader.Next();) {
        if (piece->field == 0) {
            if (!ReadText(cursor, piece->text)) return std::nullopt;
            apart = true;
            continue;
        }
        if (piece->IsNumber() && apart && cursor.Position() == fieldEnd && fieldEnd != 0) {
            return std::nullopt;
        }
        const bool read =
            piece->IsNumber() ? ReadNumber(cursor, *piece, date) : ReadName(cursor, *piece, date);
        if (!read) return std::nullopt;
        apart = false;
        fieldEnd = cursor.Position();
    }
    const auto day = DayIfReal(date.year, date.month, date.day);
    return day ? WithTime(*day, cursor) : std::nullopt;
}

/// The day and the time behind it, if any.
std::optional<Written> Parser::WithTime(DayNumber day, TextCursor cursor) const {
    if (cursor.AtEnd()) return Written{day};
    const bool comma = cursor.SkipOneOf(",") != 0;
    if (!cursor.SkipSpaces() && !comma && !cursor.SkipOneOf("Tt")) return std::nullopt;
    const auto seconds = ReadTime(cursor, TimeSeparators::ColonAndLocale);
    if (!seconds || !cursor.AtEnd()) return std::nullopt;
    return Written{day, *seconds};
}

bool Parser::ReadName(TextCursor& cursor, const PatternPiece& piece, CivilDate& date) const {
    FoundName name;
    if (piece.field == 'd') {
        name = FindWeekDay(cursor.Rest());
    } else {
        const bool whole = piece.letters == 4;
        name = whole ? WholeMonth(cursor.Rest()) : AbbreviatedMonth(cursor.Rest());
        if (name.number == 0) {
            name = whole ? AbbreviatedMonth(cursor.Rest()) : WholeMonth(cursor.Rest());
        }
        date.month = name.number;
    }
    cursor.Skip(name.length);
    return name.number != 0;
}

bool Parser::ReadNumber(TextCursor& cursor, const PatternPiece& piece, CivilDate& date) {
    const auto number = cursor.ReadNumber(piece.field == 'y' ? 4 : 2);
    if (!number) return false;
    switch (piece.field) {
        case 'd': date.day = number->value; break;
        case 'M': date.month = number->value; break;
        default: date.year = YearOf(*number); break;
    }
    return true;
}

// The text at the end of a pattern ("2. 3. 2024.") may be missing.
bool Parser::ReadText(TextCursor& cursor, std::string_view text) {
    while (!text.empty()) {
        cursor.SkipSpaces();
        if (cursor.AtEnd()) return true;
        if (const std::size_t space = SpaceLength(text)) {
            text.remove_prefix(space);
            continue;
        }
        const std::size_t word = WordLength(text);
        const std::size_t length = word != 0 ? word : 1;
        if (const std::size_t same = PrefixLength(cursor.Rest(), text.substr(0, length))) {
            cursor.Skip(same);
        } else if (kSeparators.find(text[0]) == std::string_view::npos ||
                   !cursor.SkipOneOf(kSeparators)) {
            return false;
        }
        text.remove_prefix(length);
    }
    cursor.SkipSpaces();
    return true;
}

// By sense: numbers, names and a time in any sensible order, one separator between two of them.

std::optional<Written> Parser::BySense(TextCursor cursor) const {
    Found found;
    for (bool apart = true;;) {
        if (!ReadElement(cursor, found, apart)) return std::nullopt;
        if (cursor.AtEnd()) break;
        apart = cursor.SkipSpaces();
        char separator = cursor.SkipOneOf(kSeparators);
        apart |= separator != 0 && cursor.SkipSpaces();
        if (separator == '.' && cursor.SkipOneOf(",")) {  // behind an abbreviation
            separator = ',';
            cursor.SkipSpaces();
        }
        apart |= separator == ',';
        if (cursor.AtEnd() && separator != '.') return std::nullopt;
        if (cursor.AtEnd()) break;
    }
    const bool hasDate = found.count != 0 || found.month != 0 || found.weekDay;
    const int seconds = found.seconds.value_or(0);
    if (!hasDate) return found.seconds ? std::optional(Written{{}, seconds}) : std::nullopt;
    const auto day = DayOf(found);
    return day ? std::optional(Written{day, seconds}) : std::nullopt;
}

/// `apart`: what was read before cannot be part of a time that begins here.
bool Parser::ReadElement(TextCursor& cursor, Found& found, bool apart) const {
    const bool letterT = found.HasWholeDate() && !apart && cursor.SkipOneOf("Tt");
    if ((apart || letterT) && !found.seconds) {
        found.seconds = ReadTime(
            cursor, found.HasWholeDate() ? TimeSeparators::ColonAndLocale : TimeSeparators::Colon);
        if (found.seconds) return true;
    }
    if (letterT) return false;
    if (ReadFoundName(cursor, found)) return true;
    const auto number = cursor.ReadNumber(4);
    if (!number || cursor.AtDigit() || found.count == found.numbers.size()) return false;
    found.numbers[found.count++] = *number;
    if (number->digits <= 2) cursor.Skip(OrdinalLength(cursor.Rest()));
    return true;
}

bool Parser::ReadFoundName(TextCursor& cursor, Found& found) const {
    if (const FoundName month = FindMonth(cursor.Rest()); month.number != 0 && found.month == 0) {
        found.month = month.number;
        cursor.Skip(month.length);
        return true;
    }
    const FoundName weekDay = FindWeekDay(cursor.Rest());
    if (weekDay.number != 0 && !found.weekDay && EndsName(cursor.Rest(), weekDay.length)) {
        found.weekDay = true;
        cursor.Skip(weekDay.length);
        return true;
    }
    const std::size_t word = PatternWordLength(cursor.Rest());
    cursor.Skip(word);
    return word != 0;
}

FoundName Parser::FindMonth(std::string_view text) const {
    FoundName name = AbbreviatedMonth(text, WholeMonth(text));
    name = LongestName(kEnglishMonths, text, name);
    if (EndsName(text, name.length)) return name;
    const std::size_t length = WordLength(text);
    const std::string_view word = text.substr(0, length);
    if (const int number = OnlyNameBeginningWith(m_locale.monthNames, word)) {
        return {number, length};
    }
    const int number = OnlyNameBeginningWith(kEnglishMonths, word);
    return {number, number != 0 ? length : 0};
}

FoundName Parser::WholeMonth(std::string_view text, FoundName best) const {
    best = LongestName(m_locale.monthNames, text, best);
    return LongestName(m_locale.monthNamesInDates, text, best);
}

FoundName Parser::AbbreviatedMonth(std::string_view text, FoundName best) const {
    best = LongestName(m_locale.monthAbbreviations, text, best);
    return LongestName(m_locale.monthAbbreviationsInDates, text, best);
}

FoundName Parser::FindWeekDay(std::string_view text) const {
    FoundName name = LongestName(m_locale.weekDayNames, text);
    name = LongestName(m_locale.weekDayNamesInDates, text, name);
    name = LongestName(m_locale.weekDayAbbreviations, text, name);
    name = LongestName(m_locale.weekDayAbbreviationsInDates, text, name);
    name = LongestName(kEnglishWeekDays, text, name);
    return LongestName(kEnglishWeekDayAbbreviations, text, name);
}

/// Bytes of a word that the locale's own patterns have as text, as in "2 de marzo de 2024"; in
/// Hebrew the name of the month follows it at once. Else 0.
std::size_t Parser::PatternWordLength(std::string_view text) const {
    for (const std::string_view pattern : {std::string_view(m_locale.shortDatePattern),
                                           std::string_view(m_locale.longDatePattern)}) {
        for (PatternReader reader(pattern); const auto piece = reader.Next();) {
            if (piece->field != 0) continue;
            std::string_view word = TrimmedSpaces(piece->text);
            while (!word.empty() && kSeparators.find(word.back()) != std::string_view::npos) {
                word.remove_suffix(1);
            }
            const std::size_t length = PrefixLength(text, word);
            if (length == 0) continue;
            if (length == WordLength(text) || FindMonth(text.substr(length)).number != 0) {
                return length;
            }
        }
    }
    return 0;
}

// What the numbers mean.

std::optional<DayNumber> Parser::DayOf(const Found& found) const {
    if (found.month != 0) return DayWithMonthName(found);
    if (found.count == 2) return DayOfTwo(found.numbers[0], found.numbers[1]);
    return found.count == 3 ? DayOfThree(found.numbers) : std::nullopt;
}

std::optional<DayNumber> Parser::DayWithMonthName(const Found& found) const {
    const WrittenNumber first = found.numbers[0];
    if (found.count == 1) {
        return IsYear(first) ? DayIfReal(YearOf(first), found.month, 1)
                             : DayIfReal(ThisYear(), found.month, first.value);
    }
    if (found.count != 2) return std::nullopt;
    const WrittenNumber second = found.numbers[1];
    if (IsYear(first) && IsYear(second)) return std::nullopt;
    if (IsYear(first)) return DayIfReal(YearOf(first), found.month, second.value);
    // Where nothing tells the two apart the day comes first, as in "Medium Date", in every locale.
    const auto day = DayIfReal(YearOf(second), found.month, first.value);
    if (day || IsYear(second)) return day;
    return DayIfReal(YearOf(first), found.month, second.value);
}

std::optional<DayNumber> Parser::DayOfTwo(WrittenNumber first, WrittenNumber second) const {
    if (first.digits > 2 && second.digits > 2) return std::nullopt;
    if (first.digits > 2) return DayIfReal(first.value, second.value, 1);
    if (second.digits > 2) return DayIfReal(second.value, first.value, 1);
    return InLocaleOrder(ThisYear(), first.value, second.value);
}

std::optional<DayNumber> Parser::DayOfThree(const std::array<WrittenNumber, 3>& numbers) const {
    int longNumbers = 0;
    for (const WrittenNumber number : numbers) longNumbers += number.digits > 2;
    if (longNumbers > 1 || numbers[1].digits > 2) return std::nullopt;
    const auto [first, second, third] = numbers;
    if (first.digits > 2) return DayIfReal(first.value, second.value, third.value);
    const int year = OrderOf(m_locale.shortDatePattern).year;
    if (third.digits > 2 || year == 2) {
        return InLocaleOrder(YearOf(third), first.value, second.value);
    }
    return year == 0 ? InLocaleOrder(YearOf(first), second.value, third.value)
                     : InLocaleOrder(YearOf(second), first.value, third.value);
}

/// Day and month, in the locale's order or, where that gives no date, in the other one.
std::optional<DayNumber> Parser::InLocaleOrder(int year, int first, int second) const {
    const FieldOrder order = OrderOf(m_locale.shortDatePattern);
    const bool monthFirst = order.month < order.day;
    const auto day = DayIfReal(year, monthFirst ? first : second, monthFirst ? second : first);
    return day ? day : DayIfReal(year, monthFirst ? second : first, monthFirst ? first : second);
}

// Times.

/// The second of the day, 0..86399.
std::optional<int> Parser::ReadTime(TextCursor& cursor, TimeSeparators separators) const {
    TextCursor ahead = cursor;
    const auto before = ReadAfternoon(ahead);  // as in Korean
    if (before) ahead.SkipSpaces();
    const auto hour = ahead.ReadNumber(2);
    if (!hour || ahead.AtDigit()) return std::nullopt;
    std::array<int, 2> minuteAndSecond{};
    bool separated = false;
    for (int& part : minuteAndSecond) {
        if (!SkipTimeSeparator(ahead, separators)) break;
        const auto number = ahead.ReadNumber(2);
        if (!number || ahead.AtDigit() || number->value > 59) return std::nullopt;
        part = number->value;
        separated = true;
    }
    const auto behind = before ? std::nullopt : ReadAfternoon(ahead);
    if (!separated && !behind) return std::nullopt;
    const auto afternoon = before ? before : behind;
    if (hour->value > (afternoon ? 12 : 23)) return std::nullopt;
    const int hours = afternoon ? hour->value % 12 + (*afternoon ? 12 : 0) : hour->value;
    cursor = ahead;
    return hours * 3600 + minuteAndSecond[0] * 60 + minuteAndSecond[1];
}

bool Parser::SkipTimeSeparator(TextCursor& cursor, TimeSeparators separators) const {
    const std::size_t own = separators == TimeSeparators::Colon
                                ? 0
                                : PrefixLength(cursor.Rest(), m_locale.timeSeparator);
    cursor.Skip(own);
    return own != 0 || cursor.SkipOneOf(":");
}

std::optional<bool> Parser::ReadAfternoon(TextCursor& cursor) const {
    const std::array<std::string_view, 4> morning{m_locale.morning, "AM", "a.m.", "a"};
    const std::array<std::string_view, 4> afternoon{m_locale.afternoon, "PM", "p.m.", "p"};
    TextCursor ahead = cursor;
    ahead.SkipSpaces();
    const std::string_view rest = ahead.Rest();
    const FoundName before = LongestName(morning, rest);
    const FoundName after = LongestName(afternoon, rest, before);
    if (!EndsName(rest, after.length)) return std::nullopt;
    if (FindMonth(rest).length > after.length) return std::nullopt;  // "5 Am Faoilleach"
    ahead.Skip(after.length);
    cursor = ahead;
    return after.length > before.length;
}

/// A time alone, in the locale's writing: where that looks like a date, it has been read as one.
std::optional<Written> Parser::OnlyTime(TextCursor cursor) const {
    const auto seconds = ReadTime(cursor, TimeSeparators::ColonAndLocale);
    if (!seconds || !cursor.AtEnd()) return std::nullopt;
    return Written{{}, *seconds};
}

}  // namespace

std::optional<Date> ParseDate(const DateLocale& locale, std::string_view text,
                              const std::function<DayNumber()>& today) {
    const auto written = Parser(locale, today).Parse(text);
    if (!written) return std::nullopt;
    return DateOf(written->day.value_or(0), static_cast<double>(written->seconds) / kSecondsPerDay);
}

std::optional<DayNumber> ParseDay(const DateLocale& locale, std::string_view text,
                                  const std::function<DayNumber()>& today) {
    const auto written = Parser(locale, today).Parse(text);
    return written ? written->day : std::nullopt;
}

}  // namespace velmora
