#include "tests/hosts/WidgetSupport.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QWheelEvent>

#include <functional>

namespace velmora {
namespace {

void Press(QWidget* widget, int key, const QString& text = {}) {
    const QPointer<QWidget> alive(widget);
    SendKey(widget, QEvent::KeyPress, key, {}, text);
    if (alive) SendKey(widget, QEvent::KeyRelease, key, {}, text);
}

template <class Child>
Child* ChildOf(Widget* widget) {
    return widget->findChildren<Child*>(Qt::FindDirectChildrenOnly).value(0);
}

void TypeYear(Widget* widget, const QString& digits) {
    auto* const year = ChildOf<QLineEdit>(widget);
    year->setFocus();
    year->selectAll();
    for (const QChar digit : digits) Press(year, digit.unicode(), digit);
}

QAbstractItemView* OpenList(Widget* widget) {
    auto* const list = ChildOf<QComboBox>(widget);
    list->showPopup();
    return list->view();
}

void ClickBar(Widget* widget, QStyle::SubControl part) {
    auto* const bar = ChildOf<QScrollBar>(widget);
    Click(bar, CenterOf(*bar, part));
}

void Wheel(QWidget* widget, int delta) {
    const QPointF at = widget->rect().center();
    const QPointF onScreen = widget->mapToGlobal(at);
    QWheelEvent event(at, onScreen, {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

TEST(VmCalendarWidget, KeyIsAcceptedWhenUsedAndDeleteIsNoCharacter) {
    Widget widget;
    Prepare(widget);
    Names names;
    QObject::connect(&widget, &Widget::keyPress, [&] { names.push_back("keyPress"); });
    QObject::connect(&widget, &Widget::dateValueChanged, [&] { names.push_back("value"); });
    const auto press = [&](int key, const QString& text = {}) {
        names.clear();
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_EQ(names, Names{"value"});
    EXPECT_TRUE(press(Qt::Key_PageDown));
    EXPECT_EQ(names, Names{"value"});
    EXPECT_FALSE(press(Qt::Key_A, "a"));
    EXPECT_EQ(names, Names{"keyPress"});
    EXPECT_FALSE(press(Qt::Key_Delete, "\x7f"));
    EXPECT_EQ(names, Names{});
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
    for (const Case& c : {Case{Qt::Key_Left, Qt::KeypadModifier, 37, 0},
                          Case{Qt::Key_End, Qt::ShiftModifier, 35, 1},
                          Case{Qt::Key_Escape, Qt::ControlModifier, 27, 2},
                          Case{Qt::Key_F12, Qt::AltModifier, 123, 4},
                          Case{Qt::Key_Z, Qt::ShiftModifier | Qt::ControlModifier, 90, 3},
                          Case{Qt::Key_7, {}, 55, 0}, Case{Qt::Key_7, Qt::KeypadModifier, 103, 0},
                          Case{Qt::Key_Enter, Qt::KeypadModifier, 13, 0}}) {
        SendKey(&widget, QEvent::KeyPress, c.key, c.modifiers);
        EXPECT_EQ(code, c.code);
        EXPECT_EQ(shift, c.shift);
    }
}

TEST(VmCalendarWidget, APressIsLostWithTheWindow) {
    Widget widget;
    Prepare(widget);
    int clicks = 0;
    QObject::connect(&widget, &Widget::click, [&] { ++clicks; });
    const QPoint may20 = CellOf(widget, QDate(2024, 5, 20)).center();
    SendMouse(&widget, QEvent::MouseButtonPress, may20);
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&widget, &deactivate);
    SendMouse(&widget, QEvent::MouseButtonRelease, may20);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(widget.dateValue(), kMay15);
}

using Act = std::function<void(Widget*)>;

const Act kLeft = [](Widget* w) { SendKey(w, QEvent::KeyPress, Qt::Key_Left, {}, "x"); };
const Act kRelease = [](Widget* w) { SendKey(w, QEvent::KeyRelease, Qt::Key_Left); };
const Act kClick = [](Widget* w) { Click(w, CellOf(*w, QDate(2024, 5, 20)).center()); };
const Act kTwice = [](Widget* w) { SendMouse(w, QEvent::MouseButtonDblClick, {9, 9}); };
const Act kYearOn = [](Widget* w) { w->setDateValue(QDate(2025, 6, 1)); };
/// A drag over the window around goes on after the calendar's end.
const Act kDrop = [](Widget* w) {
    QMimeData content;
    content.setText("x");
    w->setOleDropMode(Widget::OLEManual);
    const QPointer<QWidget> window(w->window());
    window->setAcceptDrops(true);
    DragAndDrop(w, content);
    QDragMoveEvent move(QPoint(1, 1), Qt::CopyAction, &content, Qt::LeftButton, {});
    QApplication::sendEvent(window, &move);
};

struct EndCase {
    const char* name;
    std::function<void(Widget*, const Act&)> connect;
    Act act;
};

auto On(auto signal) {
    return
        [signal](Widget* w, const Act& end) { QObject::connect(w, signal, [w, end] { end(w); }); };
}

void ExpectThatTheSlotMayDelete(const EndCase& c, Widget::MonthYearSelStyle style) {
    SCOPED_TRACE(c.name);
    QWidget window;
    const QPointer<Widget> widget(new Widget(&window));
    widget->setMonthYearSelStyle(style);
    window.resize(300, 240);
    window.show();
    Prepare(*widget);
    window.activateWindow();
    QApplication::processEvents();
    c.connect(widget, [](Widget* w) { delete w; });
    c.act(widget);
    QApplication::processEvents();
    EXPECT_FALSE(widget);
}

TEST(VmCalendarWidget, EverySlotMayDeleteTheWidget) {
    for (const EndCase& c : std::initializer_list<EndCase>{
             {"dateChanged, key", On(&Widget::dateChanged), kLeft},
             {"dateChanged, mouse", On(&Widget::dateChanged), kClick},
             {"dayChanged", On(&Widget::dayChanged), kClick},
             {"monthChanged", On(&Widget::monthChanged), kYearOn},
             {"yearChanged", On(&Widget::yearChanged), kYearOn},
             {"dateValueChanged", On(&Widget::dateValueChanged), kLeft},
             {"propertyChanged, key", On(&Widget::propertyChanged), kLeft},
             {"propertyChanged, setter", On(&Widget::propertyChanged),
              [](Widget*w) { w->setMonthBackColor(Qt::red); }},
             {"propertyChanged, disabled", On(&Widget::propertyChanged),
              [](Widget*w) { w->setEnabled(false); }},
             {"keyDown", On(&Widget::keyDown), kLeft},
             {"keyPress", On(&Widget::keyPress), kLeft},
             {"keyUp", On(&Widget::keyUp), kRelease},
             {"mouseDown", On(&Widget::mouseDown), kClick},
             {"mouseDown, double", On(&Widget::mouseDown), kTwice},
             {"mouseUp", On(&Widget::mouseUp), kClick},
             {"mouseMove", On(&Widget::mouseMove),
              [](Widget*w) {
                  SendMouse(w, QEvent::MouseMove, {9, 9}, Qt::NoButton);
              }},
             {"click", On(&Widget::click), kClick},
             {"dblClick", On(&Widget::dblClick), kTwice},
             {"oleStartDrag", On(&Widget::oleStartDrag), [](Widget*w) { w->oleDrag(); }},
             {"oleDragOver", On(&Widget::oleDragOver), kDrop},
             {"oleDragOver, refused",
              [](Widget*w, const Act&end) {
                  QObject::connect(w, &Widget::oleDragOver, [w, end](DataRef&, qint32& effect) {
                      effect = 0;
                      end(w);
                  });
              },
              kDrop},
             {"oleDragDrop", On(&Widget::oleDragDrop), kDrop},
         }) {
        ExpectThatTheSlotMayDelete(c, Widget::MonthSelNone);
        ExpectThatTheSlotMayDelete(c, Widget::MonthSelCombo);
    }
}

/// What the user does in a selector; each raises `monthChanged` or `yearChanged`.
const struct {
    const char* name;
    Widget::MonthYearSelStyle style;
    Act act;
} kSelectorActs[] = {
    {"key in the closed list", Widget::MonthSelCombo,
     [](Widget* w) { Press(ChildOf<QComboBox>(w), Qt::Key_Down); }},
    {"Enter in the closed list", Widget::MonthSelCombo,
     [](Widget* w) { Press(ChildOf<QComboBox>(w), Qt::Key_Return); }},
    {"key in the open list", Widget::MonthSelCombo,
     [](Widget* w) {
         auto* const view = OpenList(w);
         Press(view, Qt::Key_Down);
         Press(view, Qt::Key_Return);
     }},
    {"click in the open list", Widget::MonthSelCombo,
     [](Widget* w) {
         auto* const view = OpenList(w);
         const QPoint july = view->visualRect(view->model()->index(6, 0)).center();
         SendMouse(view->viewport(), QEvent::MouseMove, july, Qt::NoButton);
         Click(view->viewport(), july);
     }},
    {"Escape in the open list", Widget::MonthSelCombo,
     [](Widget* w) {
         SendKey(OpenList(w), QEvent::KeyPress, Qt::Key_Escape);
         SendKey(ChildOf<QComboBox>(w), QEvent::KeyRelease, Qt::Key_Escape);
     }},
    {"wheel on the list", Widget::MonthSelCombo,
     [](Widget* w) { Wheel(ChildOf<QComboBox>(w), -120); }},
    {"year and Enter", Widget::MonthSelCombo,
     [](Widget* w) { TypeYear(w, "2031"), Press(ChildOf<QLineEdit>(w), Qt::Key_Return, "\r"); }},
    {"year and focus to the grid", Widget::MonthSelCombo,
     [](Widget* w) { TypeYear(w, "2031"), w->setFocus(); }},
    {"year and a click in the grid", Widget::MonthSelCombo,
     [](Widget* w) {
         TypeYear(w, "2031");
         w->setFocus();
         Click(w, {100, 100});
     }},
    {"Up in the year box", Widget::MonthSelCombo,
     [](Widget* w) { Press(ChildOf<QLineEdit>(w), Qt::Key_Up); }},
    {"spinner", Widget::MonthSelCombo, [](Widget* w) { ClickBar(w, QStyle::SC_ScrollBarSubLine); }},
    {"arrow of the scroll bar", Widget::MonthSelScrollbar,
     [](Widget* w) { ClickBar(w, QStyle::SC_ScrollBarAddLine); }},
    {"wheel on the scroll bar", Widget::MonthSelScrollbar,
     [](Widget* w) { Wheel(ChildOf<QScrollBar>(w), -120); }},
    {"thumb of the scroll bar", Widget::MonthSelScrollbar,
     [](Widget* w) { ChildOf<QScrollBar>(w)->setSliderPosition(1500); }},
};

TEST(VmCalendarWidget, EverySlotMayDeleteTheWidgetWhateverTheUserDoesInASelector) {
    for (const auto& act : kSelectorActs) {
        const auto monthOrYear = [](Widget* w, const Act& end) {
            On (&Widget::dateChanged)(w, end);
            On (&Widget::monthChanged)(w, end);
            On (&Widget::yearChanged)(w, end);
        };
        ExpectThatTheSlotMayDelete({act.name, monthOrYear, act.act}, act.style);
    }
}

}  // namespace
}  // namespace velmora
