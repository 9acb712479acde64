#include "fuzz/FuzzCalendar.h"

#include "platform/dates/Dates.h"

#include <memory>

namespace velmora::fuzz {
namespace {

DateLocale TakeLocale(ByteReader& bytes) {
    DateLocale locale;
    const auto choice = bytes.Take<std::uint8_t>();
    constexpr std::string_view kShort[] = {"M/d/yyyy",   "dd.MM.yyyy",
                                           "yyyy-MM-dd", "d. M. yyyy",
                                           "d MMM yyyy", "yyyy'\xE5\xB9\xB4'M'\xE6\x9C\x88'd"};
    locale.shortDatePattern = kShort[choice % 6];
    if (choice >= 192) locale.longDatePattern = bytes.TakeText(bytes.Take<std::uint8_t>() % 24);
    locale.hours24 = choice % 2 == 0;
    if (choice / 8 % 2 == 0) locale.dateSeparator = ".";
    if (choice / 16 % 4 == 0) locale.timeSeparator = ".";
    if (choice % 5 == 0) locale.zeroDigit = 0x0660;  // Arabic
    return locale;
}

void CheckDay(const Dates& dates, Date date, std::string_view format) {
    const std::string text = dates.Format(date, format);
    const auto back = dates.TryParse(text);
    if (!back || DayOf(*back) != DayOf(date)) Fail("another day from " + text);
}

}  // namespace
}  // namespace velmora::fuzz

/// A locale, a date, an expression and a text. Formatting and parsing take anything, and the
/// locale's own short date comes back as the same day.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    fuzz::ByteReader bytes(data, size);
    const Dates dates(std::make_shared<DateLocale>(fuzz::TakeLocale(bytes)),
                      [] { return Date(43905.5); });
    const auto whole = bytes.Take<std::int32_t>();
    const Date any(bytes.Take<double>());
    const int firstDay = bytes.Take<std::int8_t>();
    const auto firstWeek = static_cast<FirstWeekOfYear>(1 + bytes.Take<std::uint8_t>() % 3);
    const auto expression = bytes.TakeText(bytes.Take<std::uint8_t>() % 64);
    const auto text = bytes.TakeText(600);

    dates.Format(any, expression, firstDay, firstWeek);
    fuzz::CheckDay(dates, Date(whole % 3000000), "Short Date");
    fuzz::CheckDay(dates, any, "Short Date");
    if (const auto date = dates.TryParse(text)) {
        if (*date != DateOf(DayOf(*date), TimeOf(*date))) fuzz::Fail("a date beyond its range");
        fuzz::CheckDay(dates, *date, "Short Date");
        dates.Format(*date, expression, firstDay, firstWeek);
    }
    return 0;
}
