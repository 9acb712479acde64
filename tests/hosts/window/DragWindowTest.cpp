#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Input = RealInput;

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
    int feedback = 0;
    QObject::connect(&source.calendar, &Widget::oleGiveFeedback,
                     [&](VmDragArguments* drag) { feedback = drag->effect(); });
    std::vector<int> states;
    QObject::connect(&target.calendar, &Widget::oleDragOver, [&](VmDragArguments* drag) {
        drag->setEffect(2);
        states.push_back(drag->state());
    });
    Variant text;
    QObject::connect(&target.calendar, &Widget::oleDragDrop, [&](VmDragArguments* drag) {
        text = drag->data()->GetData(1);
        drag->setEffect(2);
    });
    source.DragTo(target.DayOnScreen(8));
    EXPECT_EQ(text, Variant("1"));
    EXPECT_EQ(feedback, 2);
    ASSERT_FALSE(states.empty());
    EXPECT_EQ(states.front(), 0);
    EXPECT_EQ(states.back(), 2);
    source.DragTo(target.DayOnScreen(8), Input::End::Escape);
    EXPECT_EQ(states.back(), 1);
    EXPECT_EQ(source.effects, (std::vector{2, 0}));
}

TEST(DragWindow, EitherEndMayBeDeletedDuringTheDrag) {
    for (const bool endsTarget : {false, true}) {
        SourceWindow source;
        CalendarWindow target(Widget::MonthSelNone, kRight);
        target.setAcceptDrops(true);
        target.calendar.setOleDropMode(Widget::OLEManual);
        const QPointer<Widget> end(endsTarget ? &target.calendar : &source.calendar);
        const QPoint day8 = target.DayOnScreen(8);
        QObject::connect(&target.calendar, &Widget::oleDragOver, [&] { delete end; });
        source.DragTo(day8);
        EXPECT_FALSE(end);
    }
}

}  // namespace
}  // namespace velmora
