#include "hosts/activex/win32/WinLocale.h"

#include "hosts/activex/win32/WinText.h"
#include "platform/Dates.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// As the system itself writes it.
std::string SystemText(LCID locale, DWORD style) {
    const SYSTEMTIME date{2020, 3, 0, 15, 0, 0, 0, 0};
    wchar_t text[100]{};
    GetDateFormatW(locale, style, &date, nullptr, text, 100);
    return ToUtf8(text);
}

TEST(WinLocale, SaysHowDatesLook) {
    struct Case {
        LCID locale;
        const char* march;
        const char* sunday;
        bool hours24;
    };
    const Date date = DateOf(DayFromCivil(2020, 3, 15));
    for (const Case& c : {
             Case{0x0409, "March", "Sunday", false},
             Case{0x0407, "M\xC3\xA4rz", "Sonntag", true},
             Case{0x040C, "mars", "dimanche", true},
             Case{0x0411, "3\xE6\x9C\x88", "\xE6\x97\xA5\xE6\x9B\x9C\xE6\x97\xA5", true},
         }) {
        SCOPED_TRACE(c.locale);
        const auto locale = SharedDateLocale(c.locale);
        const Dates dates(locale, LocalNow);
        EXPECT_EQ(dates.Format(date, "Long Date"), SystemText(c.locale, DATE_LONGDATE));
        EXPECT_EQ(dates.TryParse(dates.Format(date, "Short Date")), date);
        EXPECT_EQ(locale->monthNames[2], c.march);
        EXPECT_EQ(locale->weekDayNames[0], c.sunday);
        EXPECT_EQ(locale->hours24, c.hours24);
        EXPECT_EQ(dates.TryParse(SystemText(c.locale, DATE_SHORTDATE)), date);
        EXPECT_EQ(dates.TryParse(SystemText(c.locale, DATE_LONGDATE)), date);
        EXPECT_EQ(SharedDateLocale(c.locale), locale);
    }
}

TEST(WinLocale, ClockIsLocalTime) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const double days =
        LocalNow().value - DateOf(DayFromCivil(now.wYear, now.wMonth, now.wDay)).value;
    EXPECT_NEAR(days, (now.wHour * 60 + now.wMinute) / 1440.0, 2 / 1440.0);
}

}  // namespace
}  // namespace velmora
