#include "VelmoraCalendar/VmCalendarWidget.h"
#include "benchmarks/Suites.h"
#include "calendar/VmCalendar.h"
#include "model/MonthGrid.h"
#include "platform/dates/Dates.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QTableView>

#include <chrono>

namespace velmora {
namespace {

void HitTest(benchmark::State& state) {
    VmCalendarWidget calendar;
    calendar.resize(250, 200);
    calendar.show();
    int x = 0;
    for ([[maybe_unused]] auto step : state) {
        x = (x + 7) % 250;
        const int y = x / 2 + 60;
        benchmark::DoNotOptimize(
            calendar.calendar().DateFromPoint(static_cast<float>(x), static_cast<float>(y)));
    }
}

void AddMonthsVelmora(benchmark::State& state) {
    DayNumber day = 45000;
    for ([[maybe_unused]] auto step : state)
        benchmark::DoNotOptimize(day = AddMonths(day, day % 2 ? 13 : -13));
}

void AddMonthsQt(benchmark::State& state) {
    QDate day(2023, 3, 15);
    for ([[maybe_unused]] auto step : state) {
        day = day.addMonths(day.toJulianDay() % 2 ? 13 : -13);
        benchmark::DoNotOptimize(day);
    }
}

void CivilVelmora(benchmark::State& state) {
    DayNumber day = 45000;
    for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(CivilOf(++day));
}

void CivilQt(benchmark::State& state) {
    QDate day(2023, 3, 15);
    for ([[maybe_unused]] auto step : state) {
        day = day.addDays(1);
        int year = 0, month = 0, dayOfMonth = 0;
        day.getDate(&year, &month, &dayOfMonth);
        benchmark::DoNotOptimize(year + month + dayOfMonth);
    }
}

void FormatVelmora(benchmark::State& state) {
    const Dates dates(std::make_shared<const DateLocale>(), [] { return Date(45000); });
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(dates.Format(Date(45000), "dddd, mmmm d, yyyy"));
    }
}

void FormatQt(benchmark::State& state) {
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    const QDate date(2023, 3, 15);
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(locale.toString(date, QStringLiteral("dddd, MMMM d, yyyy")));
    }
}

/// The peer's part of it: which cell of Qt's own calendar a point is in.
void HitTestQt(benchmark::State& state) {
    QCalendarWidget calendar;
    calendar.resize(250, 200);
    calendar.show();
    const auto& cells = *calendar.findChild<QTableView*>();
    int x = 0;
    for ([[maybe_unused]] auto step : state) {
        x = (x + 7) % 250;
        benchmark::DoNotOptimize(cells.indexAt({x, x / 2 + 30}));
    }
}

void GridVelmora(benchmark::State& state) {
    DayNumber day = 45000;
    for ([[maybe_unused]] auto step : state) {
        const MonthGrid grid({.shownDate = day += 31, .cellWidth = 29, .rowHeight = 20});
        for (DayNumber cell = day - 21; cell < day + 21; ++cell) {
            benchmark::DoNotOptimize(CivilOf(cell));
            benchmark::DoNotOptimize(grid.IsShownMonth(cell));
        }
    }
}

/// The standard library's calendar types.
void GridStandard(benchmark::State& state) {
    using namespace std::chrono;
    sys_days day{days(19432)};
    for ([[maybe_unused]] auto step : state) {
        day += days(31);
        const year_month_day shown(day);
        for (sys_days cell = day - days(21); cell < day + days(21); cell += days(1)) {
            const year_month_day date(cell);
            benchmark::DoNotOptimize(date);
            benchmark::DoNotOptimize(date.month() == shown.month());
        }
    }
}

void ParseIsoVelmora(benchmark::State& state) {
    const Dates dates(std::make_shared<const DateLocale>(), [] { return Date(45000); });
    for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(dates.TryParse("2023-03-15"));
}

void ParseIsoQt(benchmark::State& state) {
    const QString text = QStringLiteral("2023-03-15");
    for ([[maybe_unused]] auto step : state)
        benchmark::DoNotOptimize(QDate::fromString(text, Qt::ISODate));
}

struct Entry {
    const char* work;
    double mostOfPeer;  // 0: nothing is wanted
    void (*velmora)(benchmark::State&);
    void (*peer)(benchmark::State&);
};

constexpr Entry kEntries[] = {
    {"hit test", 1.5, HitTest, HitTestQt},
    {"42 dates of a grid", 1.5, GridVelmora, GridStandard},
    {"ISO date read", 1.5, ParseIsoVelmora, ParseIsoQt},
    {"add 13 months", 0, AddMonthsVelmora, AddMonthsQt},
    {"year, month and day of the next day", 0, CivilVelmora, CivilQt},
    {"long date as text", 0, FormatVelmora, FormatQt},
};

}  // namespace

void RegisterDateBenchmarks(ResultTable& table) {
    for (const Entry& entry : kEntries) {
        table.AddRow(entry.work,
                     entry.mostOfPeer > 0 ? Targets{{Side::Qt, entry.mostOfPeer}} : Targets{});
        const auto add = [&](Side side, void (*function)(benchmark::State&)) {
            benchmark::RegisterBenchmark(ResultTable::BenchmarkName(entry.work, side).c_str(),
                                         function);
        };
        add(Side::Velmora, entry.velmora);
        add(Side::Qt, entry.peer);
    }
}

}  // namespace velmora
