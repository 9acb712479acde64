#pragma once

#include "tests/hosts/WidgetSupport.h"

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPointer>
#include <QRegion>
#include <QStringList>

#include <memory>

namespace velmora {

/// Pointer and keyboard of the display, moved by xdotool. Each call returns when the program has
/// handled what it caused. A missing tool, or one that fails, throws and so fails the case.
class RealInput {
public:
    static void Point(QPoint screen);
    static void Down();
    static void Up();
    static void Click(QPoint screen);
    static void Roll(QPoint screen, bool down);
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
/// What is on the display where the window is.
QImage ScreenOf(const QWidget& window);
/// Bounding rectangle of the pixels in which the pictures differ.
QRect Difference(const QImage& before, const QImage& after);

/// A window of two line edits with a calendar between them, whose signals are noted with their
/// values. Shown, active and with the pointer outside it.
class CalendarWindow : public QWidget {
public:
    explicit CalendarWindow(Widget::MonthYearSelStyle style = Widget::MonthSelNone,
                            QPoint topLeft = {40, 40});

    Widget& calendar() { return *m_calendar; }
    QLineEdit& before() { return *m_before; }
    QLineEdit& after() { return *m_after; }
    template <class Child>
    Child& child() {
        return *m_calendar->findChildren<Child*>(Qt::FindDirectChildrenOnly).value(0);
    }

    /// Screen coordinates of a day's cell, and of a part of the bar.
    QPoint DayOnScreen(int day, int month = 5);
    QPoint BarOnScreen(QStyle::SubControl part);
    /// What has been noted since the last call, joined by blanks.
    std::string TakeLog();
    /// What the calendar has painted since the last call.
    QRegion TakePainted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void NoteSignals();

    Widget* m_calendar;
    QLineEdit* m_before;
    QLineEdit* m_after;
    QStringList m_log;
    QRegion m_painted;
};

}  // namespace velmora
