#include <VelmoraCalendar/VmCalendarWidget.h>

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    velmora::VmCalendarWidget calendar;
    calendar.setMonthYearSelStyle(velmora::VmCalendarWidget::MonthSelArrows);
    QObject::connect(&calendar, &velmora::VmCalendarWidget::dateValueChanged,
                     [](QDate date) { qInfo() << "selected" << date; });
    calendar.show();
    return QApplication::exec();
}
