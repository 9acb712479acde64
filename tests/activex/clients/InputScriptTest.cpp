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
        onEvent = [this](Event& event) {
            Note(event.Text());
            if (Answer(event.Name())) event.Change(0, Value(*Answer(event.Name())));
        };
    }

private:
    void Make(Kind kind) override {
        if (!form->IsOpen()) form = Form::Open(nullptr, {0, 0, 500, 300}, "Next");
        form->RemoveAll();
        ServeWaiting(form.Get());
        EXPECT_EQ(VisibleWindows(), 1) << "the form";
        EXPECT_EQ(GetCapture(), nullptr);
        form->ChangeAmbient(DISPID_AMBIENT_SCALEUNITS, [](Ambients& ambients) {
            ambients.scaleUnits = "Pixel";
            ambients.rightToLeft = false;
        });
        m_site = kind == Kind::Calendar ? &Add(kCalendarClass, "C", {150, 10, 432, 220})
                                        : &Add(kBoxClass, "B", {150, 10, 271, 31});
        m_site->onRequestEdit = [this](const std::string&) { return !m_refuses; };
        m_site->onChanged = [this](const std::string& name) { NoteProperty(name); };
        SetForegroundWindow(form->Window());
        m_site->Activate(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(Serve([&] { return IsDestroyed() || m_site->IsUIActive(); }));
        if (!IsDestroyed()) UpdateWindow(Window());
    }
    void Destroy() override {
        m_site = nullptr;
        form->Close();
    }
    bool IsDestroyed() override { return !m_site; }
    HWND Window() const { return m_site ? m_site->ControlWindow() : nullptr; }
    /// Lies below its date box, which is 21 pixels high.
    HWND OpenCalendar() const { return WindowFromPoint(OnScreen(Window(), 60, 100)); }

    void Let(const std::string& property, int value, bool isDate) override {
        const bool refuses = std::exchange(m_refuses, false);
        const Outcome put =
            PutProperty(m_site->Control(), property, isDate ? Value::Date(value) : Value(value));
        EXPECT_TRUE(put.Succeeded()) << property << ' ' << put.Text();
        m_refuses = refuses;
    }
    void Turn() override {
        form->ChangeAmbient(DISPID_AMBIENT_RIGHTTOLEFT,
                            [](Ambients& ambients) { ambients.rightToLeft = true; });
    }
    void Key(const Stroke& stroke) override {
        if (GetFocus() != Window()) SetFocus(Window());
        Serve([&] { return GetFocus() == Window(); }, 100);
        TurnKey(static_cast<WORD>(stroke.code), stroke.down);
    }
    void Mouse(Act act, const Hand& hand) override {
        const bool isAim = act == Act::Press || (act == Act::Move && hand.button == 0);
        if (isAim) m_pressed = hand.onForm ? OpenCalendar() : Window();
        const POINT at = OnScreen(m_pressed, hand.at.x, hand.at.y);
        MoveMouse(at);
        if (act == Act::Move) return;
        if (act == Act::Press && hand.at.x < 0) {
            EXPECT_TRUE(Serve([&] { return IsDestroyed() || GetCapture() == m_pressed; }));
        }
        if (IsDestroyed()) return;
        const bool down = act != Act::Release;
        MoveMouse(at, hand.button == 1 ? (down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP)
                                       : (down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP));
    }
    void LoseMouse() override {
        ServeWaiting(form.Get());
        ReleaseCapture();
    }

    HWND Child(const wchar_t* className) const {
        HWND child = nullptr;
        do {
            child = FindWindowExW(Window(), child, className, nullptr);
        } while (child && !IsWindowVisible(child));
        return child;
    }
    void Select(const std::string& verb, const std::string& what) override {
        if (IsDestroyed()) return;
        const HWND child = verb == "list" ? Child(L"ComboBox")
                           : verb == "focus"
                               ? (what == "grid" ? Window() : form->Window())
                               : Child(verb == "type" || verb == "year" ? L"Edit" : L"ScrollBar");
        if (what == "wheel") {
            SendMessageW(child, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
            return;
        }
        if (verb == "spin" || verb == "scroll") return Scroll(child, verb, what);
        if (GetFocus() != child) SetFocus(child);
        if (verb == "type") {
            SendMessageW(child, EM_SETSEL, 0, -1);
            TypeText(std::wstring(what.begin(), what.end()));
            Serve([&] { return IsDestroyed() || TextOf(child) == what; });
        } else if (what == "open") {
            MoveMouse(OnScreen(form->Window(), 1, 1));  // an open list follows the pointer
            SendMessageW(child, CB_SHOWDROPDOWN, TRUE, 0);
        } else if (verb != "focus") {
            TypeKey(static_cast<WORD>(CodeOfKey(what)));
        }
    }
    void Scroll(HWND bar, const std::string& verb, const std::string& what) {
        RECT place{};
        GetClientRect(bar, &place);
        if (what == "page") {
            SendMessageW(Window(), WM_HSCROLL, SB_PAGEDOWN, reinterpret_cast<LPARAM>(bar));
        } else if (verb == "spin") {
            Click(OnScreen(bar, place.right / 2, what == "Up" ? 4 : place.bottom - 4));
        } else {
            Click(OnScreen(bar, what == "on" ? place.right - 8 : 8, 8));
        }
    }
    static std::string TextOf(HWND window) {
        char text[16]{};
        GetWindowTextA(window, text, sizeof text);
        return text;
    }

    State See() override {
        State state;
        IOleObject* const control = m_site->Control();
        state.date = Readable(GetProperty(control, "DateValue").result.As(VT_DATE).Get());
        const Value days = GetProperty(control, "Days").result;
        const Value first = GetProperty(days.Object(), "Item", {Value(1)}).result;
        state.shown = Got(first.Object(), "DayDate").substr(0, 7);
        if (const HWND list = Child(L"ComboBox")) {
            state.selectors = std::to_string(SendMessageW(list, CB_GETCURSEL, 0, 0) + 1) + '/' +
                              TextOf(Child(L"Edit"));
        }
        const HWND open = FindWindowW(L"VelmoraDropDownForm", nullptr);
        state.open = open && IsWindowVisible(open);
        return state;
    }
    /// As the screen shows it.
    std::optional<std::string> Marked() override {
        const HDC context = GetDC(Window());
        const std::string all = CellsWhere([&](Point at) {
            return GetPixel(context, at.x, at.y) == GetSysColor(COLOR_HIGHLIGHT);
        });
        ReleaseDC(Window(), context);
        return all;
    }
    void Settle(const std::string& expected) override {
        Serve([&] { return Log().size() >= expected.size(); }, 1000);
        ServeWaiting(form.Get());
    }

    ControlSite* m_site = nullptr;
    HWND m_pressed = nullptr;

protected:
    bool m_refuses = false;  // that the user changes a property
};

TEST_F(ComponentPlayer, RaisesTheEventsOfTheInputScript) { Play(test::kInputScript); }

TEST_F(ComponentPlayer, ChangesNothingThatItsContainerRefuses) {
    m_refuses = true;
    Play(R"(
calendar; key Right; key PageDown; click 3,3
box; key Right; key Down
key F4           -> DropDown(False)
key Right
key PageUp
click 3,3
key Escape       -> CloseUp()
)");
}
TEST_F(ComponentPlayer, OutlivesTheEndOfItsFormInAnyEvent) {
    PlayWith(R"(
calendar; key PageDown; click 3,3
calendar; let MonthYearSelStyle 2; list Down; type 2027; year Return; spin Up
calendar; let MonthYearSelStyle 3; scroll on
box; key F4; key Right; click 3,3
box; key F4; click outside
box; key F4; key Return; key F4; focus away
)",
             "destroy");
}

}  // namespace
}  // namespace velmora::vmhost
