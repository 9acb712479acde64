#include "benchmarks/Subjects.h"
#include "benchmarks/Suites.h"

#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

#include <memory>

namespace velmora {
namespace {

constexpr QSize kSizes[] = {{250, 200}, {400, 300}, {1600, 1200}};
constexpr QSize kUsualSize{400, 300};

QImage CanvasOf(QSize size, int ratio) {
    QImage canvas(size * ratio, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::white);
    return canvas;
}

/// A calendar in a window of its size.
template <class Subject>
class Stage {
public:
    using Widget = typename Subject::Widget;

    explicit Stage(QSize size, Decor decor = Decor::None) {
        m_window.resize(size);
        m_calendar = new Widget(&m_window);
        m_calendar->setGeometry(QRect(QPoint(), size));
        Subject::Select(*m_calendar, kShownDate);
        DecorateMonth<Subject>(*m_calendar, kShownDate, decor, "Meeting");
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
    for ([[maybe_unused]] auto step : state) {
        work(round);
        round = 1 - round;
    }
}

/// Of the plain painter: the cells of a month, and what a day has besides its number.
class PlainGrid {
public:
    explicit PlainGrid(QSize size) : m_width(size.width() / 7), m_height(size.height() / 6) {}

    QRect Cell(int i) const { return {i % 7 * m_width, i / 7 * m_height, m_width, m_height}; }

    void PaintCell(QPainter& painter, int i, Decor decor, const QString& caption) const {
        const QRect cell = Cell(i);
        const bool isDecorated = decor != Decor::None && i < 31;
        painter.fillRect(cell, isDecorated ? DayColor(i + 1) : QColor(Qt::lightGray));
        painter.drawText(cell, Qt::AlignCenter, QString::number(10 + i));
        if (!isDecorated) return;
        painter.drawText(cell, Qt::AlignHCenter | Qt::AlignBottom, caption);
        if (decor == Decor::Pictures) painter.drawImage(cell.topLeft(), DayImage());
    }

private:
    int m_width;
    int m_height;
};

struct Scene {
    QSize size = kUsualSize;
    int ratio = 1;
    Decor decor = Decor::None;
};

template <class Subject>
void FullRepaint(benchmark::State& state, Scene scene) {
    Stage<Subject> stage(scene.size, scene.decor);
    QImage canvas = CanvasOf(scene.size, scene.ratio);
    Measure(state, stage.Window(), [&](int) { stage.Calendar().render(&canvas); });
}

/// F1: no repaint can do with less than filling its surface and copying it.
void FillAndCopy(benchmark::State& state, Scene scene) {
    QImage back = CanvasOf(scene.size, scene.ratio);
    QImage canvas = CanvasOf(scene.size, scene.ratio);
    for ([[maybe_unused]] auto step : state) {
        back.fill(Qt::lightGray);
        QPainter(&canvas).drawImage(0, 0, back);
        benchmark::DoNotOptimize(canvas.bits());
    }
}

/// F2: the least that a plain painter does for a grid of numbers with the same decorations.
void PaintPlainGrid(benchmark::State& state, Scene scene) {
    QImage canvas = CanvasOf(scene.size, scene.ratio);
    const PlainGrid grid(scene.size);
    for ([[maybe_unused]] auto step : state) {
        QPainter painter(&canvas);
        for (int i = 0; i < 42; ++i) {
            grid.PaintCell(painter, i, scene.decor, QStringLiteral("Meeting"));
        }
        benchmark::DoNotOptimize(canvas.constBits());
    }
}

/// Texts that no cache can have.
QString NewCaption() {
    static int number = 0;
    return QStringLiteral("Call ") + QString::number(++number);
}

template <class Subject>
void RepaintNewCaptions(benchmark::State& state, int ratio) {
    Stage<Subject> stage(kUsualSize);
    QImage canvas = CanvasOf(kUsualSize, ratio);
    Measure(state, stage.Window(), [&](int) {
        for (int day = 1; day <= 31; ++day) {
            Subject::Caption(stage.Calendar(), kShownDate.addDays(day - kShownDate.day()),
                             NewCaption());
        }
        stage.Calendar().render(&canvas);
    });
}

void PaintNewTexts(benchmark::State& state, int ratio) {
    QImage canvas = CanvasOf(kUsualSize, ratio);
    const PlainGrid grid(kUsualSize);
    for ([[maybe_unused]] auto step : state) {
        QPainter painter(&canvas);
        for (int i = 0; i < 42; ++i) grid.PaintCell(painter, i, Decor::Captions, NewCaption());
        benchmark::DoNotOptimize(canvas.constBits());
    }
}

template <class Subject>
void PageThroughAYear(benchmark::State& state) {
    constexpr QSize kLarge{800, 600};
    constexpr int kRatio = 3;
    Stage<Subject> stage(kLarge);
    QImage canvas = CanvasOf(kLarge, kRatio);
    Measure(state, stage.Window(), [&](int) {
        for (int month = 0; month < 12; ++month) {
            const QDate date = kShownDate.addMonths(month);
            Subject::Select(stage.Calendar(), date);
            DecorateMonth<Subject>(stage.Calendar(), date, Decor::Captions,
                                   QStringLiteral("Visit %1.#").arg(month));
            stage.Calendar().render(&canvas);
        }
    });
}

template <class Subject>
void ChangeOneDay(benchmark::State& state) {
    Stage<Subject> stage(kUsualSize, Decor::Captions);
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

/// By hand: two cells for a key, and nothing else.
class PlainWidget final : public QWidget {
public:
    explicit PlainWidget(QWidget* parent) : QWidget(parent), m_grid(kUsualSize) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        for (int i = 0; i < 42; ++i) {
            if (!event->region().intersects(m_grid.Cell(i))) continue;
            m_grid.PaintCell(painter, i, Decor::None, {});
            if (i == m_selected) painter.drawRect(m_grid.Cell(i).adjusted(0, 0, -1, -1));
        }
    }
    void keyPressEvent(QKeyEvent* event) override {
        update(m_grid.Cell(m_selected));
        m_selected += event->key() == Qt::Key_Left ? -1 : 1;
        update(m_grid.Cell(m_selected));
    }

private:
    PlainGrid m_grid;
    int m_selected = 10;
};

struct PlainSubject {
    using Widget = PlainWidget;
    static void Select(Widget&, QDate) {}
    static void Decorate(Widget&, QDate, Decor, const QString&) {}
    static QWidget& KeyReceiver(Widget& widget) { return widget; }
};

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
    void Add(const std::string& work, Side side, Function function, Targets targets = {}) {
        m_table.AddRow(work, targets);
        benchmark::RegisterBenchmark(ResultTable::BenchmarkName(work, side).c_str(), function);
    }

    /// `work` is a lambda over the subject that makes the function to measure.
    template <class Work>
    void AddBoth(const std::string& name, Targets targets, Work work) {
        Add(name, Side::Velmora, work(VelmoraSubject{}), targets);
        Add(name, Side::Qt, work(QtSubject{}), targets);
    }

private:
    ResultTable& m_table;
};

std::string SizeText(Scene scene) {
    const std::string size =
        std::to_string(scene.size.width()) + "x" + std::to_string(scene.size.height());
    return scene.ratio == 1 ? size : size + " @" + std::to_string(scene.ratio);
}

Targets TargetsOf(Scene scene) {
    if (scene.decor == Decor::None) return {};
    const bool isLarge = scene.size.width() * scene.ratio > 1000;
    if (!isLarge && scene.ratio == 1) return {{Side::Cells, 0.35}, {Side::Qt, 0.1}};
    if (!isLarge) return {{Side::Cells, 0.8}};
    return {{Side::Cells, 0.8}, {Side::Fill, 1.0}};
}

void RegisterRepaint(Registrar& registrar, Scene scene) {
    const char* const kinds[] = {"plain", "31 captions", "31 pictures"};
    const std::string name = "full repaint, " + std::string(kinds[static_cast<int>(scene.decor)]) +
                             ", " + SizeText(scene);
    registrar.AddBoth(name, TargetsOf(scene), [=]<class Subject>(Subject) {
        return [=](benchmark::State& state) { FullRepaint<Subject>(state, scene); };
    });
    registrar.Add(name, Side::Fill, [=](benchmark::State& state) { FillAndCopy(state, scene); });
    registrar.Add(name, Side::Cells,
                  [=](benchmark::State& state) { PaintPlainGrid(state, scene); });
}

void RegisterNewCaptions(Registrar& registrar, int ratio, double mostOfPlain) {
    const std::string name = "31 captions never seen, @" + std::to_string(ratio);
    registrar.AddBoth(name, {{Side::Cells, mostOfPlain}}, [=]<class Subject>(Subject) {
        return [=](benchmark::State& state) { RepaintNewCaptions<Subject>(state, ratio); };
    });
    registrar.Add(name, Side::Cells, [=](benchmark::State& state) { PaintNewTexts(state, ratio); });
}

void RegisterSelect(Registrar& registrar, const std::string& name, Targets targets, QDate other) {
    registrar.AddBoth(name, targets, [=]<class Subject>(Subject) {
        return [=](benchmark::State& state) { SelectDates<Subject>(state, kShownDate, other); };
    });
}

}  // namespace

void RegisterWidgetBenchmarks(ResultTable& table) {
    Registrar registrar(table);
    for (const int ratio : {1, 2}) {
        for (const QSize size : kSizes) {
            RegisterRepaint(registrar, {size, ratio, Decor::Captions});
        }
    }
    RegisterRepaint(registrar, {kUsualSize, 1, Decor::None});
    RegisterRepaint(registrar, {kUsualSize, 1, Decor::Pictures});
    RegisterNewCaptions(registrar, 1, 1.5);
    RegisterNewCaptions(registrar, 2, 2.0);
    registrar.AddBoth("12 captioned months, 800x600 @3", {{Side::Qt, 0.6}},
                      []<class Subject>(Subject) { return PageThroughAYear<Subject>; });
    registrar.AddBoth("one changed day to painted", {{Side::Qt, 0.2}},
                      []<class Subject>(Subject) { return ChangeOneDay<Subject>; });
    RegisterSelect(registrar, "date in the same month to painted", {}, kShownDate.addDays(1));
    RegisterSelect(registrar, "date in another month to painted", {{Side::Qt, 0.1}},
                   kShownDate.addMonths(1));
    const std::string keys = "arrow key within a month to painted";
    registrar.AddBoth(keys, {{Side::Cells, 0.8}, {Side::Qt, 0.2}},
                      []<class Subject>(Subject) { return PressArrowKeys<Subject>; });
    registrar.Add(keys, Side::Cells, PressArrowKeys<PlainSubject>);
    registrar.AddBoth("construct, show, first paint, destroy", {{Side::Qt, 0.1}},
                      []<class Subject>(Subject) { return LiveAndDie<Subject>; });
}

}  // namespace velmora
