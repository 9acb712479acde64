#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Suites.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/values/QtLocale.h"
#include "hosts/qt/windows/QtDropDownForm.h"

#include <QApplication>
#include <QDateEdit>
#include <QImage>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>

namespace velmora {
namespace {

void Send(QWidget& widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &press);
}

void OpenBox(benchmark::State& state) {
    QWidget window;
    window.resize(300, 100);
    VmCalDropDownWidget box(&window);
    box.setDateValue(QDateTime(kShownDate, QTime(0, 0)));
    ShowNow(window);
    QtDropDownForm& form = *QtDropDownForm::Shared();
    for ([[maybe_unused]] auto step : state) {
        Send(box, Qt::Key_F4);
        QCoreApplication::processEvents();
        if (!form.isVisible()) return state.SkipWithError("nothing has opened");
        state.PauseTiming();
        Send(box, Qt::Key_F4);
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

void OpenDateEdit(benchmark::State& state) {
    QWidget window;
    window.resize(300, 100);
    QDateEdit edit(kShownDate, &window);
    edit.setCalendarPopup(true);
    edit.resize(150, 24);
    ShowNow(window);
    const QPointF arrow(140, 12);
    for ([[maybe_unused]] auto step : state) {
        QMouseEvent press(QEvent::MouseButtonPress, arrow, edit.mapToGlobal(arrow), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&edit, &press);
        QCoreApplication::processEvents();
        QWidget* const popup = QApplication::activePopupWidget();
        if (!popup) return state.SkipWithError("nothing has opened");
        state.PauseTiming();
        popup->close();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

/// What Qt takes to show any window of that size, painted or not.
void ShowEmptyWindow(benchmark::State& state) {
    QWidget window(nullptr, Qt::ToolTip);
    window.setAttribute(Qt::WA_OpaquePaintEvent);
    window.resize(250, 200);
    for ([[maybe_unused]] auto step : state) {
        window.show();
        QCoreApplication::processEvents();
        state.PauseTiming();
        window.hide();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

void LoadAndRepaint(benchmark::State& state) {
    VmCalendarWidget calendar;
    calendar.resize(calendar.sizeHint());
    QImage canvas(calendar.size(), QImage::Format_ARGB32_Premultiplied);
    const Dates dates(DateLocaleOf(QLocale()), LocalNow);
    CProperties properties(dates);
    properties.DateValue(Variant(ToDate(kShownDate)));
    for ([[maybe_unused]] auto step : state) {
        calendar.calendar().SetProps(properties);
        calendar.render(&canvas);
    }
}

}  // namespace

void RegisterDropDownBenchmarks(ResultTable& table) {
    const std::string open = "open the drop-down to painted";
    const std::string load = "SetProps and one full repaint";
    const std::string empty = "show an empty window of that size";
    table.AddRow(open, {{Side::Qt, 0.05}});
    table.AddRow(load);
    table.AddRow(empty);
    const auto add = [](const std::string& work, Side side, auto function) {
        benchmark::RegisterBenchmark(ResultTable::BenchmarkName(work, side).c_str(), function);
    };
    add(open, Side::Velmora, OpenBox);
    add(open, Side::Qt, OpenDateEdit);
    add(load, Side::Velmora, LoadAndRepaint);
    add(empty, Side::Qt, ShowEmptyWindow);
}

}  // namespace velmora
