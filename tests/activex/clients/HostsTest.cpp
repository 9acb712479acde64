#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

namespace velmora::vmhost {
namespace {

using Events = std::vector<std::string>;

using Hosts = ClientTest;

/// The host window of the system's ATL library, which knows no ambient properties.
TEST_F(Hosts, AForeignOneHasBothControls) {
    const HMODULE library = LoadLibraryW(L"atl.dll");
    const auto entry = [&](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(library, name));
    };
    reinterpret_cast<BOOL(WINAPI*)()>(entry("AtlAxWinInit"))();
    const auto getControl =
        reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(entry("AtlAxGetControl"));
    const POINT thirdRow{87, 114}, button{113, 10}, inOpened{87, 21 + 114};
    const struct {
        const wchar_t* classText;
        RECT place;
        std::vector<POINT> clicks;
        Events events;
    } cases[] = {{L"VelmoraCalendar.VmCalendar",
                  kCalendarPlace,
                  {thirdRow},
                  {"DateChanged(2024-03-12)", "DayChanged(12)", "Click()"}},
                 {L"VelmoraCalendar.VmCalDropDown",
                  kBoxPlace,
                  {button, inOpened},
                  {"DropDown(False)", "DateChanged(2024-03-12)", "DayChanged(12)", "CloseUp()"}}};
    for (const auto& c : cases) {
        const auto& [left, top, right, bottom] = c.place;
        const HWND host =
            CreateWindowW(L"AtlAxWin", c.classText, WS_CHILD | WS_VISIBLE, left, top, right - left,
                          bottom - top, form->Window(), nullptr, nullptr, nullptr);
        ComPtr<IUnknown> control;
        ASSERT_EQ(getControl(host, control.GetAddressOf()), S_OK);
        PutProperty(control.Get(), "DateValue", Value::Date(DayNumber(2024, 3, 5)));
        SetForegroundWindow(form->Window());
        UpdateWindow(form->Window());
        ServeWaiting(form.Get());
        const auto sink = EventSink::Connect(control.Get(), [this](Event& event) {
            if (!event.Name().starts_with("Mouse")) events.push_back(event.Text());
        });
        for (const POINT& point : c.clicks) {
            const std::size_t before = events.size();
            Click(OnScreen(host, point.x, point.y));
            EXPECT_TRUE(Serve([&] { return events.size() > before; }));
            ServeWaiting(form.Get());
        }
        EXPECT_TRUE(Serve([&] { return !events.empty() && events.back() == c.events.back(); }));
        EXPECT_EQ(TakeEvents(), c.events);
        sink->Disconnect();
        DestroyWindow(host);
    }
}

TEST_F(Hosts, TheTabKeyWalksThroughAForm) {
    ControlSite& first = AddCalendar("First");
    ControlSite& second = AddBox("Second");
    SetForegroundWindow(form->Window());
    form->MoveFocus(true);
    EXPECT_EQ(form->Active(), &first);
    for (const auto& [modifier, expected] :
         {std::pair(WORD{0}, &second), std::pair(WORD{0}, &first),
          std::pair(WORD{VK_SHIFT}, &second), std::pair(WORD{VK_SHIFT}, &first)}) {
        TypeKey(VK_TAB, modifier);
        EXPECT_TRUE(Serve([&] { return form->Active() == expected; }));
        ServeWaiting(form.Get());
        EXPECT_EQ(GetFocus(), expected->ControlWindow());
        EXPECT_EQ(first.IsUIActive() + second.IsUIActive(), 1);
    }
}

TEST_F(Hosts, DesignModeTakesTheWindowsAway) {
    ControlSite& calendar = AddCalendar();
    for (const bool inUse : {false, true}) {
        form->SetUserMode(inUse);
        EXPECT_EQ(calendar.ControlWindow() != nullptr, inUse);
    }
}

}  // namespace
}  // namespace velmora::vmhost
