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

TEST(CalendarWindow, PaintsNoMoreThanTwoCellsForAStepAndNothingForThePointer) {
    CalendarWindow window;
    window.TakePainted();
    const QImage before = ScreenOf(window);
    for (const int day : {1, 10, 31}) Input::Point(window.DayOnScreen(day));
    EXPECT_TRUE(window.TakePainted().isEmpty());
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

TEST(CalendarWindow, MonthIsChosenFromTheListByMouseAndKeyboard) {
    CalendarWindow window(Widget::MonthSelCombo);
    auto& list = window.child<QComboBox>();
    const QImage before = ScreenOf(window);
    Input::Click(CenterOf(list));
    auto* const view = list.view();
    ASSERT_TRUE(view->isVisible());
    Input::Keys({"Right", "Page_Down"});
    EXPECT_EQ(window.calendar().shownDate(), kMay15) << "the keys are the list's";
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
    Input::Keys({"Tab", "1", "9", "9", "9", "Tab"});
    EXPECT_EQ(window.TakeLog(), "year:1999");
    EXPECT_TRUE(window.after().hasFocus());
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
