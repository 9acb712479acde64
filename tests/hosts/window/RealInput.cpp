#include "tests/hosts/window/RealInput.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPaintEvent>
#include <QProcess>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <stdexcept>
#include <utility>

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
    if (tool.error() == QProcess::FailedToStart) throw std::runtime_error("xdotool is missing");
    if (tool.exitCode() != 0) {
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

void RealInput::Roll(QPoint screen, bool down) {
    Point(screen);
    Run({"click", down ? "5" : "4"});
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

QImage ScreenOf(const QWidget& window) {
    RealInput::Settle();
    QScreen* const screen = window.screen();
    const QRect area(window.mapToGlobal(QPoint()), window.size());
    return screen->grabWindow(0, area.x(), area.y(), area.width(), area.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QRect Difference(const QImage& before, const QImage& after) {
    QRect area;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y)) area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

CalendarWindow::CalendarWindow(Widget::MonthYearSelStyle style, QPoint topLeft)
    : m_calendar(nullptr), m_before(new QLineEdit(this)), m_after(nullptr) {
    QApplication::setStyle("Fusion");
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_before);
    m_calendar = new Widget(this);
    layout->addWidget(m_calendar, 1);
    m_after = new QLineEdit(this);
    layout->addWidget(m_after);
    m_calendar->setMonthYearSelStyle(style);
    resize(330, 330);
    RealInput::Point({1, 1});
    move(topLeft);
    show();
    Prepare(*m_calendar);
    RealInput::Activate(*this);
    m_calendar->setFocus();
    m_calendar->installEventFilter(this);
    RealInput::Settle();
    NoteSignals();
    m_painted = {};
}

QPoint CalendarWindow::DayOnScreen(int day, int month) {
    return m_calendar->mapToGlobal(CellOf(*m_calendar, QDate(2024, month, day)).center());
}

QPoint CalendarWindow::BarOnScreen(QStyle::SubControl part) {
    auto& bar = child<QScrollBar>();
    return bar.mapToGlobal(CenterOf(bar, part));
}

std::string CalendarWindow::TakeLog() {
    const std::string text = m_log.join(' ').toStdString();
    m_log.clear();
    return text;
}

QRegion CalendarWindow::TakePainted() {
    RealInput::Settle();
    return std::exchange(m_painted, {});
}

bool CalendarWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint) m_painted |= static_cast<QPaintEvent*>(event)->region();
    return QWidget::eventFilter(watched, event);
}

void CalendarWindow::NoteSignals() {
    const auto plain = [this](const char* name) { return [this, name] { m_log.push_back(name); }; };
    const auto number = [this](const char* name) {
        return [this, name](int value) { m_log.push_back(name + QString::number(value)); };
    };
    connect(m_calendar, &Widget::keyDown, this, number("keyDown:"));
    connect(m_calendar, &Widget::keyUp, this, number("keyUp:"));
    connect(m_calendar, &Widget::mouseDown, this, plain("mouseDown"));
    connect(m_calendar, &Widget::mouseUp, this, plain("mouseUp"));
    connect(m_calendar, &Widget::click, this, plain("click"));
    connect(m_calendar, &Widget::dblClick, this, plain("dblClick"));
    connect(m_calendar, &Widget::dateChanged, this,
            [this](QDate date) { m_log.push_back("date:" + date.toString(Qt::ISODate)); });
    connect(m_calendar, &Widget::dayChanged, this, number("day:"));
    connect(m_calendar, &Widget::monthChanged, this, number("month:"));
    connect(m_calendar, &Widget::yearChanged, this, number("year:"));
    connect(m_calendar, &Widget::oleCompleteDrag, this, number("complete:"));
    connect(m_calendar, &Widget::oleDragOver, this,
            [this](DataRef&, qint32&, int, int, float, float, int state) {
                m_log.push_back("over:" + QString::number(state));
            });
    connect(m_calendar, &Widget::oleDragDrop, this, plain("drop"));
}

}  // namespace velmora
