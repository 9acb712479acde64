#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

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
    TakeEvents();
    Click(OnScreen(host, 125, 120));
    EXPECT_TRUE(Serve([&] { return Has("Click()"); }));
    const double clicked =
        GetProperty(GetProperty(control.Get(), "SelectedDay").result.Object(), "DayDate")
            .result.Real();
    TakeEvents();
    TypeKey(VK_RIGHT);
    EXPECT_TRUE(Serve([&] { return Has("KeyUp(39, 0)"); }));
    EXPECT_EQ(GetProperty(GetProperty(control.Get(), "SelectedDay").result.Object(), "DayDate")
                  .result.Real(),
              clicked + 1);
}

TEST_F(AtlHost, ABoxOpensByClickAndClosesOutside) {
    Put(L"VelmoraCalendar.VmCalDropDown", kBoxPlace);
    Click(OnScreen(host, 113, 10));  // the button
    EXPECT_TRUE(Serve([&] { return Got(control.Get(), "DropDownState") == "True"; }));
    EXPECT_TRUE(Has("DropDown(False)"));
    MoveMouse(OnScreen(form->Window(), 20, 250));
    EXPECT_TRUE(Serve([] { return GetCapture() != nullptr; }));  // a moment after the pointer left
    Click(OnScreen(form->Window(), 20, 250));
    EXPECT_TRUE(Serve([&] { return Has("CloseUp()"); }));
    EXPECT_EQ(Got(control.Get(), "DropDownState"), "False");
}

}  // namespace
}  // namespace velmora::vmhost
