#include "hosts/activex/win32/WinLocale.h"

#include "hosts/activex/win32/WinText.h"
#include "tests/support/LocaleCases.h"

#include <regex>
#include <tuple>

namespace velmora {
namespace {

using test::Length;

class WinPlatformLocale final : public test::PlatformLocale {
public:
    explicit WinPlatformLocale(LCID locale) : m_locale(locale) {}

    std::string MonthAlone(int month, Length length) const override {
        return Written({2024, month, 15}, length == Length::Full ? L"MMMM" : L"MMM");
    }
    std::string WeekDayAlone(int weekDay, Length length) const override {
        return Written({2024, 9, weekDay}, length == Length::Full ? L"dddd" : L"ddd");
    }
    std::string DateText(CivilDate date, Length length) const override {
        wchar_t pattern[100]{};
        GetLocaleInfoW(m_locale, length == Length::Full ? LOCALE_SLONGDATE : LOCALE_SSHORTDATE,
                       pattern, 100);
        const std::wstring plain = std::regex_replace(pattern, std::wregex(L"g+ ?"), L"");
        return Written(date, std::regex_replace(plain, std::wregex(L"y+"), L"yyyy").c_str());
    }
    std::string TimeText(int hour, int minute) const override {
        return Written(hour, minute, TIME_NOSECONDS, nullptr);
    }
    std::string Meridiem(int hour) const override { return Written(hour, 0, 0, L"tt"); }

private:
    std::string Written(CivilDate date, const wchar_t* pattern) const {
        SYSTEMTIME time{};
        std::tie(time.wYear, time.wMonth, time.wDay) = std::tie(date.year, date.month, date.day);
        wchar_t text[100]{};
        GetDateFormatW(m_locale, 0, &time, pattern, text, 100);
        return ToUtf8(text);
    }
    std::string Written(int hour, int minute, DWORD flags, const wchar_t* pattern) const {
        SYSTEMTIME time{};
        std::tie(time.wHour, time.wMinute) = std::tie(hour, minute);
        wchar_t text[100]{};
        GetTimeFormatW(m_locale, flags, &time, pattern, text, 100);
        return ToUtf8(text);
    }

    LCID m_locale;
};

TEST(WinLocale, DatesLookAndReadAsTheLocaleWantsThem) {
    for (const test::LocaleCase& each : test::kLocales) {
        SCOPED_TRACE(each.name);
        const LCID locale = LocaleNameToLCID(ToWide(each.name).c_str(), 0);
        ASSERT_NE(locale, 0u);
        const auto shared = SharedDateLocale(locale);
        const Dates dates(shared, LocalNow);
        test::ExpectLocale(dates, WinPlatformLocale(locale), each);
        EXPECT_EQ(SharedDateLocale(locale), shared);
    }
}

}  // namespace
}  // namespace velmora
