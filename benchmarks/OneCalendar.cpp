#include "VelmoraCalendar/VmCalendarWidget.h"

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QElapsedTimer>
#include <QImage>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

namespace {

/// CPU time of this thread in microseconds.
double Now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

/// The shortest of many.
double RepaintTime(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_RGB32);
    double shortest = 1e9;
    for (int i = 0; i < 3000; ++i) {
        const double start = Now();
        widget.render(&image);
        shortest = std::min(shortest, Now() - start);
    }
    return shortest;
}

/// In KiB, what the program has for itself alone.
long OwnMemory() {
    std::ifstream memory("/proc/self/smaps_rollup");
    long total = 0;
    for (std::string line; std::getline(memory, line);) {
        if (line.starts_with("Private_")) total += std::stol(line.substr(line.find(':') + 1));
    }
    return total;
}

}  // namespace

/// A program with one calendar: shows it, writes its own memory, and ends. "qt": Qt's in its place.
/// "repaint": on the display, the time of a repaint before that; "reader": once a screen reader
/// listens, and the words "no reader" when none does.
int main(int argc, char** argv) {
    const std::string_view mode = argc > 1 ? argv[1] : "";
    const bool repaints = mode == "repaint" || mode == "reader";
    if (!repaints) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::unique_ptr<QWidget> calendar;
    if (mode == "qt") {
        calendar = std::make_unique<QCalendarWidget>();
    } else {
        calendar = std::make_unique<velmora::VmCalendarWidget>();
    }
    calendar->resize(400, 300);
    calendar->show();
    QApplication::processEvents();
    if (mode == "reader") {
        QElapsedTimer waited;
        waited.start();
        while (!QAccessible::isActive() && waited.elapsed() < 20000) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        }
        if (!QAccessible::isActive()) {
            std::puts("no reader");
            return 1;
        }
    }
    if (repaints) std::printf("%.2f ", RepaintTime(*calendar));
    std::printf("%ld\n", OwnMemory());
}
