#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

namespace velmora::vmhost {
namespace {

/// A calendar that shows 15 March 2020, and the windows in its month band.
class Selectors : public ClientTest {
protected:
    void Show(int style) {
        form->RemoveAll();
        site = &AddCalendar("C");
        SetDate(*site, 2020, 3, 15);
        PutProperty(site->Control(), "MonthYearSelStyle", Value(style));
        FocusOn(*site);
    }
    HWND Window() const { return site->ControlWindow(); }
    HWND Child(const wchar_t* className) const {
        HWND child = nullptr;
        do {
            child = FindWindowExW(Window(), child, className, nullptr);
        } while (child && !IsWindowVisible(child));
        return child;
    }
    /// The events since the last time, separated by spaces.
    std::string Log() {
        ServeWaiting(form.Get());
        std::string log;
        for (const std::string& event : TakeEvents()) {
            log += (log.empty() ? "" : " ") + event.substr(2);
        }
        return log;
    }
    COLORREF PixelAt(int x, int y) {
        ServeWaiting(form.Get());
        const HDC context = GetDC(Window());
        const COLORREF color = GetPixel(context, x, y);
        ReleaseDC(Window(), context);
        return color;
    }

    static void Key(HWND window, WORD key) {
        SendMessageW(window, WM_KEYDOWN, key, 0);
        if (key == VK_RETURN || key == VK_ESCAPE) SendMessageW(window, WM_CHAR, key, 0);
        SendMessageW(window, WM_KEYUP, key, 0);
    }
    /// Chooses an item as the user's keys or mouse do, and tells the window of it.
    void Choose(WPARAM index) {
        const HWND list = Child(L"ComboBox");
        SendMessageW(list, CB_SETCURSEL, index, 0);
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
    }
    void Type(const wchar_t* year) {
        const HWND box = Child(L"Edit");
        SetFocus(box);
        SendMessageW(box, EM_SETSEL, 0, -1);
        for (; *year; ++year) SendMessageW(box, WM_CHAR, *year, 0);
    }
    void Scroll(WORD code) {
        const HWND bar = Child(L"ScrollBar");
        const bool vertical = (GetWindowLongPtrW(bar, GWL_STYLE) & SBS_VERT) != 0;
        SendMessageW(Window(), vertical ? WM_VSCROLL : WM_HSCROLL, code,
                     reinterpret_cast<LPARAM>(bar));
    }

    ControlSite* site = nullptr;
};

TEST_F(Selectors, ATypedYearIsTakenBeforeTheSpinnerStepsIt) {
    Show(2);
    Type(L"1990");
    SendMessageW(Child(L"ScrollBar"), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Log(), "YearChanged(1990) YearChanged(1991)");
    Type(L"2030");
    Click(OnScreen(Child(L"ScrollBar"), 8, 4));
    EXPECT_TRUE(Serve([&] { return events.size() == 2; }));
    EXPECT_EQ(Log(), "YearChanged(2030) YearChanged(2031)");
}

TEST_F(Selectors, ScrollBarsStepYearsAndMonths) {
    Show(2);
    Scroll(SB_LINEUP);
    EXPECT_EQ(Log(), "YearChanged(2021)");
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(Log(), "YearChanged(2011)");
    Scroll(SB_LINEDOWN);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(Log(), "YearChanged(2009)") << "told once";
    Show(3);
    const int before = GetScrollPos(Child(L"ScrollBar"), SB_CTL);
    Scroll(SB_LINEUP);
    EXPECT_EQ(Log(), "MonthChanged(2)");
    Scroll(SB_PAGEUP);
    EXPECT_EQ(Log(), "YearChanged(2019)");
    EXPECT_EQ(GetScrollPos(Child(L"ScrollBar"), SB_CTL), before - 13);
}

TEST_F(Selectors, HandlersMayRemoveTheCalendar) {
    const std::function<void()> acts[] = {[&] { Choose(5); },
                                          [&] { Type(L"2030"), Key(Window(), VK_RIGHT); },
                                          [&] { Scroll(SB_LINEUP); }};
    for (const auto& act : acts) {
        onEvent = nullptr;
        Show(2);
        onEvent = [&](Event& event) {
            if (event.Name() == "YearChanged" || event.Name() == "DateChanged") form->RemoveAll();
        };
        act();
        EXPECT_TRUE(Serve([&] { return form->Sites().empty(); }));
    }
}

TEST_F(Selectors, WhatIsExposedIsPainted) {
    Show(1);
    PutProperty(site->Control(), "SelectedDayBackColor", Value(0x00FF00));
    PutProperty(site->Control(), "DayDefaultBackColor", Value(0xFFFF00));
    constexpr POINT kSunday{17, 141}, kThursday{157, 141};  // 15 and 19 March
    const auto ground = [&](POINT day) { return PixelAt(day.x - 12, day.y - 6); };
    EXPECT_EQ(ground(kSunday), 0x00FF00u);
    EXPECT_EQ(ground(kThursday), 0xFFFF00u);
    for (int i = 0; i < 4; ++i) Key(Window(), VK_RIGHT);
    EXPECT_EQ(ground(kSunday), 0xFFFF00u);
    EXPECT_EQ(ground(kThursday), 0x00FF00u);
    for (int x = kSunday.x - 12; x < kSunday.x + 12; ++x) {
        EXPECT_NE(PixelAt(x, kSunday.y - 5), 0xFFFFFFu) << "no ground behind the number, " << x;
    }
}

TEST_F(Selectors, ThePointerIsOneOfTheSystemsOrAnIcon) {
    Show(0);
    const auto pointer = [&](short kind) {
        PutProperty(site->Control(), "MousePointer", Value(kind));
        SendMessageW(Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Window()),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    const HCURSOR usual = pointer(0), wait = LoadCursorW(nullptr, IDC_WAIT);
    EXPECT_EQ(pointer(11), wait);
    EXPECT_EQ(pointer(99), usual) << "no icon";
    PutProperty(site->Control(), "MouseIcon", Value(MakePicture(PICTYPE_ICON).Get()));
    EXPECT_TRUE(pointer(99) != usual && pointer(99) != wait);
    SetCursor(nullptr);
}

}  // namespace
}  // namespace velmora::vmhost
