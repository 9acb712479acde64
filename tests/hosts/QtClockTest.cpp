#include "hosts/qt/windows/QtClock.h"
#include "tests/support/TestCalendar.h"

#include <QtCore/qtestsupport_core.h>

namespace velmora::test {
namespace {

TEST(QtClock, TellsOfMidnightAndOfTheApplicationsReturnToWhatIsToBeSeen) {
    TestCalendar test;
    QWidget window;
    const QtClock clock(window, *test.calendar);
    const auto repainted = [&] { return Joined(test.TakeLog()).ends_with("repaint"); };
    const auto returns = [] { emit qApp->applicationStateChanged(Qt::ApplicationActive); };
    test.Paint();
    repainted();
    test.now.value += 1;
    returns();
    EXPECT_FALSE(repainted());  // not to be seen
    window.show();
    EXPECT_TRUE(repainted());
    test.now.value = Day(2020, 3, 18) - 1e-9;
    returns();
    EXPECT_TRUE(repainted());
    test.now.value = Day(2020, 3, 18);
    EXPECT_TRUE(QTest::qWaitFor(repainted));  // by the timer
    window.hide();
    test.now.value += 1;
    returns();
    EXPECT_FALSE(repainted());
}

}  // namespace
}  // namespace velmora::test
