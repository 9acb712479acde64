#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "tests/hosts/WidgetSupport.h"

#include <QtCore/qtestsupport_core.h>
#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QProcess>
#include <QVBoxLayout>

#include <stdexcept>

namespace velmora {
namespace {

/// Pointer and keyboard of the display, moved by xdotool. Each call returns when the program has
/// handled what it caused. A missing tool, or one that fails, throws and so fails the case.
class Input {
public:
    static void Point(QPoint screen) { Run(To(screen)); }
    static void Click(QPoint screen) { Run(To(screen) + QStringList{"click", "1"}); }
    /// Names as xdotool knows them: "Right", "alt+Down", "2".
    static void Keys(const QStringList& keys) { Run(QStringList{"key"} + keys); }
    /// Down at the first point, over the others with a pause at each, and up, all in one program
    /// run, because a drag keeps the caller until it ends. Escape comes before the release.
    enum class End { Drop, Escape };
    static void Drag(const QList<QPoint>& path, End end = End::Drop) {
        const QStringList pause{"sleep", "0.04"};
        QStringList all = To(path.front()) + QStringList{"mousedown", "1"} + pause;
        for (const QPoint point : path) {
            // A drag is asked about a place only once the pointer moves there.
            all += To(point + QPoint(3, 3)) + pause + To(point + QPoint(6, 5)) + pause;
        }
        if (end == End::Escape) all += QStringList{"key", "Escape"} + pause;
        Run(all + QStringList{"mouseup", "1"});
    }
    /// For a window without a manager.
    static void Activate(QWidget& window) {
        window.activateWindow();
        if (!QTest::qWaitFor([&] { return window.isActiveWindow(); })) {
            throw std::runtime_error("the window does not become active");
        }
        Settle();
    }
    /// Handles events until none have come for a while. Asking the server for the pointer brings in
    /// all that it has sent before.
    static void Settle() {
        constexpr int kQuiet = 15;  // milliseconds, longer than the events of a pop-up take to come
        QElapsedTimer quiet;
        quiet.start();
        while (quiet.elapsed() < kQuiet) {
            QCursor::pos();
            if (QApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents))
                quiet.restart();
        }
    }

private:
    static QStringList To(QPoint screen) {
        return {"mousemove", QString::number(screen.x()), QString::number(screen.y())};
    }
    static void Run(const QStringList& arguments) {
        if (QGuiApplication::platformName() != "xcb") {
            throw std::runtime_error("window tests need a display (QT_QPA_PLATFORM=xcb)");
        }
        QProcess tool;
        QEventLoop loop;
        QObject::connect(&tool, &QProcess::stateChanged, &loop, &QEventLoop::quit);
        for (tool.start("xdotool", arguments); tool.state() != QProcess::NotRunning;) loop.exec();
        if (tool.error() == QProcess::FailedToStart || tool.exitCode() != 0) {
            throw std::runtime_error("xdotool: " + tool.readAllStandardError().toStdString());
        }
        Settle();
    }
};

/// On the screen.
QPoint CenterOf(const QWidget& widget) { return widget.mapToGlobal(widget.rect().center()); }

/// A window of two line edits with a calendar between them. Shown, active and with the pointer
/// outside it.
class CalendarWindow : public QWidget {
public:
    explicit CalendarWindow(Widget::MonthYearSelStyle style = Widget::MonthSelNone,
                            QPoint topLeft = {40, 40})
        : before(*new QLineEdit(this)), calendar(*new Widget(this)), after(*new QLineEdit(this)) {
        QApplication::setStyle("Fusion");
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(&before);
        layout->addWidget(&calendar, 1);
        layout->addWidget(&after);
        calendar.setMonthYearSelStyle(style);
        resize(330, 330);
        Input::Point({1, 1});
        move(topLeft);
        show();
        Prepare(calendar);
        Input::Activate(*this);
        calendar.setFocus();
        Input::Settle();
    }

    template <class Child>
    Child& child() {
        return *calendar.findChildren<Child*>(Qt::FindDirectChildrenOnly).value(0);
    }
    /// Screen coordinates of a day's cell in May 2024.
    QPoint DayOnScreen(int day) {
        const QRect cell = CellOf(calendar.calendar(), QDate(2024, 5, day));
        return calendar.mapToGlobal(cell.center());
    }

    QLineEdit& before;
    Widget& calendar;
    QLineEdit& after;
};

TEST(CalendarWindow, AMonthIsChosenByTheMouse) {
    CalendarWindow window(Widget::MonthSelCombo);
    auto& list = window.child<QComboBox>();
    Input::Click(CenterOf(list));
    auto* const view = list.view();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->isVisible(); }));
    Input::Settle();
    const QRect august = view->visualRect(view->model()->index(7, 0));
    Input::Click(view->viewport()->mapToGlobal(august.center()));
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(window.calendar.shownDate().month(), 8);
    EXPECT_EQ(window.calendar.dateValue(), kMay15);
}

constexpr QPoint kRight(420, 40);  // where the target's window is

/// A window whose calendar drags its date as soon as the pointer moves with the button down.
class SourceWindow : public CalendarWindow {
public:
    SourceWindow() {
        connect(&calendar, &Widget::mouseMove, this, [this](int button) {
            if (button == 1) calendar.oleDrag();
        });
        connect(&calendar, &Widget::oleCompleteDrag, this,
                [this](VmDragArguments* drag) { effects.push_back(drag->effect()); });
    }

    void DragTo(QPoint target, Input::End end = Input::End::Drop) {
        const QPoint outside = mapToGlobal(QPoint(width() + 20, 60));
        Input::Drag({DayOnScreen(20), outside, target}, end);
        Input::Settle();
    }

    std::vector<int> effects;  // of the drags that have ended
};

TEST(DragWindow, DateGoesToATextBoxAndToAnotherCalendarByItself) {
    SourceWindow source;
    CalendarWindow target(Widget::MonthSelCombo, kRight);
    source.DragTo(CenterOf(target.before));
    EXPECT_EQ(target.before.text(), "5/15/2024");
    EXPECT_EQ(source.calendar.dateValue(), kMay15) << "the press chose nothing";
    Input::Click(source.DayOnScreen(9));
    EXPECT_EQ(source.calendar.dateValue(), QDate(2024, 5, 9));
    target.calendar.setOleDropMode(Widget::OLEAutomatic);
    source.DragTo(target.child<QLineEdit>().mapToGlobal(QPoint(8, 8)));
    EXPECT_EQ(target.calendar.dateValue(), QDate(2024, 5, 9));
    EXPECT_EQ(target.child<QLineEdit>().text(), "2024");
    EXPECT_EQ(source.effects, (std::vector{1, 1}));
}

TEST(DragWindow, AnotherCalendarIsAskedAndTheSourceLearnsTheEffect) {
    SourceWindow source;
    CalendarWindow target(Widget::MonthSelNone, kRight);
    target.calendar.setOleDropMode(Widget::OLEManual);
    QObject::connect(&source.calendar, &Widget::oleStartDrag, [](VmDragArguments* drag) {
        drag->data()->SetData(1, Variant());  // announced
        drag->setEffect(3);
    });
    QObject::connect(&source.calendar, &Widget::oleSetData, [](VmDragArguments* drag) {
        drag->data()->SetData(1, std::to_string(drag->dataFormat()));
    });
    int feedback = 0, state = 0;
    QObject::connect(&source.calendar, &Widget::oleGiveFeedback,
                     [&](VmDragArguments* drag) { feedback = drag->effect(); });
    QObject::connect(&target.calendar, &Widget::oleDragOver, [&](VmDragArguments* drag) {
        drag->setEffect(2);
        state = drag->state();
    });
    Variant text;
    QObject::connect(&target.calendar, &Widget::oleDragDrop, [&](VmDragArguments* drag) {
        text = drag->data()->GetData(1);
        drag->setEffect(2);
    });
    source.DragTo(target.DayOnScreen(8));
    EXPECT_EQ(text, Variant("1"));
    EXPECT_EQ(feedback, 2);
    source.DragTo(target.DayOnScreen(8), Input::End::Escape);
    EXPECT_EQ(state, 1);
    EXPECT_EQ(source.effects, (std::vector{2, 0}));
}

TEST(DragWindow, TheSourceMayBeDeletedDuringTheDrag) {
    SourceWindow source;
    CalendarWindow target(Widget::MonthSelNone, kRight);
    target.calendar.setOleDropMode(Widget::OLEManual);
    const QPointer<Widget> end(&source.calendar);
    QObject::connect(&target.calendar, &Widget::oleDragOver, [&] { delete end; });
    source.DragTo(target.DayOnScreen(8));
    EXPECT_FALSE(end);
}

using Box = VmCalDropDownWidget;

QtDropDownForm& TheForm() { return *QtDropDownForm::Shared(); }

/// Two boxes on one window.
class BoxesWindow : public QDialog {
public:
    explicit BoxesWindow(bool modal = false) {
        setModal(modal);
        QApplication::setStyle("Fusion");
        QApplication::setDoubleClickInterval(0);
        auto* const layout = new QVBoxLayout(this);
        for (Box*& box : boxes) {
            box = new Box;
            box->setDateValue(QDateTime(kMay15, QTime(12, 0)));
            layout->addWidget(box);
        }
        layout->addStretch();
        setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        resize(220, 330);
        move(60, 60);
        Input::Point({1, 1});
        show();
        Input::Activate(*this);
        boxes[0]->setFocus();
        Input::Settle();
    }

    QPoint ButtonOf(int index) const {
        const Box& box = *boxes[index];
        return box.mapToGlobal(QPoint(box.width() - 9, box.height() / 2));
    }
    static QPoint DayOnScreen(int day) {
        VmCalendar& calendar = TheForm().Form().Calendar();
        const QRect cell = CellOf(calendar, QDate(2024, 5, day));
        return TheForm().mapToGlobal(cell.center());
    }

    Box* boxes[2] = {};
};

bool IsOpen() {
    Input::Settle();
    return TheForm().isVisible();
}

TEST(DropDownWindow, OpensWithoutTakingTheFocusAndClosesOnADayOrASecondPress) {
    for (const bool modal : {false, true}) {
        BoxesWindow window(modal);
        Box& box = *window.boxes[0];
        Input::Click(window.ButtonOf(0));
        ASSERT_TRUE(IsOpen());
        EXPECT_TRUE(box.hasFocus() && window.isActiveWindow());
        EXPECT_EQ(TheForm().pos(), box.mapToGlobal(QPoint(0, box.height())));
        Input::Keys({"Right", "Escape"});
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(box.text(), "5/16/2024");

        Input::Keys({"alt+Down"});
        ASSERT_TRUE(IsOpen());
        Input::Click(BoxesWindow::DayOnScreen(22));
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(box.text(), "5/22/2024");
        Input::Click(window.ButtonOf(0));
        EXPECT_TRUE(IsOpen());
        Input::Click(window.ButtonOf(0));
        EXPECT_FALSE(IsOpen()) << "one press, one step";
        Input::Click(window.ButtonOf(1));
        EXPECT_TRUE(IsOpen() && window.boxes[1]->hasFocus());
    }
}

/// The open calendar notices where the pointer is.
bool Grabs(bool wanted) {
    return QTest::qWaitFor([=] { return (QWidget::mouseGrabber() != nullptr) == wanted; });
}

TEST(DropDownWindow, PressOutsideClosesAndDoesNothingElse) {
    BoxesWindow window;
    QWidget other;
    other.setGeometry(600, 100, 100, 100);
    other.show();
    Input::Activate(window);
    window.boxes[0]->setFocus();
    const QPoint places[] = {CenterOf(other), window.mapToGlobal(QPoint(210, 325))};
    for (const QPoint place : places) {
        Input::Keys({"F4"});
        ASSERT_TRUE(IsOpen());
        Input::Point(BoxesWindow::DayOnScreen(15));
        EXPECT_TRUE(Grabs(false));
        Input::Point(place);
        EXPECT_TRUE(Grabs(true));
        Input::Click(place);
        EXPECT_FALSE(IsOpen()) << place.x();
        EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
        EXPECT_TRUE(window.boxes[0]->hasFocus());
    }
}

}  // namespace
}  // namespace velmora
