#include "hosts/qt/values/QtLocale.h"

#include <QLocale>
#include <QString>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

constexpr std::size_t kMostLocales = 16;

/// Names stand alone in the month band and in lists, and beside the day in dates.
void TakeMonths(DateLocale& data, const QLocale& locale) {
    constexpr auto kShort = QLocale::ShortFormat;
    for (std::size_t i = 0; i < data.monthNames.size(); ++i) {
        const int month = static_cast<int>(i) + 1;
        data.monthNames[i] = locale.standaloneMonthName(month).toStdString();
        data.monthAbbreviations[i] = locale.standaloneMonthName(month, kShort).toStdString();
        data.monthNamesInDates[i] = locale.monthName(month).toStdString();
        data.monthAbbreviationsInDates[i] = locale.monthName(month, kShort).toStdString();
    }
}

void TakeWeekDays(DateLocale& data, const QLocale& locale) {
    constexpr auto kShort = QLocale::ShortFormat;
    for (std::size_t i = 0; i < data.weekDayNames.size(); ++i) {
        const int day = i == 0 ? Qt::Sunday : static_cast<int>(i);
        data.weekDayNames[i] = locale.standaloneDayName(day).toStdString();
        data.weekDayAbbreviations[i] = locale.standaloneDayName(day, kShort).toStdString();
        data.weekDayLetters[i] = locale.standaloneDayName(day, QLocale::NarrowFormat).toStdString();
        data.weekDayNamesInDates[i] = locale.dayName(day).toStdString();
        data.weekDayAbbreviationsInDates[i] = locale.dayName(day, kShort).toStdString();
    }
}

/// The text between the first two fields.
std::string SeparatorOf(std::string_view pattern, std::string fallback) {
    PatternReader reader(pattern);
    bool fieldSeen = false;
    while (const auto piece = reader.Next()) {
        if (piece->field != 0) {
            fieldSeen = true;
        } else if (fieldSeen && !piece->text.empty()) {
            return std::string(piece->text);
        }
    }
    return fallback;
}

/// The pattern with its quoted text blanked out, in the same length.
QString FieldsOf(QString pattern) {
    bool quoted = false;
    for (QChar& letter : pattern) {
        if (letter == u'\'') {
            quoted = !quoted;
        } else if (quoted) {
            letter = u' ';
        }
    }
    return pattern;
}

void TakeTime(DateLocale& data, const QLocale& locale) {
    const QString pattern = locale.timeFormat(QLocale::ShortFormat);
    const QString fields = FieldsOf(pattern);
    data.hours24 = !fields.contains(u'a', Qt::CaseInsensitive);
    const qsizetype minutes = fields.indexOf(u'm');
    const qsizetype hours = fields.lastIndexOf(u'h', minutes, Qt::CaseInsensitive);
    if (hours >= 0 && minutes > hours + 1) {
        QString separator = pattern.mid(hours + 1, minutes - hours - 1);
        data.timeSeparator = separator.remove(u'\'').toStdString();
    }
    data.morning = locale.amText().toStdString();
    data.afternoon = locale.pmText().toStdString();
}

DateLocale Read(const QLocale& locale) {
    DateLocale data;
    TakeMonths(data, locale);
    TakeWeekDays(data, locale);
    data.shortDatePattern = locale.dateFormat(QLocale::ShortFormat).toStdString();
    data.longDatePattern = locale.dateFormat(QLocale::LongFormat).toStdString();
    data.dateSeparator = SeparatorOf(data.shortDatePattern, data.dateSeparator);
    TakeTime(data, locale);
    data.zeroDigit = locale.zeroDigit().toUcs4().value(0, U'0');
    return data;
}

class LocaleCache {
public:
    std::shared_ptr<const DateLocale> Find(const QLocale& locale) {
        for (const auto& [known, data] : m_entries) {
            if (known == locale) return data;
        }
        if (m_entries.size() >= kMostLocales) m_entries.clear();
        m_entries.emplace_back(locale, std::make_shared<const DateLocale>(Read(locale)));
        return m_entries.back().second;
    }

private:
    std::vector<std::pair<QLocale, std::shared_ptr<const DateLocale>>> m_entries;
};

}  // namespace

std::shared_ptr<const DateLocale> DateLocaleOf(const QLocale& locale) {
    static LocaleCache cache;
    return cache.Find(locale);
}

}  // namespace velmora
