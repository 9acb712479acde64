#include "hosts/activex/win32/WinLocale.h"

#include "hosts/activex/win32/ThreadShared.h"
#include "hosts/activex/win32/WinText.h"

#include <map>
#include <string>
#include <utility>

namespace velmora {
namespace {

/// Empty where the locale does not say.
std::string Info(LCID locale, LCTYPE type) {
    const int length = GetLocaleInfoW(locale, type, nullptr, 0);
    if (length <= 1) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    GetLocaleInfoW(locale, type, text.data(), length);
    text.pop_back();
    return ToUtf8(text);
}

/// Eras have no place in a pattern: what is left of them is the text around, with one space.
std::string WithoutEras(const std::string& pattern) {
    std::string plain;
    bool quoted = false, behindEra = false;
    for (const char letter : pattern) {
        if (letter == '\'') quoted = !quoted;
        if (std::exchange(behindEra, !quoted && letter == 'g') && letter == ' ') continue;
        if (!behindEra) plain += letter;
    }
    return plain;
}

void TakeOver(std::string& field, std::string value) {
    if (!value.empty()) field = std::move(value);
}

/// Words inside of a separator are quoted, as in patterns.
std::string WithoutQuotes(std::string separator) {
    std::erase(separator, '\'');
    return separator;
}

void TakeNames(DateLocale& data, LCID locale) {
    for (std::size_t i = 0; i < data.monthNames.size(); ++i) {
        const auto month = static_cast<LCTYPE>(i);
        const LCTYPE inDates = LOCALE_RETURN_GENITIVE_NAMES + month;
        TakeOver(data.monthNames[i], Info(locale, LOCALE_SMONTHNAME1 + month));
        TakeOver(data.monthAbbreviations[i], Info(locale, LOCALE_SABBREVMONTHNAME1 + month));
        data.monthNamesInDates[i] = Info(locale, LOCALE_SMONTHNAME1 + inDates);
        data.monthAbbreviationsInDates[i] = Info(locale, LOCALE_SABBREVMONTHNAME1 + inDates);
    }
    for (std::size_t i = 0; i < data.weekDayNames.size(); ++i) {
        const auto day = static_cast<LCTYPE>((i + 6) % 7);  // the system begins with Monday
        TakeOver(data.weekDayNames[i], Info(locale, LOCALE_SDAYNAME1 + day));
        TakeOver(data.weekDayAbbreviations[i], Info(locale, LOCALE_SABBREVDAYNAME1 + day));
        data.weekDayLetters[i] = Info(locale, LOCALE_SSHORTESTDAYNAME1 + day);
    }
}

}  // namespace

DateLocale SystemDateLocale(LCID locale) {
    DateLocale data;
    TakeNames(data, locale);
    TakeOver(data.shortDatePattern, WithoutEras(Info(locale, LOCALE_SSHORTDATE)));
    TakeOver(data.longDatePattern, WithoutEras(Info(locale, LOCALE_SLONGDATE)));
    TakeOver(data.dateSeparator, WithoutQuotes(Info(locale, LOCALE_SDATE)));
    TakeOver(data.timeSeparator, WithoutQuotes(Info(locale, LOCALE_STIME)));
    data.morning = Info(locale, LOCALE_S1159);
    data.afternoon = Info(locale, LOCALE_S2359);
    data.hours24 = Info(locale, LOCALE_ITIME) == "1";
    return data;
}

std::shared_ptr<const DateLocale> SharedDateLocale(LCID locale) {
    static SRWLOCK lock = SRWLOCK_INIT;
    static std::map<LCID, std::weak_ptr<const DateLocale>> known;
    const ExclusiveLock locked(lock);
    std::shared_ptr<const DateLocale> data = known[locale].lock();
    if (!data) {
        data = std::make_shared<const DateLocale>(SystemDateLocale(locale));
        known[locale] = data;
    }
    return data;
}

Date LocalNow() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const double seconds = now.wHour * 3600 + now.wMinute * 60 + now.wSecond;
    return DateOf(DayFromCivil(now.wYear, now.wMonth, now.wDay), seconds / 86400);
}

}  // namespace velmora
