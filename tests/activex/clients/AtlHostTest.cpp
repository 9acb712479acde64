#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

using Events = std::vector<std::string>;

/// A control in the host window of the system's ATL library, on the form.
class AtlHost : public ClientTest {
protected:
    AtlHost() {
        m_library = LoadLibraryW(L"atl.dll");
        const auto initialize = Entry<BOOL(WINAPI*)()>("AtlAxWinInit");
        EXPECT_TRUE(initialize);
        if (initialize) initialize();  // false where it has been done before
    }
    ~AtlHost() override {
        if (m_sink) m_sink->Disconnect();
        m_sink.Reset();
        control.Reset();
        if (host) DestroyWindow(host);
    }

    void Put(const wchar_t* classText, const RECT& place) {
        host = CreateWindowW(L"AtlAxWin", classText, WS_CHILD | WS_VISIBLE | WS_TABSTOP, place.left,
                             place.top, place.right - place.left, place.bottom - place.top,
                             form->Window(), nullptr, nullptr, nullptr);
        const auto getControl = Entry<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl");
        ASSERT_TRUE(getControl && host);
        ASSERT_EQ(getControl(host, control.GetAddressOf()), S_OK);
        m_sink = EventSink::Connect(control.Get(), [this](Event& event) {
            if (event.Name() != "MouseMove") events.push_back(event.Text());
        });
        ASSERT_TRUE(m_sink);
        SetForegroundWindow(form->Window());
        UpdateWindow(form->Window());
    }
    HWND Window() const {
        return reinterpret_cast<HWND>(
            static_cast<LONG_PTR>(GetProperty(control.Get(), "hWnd").result.Number()));
    }
    Events TakeOutcome() {
        ServeWaiting(form.Get());
        Events seen = TakeEvents();
        std::erase_if(seen, [](const std::string& event) { return event.starts_with("Mouse"); });
        return seen;
    }
    bool Has(const std::string& event) const {
        return std::find(events.begin(), events.end(), event) != events.end();
    }

    HWND host = nullptr;
    ComPtr<IUnknown> control;

private:
    template <class Function>
    Function Entry(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_library, name)));
    }

    HMODULE m_library = nullptr;
    ComPtr<EventSink> m_sink;
};

TEST_F(AtlHost, ACalendarTakesMouseAndKeys) {
    Put(L"VelmoraCalendar.VmCalendar", kCalendarPlace);
    PutProperty(control.Get(), "DateValue", Value::Date(DayNumber(2024, 3, 5)));
    PutProperty(control.Get(), "MonthYearSelStyle", Value(2));
    UpdateWindow(host);
    TakeOutcome();
    const auto clickThirdRow = [&] { Click(OnScreen(host, 87, 114)); };
    clickThirdRow();
    EXPECT_TRUE(Serve([&] { return Has("Click()"); }));
    EXPECT_EQ(TakeOutcome(), (Events{"DateChanged(2024-03-12)", "DayChanged(12)", "Click()"}));
    TypeKey(VK_DOWN);
    EXPECT_TRUE(Serve([&] { return Has("KeyUp(40, 0)"); }));
    EXPECT_EQ(TakeOutcome(), (Events{"KeyDown(40, 0)", "DateChanged(2024-03-19)", "DayChanged(19)",
                                     "KeyUp(40, 0)"}));

    COMBOBOXINFO months{};
    months.cbSize = sizeof months;
    const long combo = GetProperty(control.Get(), "cboMonthhwnd").result.Number();
    ASSERT_TRUE(GetComboBoxInfo(reinterpret_cast<HWND>(static_cast<LONG_PTR>(combo)), &months));
    Click(OnScreen(months.hwndCombo, months.rcButton.left + 3, months.rcButton.top + 3));
    EXPECT_TRUE(Serve([&] { return IsWindowVisible(months.hwndList); }));
    RECT april{};
    SendMessageW(months.hwndList, LB_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&april));
    Click(OnScreen(months.hwndList, april.left + 5, april.top + 5));
    EXPECT_TRUE(Serve([&] { return Has("MonthChanged(4)"); }));
    EXPECT_FALSE(IsWindowVisible(months.hwndList));
    EXPECT_EQ(TakeOutcome(), (Events{"DateChanged(2024-04-12)", "MonthChanged(4)"}));
    clickThirdRow();
    EXPECT_TRUE(Serve([&] { return Has("Click()"); }));
    EXPECT_EQ(TakeOutcome(),
              (Events{"DateChanged(2024-04-09)", "DayChanged(9)", "MonthChanged(4)", "Click()"}));
    EXPECT_EQ(GetFocus(), Window());
}

TEST_F(AtlHost, ABoxTakesTheMouse) {
    Put(L"VelmoraCalendar.VmCalDropDown", kBoxPlace);
    PutProperty(control.Get(), "DateValue", Value::Date(DayNumber(2024, 3, 5)));
    const auto isOpen = [&](const char* state) {
        return Serve([&] { return Got(control.Get(), "DropDownState") == state; });
    };
    UpdateWindow(host);
    TakeOutcome();
    Click(OnScreen(host, 113, 10));  // the button
    EXPECT_TRUE(isOpen("True"));
    Click(OnScreen(host, 87, 21 + 114));  // into the calendar below
    EXPECT_TRUE(isOpen("False"));
    EXPECT_EQ(TakeOutcome(), (Events{"DropDown(False)", "DateChanged(2024-03-12)", "DayChanged(12)",
                                     "CloseUp()"}));
}

}  // namespace
}  // namespace velmora::vmhost
