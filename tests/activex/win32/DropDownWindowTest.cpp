#include "hosts/activex/win32/WinLocale.h"
#include "tests/activex/win32/TestWindows.h"

#include <gtest/gtest.h>

#include <thread>

namespace velmora::test {
namespace {

constexpr DWORD kTicks = 100;  // milliseconds, some ticks of the open form

TEST(DropDownWindow, OpensByKeyAndClickAndClosesOutside) {
    BoxWindow box;
    box.Key(VK_F4);
    EXPECT_EQ(box.TakeLog(), "key 115/0, drop down");
    EXPECT_TRUE(box.IsOpen());
    EXPECT_EQ(GetFocus(), box.Window());
    RECT form{}, place{};
    GetWindowRect(box.form->Window(), &form);
    GetWindowRect(box.Window(), &place);
    EXPECT_EQ(form.left, place.left);
    EXPECT_EQ(form.top, place.bottom);
    EXPECT_EQ(form.right - form.left, 250);
    box.Key(VK_DOWN);
    EXPECT_EQ(box.TakeLog(), "key 40/0, date 2020-3-22");
    box.Key(VK_RETURN);
    EXPECT_EQ(box.TakeLog(), "key 13/0, close up");
    EXPECT_FALSE(IsWindowVisible(box.form->Window()));

    SetCursorPos(place.left - 50, place.top - 50);
    box.Click(110, 10);
    EXPECT_TRUE(box.IsOpen());
    Pump(kTicks);
    box.TakeLog();
    EXPECT_EQ(GetCapture(), box.form->Window()) << "to see a press elsewhere";
    SendMessageW(box.form->Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-50, -50));
    EXPECT_EQ(box.TakeLog(), "down 1, close up");
    EXPECT_NE(GetCapture(), box.form->Window());
    EXPECT_FALSE(IsWindowVisible(box.form->Window()));
}

TEST(DropDownWindow, AClickOnADayTakesItAndCloses) {
    BoxWindow box;
    box.Key(VK_F4);
    box.TakeLog();
    const CalendarLayout& layout = box.form->Form().Calendar().Layout();
    // March 2020 begins with a Sunday, the first column of the second row.
    const LPARAM at = MAKELPARAM(2 * layout.cellWidth + 5, layout.gridTop + layout.rowHeight + 5);
    SendMessageW(box.form->Window(), WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(box.form->Window(), WM_LBUTTONUP, 0, at);
    EXPECT_EQ(DayOf(box.box->DateValue()), DayFromCivil(2020, 3, 3));
    EXPECT_EQ(box.TakeLog(), "down 1, date 2020-3-3, up 1, close up");
}

TEST(DropDownWindow, ClosesWithWhatItStandsOn) {
    const auto closes = [](const char* how, auto change) {
        BoxWindow box;
        box.Key(VK_F4);
        box.TakeLog();
        change(box);
        Pump(kTicks);
        EXPECT_EQ(box.TakeLog(), "close up") << how;
        EXPECT_FALSE(IsWindowVisible(box.form->Window())) << how;
    };
    closes("moved", [](BoxWindow& box) {
        SetWindowPos(box.Frame(), nullptr, 150, 150, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    });
    closes("hidden", [](BoxWindow& box) { ShowWindow(box.Frame(), SW_HIDE); });
    closes("focus", [](BoxWindow& box) { SetFocus(box.Frame()); });
}

TEST(DropDownWindow, StaysOnTheScreen) {
    BoxWindow box;
    const int bottom = GetSystemMetrics(SM_CYSCREEN);
    const int right = GetSystemMetrics(SM_CXSCREEN);
    SetWindowPos(box.Frame(), nullptr, right - 60, bottom - 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    box.Key(VK_F4);
    RECT form{}, place{};
    GetWindowRect(box.form->Window(), &form);
    GetWindowRect(box.Window(), &place);
    EXPECT_EQ(form.bottom, place.top) << "above the box";
    EXPECT_LE(form.right, right);
}

TEST(DropDownWindow, HandlersMayEndTheLastBoxOfTheForm) {
    for (const bool byMouse : {false, true}) {
        auto box = std::make_unique<BoxWindow>();
        const std::weak_ptr<WinFormWindow> form = box->form;
        box->box->Events().CloseUp.Connect([&] {
            box->form.reset();
            box->box.reset();
        });
        box->Key(VK_F4);
        const HWND window = box->form->Window();
        if (byMouse) {
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-50, -50));
        } else {
            SetWindowPos(box->Frame(), nullptr, 150, 150, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            Pump(kTicks);
        }
        EXPECT_EQ(box->box, nullptr);
        EXPECT_TRUE(form.expired());
        EXPECT_FALSE(IsWindow(window));
    }
}

TEST(DropDownWindow, EachThreadHasItsForm) {
    const auto mine = ThreadDropDownForm();
    EXPECT_EQ(mine, ThreadDropDownForm());
    std::thread([&] {
        BoxWindow box;
        EXPECT_NE(box.form, mine);
        box.Key(VK_F4);
        EXPECT_TRUE(box.IsOpen());
    }).join();
}

}  // namespace
}  // namespace velmora::test
