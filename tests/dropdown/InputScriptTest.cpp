#include "calendar/SelectorInput.h"
#include "platform/Keys.h"
#include "tests/support/InputPlayer.h"
#include "tests/support/InputScript.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

namespace velmora::test {
namespace {

using Short = std::int16_t;

/// The core itself, told what a host has to tell it, with selectors that act as both hosts' do.
class CorePlayer : public InputPlayer {
    void Make(Kind kind) override {
        m_box.reset();
        m_calendar.reset();
        m_typed = false;
        m_input.emplace([] {});
        m_held = m_painted = false;
        const auto told = [this](const std::string& name) { NoteProperty(name); };
        if (kind == Kind::Calendar) {
            m_calendar = std::make_unique<TestCalendar>(Size{282, 210});
            m_calendar->whenNotified = told;
            Connect(Calendar().Events());
        } else {
            m_box = std::make_unique<TestBoxes>();
            m_box->a.host.whenNotified = told;
            Connect(Box().Events());
            Box().OnGotFocus();
        }
    }
    VmCalendar& Calendar() { return *m_calendar->calendar; }
    VmCalDropDown& Box() { return *m_box->a.control; }

    template <class Events>
    void Connect(Events& events) {
        ForEachEvent(events,
                     [this](auto& event, const char* name) { event.Connect(Noting(name)); });
    }

    void Let(const std::string& property, int value, bool isDate) override {
        const Variant variant = isDate ? Variant(DateOf(value)) : Variant(value);
        if (property == "Enabled") {
            m_held = false;
            m_calendar ? Calendar().Enabled(value != 0) : Box().Enabled(value != 0);
        } else if (m_box && property == "ExtendedNavigation") {
            Box().ExtendedNavigation(value != 0);
        } else if (m_box) {
            Box().LetMember(property, variant);
        } else if (property == "AlwaysDateChanged") {  // has no getter
            Calendar().AlwaysDateChanged(value != 0);
        } else if (property == "ExtendedNavigation") {  // is not published by name
            Calendar().ExtendedNavigation(value != 0);
        } else {
            Calendar().LetMember(property, variant);
        }
    }

    void Turn() override {
        (m_calendar ? *m_calendar : *m_box->a.window).rightToLeft = true;
        if (m_box) m_box->calendarWindow.rightToLeft = true;
        m_calendar ? Calendar().OnLocaleChanged() : Box().OnLocaleChanged();
        if (!m_calendar) return;
        Calendar().OnWindowRecreated();  // as some hosts have to
        FakeChild gone;
        gone.shown = "0: 0";
        m_calendar->monthList = m_calendar->yearText = m_calendar->yearSpinner = gone;
    }

    void Key(const Stroke& stroke) override {
        if (stroke.code == kKeyEscape) m_held = false;
        if (m_calendar) Commit();
        if (IsDestroyed()) return;
        m_box ? Strike(Box(), stroke) : Strike(Calendar(), stroke);
    }
    template <class Control>
    void Strike(Control& control, const Stroke& stroke) {
        auto code = static_cast<Short>(stroke.code);
        auto shift = static_cast<Short>(stroke.shift);
        auto character = static_cast<Short>(stroke.character);
        stroke.down ? control.OnKeyDown(code, shift) : control.OnKeyUp(code, shift);
        if (stroke.down && character && !IsDestroyed()) control.OnKeyPress(character);
    }

    void Mouse(Act act, const Hand& hand) override {
        if (act != Act::Move) m_held = act != Act::Release && hand.button == kButtonLeft;
        if (!m_calendar) {
            hand.onForm ? Use(m_box->form->Calendar(), act, hand) : Use(Box(), act, hand);
            return;
        }
        if (act == Act::Press) Commit();
        if (!IsDestroyed()) Use(Calendar(), act, hand);
    }
    template <class Control>
    static void Use(Control& control, Act act, const Hand& hand) {
        const auto button = static_cast<Short>(hand.button);
        const auto shift = static_cast<Short>(hand.shift);
        const auto x = static_cast<float>(hand.at.x);
        const auto y = static_cast<float>(hand.at.y);
        switch (act) {
            case Act::DoublePress:
                if constexpr (requires { &Control::OnMouseDoubleClick; }) {
                    return control.OnMouseDoubleClick(button, shift, x, y);
                }
                [[fallthrough]];
            case Act::Press: return control.OnMouseDown(button, shift, x, y);
            case Act::Move: return control.OnMouseMove(button, shift, x, y);
            case Act::Release: return control.OnMouseUp(button, shift, x, y);
        }
    }

    void LoseMouse() override {
        m_held = false;
        m_calendar ? Calendar().OnCaptureLost() : m_box->form->Calendar().OnCaptureLost();
    }

    void Turn(int delta, int shift) override {
        VmCalendar& calendar = m_calendar ? Calendar() : m_box->form->Calendar();
        calendar.OnWheel(delta, static_cast<Short>(shift));
    }
    void Tick() override {
        if (const auto repeated = m_calendar->repeated) repeated();
    }
    void Select(const std::string& verb, const std::string& what) override {
        if (m_box) return Box().OnLostFocus();
        if (m_calendar->childrenMade == 0) return;  // a handler has taken them away
        if (verb == "list") return UseList(what);
        if (verb == "scroll") return Scroll(what);
        std::string& year = m_calendar->yearText.shown;
        if (verb == "type") {
            year = what;
            m_typed = true;
            return;
        }
        if (verb == "year") {
            const auto key = static_cast<Short>(CodeOfKey(what));
            m_input->PostYearKey(key, year, std::exchange(m_typed, false));
        }
        Commit();
        if (IsDestroyed()) return;
        if (verb == "focus") return Calendar().OnSelectorLeave();
        const int value = ValueOf(m_calendar->yearSpinner);
        if (verb == "spin") Calendar().OnYearSpinner(what == "Up" ? value - 1 : value + 1);
    }
    void Commit() {
        if (IsDestroyed()) return;
        if (std::exchange(m_typed, false)) {
            m_input->Post(&VmCalendar::OnYearText, m_calendar->yearText.shown);
        }
        m_input->Deliver(Calendar());
    }
    void UseList(const std::string& what) {
        FakeChild& list = m_calendar->monthList;
        Commit();
        if (IsDestroyed()) return;
        const bool open = std::exchange(
            list.dropped, what == "open" || (what != "Return" && what != "Escape" && list.dropped));
        if (what == "open") Calendar().OnSelectorEnter();
        if (what == "Up" || what == "Down" || what == "wheel") {
            list.shown = std::to_string(std::stoi(list.shown) + (what == "Up" ? -1 : 1));
            Calendar().OnMonthListClick(std::stoi(list.shown));
        } else if (what == "Return") {
            open ? Calendar().OnMonthListClick(std::stoi(list.shown))
                 : Calendar().OnMonthListKeyDown(kKeyEnter);
        } else if (what == "Escape") {
            Calendar().OnMonthListKeyDown(kKeyEscape);
            Calendar().OnMonthListClick(std::stoi(list.shown));  // as some lists tell
            Calendar().OnMonthListKeyDown(kKeyEnter);
            Calendar().OnYearText("1999");
            Calendar().OnMonthListKeyUp(kKeyEscape);
        }
    }
    void Scroll(const std::string& what) {
        const int by = what == "on" ? 1 : what == "back" ? -1 : 12;
        Calendar().OnDateScroll(ValueOf(m_calendar->dateScroll) + by);
    }
    static int ValueOf(const FakeChild& bar) {  // "minimum..maximum: value"
        return std::stoi(bar.shown.substr(bar.shown.find(':') + 1));
    }

    State See() override {
        State state;
        const DaysRef days = m_box ? Box().Days() : Calendar().Days();
        state.shown = IsoDate(DayOf(days->Item(1)->DayDate())).substr(0, 7);
        state.date = IsoDate(DayOf(m_box ? Box().DateValue() : Calendar().SelectedDate()));
        if (m_calendar) {
            EXPECT_EQ(m_calendar->captured, m_held);
        }
        if (m_box) {
            state.text = Box().Text();
            state.open = m_box->visible;
        } else if (m_calendar->monthList.visible) {
            state.selectors = std::to_string(std::stoi(m_calendar->monthList.shown) + 1) + '/' +
                              m_calendar->yearText.shown;
        }
        return state;
    }
    void Settle(const std::string&) override {
        // The first paint has an event; the others before a mischief are as without it.
        if (!m_calendar || IsDestroyed() ||
            (std::exchange(m_painted, true) && IsBeforeMischief())) {
            return;
        }
        TakeRepaints();
        m_calendar->Paint();
        m_calendar->TakeLog();
    }

    void Destroy() override {
        m_input.reset();
        if (m_calendar) m_calendar->calendar.reset();
        if (m_box) m_box->a.control.reset();
    }
    bool IsDestroyed() override { return m_calendar ? !m_calendar->calendar : !m_box->a.control; }
    std::string BrokenInvariant() override {
        return m_calendar ? m_calendar->BrokenInvariant() : m_box->BrokenInvariant();
    }
    std::optional<std::string> Repainted() override {
        return m_calendar ? std::optional(m_repainted) : std::nullopt;
    }
    /// Before the next paint, which may find more.
    void TakeRepaints() {
        m_repainted.clear();
        for (const std::string& entry : m_calendar->TakeLog()) {
            if (!entry.starts_with("repaint")) continue;
            if (!m_repainted.empty()) m_repainted += ',';
            m_repainted += entry == "repaint" ? "all" : entry.substr(entry.find_last_of(" -") + 1);
        }
    }
    /// The cells in the selection's colour.
    std::optional<std::string> Marked() override {
        if (!m_calendar) return std::nullopt;
        StrictDrawing& drawing = m_calendar->drawing;
        drawing.Forget();
        m_calendar->Paint();
        std::string all;
        for (const StrictDrawing::Call& fill : drawing.Of("fill")) {
            if (fill.color != drawing.GetSysColor(13)) continue;
            all += CellAt({fill.rect.left, fill.rect.top});
        }
        return all;
    }
    std::optional<std::string> Pushed() override {
        if (!m_calendar) return std::nullopt;
        const std::string kArrows[] = {"YearBack", "YearForward", "MonthBack", "MonthForward"};
        std::string all;
        const auto frames = m_calendar->drawing.Of("frame");  // of the paint before
        for (std::size_t i = 0; i < frames.size(); ++i) {
            if ((frames[i].flags & (kFramePushed | kFrameInactive)) == 0) continue;
            if (!all.empty()) all += ',';
            all += (frames[i].flags & kFrameInactive) != 0 ? '~' + kArrows[i] : kArrows[i];
        }
        return all;
    }

    std::unique_ptr<TestCalendar> m_calendar;
    std::unique_ptr<TestBoxes> m_box;
    bool m_held = false;
    bool m_painted = false;
    std::string m_repainted;
    bool m_typed = false;  // a year, and not yet told
    std::optional<SelectorInput> m_input;
};

const std::string kScript = std::string(kInputScript).append(kExtendedScript);

TEST(InputScript, TheCoreRaisesItsEvents) { CorePlayer().Play(kScript); }

/// A handler of any event does its worst in the middle of any step.
TEST(InputScript, TheCoreSurvivesItsHandlers) {
    for (const char* mischief :
         {"destroy", "throw", "let DateValue 2031-07-07", "let DateMax 2018-01-01", "let Enabled 0",
          "let MonthYearSelStyle 0", "let ShowWeekend 0", "key Right", "key F4"}) {
        CorePlayer().PlayWith(kScript, mischief);
    }
}

}  // namespace
}  // namespace velmora::test
