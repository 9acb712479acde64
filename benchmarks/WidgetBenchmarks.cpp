#include "benchmarks/Subjects.h"
#include "benchmarks/Suites.h"

#include <QImage>
#include <QKeyEvent>
#include <QPainter>

#include <memory>

namespace velmora {
namespace {

constexpr QSize kSizes[] = {{250, 200}, {400, 300}, {1600, 1200}};
constexpr QSize kUsualSize{400, 300};

QImage CanvasOf(QSize size) { return {size, QImage::Format_ARGB32_Premultiplied}; }

/// A calendar in a window of its size.
template <class Subject>
class Stage {
public:
    using Widget = typename Subject::Widget;

    explicit Stage(QSize size, int decoratedDays = 0) {
        m_window.resize(size);
        m_calendar = new Widget(&m_window);
        m_calendar->setGeometry(QRect(QPoint(), size));
        Prepare<Subject>(*m_calendar, decoratedDays);
        ShowNow(m_window);
    }

    QWidget& Window() { return m_window; }
    Widget& Calendar() { return *m_calendar; }

private:
    QWidget m_window;
    Widget* m_calendar;
};

/// Runs `work` over and over; its argument alternates between 0 and 1.
template <class Work>
void Measure(benchmark::State& state, QWidget& window, Work work) {
    for (int warmUp = 0; warmUp < 4; ++warmUp) {
        const PaintCounter paints(window);
        work(warmUp % 2);
        if (paints.Count() == 0) {
            state.SkipWithError("nothing was painted");
            return;
        }
    }
    int round = 0;
    for (auto step : state) {
        work(round);
        round = 1 - round;
    }
}

template <class Subject>
void FullRepaint(benchmark::State& state, QSize size, int decoratedDays) {
    Stage<Subject> stage(size, decoratedDays);
    QImage canvas = CanvasOf(size);
    Measure(state, stage.Window(), [&](int) { stage.Calendar().render(&canvas); });
}

/// F1: no repaint can do with less than filling its surface and copying it.
void FillAndCopy(benchmark::State& state, QSize size) {
    QImage back = CanvasOf(size);
    QImage canvas = CanvasOf(size);
    for (auto step : state) {
        back.fill(Qt::lightGray);
        QPainter(&canvas).drawImage(0, 0, back);
        benchmark::DoNotOptimize(canvas.bits());
    }
}

/// F2: the least that a plain painter does for a grid of numbers.
void FillAndLabelCells(benchmark::State& state, QSize size) {
    QImage canvas = CanvasOf(size);
    const int width = size.width() / 7;
    const int height = size.height() / 6;
    for (auto step : state) {
        QPainter painter(&canvas);
        for (int cell = 0; cell < 42; ++cell) {
            const QRect rect(cell % 7 * width, cell / 7 * height, width, height);
            painter.fillRect(rect, Qt::lightGray);
            painter.drawText(rect, Qt::AlignCenter, QString::number(10 + cell));
        }
        benchmark::DoNotOptimize(canvas.constBits());
    }
}

template <class Subject>
void ChangeOneDay(benchmark::State& state) {
    Stage<Subject> stage(kUsualSize, 31);
    const QDate date = kShownDate.addDays(5);
    Measure(state, stage.Window(), [&](int round) {
        Subject::Color(stage.Calendar(), date, round ? QColor(Qt::yellow) : QColor(Qt::green));
        Flush();
    });
}

template <class Subject>
void SelectDates(benchmark::State& state, QDate first, QDate second) {
    Stage<Subject> stage(kUsualSize);
    Measure(state, stage.Window(), [&](int round) {
        Subject::Select(stage.Calendar(), round ? first : second);
        Flush();
    });
}

template <class Subject>
void PressArrowKeys(benchmark::State& state) {
    Stage<Subject> stage(kUsualSize);
    QWidget& receiver = Subject::KeyReceiver(stage.Calendar());
    Measure(state, stage.Window(), [&](int round) {
        QKeyEvent press(QEvent::KeyPress, round ? Qt::Key_Left : Qt::Key_Right, Qt::NoModifier);
        QCoreApplication::sendEvent(&receiver, &press);
        Flush();
    });
}

template <class Subject>
void LiveAndDie(benchmark::State& state) {
    QWidget window;
    window.resize(kUsualSize);
    ShowNow(window);
    Measure(state, window, [&](int) {
        const auto calendar = std::make_unique<typename Subject::Widget>(&window);
        calendar->resize(kUsualSize);
        calendar->show();
        Flush();
    });
}

class Registrar {
public:
    explicit Registrar(ResultTable& table) : m_table(table) {}

    template <class Function>
    void Add(const std::string& work, Side side, Function function, Target target = {}) {
        m_table.AddRow(work, target);
        benchmark::RegisterBenchmark(ResultTable::BenchmarkName(work, side).c_str(), function);
    }

    /// `work` is a lambda over the subject that makes the function to measure.
    template <class Work>
    void AddBoth(const std::string& name, Target target, Work work) {
        Add(name, Side::Velmora, work(VelmoraSubject{}), target);
        Add(name, Side::Qt, work(QtSubject{}), target);
    }

private:
    ResultTable& m_table;
};

void RegisterRepaint(Registrar& registrar, QSize size, int days) {
    const std::string name = "full repaint, " + std::to_string(days) + " decorated, " +
                             std::to_string(size.width()) + "x" + std::to_string(size.height());
    const Target target = days > 0 ? Target{1, 10} : Target{};
    registrar.AddBoth(name, target, [=]<class Subject>(Subject) {
        return [=](benchmark::State& state) { FullRepaint<Subject>(state, size, days); };
    });
    registrar.Add(name, Side::Fill, [=](benchmark::State& state) { FillAndCopy(state, size); });
    registrar.Add(name, Side::Cells,
                  [=](benchmark::State& state) { FillAndLabelCells(state, size); });
}

void RegisterSelect(Registrar& registrar, const std::string& name, Target target, QDate other) {
    registrar.AddBoth(name, target, [=]<class Subject>(Subject) {
        return [=](benchmark::State& state) { SelectDates<Subject>(state, kShownDate, other); };
    });
}

}  // namespace

void RegisterWidgetBenchmarks(ResultTable& table) {
    Registrar registrar(table);
    for (const QSize size : kSizes) {
        for (const int days : {0, 31}) RegisterRepaint(registrar, size, days);
    }
    registrar.AddBoth("one changed day to painted", {0, 5},
                      []<class Subject>(Subject) { return ChangeOneDay<Subject>; });
    RegisterSelect(registrar, "date in the same month to painted", {}, kShownDate.addDays(1));
    RegisterSelect(registrar, "date in another month to painted", {0, 10}, kShownDate.addMonths(1));
    registrar.AddBoth("arrow key within a month to painted", {0, 5},
                      []<class Subject>(Subject) { return PressArrowKeys<Subject>; });
    registrar.AddBoth("construct, show, first paint, destroy", {0, 10},
                      []<class Subject>(Subject) { return LiveAndDie<Subject>; });
}

}  // namespace velmora
