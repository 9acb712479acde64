#include "tests/hosts/window/RealInput.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QVBoxLayout>

#include <stdexcept>

namespace velmora {
namespace {

QStringList To(QPoint screen) {
    return {"mousemove", QString::number(screen.x()), QString::number(screen.y())};
}

}  // namespace

void RealInput::Run(const QStringList& arguments) {
    if (QGuiApplication::platformName() != "xcb") {
        throw std::runtime_error("window tests need a display (QT_QPA_PLATFORM=xcb)");
    }
    QProcess tool;
    QEventLoop loop;
    QObject::connect(&tool, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&tool, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    tool.start("xdotool", arguments);
    loop.exec();
    if (tool.error() == QProcess::FailedToStart || tool.exitCode() != 0) {
        throw std::runtime_error("xdotool " + arguments.join(' ').toStdString() + ": " +
                                 tool.readAllStandardError().toStdString());
    }
    Settle();
}

void RealInput::Drag(const QList<QPoint>& path, End end) {
    const QStringList pause{"sleep", "0.04"};
    QStringList all = To(path.front()) + QStringList{"mousedown", "1"} + pause;
    for (const QPoint point : path) {
        // A drag is asked about a place only once the pointer moves there.
        all += To(point + QPoint(3, 3)) + pause + To(point + QPoint(6, 5)) + pause;
    }
    if (end == End::Escape) all += QStringList{"key", "Escape"} + pause;
    Run(all + QStringList{"mouseup", "1"});
}

/// Asking the server for the pointer brings in all that it has sent before.
void RealInput::Settle() {
    constexpr int kQuiet = 15;  // milliseconds, longer than the events of a pop-up take to come
    QElapsedTimer quiet;
    quiet.start();
    while (quiet.elapsed() < kQuiet) {
        QCursor::pos();
        if (QApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents)) quiet.restart();
    }
}

void RealInput::Point(QPoint screen) { Run(To(screen)); }

void RealInput::Down() { Run({"mousedown", "1"}); }

void RealInput::Up() { Run({"mouseup", "1"}); }

void RealInput::Click(QPoint screen) {
    Point(screen);
    Run({"click", "1"});
}

void RealInput::Keys(const QStringList& keys) { Run(QStringList{"key"} + keys); }

void RealInput::Activate(QWidget& window) {
    window.activateWindow();
    QElapsedTimer timer;
    for (timer.start(); !window.isActiveWindow();) {
        if (timer.hasExpired(5000)) throw std::runtime_error("the window does not become active");
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    Settle();
}

CalendarWindow::CalendarWindow(Widget::MonthYearSelStyle style, QPoint topLeft)
    : before(*new QLineEdit(this)), calendar(*new Widget(this)), after(*new QLineEdit(this)) {
    QApplication::setStyle("Fusion");
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(&before);
    layout->addWidget(&calendar, 1);
    layout->addWidget(&after);
    calendar.setMonthYearSelStyle(style);
    resize(330, 330);
    RealInput::Point({1, 1});
    move(topLeft);
    show();
    Prepare(calendar);
    RealInput::Activate(*this);
    calendar.setFocus();
    RealInput::Settle();
}

QPoint CalendarWindow::DayOnScreen(int day) {
    const QRect cell = CellOf(calendar.calendar(), calendar.size(), QDate(2024, 5, day));
    return calendar.mapToGlobal(cell.center());
}

}  // namespace velmora
