#include "tests/hosts/WidgetSupport.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>

#include <functional>

namespace velmora {
namespace {

/// Whether the widget has used it.
bool IsUsed(QWidget* widget, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

TEST(VmCalendarWidget, KeyIsAcceptedWhenUsedAndDeleteIsNoCharacter) {
    Widget widget;
    Prepare(widget);
    int characters = 0;
    QObject::connect(&widget, &Widget::keyPress, [&] { ++characters; });
    EXPECT_TRUE(IsUsed(&widget, Qt::Key_Right));
    EXPECT_TRUE(IsUsed(&widget, Qt::Key_PageDown));
    EXPECT_FALSE(IsUsed(&widget, Qt::Key_A, "a"));
    EXPECT_FALSE(IsUsed(&widget, Qt::Key_Delete, "\x7f"));
    EXPECT_EQ(characters, 1);
}

/// What they do not use is for the dialog around; arrows and their company never leave them.
TEST(VmCalendarWidget, SelectorsUseTheirKeysAndLeaveTheRest) {
    QWidget window;
    auto* const widget = new Widget(&window);
    widget->setMonthYearSelStyle(Widget::MonthSelCombo);
    Prepare(*widget);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    auto* const year = widget->findChild<QLineEdit*>();
    auto* const list = widget->findChild<QComboBox*>();
    int keys = 0;
    QObject::connect(widget, &Widget::keyDown, [&] { ++keys; });
    for (QWidget* const child : {static_cast<QWidget*>(year), static_cast<QWidget*>(list)}) {
        child->setFocus();
        for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End}) {
            EXPECT_TRUE(IsUsed(child, key)) << key;
        }
        EXPECT_FALSE(IsUsed(child, Qt::Key_F5));
    }
    year->setFocus();
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        EXPECT_FALSE(IsUsed(year, key)) << "nothing was typed";
        EXPECT_TRUE(IsUsed(year, Qt::Key_1, "1"));
        EXPECT_TRUE(IsUsed(year, key));
        QApplication::processEvents();
    }
    SendMouse(year, QEvent::MouseMove, {3, 3}, Qt::NoButton);
    SendKey(year, QEvent::KeyRelease, Qt::Key_F5);
    EXPECT_EQ(keys, 0);
}

TEST(VmCalendarWidget, KeysHaveVirtualCodesAndShiftBits) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        int code;
        int shift;
    };
    Widget widget;
    Prepare(widget);
    int code = 0;
    int shift = 0;
    QObject::connect(&widget, &Widget::keyDown, [&](qint16& keyCode, qint16& state) {
        code = keyCode;
        shift = state;
    });
    for (const Case& c :
         {Case{Qt::Key_Left, Qt::KeypadModifier, 37, 0},
          Case{Qt::Key_End, Qt::ShiftModifier, 35, 1}, Case{Qt::Key_F12, Qt::AltModifier, 123, 4},
          Case{Qt::Key_Z, Qt::ShiftModifier | Qt::ControlModifier, 90, 3},
          Case{Qt::Key_7, {}, 55, 0}, Case{Qt::Key_7, Qt::KeypadModifier, 103, 0},
          Case{Qt::Key_Enter, Qt::KeypadModifier, 13, 0}}) {
        SendKey(&widget, QEvent::KeyPress, c.key, c.modifiers);
        EXPECT_EQ(code, c.code);
        EXPECT_EQ(shift, c.shift);
    }
}

TEST(VmCalendarWidget, APressIsLostWithTheWindow) {
    for (const QEvent::Type how : {QEvent::WindowDeactivate, QEvent::Hide}) {
        Widget widget;
        Prepare(widget);
        int clicks = 0;
        QObject::connect(&widget, &Widget::click, [&] { ++clicks; });
        const QPoint may20 = CellOf(widget, QDate(2024, 5, 20)).center();
        SendMouse(&widget, QEvent::MouseButtonPress, may20);
        QEvent event(how);
        QApplication::sendEvent(&widget, &event);
        SendMouse(&widget, QEvent::MouseButtonRelease, may20);
        EXPECT_EQ(clicks, 0);
        EXPECT_EQ(widget.dateValue(), kMay15);
    }
}

/// A drag over the window around goes on after the calendar's end.
void Drop(Widget* widget) {
    QMimeData content;
    content.setText("x");
    widget->setOleDropMode(Widget::OLEManual);
    const QPointer<QWidget> window(widget->window());
    window->setAcceptDrops(true);
    DragAndDrop(widget, content);
    QDragMoveEvent move(QPoint(1, 1), Qt::CopyAction, &content, Qt::LeftButton, {});
    QApplication::sendEvent(window, &move);
}

TEST(VmCalendarWidget, EverySlotOfADragMayDeleteTheWidget) {
    for (int signal = 0; signal < 4; ++signal) {
        QWidget window;
        const QPointer<Widget> widget(new Widget(&window));
        window.show();
        const auto end = [&] { delete widget; };
        ConnectNth(signal, widget.data(), end, &Widget::oleStartDrag, &Widget::oleDragOver,
                   &Widget::oleDragDrop);
        if (signal == 3) {  // after its refusal
            QObject::connect(widget, &Widget::oleDragOver, [&](DataRef&, qint32& effect) {
                effect = 0;
                end();
            });
        }
        signal == 0 ? widget->oleDrag() : Drop(widget);
        QApplication::processEvents();
        EXPECT_FALSE(widget) << signal;
    }
}

}  // namespace
}  // namespace velmora
