#include "benchmarks/Subjects.h"
#include "benchmarks/Suites.h"

#include <malloc.h>

#include <cstdio>

namespace velmora {
namespace {

constexpr int kCalendars = 500;
constexpr int kColumns = 25;
constexpr QSize kSize{160, 130};
constexpr double kMostBytes = 12.9 * 1024;

/// Of the heap, with blocks that are mapped one by one.
double BytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

template <class Subject>
typename Subject::Widget* AddCalendar(QWidget& window, int index) {
    auto* calendar = new typename Subject::Widget(&window);
    calendar->setGeometry(
        QRect(QPoint(index % kColumns * kSize.width(), index / kColumns * kSize.height()), kSize));
    calendar->show();
    return calendar;
}

/// Per calendar after it has been shown and painted; 0 if one was not painted. The window and what
/// all calendars share are there before.
template <class Subject>
double BytesPerCalendar() {
    QWidget window;
    window.resize(kColumns * kSize.width(), kCalendars / kColumns * kSize.height());
    ShowNow(window);
    delete AddCalendar<Subject>(window, 0);
    AddCalendar<Subject>(window, 0);
    Flush();
    const double before = BytesInUse();
    const PaintCounter paints(window);
    for (int i = 1; i < kCalendars; ++i) AddCalendar<Subject>(window, i);
    Flush();
    if (paints.Count() < kCalendars - 1) return 0;
    return (BytesInUse() - before) / (kCalendars - 1);
}

}  // namespace

void MeasureMemory(ResultTable& table) {
    const std::string work = "memory per shown calendar, of 500";
    table.AddRow(work, {{Side::Velmora, kMostBytes}, {Side::Qt, 0.1}}, ResultTable::Unit::Bytes);
    table.Set(work, Side::Velmora, BytesPerCalendar<VelmoraSubject>());
    table.Set(work, Side::Qt, BytesPerCalendar<QtSubject>());
}

}  // namespace velmora
