#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>

namespace velmora {
namespace {

using Input = RealInput;

/// Where the pictures of the window may differ when that widget has changed.
QRect In(const QWidget& window, const QWidget& widget) {
    return QRect(widget.mapTo(&window, QPoint()), widget.size());
}

TEST(CalendarWindow, ArrowKeysMoveTheSelectionByTwoCells) {
    CalendarWindow window;
    const QImage before = ScreenOf(window);
    window.TakePainted();
    Input::Keys({"Right"});
    EXPECT_EQ(window.TakeLog(), "keyDown:39 date:2024-05-16 day:16 keyUp:39");
    const QRegion painted = window.TakePainted();
    const QRect days = CellOf(window.calendar(), kMay15) | CellOf(window.calendar(), {2024, 5, 16});
    const int cell = days.width() * days.height() / 2;
    int area = 0;
    for (const QRect& rect : painted) area += rect.width() * rect.height();
    EXPECT_TRUE(painted.boundingRect().contains(days));
    EXPECT_GE(area, 2 * cell);
    EXPECT_LE(area, 2 * cell * 5 / 4) << "more than two cells";
    const QRect changed = Difference(before, ScreenOf(window));
    EXPECT_TRUE(days.translated(In(window, window.calendar()).topLeft())
                    .adjusted(-4, -4, 4, 4)
                    .contains(changed));
    EXPECT_GT(changed.width(), days.width() / 2);
}

TEST(CalendarWindow, PointerPaintsNothingUntilAButtonIsDown) {
    CalendarWindow window;
    window.TakePainted();
    const QImage before = ScreenOf(window);
    for (const int day : {1, 10, 19, 31}) Input::Point(window.DayOnScreen(day));
    Input::Roll(window.DayOnScreen(20), true);
    EXPECT_TRUE(window.TakePainted().isEmpty());
    EXPECT_EQ(window.TakeLog(), "");
    EXPECT_EQ(Difference(before, ScreenOf(window)), QRect());
}

TEST(CalendarWindow, PressShowsTheChoiceAndReleaseSelectsIt) {
    CalendarWindow window;
    const QImage before = ScreenOf(window);
    Input::Point(window.DayOnScreen(20));
    Input::Down();
    EXPECT_EQ(window.TakeLog(), "mouseDown");
    const QImage pressed = ScreenOf(window);
    const QPoint day20 = window.mapFromGlobal(window.DayOnScreen(20)) + QPoint(-12, 5);
    const QPoint day22 = window.mapFromGlobal(window.DayOnScreen(22)) + QPoint(-12, 5);
    EXPECT_NE(pressed.pixel(day20), before.pixel(day20));
    Input::Point(window.DayOnScreen(22));
    const QImage moved = ScreenOf(window);
    EXPECT_EQ(moved.pixel(day20), before.pixel(day20));
    EXPECT_NE(moved.pixel(day22), before.pixel(day22));
    EXPECT_EQ(window.calendar().dateValue(), kMay15);
    Input::Up();
    EXPECT_EQ(window.TakeLog(), "date:2024-05-22 day:22 mouseUp click");
    EXPECT_EQ(ScreenOf(window).pixel(day22), QColor(Qt::blue).rgb());
}

TEST(CalendarWindow, MonthIsChosenFromTheListByMouseAndKeyboard) {
    CalendarWindow window(Widget::MonthSelCombo);
    auto& list = window.child<QComboBox>();
    const QImage before = ScreenOf(window);
    Input::Click(CenterOf(list));
    auto* const view = list.view();
    ASSERT_TRUE(view->isVisible());
    Input::Keys({"Right", "Page_Down"});
    EXPECT_EQ(window.calendar().shownDate(), kMay15);
    const QRect august = view->visualRect(view->model()->index(7, 0));
    Input::Click(view->viewport()->mapToGlobal(august.center()));
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(window.TakeLog(), "date:2024-08-15 month:8");
    EXPECT_EQ(window.calendar().dateValue(), kMay15);
    const QRect changed = Difference(before, ScreenOf(window));
    EXPECT_TRUE(In(window, window.calendar()).contains(changed));
    EXPECT_GT(changed.height(), window.calendar().height() / 2);

    Input::Keys({"alt+Down", "Up", "Up", "Return"});
    EXPECT_EQ(window.TakeLog(), "date:2024-06-15 month:6");
    Input::Keys({"Down"});
    EXPECT_EQ(window.TakeLog(), "date:2024-07-15 month:7");
    Input::Keys({"Return"});
    EXPECT_EQ(window.TakeLog(), "month:7");
    Input::Keys({"alt+Down", "Down", "Escape"});
    EXPECT_EQ(window.TakeLog(), "month:7");
    EXPECT_EQ(list.currentIndex(), 6);
    Input::Keys({"Down"});
    EXPECT_EQ(window.TakeLog(), "date:2024-08-15 month:8") << "the Escape is over";
    Input::Keys({"Left", "Right", "End", "Down"});
    EXPECT_EQ(window.calendar().dateValue(), kMay15);
    EXPECT_EQ(window.calendar().shownDate(), QDate(2024, 12, 15));
}

TEST(CalendarWindow, YearIsTypedCommittedAndCancelled) {
    CalendarWindow window(Widget::MonthSelCombo);
    auto& year = window.child<QLineEdit>();
    const auto type = [&](const QStringList& keys) {
        year.setFocus();
        year.selectAll();
        Input::Keys(keys);
        return window.TakeLog();
    };
    EXPECT_EQ(type({"2", "0", "3", "1"}), "");
    EXPECT_EQ(type({"2", "0", "3", "1", "Return"}), "year:2031");
    EXPECT_EQ(window.calendar().shownDate(), QDate(2031, 5, 15));
    EXPECT_EQ(type({"9", "9", "9", "9", "Return"}), "year:2031") << "refused";
    EXPECT_EQ(year.text(), "2031");
    Input::Keys({"Tab"});
    EXPECT_EQ(window.TakeLog(), "") << "committed by Enter already";
    EXPECT_TRUE(window.after().hasFocus());
    EXPECT_EQ(type({"1", "9", "9", "9", "Tab"}), "year:1999");
    EXPECT_EQ(type({"8", "Escape"}), "");
    EXPECT_EQ(year.text(), "1999");
    EXPECT_EQ(type({"Up", "Up", "Down", "Prior"}), "year:2000 year:2001 year:2000 year:2010");
    EXPECT_EQ(type({"2", "0", "2", "4"}), "");
    Input::Click(window.DayOnScreen(20));
    EXPECT_EQ(window.TakeLog().substr(0, 19), "year:2024 mouseDown");
    EXPECT_EQ(type({"2", "0", "2", "4", "Left", "Right", "Home"}), "");
}

TEST(CalendarWindow, SpinnerStepsTheYear) {
    CalendarWindow window(Widget::MonthSelCombo);
    const QPoint up = window.BarOnScreen(QStyle::SC_ScrollBarSubLine);
    Input::Click(up);
    EXPECT_EQ(window.TakeLog(), "year:2025");
    EXPECT_EQ(window.child<QLineEdit>().text(), "2025");
    Input::Click(window.BarOnScreen(QStyle::SC_ScrollBarAddLine));
    EXPECT_EQ(window.TakeLog(), "year:2024");
    Input::Roll(up, false);
    EXPECT_EQ(window.TakeLog().substr(0, 7), "year:20");
    EXPECT_GT(window.calendar().shownDate().year(), 2024);
    EXPECT_EQ(window.calendar().dateValue(), kMay15);
}

TEST(CalendarWindow, ScrollBarMovesTheShownMonthWhileItIsDragged) {
    CalendarWindow window(Widget::MonthSelScrollbar);
    window.calendar().setDateMin(QDate(2023, 1, 1));
    window.calendar().setDateMax(QDate(2026, 12, 31));
    Input::Click(window.BarOnScreen(QStyle::SC_ScrollBarAddLine));
    EXPECT_EQ(window.TakeLog(), "month:6");
    Input::Click(window.BarOnScreen(QStyle::SC_ScrollBarAddPage));
    EXPECT_EQ(window.TakeLog(), "year:2025") << "twelve months";

    Input::Point(window.BarOnScreen(QStyle::SC_ScrollBarSlider));
    Input::Down();
    EXPECT_EQ(window.TakeLog(), "");
    const QPoint start = QCursor::pos();
    const QImage before = ScreenOf(window);
    for (const int x : {-10, -20, -30}) {
        const QDate shown = window.calendar().shownDate();
        Input::Point(start + QPoint(x, 0));
        EXPECT_LT(window.calendar().shownDate(), shown);
        EXPECT_NE(window.TakeLog(), "");
    }
    EXPECT_TRUE(In(window, window.calendar()).contains(Difference(before, ScreenOf(window))));
    Input::Up();
    EXPECT_EQ(window.TakeLog(), "");
    EXPECT_EQ(window.calendar().dateValue(), kMay15);
}

TEST(CalendarWindow, TabGoesThroughTheCalendarOnce) {
    CalendarWindow window(Widget::MonthSelCombo);
    const QList<QWidget*> stops{&window.before(), &window.calendar(), &window.child<QComboBox>(),
                                &window.child<QLineEdit>(), &window.after()};
    window.before().setFocus();
    for (int i = 1; i < stops.size(); ++i) {
        Input::Keys({"Tab"});
        EXPECT_EQ(QApplication::focusWidget(), stops[i]) << i;
    }
    for (int i = static_cast<int>(stops.size()) - 2; i >= 0; --i) {
        Input::Keys({"shift+Tab"});
        EXPECT_EQ(QApplication::focusWidget(), stops[i]) << i;
    }
    EXPECT_EQ(window.calendar().dateValue(), kMay15);
}

}  // namespace
}  // namespace velmora
