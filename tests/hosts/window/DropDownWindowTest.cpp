#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QThread>
#include <QVBoxLayout>

namespace velmora {
namespace {

using Input = RealInput;
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
        const QRect cell = CellOf(calendar, TheForm().size(), QDate(2024, 5, day));
        return TheForm().mapToGlobal(cell.center());
    }

    Box* boxes[2] = {};
};

bool IsOpen() {
    Input::Settle();
    return TheForm().isVisible();
}

class DropDownModal : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Window, DropDownModal, testing::Bool());

TEST_P(DropDownModal, OpensWithoutTakingTheFocusAndClosesOnADayOrASecondPress) {
    BoxesWindow window(GetParam());
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
    Input::Point(BoxesWindow::DayOnScreen(22));
    Input::Down();
    EXPECT_TRUE(IsOpen()) << "closes on the release";
    Input::Up();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(box.text(), "5/22/2024");
    Input::Click(window.ButtonOf(0));
    EXPECT_TRUE(IsOpen());
    Input::Click(window.ButtonOf(0));
    EXPECT_FALSE(IsOpen()) << "one press, one step";
    Input::Click(window.ButtonOf(1));
    EXPECT_TRUE(IsOpen() && window.boxes[1]->hasFocus());
}

/// Until the open calendar has noticed where it is.
void WaitForPointer() {
    QThread::msleep(70);
    Input::Settle();
}

TEST(DropDownWindow, PressOutsideClosesAndDoesNothingElse) {
    BoxesWindow window;
    QWidget other;
    other.setGeometry(600, 100, 100, 100);
    other.show();
    Input::Activate(window);
    window.boxes[0]->setFocus();
    const QPoint places[] = {CenterOf(other), window.mapToGlobal(QPoint(210, 325))};
    for (const bool visitsCalendar : {false, true}) {
        for (const QPoint place : places) {
            Input::Keys({"F4"});
            ASSERT_TRUE(IsOpen());
            if (visitsCalendar) {
                Input::Point(BoxesWindow::DayOnScreen(15));
                WaitForPointer();
                EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
                Input::Point(place);
                WaitForPointer();
            }
            Input::Click(place);
            EXPECT_FALSE(IsOpen()) << place.x() << (visitsCalendar ? " visited" : "");
            EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
            EXPECT_TRUE(window.boxes[0]->hasFocus());
        }
    }
}

}  // namespace
}  // namespace velmora
