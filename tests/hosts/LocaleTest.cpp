#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/values/QtLocale.h"
#include "tests/support/LocaleCases.h"
#include "tests/support/TestCalendar.h"

#include <QImage>
#include <QLocale>
#include <QPainter>
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

/// Notes the texts that are wider than where they are drawn.
class FittingDrawing final : public QtDrawing {
public:
    std::string tooWide;

    void InvalidateRect(WindowHandle, const Rect*) override {}
    int DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                  std::uint32_t flags) override {
        Rect extent;
        QtDrawing::DrawTextA(surface, text, extent, kTextCalcRect);
        if (extent.right > rect.Width() && (flags & kTextCalcRect) == 0)
            tooWide.append(text) += ' ';
        return QtDrawing::DrawTextA(surface, text, rect, flags);
    }
};

TEST(QtLocale, CalendarsRunInItsDirectionWithAllOfItsNames) {
    for (const test::LocaleCase& each : test::kLocales) {
        SCOPED_TRACE(each.name);
        const QLocale locale(each.name);
        FittingDrawing drawing;
        test::TestCalendar test({250, 200}, &drawing);
        test.dates.Locale(DateLocaleOf(locale));
        test.rightToLeft = locale.textDirection() == Qt::RightToLeft;
        test.calendar->OnLocaleChanged();
        QImage image(250, 200, QImage::Format_RGB32);
        QPainter painter(&image);
        test.calendar->OnPaint(QtDrawing::Surface(drawing, painter).Handle(), {&test.screen, 1});
        EXPECT_EQ(drawing.tooWide, "");
        const auto weekDays = test.calendar->Describe().weekDays;
        EXPECT_EQ(weekDays[0].name, locale.standaloneDayName(Qt::Sunday).toStdString());
        EXPECT_EQ(weekDays[0].place.left > weekDays[6].place.left, test.rightToLeft);
    }
}

}  // namespace
}  // namespace velmora
