#include "tests/support/InputPlayer.h"
#include "tests/support/InputScript.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Short = std::int16_t;

/// The core itself, told what a host has to tell it.
class CorePlayer : public InputPlayer {
    void Make(Kind kind) override {
        m_box.reset();
        m_calendar.reset();
        if (kind == Kind::Calendar) {
            m_calendar = std::make_unique<TestCalendar>(Size{282, 210});
            Connect(m_calendar->calendar->Events());
        } else {
            m_box = std::make_unique<TestBoxes>();
            Connect(m_box->a.control->Events());
        }
    }

    template <class Events>
    void Connect(Events& events) {
        const auto note = [this](auto& event, const char* name) { event.Connect(Noting(name)); };
        note(events.DateChanged, "DateChanged");
        note(events.DayChanged, "DayChanged");
        note(events.MonthChanged, "MonthChanged");
        note(events.YearChanged, "YearChanged");
        note(events.KeyDown, "KeyDown");
        note(events.KeyPress, "KeyPress");
        note(events.KeyUp, "KeyUp");
        note(events.MouseDown, "MouseDown");
        note(events.MouseUp, "MouseUp");
        if constexpr (requires { events.Click; }) {
            note(events.Click, "Click");
            note(events.DblClick, "DblClick");
        } else {
            note(events.CloseUp, "CloseUp");
            note(events.DropDown, "DropDown");
        }
    }

    void Let(const std::string& property, int value, bool isDate) override {
        const Variant variant = isDate ? Variant(DateOf(value)) : Variant(value);
        if (m_box) {
            m_box->a.control->LetMember(property, variant);
        } else if (property == "AlwaysDateChanged") {  // has no getter
            m_calendar->calendar->AlwaysDateChanged(value != 0);
        } else {
            m_calendar->calendar->LetMember(property, variant);
        }
    }

    void Key(const Stroke& stroke) override {
        m_box ? Strike(*m_box->a.control, stroke) : Strike(*m_calendar->calendar, stroke);
    }
    template <class Control>
    static void Strike(Control& control, const Stroke& stroke) {
        auto code = static_cast<Short>(stroke.code);
        auto shift = static_cast<Short>(stroke.shift);
        auto character = static_cast<Short>(stroke.character);
        stroke.down ? control.OnKeyDown(code, shift) : control.OnKeyUp(code, shift);
        if (stroke.down && character) control.OnKeyPress(character);
    }

    void Mouse(Act act, const Hand& hand) override {
        if (m_calendar) {
            Use(*m_calendar->calendar, act, hand);
            if (act == Act::DoublePress) m_calendar->calendar->OnDblClick();
            const bool inside = hand.at.x >= 0 && hand.button == 1;
            if (act == Act::Release && inside && m_pressed == Act::Press) {
                m_calendar->calendar->OnClick();
            }
            m_pressed = act == Act::Move ? m_pressed : act;
        } else if (hand.onForm) {
            Use(m_box->form->Calendar(), act, hand);
        } else {
            Use(*m_box->a.control, act, hand);
        }
    }
    template <class Control>
    static void Use(Control& control, Act act, const Hand& hand) {
        const auto button = static_cast<Short>(hand.button);
        const auto shift = static_cast<Short>(hand.shift);
        const auto x = static_cast<float>(hand.at.x);
        const auto y = static_cast<float>(hand.at.y);
        switch (act) {
            case Act::Press:
            case Act::DoublePress: return control.OnMouseDown(button, shift, x, y);
            case Act::Move: return control.OnMouseMove(button, shift, x, y);
            case Act::Release: return control.OnMouseUp(button, shift, x, y);
        }
    }

    void NextMonth() override {
        m_calendar->calendar->OnMonthListClick(std::stoi(m_calendar->monthList.shown) + 1);
    }
    void ScrollOn() override {
        const std::string& shown = m_calendar->dateScroll.shown;  // "minimum..maximum: value"
        m_calendar->calendar->OnDateScroll(std::stoi(shown.substr(shown.find(':') + 1)) + 1);
    }
    void TypeYear(const std::string& text) override { m_calendar->calendar->OnYearText(text); }

    std::string SelectedDate() override {
        return IsoDate(
            DayOf(m_box ? m_box->a.control->DateValue() : m_calendar->calendar->SelectedDate()));
    }
    void Settle(const std::string&) override {
        if (m_calendar) m_calendar->Paint();
    }

    std::unique_ptr<TestCalendar> m_calendar;
    std::unique_ptr<TestBoxes> m_box;
    Act m_pressed = Act::Release;
};

TEST(InputScript, TheCoreRaisesItsEvents) { CorePlayer().Play(kInputScript); }

}  // namespace
}  // namespace velmora::test
