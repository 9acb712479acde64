#include "VelmoraCalendar/VmCalendarWidget.h"

#include <QApplication>
#include <QCalendarWidget>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

/// A program with one calendar, ours or with an argument Qt's: shows it, writes how many KiB of
/// memory it has for itself alone, and ends.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::unique_ptr<QWidget> calendar;
    if (argc > 1) {
        calendar = std::make_unique<QCalendarWidget>();
    } else {
        calendar = std::make_unique<velmora::VmCalendarWidget>();
    }
    calendar->resize(400, 300);
    calendar->show();
    QApplication::processEvents();
    std::ifstream memory("/proc/self/smaps_rollup");
    long total = 0;
    for (std::string line; std::getline(memory, line);) {
        if (line.starts_with("Private_")) total += std::stol(line.substr(line.find(':') + 1));
    }
    std::printf("%ld\n", total);
}
