#include "tests/activex/win32/TestWindows.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

DayNumber Day(int year, int month, int day) { return DayFromCivil(year, month, day); }

TEST(CalendarWindow, KeysAndMouseReachTheCalendar) {
    CalendarWindow window;
    window.Key(VK_RIGHT);
    EXPECT_EQ(window.TakeLog(), "key 39/0, date 2020-3-16");
    window.Key(VK_NEXT);
    EXPECT_EQ(window.TakeLog(), "key 34/0, month 4");

    const POINT day = window.CenterOf(Day(2020, 4, 20));
    window.Press(day.x, day.y);
    EXPECT_EQ(GetCapture(), window.Window());
    window.Release(day.x, day.y);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(window.TakeLog(), "down 1, date 2020-4-20, up 1, click");

    window.Press(day.x, day.y);
    window.Release(-5, -5);
    EXPECT_EQ(window.TakeLog(), "down 1, up 1") << "released outside";
    SendMessageW(window.Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(day.x, day.y));
    window.Release(day.x, day.y);
    EXPECT_EQ(window.TakeLog(), "down 1, double click, up 1");

    const POINT other = window.CenterOf(Day(2020, 4, 22));
    window.Press(other.x, other.y);
    ReleaseCapture();
    window.Release(other.x, other.y);
    EXPECT_EQ(window.TakeLog(), "down 1, up 1") << "the capture was lost";

    EnableWindow(window.Window(), FALSE);
    window.Key(VK_LEFT);
    EXPECT_EQ(window.TakeLog(), "");
}

TEST(CalendarWindow, PaintsWhatIsExposed) {
    CalendarWindow window(VmMonthSelArrows);
    window.calendar->SelectedDayBackColor(0x00FF00);
    window.calendar->DayDefaultBackColor(0xFFFF00);
    const auto corner = [&](DayNumber day) {
        const POINT center = window.CenterOf(day);
        return window.PixelAt(center.x - 12, center.y - 6);
    };
    EXPECT_EQ(corner(Day(2020, 3, 15)), 0x00FF00u);
    EXPECT_EQ(corner(Day(2020, 3, 19)), 0xFFFF00u);
    for (int i = 0; i < 4; ++i) window.Key(VK_RIGHT);
    EXPECT_EQ(corner(Day(2020, 3, 15)), 0xFFFF00u);
    EXPECT_EQ(corner(Day(2020, 3, 19)), 0x00FF00u);
    const POINT cell = window.CenterOf(Day(2020, 3, 15));
    for (int x = cell.x - 16; x < cell.x + 16; ++x) {
        EXPECT_NE(window.PixelAt(x, cell.y - 5), 0xFFFFFFu) << "no ground behind the number, " << x;
    }
}

TEST(CalendarWindow, MonthListTellsAChoiceOnceItIsClosed) {
    CalendarWindow window(VmMonthSelCombo);
    const HWND list = window.Child(L"COMBOBOX");
    ASSERT_TRUE(IsWindowVisible(list));
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(window.calendar->cboMonthhwnd(), WinDrawing::HandleOf(list));

    window.Choose(1);
    EXPECT_EQ(window.TakeLog(), "date 2020-2-15, month 2");

    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    window.Choose(4);
    EXPECT_EQ(window.TakeLog(), "") << "open";
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
    window.TakeLog();
    SetFocus(list);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(list, WM_KEYDOWN, VK_DOWN, 0);
    window.ChildKey(list, VK_ESCAPE);
    const std::string shown = window.Shown();
    EXPECT_EQ(window.TakeLog(), "month " + shown.substr(5)) << "the shown month is back";
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), std::stoi(shown.substr(5)) - 1);

    window.calendar->DateValue(Variant(DateOf(Day(2020, 11, 1))));
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 10);
    EXPECT_EQ(window.TakeLog(), "date 2020-11-1, month 11") << "not again from the list";
}

TEST(CalendarWindow, YearIsCommittedByEnterFocusAndOtherInput) {
    CalendarWindow window(VmMonthSelCombo);
    const HWND box = window.Child(L"EDIT");
    const auto text = [&] {
        wchar_t year[8]{};
        GetWindowTextW(box, year, 8);
        return std::wstring(year);
    };
    window.Type(L"2021");
    window.ChildKey(box, VK_RETURN);
    EXPECT_EQ(window.TakeLog(), "year 2021");
    window.Type(L"2022");
    SetFocus(window.Window());
    EXPECT_EQ(window.TakeLog(), "year 2022");
    SetFocus(box);
    SetFocus(window.Window());
    EXPECT_EQ(window.TakeLog(), "") << "nothing was typed";
    window.Type(L"2023");
    window.Key(VK_NEXT);
    EXPECT_EQ(window.TakeLog(), "year 2023, key 34/0, month 4") << "the year comes first";
    window.Type(L"1776x");
    window.ChildKey(box, VK_RETURN);
    EXPECT_EQ(window.TakeLog(), "year 2023");
    EXPECT_EQ(text(), L"2023");
    window.Type(L"1");
    window.ChildKey(box, VK_ESCAPE);
    EXPECT_EQ(window.TakeLog(), "");
    EXPECT_EQ(text(), L"2023");
    window.ChildKey(box, VK_UP);
    window.ChildKey(box, VK_NEXT);
    EXPECT_EQ(window.TakeLog(), "year 2024, year 2014");
    window.Type(L"1990");
    SendMessageW(window.Child(L"SCROLLBAR"), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(window.TakeLog(), "year 1990, year 1991") << "typed, then stepped";
}

TEST(CalendarWindow, ScrollBarsStepYearsAndMonths) {
    CalendarWindow years(VmMonthSelCombo);
    years.Scroll(SB_LINEUP);
    EXPECT_EQ(years.TakeLog(), "year 2021");
    years.Scroll(SB_PAGEDOWN);
    EXPECT_EQ(years.TakeLog(), "year 2011");
    years.Scroll(SB_LINEDOWN);
    years.Scroll(SB_LINEDOWN);
    EXPECT_EQ(years.TakeLog(), "year 2009") << "told once";

    CalendarWindow months(VmMonthSelScrollbar);
    months.Scroll(SB_LINEUP);
    EXPECT_EQ(months.TakeLog(), "month 2");
    months.Scroll(SB_PAGEUP);
    EXPECT_EQ(months.TakeLog(), "year 2019");
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    GetScrollInfo(months.Child(L"SCROLLBAR"), SB_CTL, &info);
    EXPECT_EQ(info.nPos, MonthIndex(Day(2019, 2, 1)));
}

/// Whatever the user does, a handler may destroy the window and the calendar.
TEST(CalendarWindow, HandlersMayDestroyIt) {
    const auto act = [](int action, CalendarWindow& window) {
        const POINT day = window.CenterOf(Day(2020, 3, 20));
        switch (action) {
            case 0: window.Key(VK_RIGHT); break;
            case 1: window.Click(day.x, day.y); break;
            case 2: window.Choose(5); break;
            case 3:
                window.Type(L"2030");
                window.Key(VK_RIGHT);
                break;
            default: window.Scroll(SB_LINEUP); break;
        }
        Pump();
    };
    for (int action = 0; action < 5; ++action) {
        CalendarWindow window(VmMonthSelCombo);
        const auto end = [&window] {
            if (!window.Window()) return;
            DestroyWindow(window.Window());
            window.calendar.reset();
        };
        CalendarEvents& events = window.calendar->Events();
        events.DateChanged.Connect([&](Date&) { end(); });
        events.YearChanged.Connect([&](std::int16_t&) { end(); });
        act(action, window);
        EXPECT_EQ(window.Window(), nullptr) << action;
        EXPECT_EQ(window.calendar, nullptr) << action;
    }
}

TEST(CalendarWindow, SelectorsOutliveTheirWindowAsPictures) {
    CalendarWindow window(VmMonthSelCombo);
    EXPECT_TRUE(window.Child(L"EDIT"));
    const Rect list = window.calendar->Layout().monthList;
    DestroyWindow(window.Window());
    window.windowing.Extent({300, 202});
    window.calendar->OnWindowRecreated();

    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 300, 202);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const Rect all{0, 0, 300, 202};
    window.calendar->OnPaint(WinDrawing::SurfaceOf(memory), {&all, 1});
    const COLORREF band = GetPixel(memory, list.left + 6, list.top + 4);
    window.windowing.PaintChildren(memory);
    const COLORREF inside = GetPixel(memory, list.left + 3, list.top + 3);
    EXPECT_NE(band, inside);
    EXPECT_EQ(inside, GetSysColor(COLOR_WINDOW));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST(CalendarWindow, PointerIsOneOfTheSystemsOrAnIcon) {
    CalendarWindow window;
    EXPECT_FALSE(window.windowing.OnSetCursor());
    window.calendar->MousePointer(11);
    EXPECT_TRUE(window.windowing.OnSetCursor());
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    window.calendar->MousePointer(99);
    EXPECT_FALSE(window.windowing.OnSetCursor()) << "no icon";
    const auto pixels = std::make_shared<const PixelImage>(
        PixelImage{16, 16, std::vector<std::uint32_t>(256, 0xFF00FF00)});
    window.calendar->MouseIcon(
        std::make_shared<StdPicture>(PictureType::Icon, Size{423, 423}, pixels));
    EXPECT_TRUE(window.windowing.OnSetCursor());
    EXPECT_NE(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    SetCursor(nullptr);
}

}  // namespace
}  // namespace velmora::test
