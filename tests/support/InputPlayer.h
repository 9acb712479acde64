#pragma once

#include "platform/Values.h"
#include "platform/dates/Date.h"

#include <map>
#include <optional>
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
    void Play(std::string_view script);
    /// Plays each part of the script, from one new control to the next, once for every event in it,
    /// in which a handler does `mischief`: a step, "destroy" or "throw". Expects that the two steps
    /// behind it are survived and that no invariant breaks.
    void PlayWith(std::string_view script, const std::string& mischief);

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
    virtual std::optional<std::string> Pushed() { return std::nullopt; }

    /// One step without what is expected of it.
    void Do(const std::string& act);
    /// A handler that notes an event with its arguments and answers it as the script wants.
    auto Noting(const std::string& event) {
        return [this, event](auto&&... arguments) {
            std::string list;
            ((list += (list.empty() ? "" : ", ") + TextOf(arguments)), ...);
            Note(event + '(' + list + ')');
            if (Answer(event)) AnswerIn(*Answer(event), arguments...);
        };
    }
    void Note(const std::string& event);
    void NoteProperty(const std::string& name) {
        if (m_watches || !m_mischief.empty()) Note('!' + name);
    }
    /// The script has none of them, but a handler may do mischief in one.
    auto NotingMove() {
        return [this](auto&&...) {
            if (!m_mischief.empty()) Note("MouseMove");
        };
    }
    /// What a handler of the event sets its first argument to.
    std::optional<int> Answer(const std::string& event) const {
        const auto found = m_answers.find(event);
        return found == m_answers.end() ? std::nullopt : std::optional(found->second);
    }
    const std::string& Log() const { return m_log; }
    bool IsBeforeMischief() const { return !m_mischief.empty() && m_eventsToMischief >= 0; }
    static std::string TextOf(const Date& value);  // 2024-05-15
    /// The name of a place of the calendar, as the script has it.
    static std::string CellAt(Point at);

private:
    using Steps = std::vector<std::string>;

    static std::string TextOf(const std::string& value) { return value; }
    static std::string TextOf(bool value) { return value ? "True" : "False"; }
    static std::string TextOf(int value) { return std::to_string(value); }
    static std::string TextOf(float value);
    template <class First, class... Rest>
    static void AnswerIn(int value, First& first, Rest&...) {
        if constexpr (std::is_integral_v<First>) first = static_cast<First>(value);
    }
    static void AnswerIn(int) {}

    void PlayStep(const std::string& step);
    std::pair<std::string, std::string> OwnEvents(const std::string& act) const;
    void ExpectState(const std::string& events, const std::string& wanted);
    void ExpectToGoOn();
    bool PlayPart(const Steps& part, int eventOfMischief);
    void Begin(Kind kind);
    void LetText(const std::string& property, const std::string& value);
    void Type(const std::string& key, bool again);
    void Press(const std::string& verb, const std::string& from, const std::string& to);

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
