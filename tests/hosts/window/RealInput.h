#pragma once

#include "tests/hosts/WidgetSupport.h"

#include <QLineEdit>
#include <QStringList>

namespace velmora {

/// Pointer and keyboard of the display, moved by xdotool. Each call returns when the program has
/// handled what it caused. A missing tool, or one that fails, throws and so fails the case.
class RealInput {
public:
    static void Point(QPoint screen);
    static void Down();
    static void Up();
    static void Click(QPoint screen);
    /// Names as xdotool knows them: "Right", "alt+Down", "2".
    static void Keys(const QStringList& keys);
    /// Down at the first point, over the others with a pause at each, and up, all in one program
    /// run, because a drag keeps the caller until it ends. Escape comes before the release.
    enum class End { Drop, Escape };
    static void Drag(const QList<QPoint>& path, End end = End::Drop);
    /// For a window without a manager.
    static void Activate(QWidget& window);
    /// Handles events until none have come for a while.
    static void Settle();

private:
    static void Run(const QStringList& arguments);
};

/// On the screen.
inline QPoint CenterOf(const QWidget& widget) { return widget.mapToGlobal(widget.rect().center()); }

/// A window of two line edits with a calendar between them. Shown, active and with the pointer
/// outside it.
class CalendarWindow : public QWidget {
public:
    explicit CalendarWindow(Widget::MonthYearSelStyle style = Widget::MonthSelNone,
                            QPoint topLeft = {40, 40});

    template <class Child>
    Child& child() {
        return *calendar.findChildren<Child*>(Qt::FindDirectChildrenOnly).value(0);
    }
    /// Screen coordinates of a day's cell in May 2024.
    QPoint DayOnScreen(int day);

    QLineEdit& before;
    Widget& calendar;
    QLineEdit& after;
};

}  // namespace velmora
