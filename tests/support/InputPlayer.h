#pragma once

#include "platform/Date.h"
#include "platform/Values.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace velmora::test {

/// Plays the script of `InputScript.h` on one host's controls. A host only has to do what the user
/// does and to note the events, as "KeyDown(39, 0)", without those of mouse moves.
class InputPlayer {
public:
    virtual ~InputPlayer() = default;
    /// Expects the events and the date of every step.
    void Play(std::string_view script);

protected:
    enum class Kind { Calendar, Box };
    enum class Act { Press, DoublePress, Move, Release };
    struct Stroke {
        bool down;
        int code;       // virtual-key code
        int shift;      // with the key itself
        int character;  // 0 for none
    };
    struct Hand {
        int button;  // as in the events
        int shift;
        Point at;     // of the control, or
        bool onForm;  // of a box's open calendar
    };

    virtual void Make(Kind kind) = 0;
    /// A whole number, or a day number for a date.
    virtual void Let(const std::string& property, int value, bool isDate) = 0;
    virtual void Key(const Stroke& stroke) = 0;
    virtual void Mouse(Act act, const Hand& hand) = 0;
    virtual void NextMonth() = 0;  // by key, in the closed list
    virtual void ScrollOn() = 0;   // by the scroll bar's button
    virtual void TypeYear(const std::string& text) = 0;
    virtual std::string SelectedDate() = 0;  // 2024-05-15
    /// Serves what waits, until so much as `expected` is in the log or a while has passed.
    virtual void Settle(const std::string& expected) = 0;

    /// A handler that notes an event with its arguments and answers it as the script wants.
    auto Noting(const std::string& event) {
        return [this, event](auto&&... arguments) {
            std::string list;
            ((list += (list.empty() ? "" : ", ") + TextOf(arguments)), ...);
            Note(event + '(' + list + ')');
            if (Answer(event)) AnswerIn(*Answer(event), arguments...);
        };
    }
    void Note(const std::string& text) { m_log += (m_log.empty() ? "" : " ") + text; }
    /// What a handler of the event sets its first argument to.
    std::optional<int> Answer(const std::string& event) const {
        const auto found = m_answers.find(event);
        return found == m_answers.end() ? std::nullopt : std::optional(found->second);
    }
    const std::string& Log() const { return m_log; }

private:
    static std::string TextOf(const std::string& value) { return value; }
    static std::string TextOf(const Date& value);
    static std::string TextOf(bool value) { return value ? "True" : "False"; }
    static std::string TextOf(int value) { return std::to_string(value); }
    static std::string TextOf(float value);
    template <class First, class... Rest>
    static void AnswerIn(int value, First& first, Rest&...) {
        if constexpr (std::is_integral_v<First>) first = static_cast<First>(value);
    }
    static void AnswerIn(int) {}

    void PlayStep(const std::string& step);
    void Do(const std::string& verb, const std::string& what, const std::string& more);
    void Begin(Kind kind);
    void LetText(const std::string& property, const std::string& value);
    void Type(const std::string& key);
    void Press(const std::string& verb, const std::string& from, const std::string& to);

    Kind m_kind = Kind::Calendar;
    std::string m_log;
    std::string m_date;
    std::map<std::string, int> m_answers;
};

}  // namespace velmora::test
