#include "hosts/activex/win32/WinText.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

namespace velmora::vmhost {
namespace {

using Hosts = ClientTest;

/// The host window of the system's ATL library, which knows no ambient properties.
TEST_F(Hosts, AForeignOneHasABox) {
    const HMODULE library = LoadLibraryW(L"atl.dll");
    const auto entry = [&](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(library, name));
    };
    reinterpret_cast<BOOL(WINAPI*)()>(entry("AtlAxWinInit"))();
    const auto getControl =
        reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(entry("AtlAxGetControl"));
    const HWND host =
        CreateWindowW(L"AtlAxWin", L"VelmoraCalendar.VmCalDropDown", WS_CHILD | WS_VISIBLE, 280, 10,
                      121, 21, form->Window(), nullptr, nullptr, nullptr);
    ComPtr<IUnknown> control;
    ASSERT_EQ(getControl(host, control.GetAddressOf()), S_OK);
    PutProperty(control.Get(), "DateValue", Value::Date(DayFromCivil(2024, 3, 5)));
    SetForegroundWindow(form->Window());
    UpdateWindow(form->Window());
    ServeWaiting(form.Get());
    const auto sink = EventSink::Connect(control.Get(), [this](Event& event) {
        if (!event.Name().starts_with("Mouse")) events.push_back(event.Text());
    });
    const auto click = [&](int x, int y, const char* expected) {
        Click(OnScreen(host, x, y));
        EXPECT_TRUE(Serve([&] { return !events.empty() && events.back() == expected; }));
        ServeWaiting(form.Get());
    };
    click(113, 10, "DropDown(False)");
    click(87, 21 + 114, "CloseUp()");
    EXPECT_EQ(TakeEvents(), (std::vector<std::string>{"DropDown(False)", "DateChanged(2024-03-12)",
                                                      "DayChanged(12)", "CloseUp()"}));
    sink->Disconnect();
    DestroyWindow(host);
}

TEST_F(Hosts, ThePointerIsOneOfTheSystemsOrAnIcon) {
    ControlSite& site = AddCalendar();
    const auto pointer = [&](short kind) {
        const HWND window = site.ControlWindow();
        PutProperty(site.Control(), "MousePointer", Value(kind));
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    const HCURSOR usual = pointer(0), wait = LoadCursorW(nullptr, IDC_WAIT);
    EXPECT_EQ(pointer(11), wait);
    EXPECT_EQ(pointer(99), usual) << "no icon";
    PutProperty(site.Control(), "MouseIcon", Value(MakePicture(PICTYPE_ICON).Get()));
    EXPECT_TRUE(pointer(99) != usual && pointer(99) != wait);
}

TEST_F(Hosts, TabGoesThroughTheSelectorsAndOn) {
    ControlSite& site = AddCalendar();
    AddBox();
    SetDate(site, 2020, 3, 15);
    constexpr WORD kBack = 0x100 | VK_TAB;
    const auto type = [&](WORD key) {
        if (key == kBack) TurnKey(VK_SHIFT, true);
        TypeKey(key & 0xFF);
        if (key == kBack) TurnKey(VK_SHIFT, false);
        ServeWaiting(form.Get());
        wchar_t name[32] = L"";
        GetClassNameW(GetFocus(), name, 32);
        if (GetFocus() == site.ControlWindow()) return std::string("grid ");
        return site.IsUIActive() ? ToUtf8(name) + ' ' : "box ";
    };
    const std::tuple<int, std::vector<WORD>, const char*> cases[] = {
        {0, {VK_TAB}, "box "},
        {1, {VK_TAB, kBack}, "box grid "},
        {2,
         {VK_TAB, VK_TAB, kBack, kBack, VK_TAB, VK_TAB, VK_TAB},
         "ComboBox Edit ComboBox grid ComboBox Edit box "},
        {2, {VK_TAB, VK_F4, VK_DOWN, VK_TAB}, "ComboBox ComboBox ComboBox Edit "},
        {3, {VK_TAB, VK_RIGHT, VK_TAB}, "ScrollBar ScrollBar Calendar.MonthChanged(4) box "}};
    for (const auto& [style, keys, wanted] : cases) {
        PutProperty(site.Control(), "MonthYearSelStyle", Value(style));
        FocusOn(site);
        std::string path;
        for (const WORD key : keys) {
            path += type(key);
            for (const std::string& event : TakeEvents()) {
                if (event.find(".Key") == std::string::npos) path += event + ' ';
            }
        }
        EXPECT_EQ(path, wanted);
    }
}

}  // namespace
}  // namespace velmora::vmhost
