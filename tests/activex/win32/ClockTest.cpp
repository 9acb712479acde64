#include "hosts/activex/win32/WinClock.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

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
            const auto send = [](HWND to, LPARAM what) -> BOOL {
                SendMessageW(to, static_cast<UINT>(what), 0, 0);
                return TRUE;
            };
            EnumThreadWindows(GetCurrentThreadId(), send, static_cast<LPARAM>(message));
            EXPECT_EQ(Joined(test.TakeLog()), shown == SW_HIDE ? "" : "repaint") << message;
        }
    }
    DestroyWindow(window);
}

}  // namespace
}  // namespace velmora::test
