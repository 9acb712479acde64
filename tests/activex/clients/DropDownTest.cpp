#include "hosts/activex/win32/ScreenDpi.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <atomic>
#include <thread>

namespace velmora::vmhost {
namespace {

using Events = std::vector<std::string>;

BOOL CALLBACK FindCalendar(HWND window, LPARAM found) {
    wchar_t name[32];
    GetClassNameW(window, name, 32);
    if (!IsWindowVisible(window) || wcscmp(name, L"VelmoraDropDownForm") != 0) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// This thread's open calendar.
HWND OpenCalendar() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindCalendar, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool IsOpen(ControlSite& box) { return Got(box.Control(), "DropDownState") == "True"; }

/// A box, and a second window beside its form.
class DropDowns : public ClientTest {
protected:
    DropDowns() : box(AddBox("B")), other(Form::Open(nullptr, {600, 0, 750, 300}, "Other")) {}
    ~DropDowns() override { other->Close(); }
    void Open() {
        FocusOn(box);
        Click(OnScreen(box.ControlWindow(), 113, 10));
        EXPECT_TRUE(Serve([&] { return IsOpen(box) && OpenCalendar(); }));
        EXPECT_EQ(GetFocus(), box.ControlWindow());
        RECT calendar{}, place{};
        GetWindowRect(OpenCalendar(), &calendar);
        GetWindowRect(box.ControlWindow(), &place);
        const LONG width = MulDiv(250, ScreenDpi(), 96), height = MulDiv(200, ScreenDpi(), 96);
        const RECT below{place.left, place.bottom, place.left + width, place.bottom + height};
        EXPECT_TRUE(EqualRect(&calendar, &below)) << calendar.right << ", " << calendar.bottom;
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
    ControlSite& box;
    ComPtr<Form> other;
};

TEST_F(DropDowns, CloseByWhatHappensOutside) {
    const HWND window = box.ControlWindow();
    const std::tuple<const char*, std::function<void()>, HWND> cases[] = {
        {"activation", [&] { SetForegroundWindow(other->Window()); }, other->Window()},
        {"Tab", [] { TypeKey(VK_TAB); }, window},
        {"move", [&] { MoveWindow(form->Window(), 40, 40, 500, 300, TRUE); }, window},
        {"hiding", [&] { ShowWindow(form->Window(), SW_HIDE); }, nullptr}};
    for (const auto& [how, close, focus] : cases) {
        SCOPED_TRACE(how);
        Open();
        EXPECT_EQ(KeysOfBox(), CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE);
        close();
        EXPECT_TRUE(Serve([&] { return !IsOpen(box); }));
        ServeWaiting(form.Get());
        EXPECT_EQ(OpenCalendar(), nullptr);
        EXPECT_EQ(KeysOfBox(), 0u);
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_TRUE(!focus || GetFocus() == focus);
        std::erase_if(events, [](const std::string& event) {
            return event.starts_with("B.Key") || event.starts_with("B.Mouse");
        });
        EXPECT_EQ(TakeEvents(), (Events{"B.DropDown(False)", "B.CloseUp()"}));
    }
}

/// Neither takes the focus from the other: their keys come without it.
TEST_F(DropDowns, StayOpenWhenAnotherThreadClosesItsOwn) {
    std::atomic<int> step = 0;
    const auto reach = [&](Form& served, int next) {
        ++step;
        EXPECT_TRUE(ServeUntil(
            &served, [&] { return step >= 2 * next; }, 20000));
    };
    const auto open = [](Form& served, ControlSite& site) {
        SendMessageW(site.ControlWindow(), WM_KEYDOWN, VK_F4, 0);
        EXPECT_TRUE(ServeUntil(
            &served, [] { return OpenCalendar() != nullptr; }, 5000));
    };
    std::thread thread([&] {
        OleInitialize(nullptr);
        const ComPtr<Form> its = Form::Open(nullptr, {40, 300, 540, 550}, "Apartment");
        ControlSite& second = its->Add(kBoxClass, "B", kBoxPlace);
        reach(*its.Get(), 1);
        open(*its.Get(), second);
        reach(*its.Get(), 2);
        PutProperty(second.Control(), "DropDownState", Value(false));
        EXPECT_FALSE(OpenCalendar());
        its->Close();
        OleUninitialize();
        ++step;
    });
    reach(*form.Get(), 1);
    open(*form.Get(), box);
    reach(*form.Get(), 2);
    EXPECT_TRUE(Serve([&] { return step == 5; }, 20000));
    thread.join();
    EXPECT_TRUE(IsOpen(box) && OpenCalendar());
}

}  // namespace
}  // namespace velmora::vmhost
