#include "tests/hosts/window/RealInput.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>

namespace velmora {
namespace {

using Input = RealInput;

TEST(CalendarWindow, MonthAndYearAreChosenByMouseAndKeyboard) {
    CalendarWindow window(Widget::MonthSelCombo);
    const auto month = [&] { return window.calendar.shownDate().month(); };
    auto& list = window.child<QComboBox>();
    Input::Click(CenterOf(list));
    auto* const view = list.view();
    ASSERT_TRUE(view->isVisible());
    Input::Keys({"Right", "Page_Down"});
    EXPECT_EQ(month(), 5) << "the keys are the list's";
    const QRect august = view->visualRect(view->model()->index(7, 0));
    Input::Click(view->viewport()->mapToGlobal(august.center()));
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(month(), 8);
    Input::Keys({"alt+Down", "Up", "Escape"});
    EXPECT_EQ(list.currentIndex(), 7);
    Input::Keys({"Tab", "1", "9", "9", "9", "Tab"});
    EXPECT_EQ(window.calendar.shownDate().year(), 1999);
    EXPECT_TRUE(window.after.hasFocus());
    EXPECT_EQ(window.calendar.dateValue(), kMay15);
}

TEST(CalendarWindow, TabGoesThroughTheCalendarOnce) {
    CalendarWindow window(Widget::MonthSelCombo);
    QList<QWidget*> stops{&window.before, &window.calendar, &window.child<QComboBox>(),
                          &window.child<QLineEdit>(), &window.after};
    window.before.setFocus();
    for (const char* const key : {"Tab", "shift+Tab"}) {
        for (int i = 1; i < stops.size(); ++i) {
            Input::Keys({key});
            EXPECT_EQ(QApplication::focusWidget(), stops[i]) << key << i;
        }
        std::reverse(stops.begin(), stops.end());
    }
}

}  // namespace
}  // namespace velmora
