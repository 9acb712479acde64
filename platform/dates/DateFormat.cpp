#include "platform/dates/DateFormat.h"

#include "platform/dates/DateText.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// One element of a format expression.
struct Element {
    char letter = 0;        // in lower case: c d w m q y h n s t, 'a' for AM/PM and its like,
                            // '/' or ':'; 0 is text that stands for itself
    int letters = 0;        // of the run
    std::string_view text;  // inside the expression, without quotes and escapes
};

/// Takes a format expression apart, from left to right; a run longer than its longest meaning
/// begins a new element.
class ExpressionReader {
public:
    explicit ExpressionReader(std::string_view expression) noexcept : m_rest(expression) {}

    bool AtEnd() const noexcept { return m_rest.empty(); }
    Element Next() noexcept;

private:
    std::string_view TakeText(std::size_t length) noexcept;
    std::size_t RunLength(char letter) const noexcept;

    std::string_view m_rest;
};

/// "AM/PM", "A/P" or "AMPM" at the beginning of `text`: its length, else 0.
std::size_t MeridiemLength(std::string_view text) noexcept {
    for (const std::string_view name : {"am/pm", "ampm", "a/p"}) {
        if (const std::size_t length = PrefixLength(text, name)) return length;
    }
    return 0;
}

std::size_t LongestRun(char letter) noexcept {
    switch (letter) {
        case 'c':
        case 'q': return 1;
        case 'd': return 6;
        case 'w':
        case 'h':
        case 'n':
        case 's': return 2;
        case 'm':
        case 'y': return 4;
        case 't': return 5;
        default: return 0;
    }
}

std::string_view ExpressionReader::TakeText(std::size_t length) noexcept {
    const std::string_view taken = m_rest.substr(0, length);
    m_rest.remove_prefix(taken.size());
    return taken;
}

std::size_t ExpressionReader::RunLength(char letter) const noexcept {
    const std::size_t longest = std::min(LongestRun(letter), m_rest.size());
    std::size_t run = 0;
    while (run < longest && LowerAscii(m_rest[run]) == letter) ++run;
    if (letter == 'y' && run == 3) return 2;
    if (letter == 't' && run < 5) return 0;
    return run;
}

Element ExpressionReader::Next() noexcept {
    const char letter = LowerAscii(m_rest.front());
    if (letter == '\\') {
        TakeText(1);
        return {0, 0, TakeText(1)};
    }
    if (letter == '"') {
        TakeText(1);
        const std::string_view text = TakeText(m_rest.find('"'));
        TakeText(1);
        return {0, 0, text};
    }
    if (letter == '/' || letter == ':') return {letter, 1, TakeText(1)};
    if (letter == 'a') {
        if (const std::size_t length = MeridiemLength(m_rest)) return {letter, 1, TakeText(length)};
    }
    if (const std::size_t run = RunLength(letter)) {
        return {letter, static_cast<int>(run), TakeText(run)};
    }
    return {0, 0, TakeText(1)};
}

/// Whether the expression has the element of that letter, in at most `letters` of them.
bool Shows(std::string_view expression, char letter, int letters) noexcept {
    const char spellings[] = {letter, static_cast<char>(letter - 'a' + 'A')};
    if (expression.find_first_of({spellings, 2}) == std::string_view::npos) return false;
    for (ExpressionReader reader(expression); !reader.AtEnd();) {
        const Element element = reader.Next();
        if (element.letter == letter && element.letters <= letters) return true;
    }
    return false;
}

bool ShowsDayOfMonth(std::string_view pattern) noexcept {
    for (PatternReader reader(pattern); const auto piece = reader.Next();) {
        if (piece->field == 'd' && piece->IsNumber()) return true;
    }
    return false;
}

/// `name` in another spelling of case is a named format; anything else is an expression itself.
std::string_view ExpressionOf(std::string_view name) noexcept {
    struct NamedFormat {
        std::string_view name, expression;
    };
    static constexpr NamedFormat kNamedFormats[] = {
        {"short date", "ddddd"}, {"long date", "dddddd"}, {"medium date", "dd\\-mmm\\-yy"},
        {"general date", "c"},   {"long time", "ttttt"},  {"medium time", "hh:nn AMPM"},
        {"short time", "hh:nn"},
    };
    if (name.empty()) return "c";
    for (const NamedFormat& format : kNamedFormats) {
        if (name.size() == format.name.size() && PrefixLength(name, format.name) != 0) {
            return format.expression;
        }
    }
    return name;
}

/// Days of the week of `day` that lie before it, in weeks that begin with `firstDayOfWeek`: 0..6.
int DaysIntoWeek(DayNumber day, int firstDayOfWeek) noexcept {
    return (WeekDayOf(day) - firstDayOfWeek + 7) % 7;
}

int DayOfYear(DayNumber day) noexcept { return day - DayFromCivil(YearOf(day), 1, 1) + 1; }

int WeekOfYear(DayNumber day, int firstDayOfWeek, FirstWeekOfYear firstWeek) noexcept {
    const DayNumber weekStart = day - DaysIntoWeek(day, firstDayOfWeek);
    switch (firstWeek) {
        case FirstWeekOfYear::FourDays: return (DayOfYear(weekStart + 3) - 1) / 7 + 1;
        case FirstWeekOfYear::FullWeek: return (DayOfYear(weekStart) - 1) / 7 + 1;
        case FirstWeekOfYear::HoldsJanuary1: break;
    }
    const int dayOfYear = DayOfYear(day);
    const DayNumber january1 = day - dayOfYear + 1;
    return (dayOfYear - 1 + DaysIntoWeek(january1, firstDayOfWeek)) / 7 + 1;  // 1..54
}

/// Writes one date by expressions into one text.
class Formatter {
public:
    Formatter(const DateLocale& locale, Date date, int firstDayOfWeek, FirstWeekOfYear firstWeek)
        : m_locale(locale),
          m_day(DayOf(date)),
          m_civil(CivilOf(m_day)),
          m_seconds(SecondsOf(date)),
          m_firstDayOfWeek(firstDayOfWeek >= 1 && firstDayOfWeek <= 7 ? firstDayOfWeek : 1),
          m_firstWeek(firstWeek) {}

    void Write(std::string_view expression);
    std::string TakeText() { return std::move(m_text); }

private:
    // Rounded to the nearest second, but never into the next day: text must not change a day.
    static int SecondsOf(Date date) noexcept {
        return std::min(static_cast<int>(std::lround(TimeOf(date) * kSecondsPerDay)),
                        kSecondsPerDay - 1);
    }

    void Number(int value, int digits = 1);
    void Pattern(std::string_view pattern);
    void PatternField(const PatternPiece& piece, bool besideDay);
    void GeneralDate();
    void DayField(int letters, bool besideDay);
    void MonthField(int letters, bool besideDay);
    void Name(const std::string& alone, const std::string& inDates, bool besideDay);
    void Year(int letters);
    void Meridiem(std::string_view text);
    void TimeField(const Element& element, bool hours12);
    void DateField(const Element& element, bool besideDay);

    const DateLocale& m_locale;
    DayNumber m_day;
    CivilDate m_civil;
    int m_seconds;  // of the day, 0..86399
    int m_firstDayOfWeek;
    FirstWeekOfYear m_firstWeek;
    std::string m_text;
};

void Formatter::Write(std::string_view expression) {
    const bool hours12 = Shows(expression, 'a', 1);
    const bool besideDay = Shows(expression, 'd', 2);
    bool behindHour = false;
    for (ExpressionReader reader(expression); !reader.AtEnd();) {
        Element element = reader.Next();
        if (behindHour && element.letter == 'm' && element.letters <= 2) element.letter = 'n';
        switch (element.letter) {
            case 0: m_text += element.text; continue;
            case '/': m_text += m_locale.dateSeparator; continue;
            case ':': m_text += m_locale.timeSeparator; continue;
            case 'a': Meridiem(element.text); continue;
            case 'h':
            case 'n':
            case 's':
            case 't': TimeField(element, hours12); break;
            default: DateField(element, besideDay); break;
        }
        behindHour = element.letter == 'h';
    }
}

void Formatter::TimeField(const Element& element, bool hours12) {
    const int hour = m_seconds / 3600;  // 0..23
    switch (element.letter) {
        case 'h': return Number(hours12 ? (hour + 11) % 12 + 1 : hour, element.letters);
        case 'n': return Number(m_seconds / 60 % 60, element.letters);
        case 's': return Number(m_seconds % 60, element.letters);
        default: return Write(m_locale.hours24 ? "hh:nn:ss" : "h:nn:ss AMPM");
    }
}

void Formatter::DateField(const Element& element, bool besideDay) {
    switch (element.letter) {
        case 'c': return GeneralDate();
        case 'd':
            if (element.letters == 5) return Pattern(m_locale.shortDatePattern);
            if (element.letters == 6) return Pattern(m_locale.longDatePattern);
            return DayField(element.letters, besideDay);
        case 'm': return MonthField(element.letters, besideDay);
        case 'q': return Number((m_civil.month + 2) / 3);
        case 'y': return Year(element.letters);
        default: break;
    }
    if (element.letters == 1) return Number(DaysIntoWeek(m_day, m_firstDayOfWeek) + 1);
    Number(WeekOfYear(m_day, m_firstDayOfWeek, m_firstWeek));
}

void Formatter::Number(int value, int digits) {
    AppendNumber(m_text, value, digits, m_locale.zeroDigit);
}

void Formatter::Pattern(std::string_view pattern) {
    const bool besideDay = ShowsDayOfMonth(pattern);
    PatternReader reader(pattern);
    while (const auto piece = reader.Next()) PatternField(*piece, besideDay);
}

void Formatter::PatternField(const PatternPiece& piece, bool besideDay) {
    switch (piece.field) {
        case 'd': return DayField(piece.letters, besideDay);
        case 'M': return MonthField(piece.letters, besideDay);
        case 'y': return Year(4);
        default: m_text += piece.text;
    }
}

void Formatter::GeneralDate() {
    const bool showsDate = m_day != 0 || m_seconds == 0;
    if (showsDate) Pattern(m_locale.shortDatePattern);
    if (m_seconds == 0) return;
    Write(showsDate ? " ttttt" : "ttttt");
}

void Formatter::DayField(int letters, bool besideDay) {
    if (letters <= 2) return Number(m_civil.day, letters);
    const auto weekDay = static_cast<std::size_t>(WeekDayOf(m_day) - 1);
    if (letters == 3) {
        Name(m_locale.weekDayAbbreviations[weekDay], m_locale.weekDayAbbreviationsInDates[weekDay],
             besideDay);
    } else {
        Name(m_locale.weekDayNames[weekDay], m_locale.weekDayNamesInDates[weekDay], besideDay);
    }
}

void Formatter::MonthField(int letters, bool besideDay) {
    if (letters <= 2) return Number(m_civil.month, letters);
    const auto month = static_cast<std::size_t>(m_civil.month - 1);
    if (letters == 3) {
        Name(m_locale.monthAbbreviations[month], m_locale.monthAbbreviationsInDates[month],
             besideDay);
    } else {
        Name(m_locale.monthNames[month], m_locale.monthNamesInDates[month], besideDay);
    }
}

void Formatter::Name(const std::string& alone, const std::string& inDates, bool besideDay) {
    m_text += besideDay && !inDates.empty() ? inDates : alone;
}

void Formatter::Year(int letters) {
    if (letters == 1) return Number(DayOfYear(m_day));
    if (letters == 2) return Number(m_civil.year % 100, 2);
    Number(m_civil.year, 4);
}

// The cases of AM/PM and A/P are the expression's own; AMPM is the locale's text.
void Formatter::Meridiem(std::string_view text) {
    const bool afternoon = m_seconds >= kSecondsPerDay / 2;
    const std::size_t slash = text.find('/');
    if (slash != std::string_view::npos) {
        m_text += afternoon ? text.substr(slash + 1) : text.substr(0, slash);
        return;
    }
    const std::string& own = afternoon ? m_locale.afternoon : m_locale.morning;
    m_text += !own.empty() ? std::string_view(own) : afternoon ? "PM" : "AM";
}

}  // namespace

std::string FormatDate(const DateLocale& locale, Date date, std::string_view expression,
                       int firstDayOfWeek, FirstWeekOfYear firstWeek) {
    Formatter formatter(locale, date, firstDayOfWeek, firstWeek);
    formatter.Write(ExpressionOf(expression));
    return formatter.TakeText();
}

}  // namespace velmora
