#pragma once

#include "tests/support/Looks.h"
#include "tests/support/PropertyTable.h"

#include <random>

namespace velmora::test {

/// Changes a calendar at random, one thing at a time, through what programs and users have.
class RepaintWalk {
public:
    explicit RepaintWalk(VmCalendar& calendar) : m_calendar(calendar) {}

    int Random(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }

    /// Returns what has been done, for messages.
    std::string Step() {
        if (Random(0, 20) == 0) m_calendar.ExtendedNavigation(Random(0, 1) == 1);
        switch (Random(0, 8)) {
            case 0: return Date(Random(-40, 40));
            case 1: return Key();
            case 2: return Select();
            case 3: return Mouse();
            case 4:
            case 5: return Decorate();
            default: return Property();
        }
    }

    std::string Date(int days) {
        const DayNumber day = DayOf(m_calendar.SelectedDate()) + days;
        m_calendar.DateValue(DateOf(day));
        return "DateValue " + IsoDate(day);
    }

private:
    std::string Property() {
        const PropertyRow& row = kCalendarRows[Random(0, std::size(kCalendarRows) - 1)];
        const auto any = [&] {
            return Random(static_cast<int>(row.low), static_cast<int>(row.high));
        };
        switch (row.kind) {
            case Kind::Choice: m_calendar.LetMember(row.name, any()); break;
            case Kind::Flag: m_calendar.LetMember(row.name, any() != 0); break;
            case Kind::Color: m_calendar.LetMember(row.name, Random(0, 0xFFFFFF)); break;
            case Kind::Font: m_calendar.LetMember(row.name, DecoratedFont(Random(5, 20))); break;
            default: return "nothing";
        }
        return std::string(row.name);
    }

    std::string Key() {
        auto key = static_cast<std::int16_t>(Random(33, 40));
        std::int16_t shift = Random(0, 3) == 0 ? 2 : 0;
        m_calendar.OnKeyDown(key, shift);
        return "key";
    }

    std::string Select() {
        const int month = Random(-6, 11);
        if (month >= 0) m_calendar.OnMonthListClick(month);
        if (month < 0)
            m_calendar.OnDateScroll(MonthIndex(DayOf(m_calendar.ShownDate())) + month + 3);
        return "selector";
    }

    std::string Decorate() {
        const DayRef day = m_calendar.Days()->Item(static_cast<std::int16_t>(Random(1, 28)));
        const auto type = Random(0, 1) == 0 ? PictureType::Icon : PictureType::Bitmap;
        switch (Random(0, 4)) {
            case 0: day->BackColor(std::int32_t{Random(0, 0xFFFFFF)}); break;
            case 1: day->ForeColor(std::int32_t{Random(0, 0xFFFFFF)}); break;
            case 2: day->Caption(std::string(static_cast<std::size_t>(Random(0, 30)), 'x')); break;
            case 3: day->Picture(nullptr); break;
            default: day->Picture(PatternPicture(type, {Random(1, 40), Random(1, 40)})); break;
        }
        return "day " + IsoDate(DayOf(day->DayDate()));
    }

    /// The button is pressed, moved and released in steps of its own.
    std::string Mouse() {
        const Size client = m_calendar.Layout().client;
        const auto x = static_cast<float>(Random(-2, client.width + 1));
        const auto y = static_cast<float>(Random(-2, client.height + 1));
        const int what = Random(0, 5);
        if (what == 0) m_calendar.OnMouseUp(1, 0, x, y);
        if (what == 1) m_calendar.OnCaptureLost();
        if (what == 2) m_calendar.OnMouseMove(1, 0, x, y);
        if (what == 3) m_calendar.OnMouseDown(1, 0, x, y);
        if (what == 4) m_calendar.OnGotFocus();
        if (what == 5) m_calendar.OnLostFocus();
        return "mouse " + std::to_string(what);
    }

    VmCalendar& m_calendar;
    std::mt19937 m_random{20200315};
};

}  // namespace velmora::test
