#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/QtDropDownForm.h"
#include "hosts/qt/VmCalDropDownWidget.h"
#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QThread>
#include <QVBoxLayout>

#include <functional>

namespace velmora {
namespace {

using Input = RealInput;
using Box = VmCalDropDownWidget;

QtDropDownForm& TheForm() { return *QtDropDownForm::Shared(); }

/// Two boxes on one window.
class BoxesWindow : public QWidget {
public:
    explicit BoxesWindow(QWidget* parent = nullptr) : QWidget(parent) {
        QApplication::setStyle("Fusion");
        QApplication::setDoubleClickInterval(0);
        auto* const layout = new QVBoxLayout(this);
        for (Box*& box : boxes) {
            box = new Box;
            box->setDateValue(QDateTime(kMay15, QTime(12, 0)));
            layout->addWidget(box);
            connect(box, &Box::closeUp, this, [this] { ++closings; });
        }
        layout->addStretch();
        setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        setPalette(TestPalette());
        resize(220, 330);
        move(60, 60);
        Input::Point({1, 1});
        show();
        Input::Activate(*this);
        boxes[0]->setFocus();
        Input::Settle();
    }

    /// While their signals can still be noted.
    ~BoxesWindow() override { qDeleteAll(std::begin(boxes), std::end(boxes)); }

    QPoint ButtonOf(int index) const {
        const Box& box = *boxes[index];
        return box.mapToGlobal(QPoint(box.width() - 9, box.height() / 2));
    }
    static QPoint DayOnScreen(int day) {
        VmCalendar& calendar = TheForm().Form().Calendar();
        const QRect cell = CellOf(calendar, TheForm().size(), QDate(2024, 5, day));
        return TheForm().mapToGlobal(cell.center());
    }

    Box* boxes[2] = {};
    int closings = 0;
};

bool IsOpen() {
    Input::Settle();
    return TheForm().isVisible();
}

TEST(DropDownWindow, OpensByButtonAndKeysWithoutTakingTheFocus) {
    BoxesWindow window;
    const std::function<void()> openings[] = {
        [&] { Input::Click(window.ButtonOf(0)); },
        [&] { Input::Keys({"F4"}); },
        [&] { Input::Keys({"alt+Down"}); },
        [&] { window.boxes[0]->setDropDownState(true); },
    };
    for (const auto& open : openings) {
        const int before = window.closings;
        open();
        ASSERT_TRUE(IsOpen());
        EXPECT_TRUE(window.boxes[0]->hasFocus() && window.isActiveWindow());
        EXPECT_EQ(TheForm().pos(),
                  window.boxes[0]->mapToGlobal(QPoint(0, window.boxes[0]->height())));
        Input::Keys({"Right", "Escape"});
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(window.closings, before + 1);
    }
    EXPECT_EQ(window.boxes[0]->dateValue(), QDateTime(QDate(2024, 5, 19), QTime(12, 0)));
    EXPECT_EQ(window.boxes[0]->text(), "5/19/2024");
}

TEST(DropDownWindow, DayIsPickedByMouseAlone) {
    BoxesWindow window;
    Input::Click(window.ButtonOf(0));
    ASSERT_TRUE(IsOpen());
    const QPoint day = BoxesWindow::DayOnScreen(22);
    Input::Point(day);
    Input::Down();
    EXPECT_TRUE(IsOpen()) << "closes on the release";
    Input::Up();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(window.boxes[0]->text(), "5/22/2024");
    Input::Click(window.ButtonOf(0));
    EXPECT_TRUE(IsOpen());
    Input::Click(window.ButtonOf(0));
    EXPECT_FALSE(IsOpen()) << "one press, one step";
    EXPECT_EQ(window.closings, 2);
    Input::Click(window.ButtonOf(1));
    EXPECT_TRUE(IsOpen() && window.boxes[1]->hasFocus());
}

TEST(DropDownWindow, PressOutsideClosesAndDoesNothingElse) {
    BoxesWindow window;
    QWidget other;
    other.setGeometry(600, 100, 100, 100);
    other.show();
    Input::Activate(window);
    window.boxes[0]->setFocus();
    const QPoint places[] = {other.mapToGlobal(QPoint(50, 50)), QPoint(1000, 900),
                             window.mapToGlobal(QPoint(210, 325))};
    for (const bool visitsCalendar : {false, true}) {
        for (const QPoint place : places) {
            Input::Keys({"F4"});
            ASSERT_TRUE(IsOpen());
            if (visitsCalendar) {
                Input::Point(BoxesWindow::DayOnScreen(15));
                QThread::msleep(70);  // until the pointer has been noticed
                Input::Settle();
                EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
                Input::Point(place);
                QThread::msleep(70);
                Input::Settle();
            }
            Input::Click(place);
            EXPECT_FALSE(IsOpen()) << place.x() << (visitsCalendar ? " visited" : "");
            EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
            EXPECT_TRUE(window.boxes[0]->hasFocus());
        }
    }
    EXPECT_EQ(window.closings, 6);
}

TEST(DropDownWindow, LiesOnTopOfOtherWindowsAndOfModalDialogs) {
    QWidget other;
    other.setGeometry(60, 150, 300, 200);
    QPalette red;
    red.setColor(QPalette::Window, Qt::red);
    other.setPalette(red);
    other.show();
    QDialog dialog;
    dialog.setModal(true);
    dialog.move(60, 60);
    auto* const box = new Box(&dialog);
    box->setDateValue(QDateTime(kMay15, QTime(12, 0)));
    dialog.resize(200, 60);
    dialog.show();
    Input::Activate(dialog);
    box->setFocus();
    other.raise();
    Input::Keys({"F4"});
    ASSERT_TRUE(IsOpen());
    const QImage image = ScreenOf(TheForm());
    int covered = 0;
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4) {
            covered += image.pixel(x, y) == QColor(Qt::red).rgb() ? 1 : 0;
        }
    }
    EXPECT_EQ(covered, 0);
    Input::Click(BoxesWindow::DayOnScreen(8));
    EXPECT_EQ(box->dateValue().date(), QDate(2024, 5, 8));
    EXPECT_FALSE(IsOpen());
}

}  // namespace
}  // namespace velmora
