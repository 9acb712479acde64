#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"
#include "tests/support/InputPlayer.h"
#include "tests/support/InputScript.h"

namespace velmora::vmhost {
namespace {

/// The component on a form that counts in pixels as the other hosts do, with input by the system's
/// queue.
class ComponentPlayer : public test::InputPlayer, public ClientTest {
protected:
    ComponentPlayer() {
        form->ChangeAmbient(DISPID_AMBIENT_SCALEUNITS,
                            [](Ambients& ambients) { ambients.scaleUnits = "Pixel"; });
        onEvent = [this](Event& event) {
            if (event.Name() == "MouseMove") return;
            Note(event.Text());
            if (Answer(event.Name())) event.Change(0, Value(*Answer(event.Name())));
        };
    }

private:
    void Make(Kind kind) override {
        form->RemoveAll();
        m_site = kind == Kind::Calendar ? &Add(kCalendarClass, "C", {150, 10, 432, 220})
                                        : &Add(kBoxClass, "B", {150, 10, 271, 31});
        SetForegroundWindow(form->Window());
        m_site->Activate(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(Serve([&] { return m_site->IsUIActive(); }));
        UpdateWindow(Window());
    }
    HWND Window() const { return m_site->ControlWindow(); }
    /// Lies below its date box, which is 21 pixels high.
    HWND OpenCalendar() const { return WindowFromPoint(OnScreen(Window(), 60, 100)); }

    void Let(const std::string& property, int value, bool isDate) override {
        const Outcome put =
            PutProperty(m_site->Control(), property, isDate ? Value::Date(value) : Value(value));
        EXPECT_TRUE(put.Succeeded()) << property << ' ' << put.Text();
    }
    void Key(const Stroke& stroke) override {
        if (GetFocus() != Window()) SetFocus(Window());
        (stroke.down ? PressKey : ReleaseKey)(static_cast<WORD>(stroke.code));
    }
    void Mouse(Act act, const Hand& hand) override {
        const HWND window = hand.onForm && act == Act::Press ? OpenCalendar() : Window();
        if (act == Act::Press) m_pressed = window;
        MoveMouse(OnScreen(m_pressed, hand.at.x, hand.at.y));
        if (act == Act::Move) return;
        if (act == Act::Press && hand.at.x < 0) {
            EXPECT_TRUE(Serve([&] { return GetCapture() == window; }));
        }
        const bool down = act != Act::Release;
        MouseButton(hand.button == 1 ? (down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP)
                                     : (down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP));
    }

    void NextMonth() override {
        const Value list = GetProperty(m_site->Control(), "cboMonthhwnd").result;
        SetFocus(static_cast<HWND>(LongToHandle(list.Number())));
        TypeKey(VK_DOWN);
    }
    void ScrollOn() override {
        HWND bar = nullptr;
        do {
            bar = FindWindowExW(Window(), bar, L"ScrollBar", nullptr);
        } while (bar && !IsWindowVisible(bar));
        RECT place{};
        GetClientRect(bar, &place);
        Click(OnScreen(bar, place.right - 8, 8));
    }
    void TypeYear(const std::string& text) override {
        const HWND year = FindWindowExW(Window(), nullptr, L"Edit", nullptr);
        SetFocus(year);
        SendMessageW(year, EM_SETSEL, 0, -1);
        for (const char digit : text) TypeKey(static_cast<WORD>(digit));
        TypeKey(VK_RETURN);
    }

    std::string SelectedDate() override {
        return Readable(GetProperty(m_site->Control(), "DateValue").result.As(VT_DATE).Get());
    }
    void Settle(const std::string& expected) override {
        Serve([&] { return Log().size() >= expected.size(); }, 1000);
        ServeWaiting(form.Get());
    }

    ControlSite* m_site = nullptr;
    HWND m_pressed = nullptr;
};

TEST_F(ComponentPlayer, RaisesTheEventsOfTheInputScript) { Play(test::kInputScript); }

}  // namespace
}  // namespace velmora::vmhost
