#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/values/QtLocale.h"
#include "tests/support/LocaleCases.h"

#include <QLocale>
#include <QRegularExpression>

namespace velmora {
namespace {

using test::Length;

class QtPlatformLocale final : public test::PlatformLocale {
public:
    explicit QtPlatformLocale(const QLocale& locale) : m_locale(locale) {}

    std::string MonthAlone(int month, Length length) const override {
        return m_locale.standaloneMonthName(month, Format(length)).toStdString();
    }
    std::string WeekDayAlone(int weekDay, Length length) const override {
        return m_locale.standaloneDayName((weekDay + 5) % 7 + 1, Format(length)).toStdString();
    }
    std::string DateText(CivilDate date, Length length) const override {
        const QString pattern =
            m_locale.dateFormat(Format(length)).replace(QRegularExpression("y+"), "yyyy");
        return m_locale.toString(QDate(date.year, date.month, date.day), pattern).toStdString();
    }
    std::string TimeText(int hour, int minute) const override {
        return m_locale.toString(QTime(hour, minute), QLocale::ShortFormat).toStdString();
    }
    std::string Meridiem(int hour) const override {
        return (hour < 12 ? m_locale.amText() : m_locale.pmText()).toStdString();
    }

private:
    static QLocale::FormatType Format(Length length) {
        return length == Length::Short ? QLocale::ShortFormat : QLocale::LongFormat;
    }

    QLocale m_locale;
};

TEST(QtLocale, DatesLookAndReadAsTheLocaleWantsThem) {
    for (const test::LocaleCase& each : test::kLocales) {
        SCOPED_TRACE(each.name);
        const QLocale locale(each.name);
        const Dates dates(DateLocaleOf(locale), LocalNow);
        test::ExpectLocale(dates, QtPlatformLocale(locale), each);
        EXPECT_EQ(DateLocaleOf(locale), DateLocaleOf(QLocale(each.name)));
    }
}

}  // namespace
}  // namespace velmora
