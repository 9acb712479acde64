#include "VelmoraCalendar/VmCalendarWidget.h"
#include "benchmarks/Suites.h"
#include "calendar/VmCalendar.h"
#include "platform/dates/Dates.h"

#include <QLocale>

namespace velmora {
namespace {

void HitTest(benchmark::State& state) {
    VmCalendarWidget calendar;
    calendar.resize(250, 200);
    calendar.show();
    int x = 0;
    for (auto step : state) {
        x = (x + 7) % 250;
        benchmark::DoNotOptimize(calendar.calendar().DateFromPoint(static_cast<float>(x),
                                                                   static_cast<float>(x / 2 + 60)));
    }
}

void AddMonthsVelmora(benchmark::State& state) {
    DayNumber day = 45000;
    for (auto step : state) benchmark::DoNotOptimize(day = AddMonths(day, day % 2 ? 13 : -13));
}

void AddMonthsQt(benchmark::State& state) {
    QDate day(2023, 3, 15);
    for (auto step : state) {
        day = day.addMonths(day.toJulianDay() % 2 ? 13 : -13);
        benchmark::DoNotOptimize(day);
    }
}

void CivilVelmora(benchmark::State& state) {
    DayNumber day = 45000;
    for (auto step : state) benchmark::DoNotOptimize(CivilOf(++day));
}

void CivilQt(benchmark::State& state) {
    QDate day(2023, 3, 15);
    for (auto step : state) {
        day = day.addDays(1);
        int year = 0, month = 0, dayOfMonth = 0;
        day.getDate(&year, &month, &dayOfMonth);
        benchmark::DoNotOptimize(year + month + dayOfMonth);
    }
}

void FormatVelmora(benchmark::State& state) {
    const Dates dates(std::make_shared<const DateLocale>(), [] { return Date(45000); });
    for (auto step : state) {
        benchmark::DoNotOptimize(dates.Format(Date(45000), "dddd, mmmm d, yyyy"));
    }
}

void FormatQt(benchmark::State& state) {
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    const QDate date(2023, 3, 15);
    for (auto step : state) {
        benchmark::DoNotOptimize(locale.toString(date, QStringLiteral("dddd, MMMM d, yyyy")));
    }
}

struct Entry {
    const char* work;
    void (*velmora)(benchmark::State&);
    void (*qt)(benchmark::State&);  // null: nothing to compare with
};

constexpr Entry kEntries[] = {
    {"hit test", HitTest, nullptr},
    {"add 13 months", AddMonthsVelmora, AddMonthsQt},
    {"year, month and day of the next day", CivilVelmora, CivilQt},
    {"long date as text", FormatVelmora, FormatQt},
};

}  // namespace

void RegisterDateBenchmarks(ResultTable& table) {
    for (const Entry& entry : kEntries) {
        table.AddRow(entry.work);
        const auto add = [&](Side side, void (*function)(benchmark::State&)) {
            if (!function) return;
            benchmark::RegisterBenchmark(ResultTable::BenchmarkName(entry.work, side).c_str(),
                                         function);
        };
        add(Side::Velmora, entry.velmora);
        add(Side::Qt, entry.qt);
    }
}

}  // namespace velmora
