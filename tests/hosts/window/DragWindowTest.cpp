#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>

namespace velmora {
namespace {

using Input = RealInput;

constexpr QPoint kRight(420, 40);  // where the target's window is

/// A stranger to the library that takes text.
class DropLabel : public QLabel {
public:
    DropLabel() {
        setAcceptDrops(true);
        move(kRight);
        resize(120, 80);
        show();
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->mimeData()->hasText()) event->acceptProposedAction();
    }
    void dropEvent(QDropEvent* event) override {
        setText(event->mimeData()->text());
        event->acceptProposedAction();
    }
};

/// A window whose calendar drags its date as soon as the pointer moves with the button down.
class SourceWindow : public CalendarWindow {
public:
    SourceWindow() {
        connect(&calendar(), &Widget::mouseMove, this, [this](int button) {
            if (button == 1) calendar().oleDrag();
        });
    }

    void DragTo(QPoint target, Input::End end = Input::End::Drop) {
        const QPoint outside = mapToGlobal(QPoint(width() + 20, 60));
        Input::Drag({DayOnScreen(20), outside, target}, end);
        Input::Settle();
    }
};

TEST(DragWindow, DateGoesToAWidgetThatTakesText) {
    DropLabel label;
    SourceWindow source;
    source.DragTo(CenterOf(label));
    EXPECT_EQ(label.text(), "5/15/2024");
    EXPECT_EQ(source.TakeLog(), "mouseDown complete:1");
    EXPECT_EQ(source.calendar().dateValue(), kMay15) << "the press chose nothing";
    Input::Click(source.DayOnScreen(27));
    EXPECT_EQ(source.TakeLog(), "mouseDown date:2024-05-27 day:27 mouseUp click");
}

TEST(DragWindow, EscapeEndsItWithoutADrop) {
    DropLabel label;
    SourceWindow source;
    source.DragTo(CenterOf(label), Input::End::Escape);
    EXPECT_EQ(label.text(), "");
    std::string log = source.TakeLog();
    // The key's release comes to the focus, before the drag has unwound or after.
    const std::string release = " keyUp:27";
    if (const auto at = log.find(release); at != std::string::npos) log.erase(at, release.size());
    EXPECT_EQ(log, "mouseDown complete:0");
    EXPECT_EQ(source.calendar().dateValue(), kMay15);
}

TEST(DragWindow, AnotherCalendarTakesTheDateByItself) {
    SourceWindow source;
    CalendarWindow target(Widget::MonthSelCombo, kRight);
    source.calendar().setDateValue({2024, 7, 9});
    source.TakeLog();
    source.DragTo(target.DayOnScreen(8));
    EXPECT_EQ(target.calendar().dateValue(), kMay15) << "no drops";
    EXPECT_EQ(source.TakeLog(), "mouseDown complete:0");

    target.calendar().setOleDropMode(Widget::OLEAutomatic);
    source.DragTo(target.child<QLineEdit>().mapToGlobal(QPoint(8, 8)));
    EXPECT_EQ(target.TakeLog(), "date:2024-07-09 day:9 month:7");
    EXPECT_EQ(target.calendar().dateValue(), QDate(2024, 7, 9));
    EXPECT_EQ(target.child<QLineEdit>().text(), "2024");
}

TEST(DragWindow, AnotherCalendarIsAskedAndTheSourceLearnsTheEffect) {
    SourceWindow source;
    CalendarWindow target(Widget::MonthSelNone, kRight);
    target.calendar().setOleDropMode(Widget::OLEManual);
    QObject::connect(&source.calendar(), &Widget::oleStartDrag, [](DataRef& data, qint32& effects) {
        data->SetData(1, Variant());  // announced
        effects = 3;
    });
    QObject::connect(&source.calendar(), &Widget::oleSetData,
                     [](DataRef& data, int format) { data->SetData(1, std::to_string(format)); });
    std::vector<int> feedback;
    QObject::connect(&source.calendar(), &Widget::oleGiveFeedback,
                     [&](qint32& effect) { feedback.push_back(effect); });
    QObject::connect(&target.calendar(), &Widget::oleDragOver,
                     [](DataRef&, qint32& effect) { effect = 2; });
    std::string text;
    QObject::connect(&target.calendar(), &Widget::oleDragDrop, [&](DataRef& data, qint32& effect) {
        if (const Variant value = data->GetData(1); value.As<std::string>()) {
            text = *value.As<std::string>();
        }
        effect = 2;
    });
    source.DragTo(target.DayOnScreen(8));
    EXPECT_EQ(text, "1");
    EXPECT_EQ(source.TakeLog(), "mouseDown complete:2");
    ASSERT_FALSE(feedback.empty());
    EXPECT_EQ(feedback.back(), 2);
    const std::string log = target.TakeLog();
    EXPECT_EQ(log.substr(0, 13), "over:0 over:2");
    EXPECT_EQ(log.substr(log.size() - 4), "drop");

    target.calendar().disconnect(&target.calendar(), &Widget::oleDragDrop, nullptr, nullptr);
    Input::Settle();
    source.DragTo(target.DayOnScreen(8), Input::End::Escape);
    const std::string cancelled = target.TakeLog();
    EXPECT_EQ(cancelled.substr(cancelled.size() - 6), "over:1");
}

TEST(DragWindow, EitherEndMayBeDeletedDuringTheDrag) {
    for (const bool endsTarget : {false, true}) {
        SourceWindow source;
        CalendarWindow target(Widget::MonthSelNone, kRight);
        target.setAcceptDrops(true);
        target.calendar().setOleDropMode(Widget::OLEManual);
        const QPointer<Widget> end(endsTarget ? &target.calendar() : &source.calendar());
        const QPoint day8 = target.DayOnScreen(8);
        QObject::connect(&target.calendar(), &Widget::oleDragOver, [&] { delete end; });
        source.DragTo(day8);
        EXPECT_FALSE(end);
    }
}

}  // namespace
}  // namespace velmora
