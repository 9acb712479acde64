#include "tests/activex/support/Census.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <atomic>
#include <thread>

namespace velmora::vmhost {
namespace {

using Events = std::vector<std::string>;

constexpr POINT kButton{113, 10};  // of the box
constexpr POINT kOnOther{20, 200};

/// This thread's open calendar.
HWND OpenCalendar() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[32];
            GetClassNameW(window, name, 32);
            if (!IsWindowVisible(window) || wcscmp(name, L"VelmoraDropDownForm") != 0) return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

bool IsOpen(ControlSite& box) { return Got(box.Control(), "DropDownState") == "True"; }

/// A box with the focus, and a second window beside its form.
class DropDowns : public ClientTest {
protected:
    DropDowns() : box(AddBox("B")), other(Form::Open(nullptr, {600, 0, 750, 300}, "Other")) {}
    ~DropDowns() override { other->Close(); }

    void ClickOn(HWND window, POINT point) { Click(OnScreen(window, point.x, point.y)); }
    /// The calendar has the mouse from a moment after the pointer has left it.
    void ClickOutside(HWND window, POINT point) {
        MoveMouse(OnScreen(window, point.x, point.y));
        EXPECT_TRUE(Serve([] { return GetCapture() != nullptr; }));
        ClickOn(window, point);
    }
    void Open() {
        FocusOn(box);
        ClickOn(box.ControlWindow(), kButton);
        EXPECT_TRUE(Serve([&] { return IsOpen(box) && OpenCalendar(); }));
        EXPECT_EQ(GetFocus(), box.ControlWindow());
    }
    /// Which keys are its own and not its form's.
    DWORD KeysOfBox() const {
        ComPtr<IOleControl> control;
        box.Control()->QueryInterface(IID_IOleControl,
                                      reinterpret_cast<void**>(control.GetAddressOf()));
        CONTROLINFO info{sizeof info, nullptr, 0, 77};
        control->GetControlInfo(&info);
        return info.dwFlags;
    }
    void MoveForm(int x, int y) {
        SetWindowPos(form->Window(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }

    ControlSite& box;
    ComPtr<Form> other;
};

TEST_F(DropDowns, CloseByWhatHappensOutside) {
    const HWND window = box.ControlWindow();
    const struct {
        const char* how;
        std::function<void()> close;
        HWND focus;
    } cases[] = {{"other window", [&] { ClickOutside(other->Window(), kOnOther); }, window},
                 {"activation", [&] { SetForegroundWindow(other->Window()); }, other->Window()},
                 {"Tab", [] { TypeKey(VK_TAB); }, window},
                 {"move", [&] { MoveForm(40, 40); }, window}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.how);
        Open();
        EXPECT_EQ(KeysOfBox(), CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE);
        c.close();
        EXPECT_TRUE(Serve([&] { return !IsOpen(box); }));
        ServeWaiting(form.Get());
        EXPECT_EQ(OpenCalendar(), nullptr);
        EXPECT_EQ(KeysOfBox(), 0u);
        EXPECT_EQ(VisibleWindows(), 2) << "the form and the other window";
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_EQ(GetFocus(), c.focus);
        std::erase_if(events, [](const std::string& event) {
            return event.starts_with("B.Key") || event.starts_with("B.Mouse");
        });
        EXPECT_EQ(TakeEvents(), (Events{"B.DropDown(False)", "B.CloseUp()"}));
    }
}

TEST_F(DropDowns, LieBelowTheirBoxOrAboveItAndHideWithIt) {
    const auto open = [&](RECT& calendar, RECT& place) {
        Open();
        GetWindowRect(OpenCalendar(), &calendar);
        GetWindowRect(box.ControlWindow(), &place);
    };
    RECT calendar{}, place{};
    open(calendar, place);
    EXPECT_EQ(calendar.left, place.left);
    EXPECT_EQ(calendar.top, place.bottom);
    ShowWindow(form->Window(), SW_HIDE);
    EXPECT_TRUE(Serve([&] { return !IsOpen(box) && !OpenCalendar(); }));
    ShowWindow(form->Window(), SW_SHOW);

    const int right = GetSystemMetrics(SM_CXSCREEN);
    MoveForm(right - 340, GetSystemMetrics(SM_CYSCREEN) - 80);
    open(calendar, place);
    EXPECT_EQ(calendar.bottom, place.top) << "above the box";
    EXPECT_LE(calendar.right, right);
}

/// A form with a box in an apartment each; the box of the first is closed while those of the others
/// stay open.
class Apartments : public testing::Test {
protected:
    static constexpr int kThreads = 3;

    void Live(int number) {
        OleInitialize(nullptr);
        const RECT place{number * 40, number * 250, number * 40 + 500, number * 250 + 250};
        const ComPtr<Form> form = Form::Open(nullptr, place, "Apartment");
        ControlSite& box = form->Add(kBoxClass, "B", kBoxPlace);
        Meet(*form.Get(), 1);
        ServeFor(*form.Get(), 100);  // until the last form is the active one
        // A key that comes without the focus: no thread is to take the focus from another.
        SendMessageW(box.ControlWindow(), WM_KEYDOWN, VK_F4, 0);
        EXPECT_TRUE(ServeUntil(
            form.Get(), [] { return OpenCalendar() != nullptr; }, 5000));
        Meet(*form.Get(), 2);
        if (number == 0) PutProperty(box.Control(), "DropDownState", Value(false));
        Meet(*form.Get(), 3);
        ServeFor(*form.Get(), 100);  // some of the open calendar's ticks
        EXPECT_EQ(IsOpen(box), number != 0);
        EXPECT_EQ(OpenCalendar() != nullptr, number != 0);
        Meet(*form.Get(), 4);
        form->Close();
        EXPECT_EQ(VisibleWindows(), 0);
        OleUninitialize();
    }

private:
    static void ServeFor(Form& form, DWORD milliseconds) {
        ServeUntil(
            &form, [] { return false; }, milliseconds);
    }
    /// Serves the thread's windows until all threads have come to that point.
    void Meet(Form& form, int point) {
        ++m_arrived;
        EXPECT_TRUE(ServeUntil(
            &form, [&] { return m_arrived >= point * kThreads; }, 20000));
    }

    std::atomic<int> m_arrived = 0;
};

TEST_F(Apartments, HaveTheirOwnControlsAndOpenCalendars) {
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([this, number] { Live(number); });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace velmora::vmhost
