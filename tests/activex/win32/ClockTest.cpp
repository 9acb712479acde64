#include "hosts/activex/win32/WinClock.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

TEST(WinClock, TellsOfTimersAndOfTheSystemsNews) {
    TestCalendar test;
    const WinClock clock(*test.calendar);
    for (const UINT message : {WM_TIMER, WM_TIMECHANGE, WM_POWERBROADCAST}) {
        test.Paint();
        test.TakeLog();
        test.now.value += 1;
        const auto send = [](HWND window, LPARAM what) -> BOOL {
            SendMessageW(window, static_cast<UINT>(what), 0, 0);
            return TRUE;
        };
        EnumThreadWindows(GetCurrentThreadId(), send, static_cast<LPARAM>(message));
        EXPECT_EQ(Joined(test.TakeLog()), "repaint") << message;
    }
}

}  // namespace
}  // namespace velmora::test
