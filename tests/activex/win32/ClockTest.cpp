#include "hosts/activex/win32/WinClock.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

BOOL CALLBACK Send(HWND window, LPARAM message) {
    SendMessageW(window, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

TEST(WinClock, TellsOfTimersAndOfTheSystemsNewsWhatIsToBeSeen) {
    TestCalendar test;
    const HWND window = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                        nullptr, nullptr);
    WinClock clock(*test.calendar, window);
    for (const int shown : {SW_HIDE, SW_SHOWNA, SW_HIDE, SW_SHOWNA}) {
        ShowWindow(window, shown);
        test.Paint();
        clock.OnPaint();
        for (const UINT message : {WM_TIMER, WM_TIMECHANGE, WM_POWERBROADCAST}) {
            test.Paint();
            test.TakeLog();
            test.now.value += 1;
            EnumThreadWindows(GetCurrentThreadId(), Send, static_cast<LPARAM>(message));
            EXPECT_EQ(Joined(test.TakeLog()), shown == SW_HIDE ? "" : "repaint") << message;
        }
    }
    DestroyWindow(window);
}

}  // namespace
}  // namespace velmora::test
