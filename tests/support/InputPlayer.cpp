#include "tests/support/InputPlayer.h"

#include "platform/Keys.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <sstream>
#include <utility>
#include <vector>

namespace velmora::test {
namespace {

/// Virtual-key codes; those of letters are the letters.
const std::map<std::string, int> kKeys = {{"Return", 13},   {"Escape", 27}, {"PageUp", 33},
                                          {"PageDown", 34}, {"Left", 37},   {"Up", 38},
                                          {"Right", 39},    {"Down", 40},   {"F4", 115}};

/// The bit of the modifier before the '+', 0 for none, and what is done with it.
std::pair<int, std::string> SplitModifier(const std::string& text) {
    for (const auto& [name, bit] : {std::pair("Shift+", 1), {"Ctrl+", 2}, {"Alt+", 4}}) {
        if (text.starts_with(name)) return {bit, text.substr(std::strlen(name))};
    }
    return {0, text};
}

int CodeOfModifier(int bit) { return bit == kShiftAlt ? kKeyAlt : 15 + bit; }

int CharacterOf(int code, int shift) {
    if (shift > kShiftShift) return 0;
    if (code == kKeyEnter || code == kKeyEscape) return code;
    const bool isLetter = 'A' <= code && code <= 'Z';
    return isLetter ? code + (shift ? 0 : 'a' - 'A') : 0;
}

/// The places hold for every font: of an arrow, which the band's caption may make smaller, the part
/// that it always covers.
Point PlaceOf(const std::string& name) {
    constexpr int kCellWidth = 40;
    constexpr int kRowHeight = 26;
    static const std::map<std::string, Point> kPlaces = {{"box", {10, 10}},
                                                         {"outside", {-20, 100}},
                                                         {"YearBack", {14, 14}},
                                                         {"MonthForward", {251, 14}}};
    if (const auto found = kPlaces.find(name); found != kPlaces.end()) return found->second;
    int row = 0;
    int column = 0;
    EXPECT_EQ(std::sscanf(name.c_str(), "%d,%d", &row, &column), 2) << "no place " << name;
    return {kCellWidth * column - kCellWidth / 2, kRowHeight * (row + 2) - kRowHeight / 2};
}

std::vector<std::string> StepsOf(std::string_view script) {
    std::vector<std::string> steps;
    std::istringstream lines{std::string(script)};
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(' ')) {
            steps.back() += line.substr(line.find_first_not_of(' ') - 1);
        } else if (!line.empty()) {
            steps.push_back(line);
        }
    }
    return steps;
}

std::string CutOff(std::string& text, std::string_view separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string::npos) return {};
    const std::string rest = text.substr(at + separator.size());
    text.resize(at);
    return rest;
}

}  // namespace

std::string InputPlayer::TextOf(const Date& value) {
    const CivilDate date = CivilOf(DayOf(value));
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.year, date.month, date.day);
    return text;
}

std::string InputPlayer::TextOf(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
    return text;
}

void InputPlayer::Play(std::string_view script) {
    for (const std::string& step : StepsOf(script)) PlayStep(step);
}

void InputPlayer::PlayStep(const std::string& step) {
    std::string act = step;
    const std::string date = CutOff(act, " = ");
    const std::string expected = CutOff(act, " -> ");
    std::string verb, what, more;
    std::istringstream(act) >> verb >> what >> more;
    if (!date.empty()) m_date = date;

    Do(verb, what, more);
    Settle(expected);
    EXPECT_EQ(std::exchange(m_log, {}), expected) << step;
    EXPECT_EQ(SelectedDate(), m_date) << step;
}

void InputPlayer::Do(const std::string& verb, const std::string& what, const std::string& more) {
    if (verb == "calendar" || verb == "box") {
        Begin(verb == "box" ? Kind::Box : Kind::Calendar);
    } else if (verb == "let") {
        LetText(what, more);
    } else if (verb == "key") {
        Type(what);
    } else if (verb == "click" || verb == "right" || verb == "double" || verb == "drag") {
        Press(verb, what, more);
    } else if (verb == "month") {
        NextMonth();
    } else if (verb == "scroll") {
        ScrollOn();
    } else if (verb == "year") {
        TypeYear(what);
    } else if (verb == "answer") {
        m_answers[what] = std::stoi(more);
    } else if (verb == "noanswer") {
        m_answers.clear();
    } else {
        ADD_FAILURE() << "no step " << verb;
    }
}

void InputPlayer::Begin(Kind kind) {
    m_kind = kind;
    Make(kind);
    if (kind == Kind::Box) {
        LetText("DropDownWidth", "282");
        LetText("DropDownHeight", "210");
    }
    m_date = "2024-05-15";
    LetText("DateValue", m_date);
    Settle({});
    m_log.clear();  // which today decides
}

void InputPlayer::LetText(const std::string& property, const std::string& value) {
    int year = 0, month = 0, day = 0;
    const bool isDate = std::sscanf(value.c_str(), "%d-%d-%d", &year, &month, &day) == 3;
    Let(property, isDate ? static_cast<int>(DayFromCivil(year, month, day)) : std::stoi(value),
        isDate);
}

void InputPlayer::Type(const std::string& key) {
    const auto [shift, name] = SplitModifier(key);
    const auto found = kKeys.find(name);
    const int code = found == kKeys.end() ? name.front() : found->second;
    const int character = CharacterOf(code, shift);
    if (shift) Key({true, CodeOfModifier(shift), shift, 0});
    Key({true, code, shift, character});
    Key({false, code, shift, character});
    if (shift) Key({false, CodeOfModifier(shift), 0, 0});
}

void InputPlayer::Press(const std::string& verb, const std::string& from, const std::string& to) {
    const auto [shift, place] = SplitModifier(from);
    const int button = verb == "right" ? kButtonRight : kButtonLeft;
    Hand hand{button, shift, PlaceOf(place), m_kind == Kind::Box && place != "box"};
    if (shift) Key({true, CodeOfModifier(shift), shift, 0});
    Mouse(Act::Press, hand);
    if (!to.empty()) {
        hand.at = PlaceOf(to);
        Mouse(Act::Move, hand);
    }
    Mouse(Act::Release, hand);
    if (verb == "double") {
        Mouse(Act::DoublePress, hand);
        Mouse(Act::Release, hand);
    }
    if (shift) Key({false, CodeOfModifier(shift), 0, 0});
}

}  // namespace velmora::test
