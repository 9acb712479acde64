#pragma once

#include "platform/AutomationError.h"
#include "platform/Keys.h"
#include "platform/Values.h"
#include "platform/dates/Date.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace velmora::test {

/// Plays the script of `InputScript.h` on one host's controls. A host only has to do what the user
/// does, to note the events, as "KeyDown(39, 0)", without those of mouse moves, and to tell what is
/// to be seen afterwards.
class InputPlayer {
public:
    virtual ~InputPlayer() = default;
    /// Expects the events and the state of every step.
    void Play(std::string_view script) {
        for (const std::string& step : StepsOf(script)) PlayStep(step);
    }
    /// Plays each part of the script, from one new control to the next, once for every event in it,
    /// in which a handler does `mischief`: a step, "destroy" or "throw". Expects that the two steps
    /// behind it are survived and that no invariant breaks.
    void PlayWith(std::string_view script, const std::string& mischief) {
        std::vector<Steps> parts;
        for (const std::string& step : StepsOf(script)) {
            if (step == "calendar" || step == "box") parts.emplace_back();
            parts.back().push_back(step);
        }
        for (const Steps& part : parts) {
            m_mischief = mischief;
            for (int event = 0; PlayPart(part, event); ++event) {
            }
            m_mischief.clear();
        }
    }
    /// Plays that many of its steps, at random and on random cells, with a new control now and
    /// then. Expects that no invariant breaks, and no more memory than 1 MB in the second half.
    void Wander(std::string_view script, int count, const std::function<std::size_t()>& memory) {
        const Steps steps = StepsOf(script);
        std::minstd_rand random(20240517);
        const auto any = [&](std::size_t size) { return random() / 16 % size; };
        std::size_t most[2] = {0, 0};
        m_mischief = "let Enabled 1", m_eventsToMischief = -1;  // nothing of it is noted
        Begin(Kind::Calendar);
        for (int i = 0; i < count; ++i) {
            std::string act = steps[any(steps.size())];
            for (const char* arrow : {" = ", " -> ", " =>"}) CutOff(act, arrow);
            const bool begins = act == "calendar" || act == "box";
            if (begins && any(50) > 0) continue;
            if (m_kind == Kind::Calendar && act.starts_with("let DropDown")) continue;
            if (const auto comma = act.find(','); comma != act.npos) {
                act[comma - 1] = static_cast<char>('1' + any(6));
                act[comma + 1] = static_cast<char>('1' + any(7));
            }
            Do(act);
            if (i % 8 > 0) continue;
            Settle({});
            ASSERT_EQ(BrokenInvariant(), "") << i << ": " << act;
            m_log.clear();
            if (i % 1000 > 0) continue;
            most[i >= count / 2] = std::max(most[i >= count / 2], memory());
        }
        EXPECT_LT(most[1], most[0] + (1u << 20));
    }

protected:
    enum class Kind { Calendar, Box };
    enum class Act { Press, DoublePress, Move, Release };
    struct Stroke {
        bool down;
        int code;       // virtual-key code
        int shift;      // with the key itself
        int character;  // 0 for none
        bool again;     // by auto-repeat
    };
    struct Hand {
        int button;  // as in the events, 0 for a move without one
        int shift;
        Point at;     // of the control, or
        bool onForm;  // of a box's open calendar
    };
    struct State {
        std::string date;                 // 2024-05-15
        std::string shown;                // 2024-05, the month of the days
        std::string selectors;            // 5/2024 in the month list and the year box; or ""
        std::optional<std::string> text;  // of a box, where it can be asked
        bool open = false;                // the box's calendar is to be seen
    };

    virtual void Make(Kind kind) = 0;
    /// A whole number, or a day number for a date.
    virtual void Let(const std::string& property, int value, bool isDate) = 0;
    virtual void Turn() = 0;
    virtual void Key(const Stroke& stroke) = 0;
    virtual void Mouse(Act act, const Hand& hand) = 0;
    virtual void LoseMouse() = 0;
    /// "list", "type", "year", "spin", "scroll" and "focus" of the script.
    virtual void Select(const std::string& verb, const std::string& what) = 0;
    virtual State See() = 0;
    /// Serves what waits, until so much as `expected` is in the log or a while has passed.
    virtual void Settle(const std::string& expected) = 0;

    // What not every host can do or tell.

    virtual void Destroy() {}
    virtual bool IsDestroyed() { return false; }
    virtual std::string BrokenInvariant() { return {}; }
    virtual std::optional<std::string> Repainted() { return std::nullopt; }
    virtual std::optional<std::string> Marked() { return std::nullopt; }
    /// Names of arrow buttons, with '~' of those that look disabled.
    virtual std::optional<std::string> Pushed() { return std::nullopt; }
    /// Of the wheel over the (open) calendar, 120 away from the user.
    virtual void Turn(int, int) {}
    /// The system repeats for the button that is held.
    virtual void Tick() {}

    /// One step without what is expected of it.
    void Do(const std::string& act) {
        std::string verb, what, more;
        std::istringstream(act) >> verb >> what >> more;
        if (verb == "calendar") return Begin(Kind::Calendar);
        if (verb == "box") return Begin(Kind::Box);
        if (verb == "let") return LetText(what, more);
        if (verb == "key" || verb == "repeat") return Type(what, verb == "repeat");
        if (verb == "turn") return Turn();
        if (verb == "lose") return LoseMouse();
        if (verb == "tick") return Tick();
        if (verb == "destroy") return Destroy();
        if (verb == "watch") return void(m_watches = true);
        if (verb == "answer") return void(m_answers[what] = std::stoi(more));
        if (verb == "noanswer") return m_answers.clear();
        const auto [shift, name] = SplitModifier(what);
        if (verb == "wheel") return Turn(name == "Up" ? 120 : -120, shift);
        const std::string_view selectors[] = {"list", "type", "year", "spin", "scroll", "focus"};
        const bool selects = std::ranges::find(selectors, verb) != std::end(selectors);
        selects ? Select(verb, what) : Press(verb, what, more);
    }
    /// A handler that notes an event with its arguments and answers it as the script wants.
    auto Noting(const std::string& event) {
        return [this, event](auto&&... arguments) {
            std::string list;
            ((list += (list.empty() ? "" : ", ") + TextOf(arguments)), ...);
            Note(event + '(' + list + ')');
            if (Answer(event)) AnswerIn(*Answer(event), arguments...);
        };
    }
    void Note(const std::string& event) {
        if (event.starts_with("MouseMove") && m_mischief.empty()) return;
        m_log += (m_log.empty() ? "" : " ") + event;
        if (m_mischief.empty()) {
            EXPECT_EQ(BrokenInvariant(), "") << event;
            // A box's date is never older than the event that tells it.
            if (m_kind == Kind::Box && event.starts_with("DateChanged(")) {
                EXPECT_EQ(event, "DateChanged(" + See().date + ')');
            }
        } else if (m_eventsToMischief-- == 0) {
            if (m_mischief == "throw") throw Mischief(event);
            try {
                Do(m_mischief);
            } catch (const AutomationError&) {  // a value that is none here
            }
        }
    }
    void NoteProperty(const std::string& name) {
        if (m_watches || !m_mischief.empty()) Note('!' + name);
    }
    /// What a handler of the event sets its first argument to.
    std::optional<int> Answer(const std::string& event) const {
        const auto found = m_answers.find(event);
        return found == m_answers.end() ? std::nullopt : std::optional(found->second);
    }
    const std::string& Log() const { return m_log; }
    bool IsBeforeMischief() const { return !m_mischief.empty() && m_eventsToMischief >= 0; }
    static std::string TextOf(const Date& value) {  // 2024-05-15
        const CivilDate date = CivilOf(DayOf(value));
        char text[32];
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.year, date.month, date.day);
        return text;
    }
    /// Virtual-key codes; those of letters are the letters.
    static int CodeOfKey(const std::string& name) {
        static const std::map<std::string, int> kKeys = {
            {"Return", 13}, {"Escape", 27}, {"Space", 32}, {"PageUp", 33}, {"PageDown", 34},
            {"End", 35},    {"Home", 36},   {"Left", 37},  {"Up", 38},     {"Right", 39},
            {"Down", 40},   {"Delete", 46}, {"F4", 115},   {"F5", 116}};
        const auto found = kKeys.find(name);
        return found == kKeys.end() ? name.front() : found->second;
    }
    /// The name of a place of the calendar, as the script has it.
    static std::string CellAt(Point at) {
        return std::to_string((at.y + kRowHeight) / kRowHeight - 2) + ',' +
               std::to_string((at.x + kCellWidth) / kCellWidth);
    }
    /// Those of a calendar that have the mark beside their content, where it is `isMarked`.
    static std::string CellsWhere(const std::function<bool(Point)>& isMarked) {
        std::string all;
        for (int y = 2 * kRowHeight + 3; y < 200; y += kRowHeight) {
            for (int x = 3; x < 7 * kCellWidth; x += kCellWidth) {
                if (isMarked({x, y})) all += CellAt({x, y});
            }
        }
        return all;
    }

private:
    using Steps = std::vector<std::string>;
    struct Mischief : std::runtime_error {
        using runtime_error::runtime_error;
    };

    static constexpr int kCellWidth = 40;
    static constexpr int kRowHeight = 26;

    /// The bit of the modifier before the '+', 0 for none, and what is done with it.
    static std::pair<int, std::string> SplitModifier(const std::string& text) {
        for (const auto& [name, bit] : {std::pair("Shift+", 1), {"Ctrl+", 2}, {"Alt+", 4}}) {
            if (text.starts_with(name)) return {bit, text.substr(std::strlen(name))};
        }
        return {0, text};
    }

    static int CodeOfModifier(int bit) { return bit == kShiftAlt ? kKeyAlt : 15 + bit; }

    static int CharacterOf(int code, int shift) {
        if (code == kKeyEscape) return code;
        if (shift > kShiftShift) return 0;
        if (code == kKeyEnter || code == kKeySpace) return code;
        const bool isLetter = 'A' <= code && code <= 'Z';
        return isLetter ? code + (shift ? 0 : 'a' - 'A') : 0;
    }

    static std::string Call(const char* event, std::initializer_list<int> arguments) {
        std::string list;
        for (const int argument : arguments) {
            list.append(list.empty() ? "" : ", ").append(std::to_string(argument));
        }
        return std::string(event) + '(' + list + ") ";
    }

    /// The places hold for every font: of an arrow, which the band's caption may make smaller, the
    /// part that it always covers.
    static Point PlaceOf(const std::string& name) {
        static const std::map<std::string, Point> kPlaces = {
            {"box", {10, 10}},         {"outside", {-20, 100}}, {"title", {141, 8}},
            {"YearBack", {14, 14}},    {"MonthBack", {31, 14}}, {"MonthForward", {251, 14}},
            {"YearForward", {268, 14}}};
        if (const auto found = kPlaces.find(name); found != kPlaces.end()) return found->second;
        int row = 0;
        int column = 0;
        EXPECT_EQ(std::sscanf(name.c_str(), "%d,%d", &row, &column), 2) << "no place " << name;
        return {kCellWidth * column - kCellWidth / 2, kRowHeight * (row + 2) - kRowHeight / 2};
    }

    static Steps StepsOf(std::string_view script) {
        Steps steps;
        std::istringstream lines{std::string(script)};
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(' ')) {
                steps.back() += line.substr(line.find_first_not_of(' ') - 1);
                continue;
            }
            std::istringstream parts(line);
            for (std::string part; std::getline(parts >> std::ws, part, ';');)
                steps.push_back(part);
        }
        return steps;
    }

    static std::string CutOff(std::string& text, std::string_view separator) {
        const std::size_t at = text.find(separator);
        if (at == std::string::npos) return {};
        const std::string rest = text.substr(at + separator.size());
        text.resize(at);
        return rest;
    }

    static std::string TextOf(const std::string& value) { return value; }
    static std::string TextOf(bool value) { return value ? "True" : "False"; }
    static std::string TextOf(int value) { return std::to_string(value); }
    static std::string TextOf(float value) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
        return text;
    }
    template <class First, class... Rest>
    static void AnswerIn(int value, First& first, Rest&...) {
        if constexpr (std::is_integral_v<First>) first = static_cast<First>(value);
    }
    static void AnswerIn(int) {}

    void PlayStep(const std::string& step) {
        std::string act = step;
        std::string wanted = CutOff(act, " = ");
        for (const std::string moves : {"let DateValue ", "DateChanged("}) {
            const std::size_t at = step.rfind(moves);
            if (at != step.npos) wanted.insert(0, step.substr(at + moves.size(), 10) + ' ');
        }
        std::string expected = CutOff(act, " =>");
        if (step.find(" =>") == std::string::npos) {
            std::string caused = CutOff(act, " -> ");
            const std::string after = CutOff(caused, "| ");
            const auto [before, behind] = OwnEvents(act);
            expected = before + caused + (caused.empty() || caused.ends_with(' ') ? "" : " ") +
                       behind + after;
        }
        expected.erase(0, expected.find_first_not_of(' '));
        while (expected.ends_with(' ')) expected.pop_back();
        SCOPED_TRACE(step);
        Do(act);
        Settle(expected);
        EXPECT_EQ(std::exchange(m_log, {}), expected);
        EXPECT_EQ(BrokenInvariant(), "");
        ExpectState(expected, wanted);
    }
    /// What a step raises of its own, before and behind what it causes.
    std::pair<std::string, std::string> OwnEvents(const std::string& act) const {
        std::string verb, what, more;
        std::istringstream(act) >> verb >> what >> more;
        if (verb == "wheel") return {};
        const auto [shift, name] = SplitModifier(what);
        std::string before, behind;
        if (verb == "key") {
            const int code = CodeOfKey(name), character = CharacterOf(code, shift);
            before = Call("KeyDown", {code, shift});
            behind =
                (character ? Call("KeyPress", {character}) : "") + Call("KeyUp", {code, shift});
        } else if (verb == "click" || verb == "right" || verb == "drag" || verb == "press" ||
                   verb == "release") {
            const int button = verb == "right" ? kButtonRight : kButtonLeft;
            const Point from = PlaceOf(name), to = more.empty() ? from : PlaceOf(more);
            if (verb != "release") before = Call("MouseDown", {button, shift, from.x, from.y});
            if (verb != "press") behind = Call("MouseUp", {button, shift, to.x, to.y});
            const bool clicks = m_kind == Kind::Calendar && button == kButtonLeft && to.x >= 0;
            if (clicks && verb != "press") behind += Call("Click", {});
        }
        if (shift) before.insert(0, Call("KeyDown", {CodeOfModifier(shift), shift}));
        if (shift) behind += Call("KeyUp", {CodeOfModifier(shift), 0});
        return {before, behind};
    }
    void ExpectState(const std::string& events, const std::string& wanted) {
        std::string selectors;
        std::istringstream words(wanted);
        const auto within = [](const std::string& word) { return word.substr(1, word.size() - 2); };
        std::optional<std::string> repainted, marked, pushed;
        bool showsOther = false;
        for (std::string word; words >> word;) {
            switch (word.front()) {
                case '(': m_shown = within(word), showsOther = true; break;
                case '[': selectors = within(word); break;
                case '{': repainted = within(word); break;
                case '<': marked = within(word), pushed = ""; break;
                case '^': pushed = word.substr(1); break;
                default:
                    m_date = word;
                    if (!showsOther) m_shown = word.substr(0, 7);
            }
        }
        int year = 0, month = 0, day = 0;
        std::sscanf(m_date.c_str(), "%d-%d-%d", &year, &month, &day);
        char text[32];
        std::snprintf(text, sizeof text, "%d/%d/%04d", month, day, year);
        std::sscanf(m_shown.c_str(), "%d-%d", &year, &month);
        const auto opens = events.rfind("DropDown("), closes = events.rfind("CloseUp(");
        if (opens != closes) {
            m_open = closes == std::string::npos || (opens != std::string::npos && opens > closes);
            m_open = m_open && !Answer("DropDown");
        }

        const State state = See();
        EXPECT_EQ(state.date, m_date);
        EXPECT_EQ(state.shown, m_shown);
        if (selectors.empty()) selectors = std::to_string(month) + '/' + std::to_string(year);
        if (!state.selectors.empty()) {
            EXPECT_EQ(state.selectors, selectors);
        }
        if (state.text) {
            EXPECT_EQ(*state.text, text);
        }
        EXPECT_EQ(state.open, m_open);
        const auto compare = [](const auto& seen, const std::optional<std::string>& known) {
            if (seen && known) {
                EXPECT_EQ(*seen, *known);
            }
        };
        compare(Repainted(), repainted);
        if (!marked) return;
        compare(Marked(), marked);
        compare(Pushed(), pushed);
    }
    /// After an error from a handler a box is whole, tells of the next step, and closes.
    void ExpectToGoOn() {
        EXPECT_EQ(BrokenInvariant(), "");
        m_answers.clear();
        for (const char* act :
             {"release title", "let Enabled 1", "let DateMax 4600-12-31", "key Right"}) {
            Do(act);
        }
        EXPECT_NE(m_log.find("DateChanged("), std::string::npos) << m_log;
        Do("focus away");
        EXPECT_FALSE(See().open);
    }
    /// Returns whether the part has that event.
    bool PlayPart(const Steps& part, int eventOfMischief) {
        m_eventsToMischief = eventOfMischief;
        int stepsAfter = 0;
        for (const std::string& step : part) {
            SCOPED_TRACE(m_mischief + " in event " + std::to_string(eventOfMischief) + ": " + step);
            std::string act = step;
            for (const char* arrow : {" = ", " -> ", " =>"}) CutOff(act, arrow);
            try {
                Do(act);
                Settle({});
            } catch (const Mischief&) {
                if (m_kind == Kind::Box) ExpectToGoOn();
            } catch (const AutomationError&) {  // a value that is none any more
            }
            m_log.clear();
            if (IsDestroyed()) return true;
            if (m_mischief != "throw" && !IsBeforeMischief()) {
                EXPECT_EQ(BrokenInvariant(), "");
            }
            if (m_eventsToMischief < 0 && ++stepsAfter > 2) return true;
        }
        return m_eventsToMischief < 0;
    }
    void Begin(Kind kind) {
        m_kind = kind;
        m_watches = m_open = m_held = false;
        m_answers.clear();
        Make(kind);
        if (kind == Kind::Box) {
            LetText("DropDownWidth", "282");
            LetText("DropDownHeight", "210");
        }
        LetText("FirstDayOfWeek", "2");
        m_date = "2024-05-15";
        m_shown = "2024-05";
        LetText("DateValue", m_date);
        Settle({});
        m_log.clear();  // which today decides
        if (!IsDestroyed()) Repainted();
    }
    void LetText(const std::string& property, const std::string& value) {
        if (IsDestroyed()) return;
        int year = 0, month = 0, day = 0;
        const bool isDate = std::sscanf(value.c_str(), "%d-%d-%d", &year, &month, &day) == 3;
        Let(property, isDate ? static_cast<int>(DayFromCivil(year, month, day)) : std::stoi(value),
            isDate);
    }
    void Type(const std::string& key, bool again) {
        const auto [shift, name] = SplitModifier(key);
        const int code = CodeOfKey(name);
        const int character = CharacterOf(code, shift);
        const auto strike = [&, this](const Stroke& stroke) {
            if (!IsDestroyed()) Key(stroke);
        };
        if (shift) strike({true, CodeOfModifier(shift), shift, 0, false});
        strike({true, code, shift, character, false});
        if (again) strike({true, code, shift, character, true});
        strike({false, code, shift, character, false});
        if (shift) strike({false, CodeOfModifier(shift), 0, 0, false});
    }
    void Press(const std::string& verb, const std::string& from, const std::string& to) {
        const bool whole = verb == "click" || verb == "right" || verb == "double" || verb == "drag";
        EXPECT_TRUE(whole || verb == "press" || verb == "move" || verb == "release") << verb;
        const auto [shift, place] = SplitModifier(from);
        Hand hand{verb == "right" ? kButtonRight : kButtonLeft, shift, PlaceOf(place),
                  m_kind == Kind::Box && place != "box"};
        const auto act = [&, this](Act what) {
            if (!IsDestroyed()) Mouse(what, hand);
        };
        if (verb == "move") {
            if (!m_held) hand.button = 0;
            return act(Act::Move);
        }
        if (shift) Key({true, CodeOfModifier(shift), shift, 0, false});
        m_held = verb == "press";
        if (verb != "release") act(Act::Press);
        if (!to.empty()) {
            hand.at = PlaceOf(to);
            act(Act::Move);
        }
        if (verb != "press") act(Act::Release);
        if (verb == "double") {
            act(Act::DoublePress);
            act(Act::Release);
        }
        if (shift && !IsDestroyed()) Key({false, CodeOfModifier(shift), 0, 0, false});
    }

    Kind m_kind = Kind::Calendar;
    std::string m_log;
    std::string m_date;
    std::string m_shown;
    bool m_open = false;
    bool m_watches = false;
    bool m_held = false;
    std::map<std::string, int> m_answers;
    std::string m_mischief;  // empty while all is expected
    int m_eventsToMischief = 0;
};

}  // namespace velmora::test
