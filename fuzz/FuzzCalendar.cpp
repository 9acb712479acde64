#include "fuzz/FuzzCalendar.h"

#include "fuzz/FuzzValues.h"
#include "platform/stores/PropertiesText.h"
#include "tests/support/TestCalendar.h"

#include <cstdio>
#include <cstdlib>

namespace velmora::fuzz {
namespace {

using test::TestCalendar;

/// The invariants that hold for any values; a damaged store may have its limits anywhere.
void Check(TestCalendar& test) {
    const VmDays& days = *test.calendar->Days();
    const DayNumber first = FirstOfMonth(DayOf(test.calendar->ShownDate()));
    if (days.Count() != DayOfMonth(LastOfMonth(first))) Fail("Days has another month's length");
    const auto count = static_cast<std::int16_t>(days.Count());
    for (std::int16_t i = 1; i <= count; ++i) {
        if (DayOf(days.Item(i)->DayDate()) != first + i - 1) Fail("Days is another month");
    }
    if (!test.drawing.faults.empty()) Fail(test.drawing.faults.front());
}

void UseMouse(TestCalendar& test, ByteReader& deeds) {
    const auto x = static_cast<float>(deeds.Take<std::int8_t>() * 2);
    const auto y = static_cast<float>(deeds.Take<std::int8_t>() * 2);
    VmCalendar& calendar = *test.calendar;
    const auto button = static_cast<std::int16_t>(1 + deeds.Take<std::uint8_t>() % 2);
    calendar.OnMouseDown(button, 0, 100, 100);
    calendar.OnMouseMove(button, 0, x, y);
    calendar.OnMouseUp(button, 0, x, y);
    calendar.OnMouseDown(1, 0, x, y);
    calendar.OnMouseUp(1, 0, x, y);
}

void UseSelectors(TestCalendar& test, ByteReader& deeds) {
    VmCalendar& calendar = *test.calendar;
    calendar.OnSelectorEnter();
    switch (deeds.Take<std::uint8_t>() % 5) {
        case 0:
            if (!test.monthList.shown.empty())
                calendar.OnMonthListClick(deeds.Take<std::int8_t>() % 12);
            break;
        case 1: calendar.OnYearText(deeds.TakeText(5)); break;
        case 2: calendar.OnYearSpinner(deeds.Take<std::int16_t>()); break;
        case 3: calendar.OnDateScroll(deeds.Take<std::int32_t>()); break;
        default: calendar.OnYearTextCancel(); break;
    }
    calendar.OnSelectorLeave();
}

void DoDeed(TestCalendar& test, ByteReader& deeds) {
    switch (const auto deed = deeds.Take<std::uint8_t>(); deed % 8) {
        case 0:
        case 1: {
            const auto keyCode = static_cast<std::int16_t>(33 + deed / 8 % 8);  // PageUp..Down
            test.Key(keyCode, deed >> 6);
            break;
        }
        case 2: UseMouse(test, deeds); break;
        case 3: UseSelectors(test, deeds); break;
        case 4: test.now = Date(deeds.Take<double>()); break;
        case 5:
            test.screen.right = std::max(deeds.Take<std::int16_t>() % 600, 0);
            test.screen.bottom = std::max(deeds.Take<std::int16_t>() % 600, 0);
            test.calendar->OnWindowChanged();
            break;
        case 6:
            test.drawing.failAt = test.drawing.creations + 1 + deeds.Take<std::uint8_t>() % 64;
            break;
        default:
            if (deed < 64) return test.calendar->RepaintControl();
            if (deed < 128) {
                test.calendar->ExtendedNavigation(deed < 112);
                test.calendar->OnWheel(deeds.Take<std::int16_t>(), deed >> 3);
                return;
            }
            Set(*test.calendar, deeds);
    }
}

}  // namespace

void Fail(const std::string& what) {
    std::fprintf(stderr, "finding: %s\n", what.c_str());
    std::abort();
}

void Paint(TestCalendar& test) {
    if (const auto& faults = test.Paint(); !faults.empty()) Fail(faults.front());
    for (const auto& copy : test.drawing.Of("copy")) {
        const Rect& blit = copy.rect;
        if (blit.left < 0 || blit.top < 0 || blit.right > test.screen.right ||
            blit.bottom > test.screen.bottom) {
            Fail("a paint left the control");
        }
    }
    test.drawing.Forget();
}

void SaveAndLoad(const VmCalendar& calendar) {
    MemoryBag saved;
    calendar.WriteProps(saved);
    const std::string content = FormatProperties(saved);
    MemoryBag loaded = ParseProperties(content);
    if (FormatProperties(loaded) != content) Fail("the saved values changed when they were loaded");
    TestCalendar other;
    other.calendar->ReadProps(loaded);
    Check(other);
}

void LiveThrough(PropertyBag& bag, ByteReader deeds) {
    constexpr int kMostDeeds = 12;
    TestCalendar test;
    test.calendar->ReadProps(bag);
    Check(test);
    test.calendar->OnWindowChanged();
    Paint(test);
    for (int i = 0; i < kMostDeeds && !deeds.AtEnd(); ++i) {
        DoDeed(test, deeds);
        Paint(test);
        Check(test);
    }
    SaveAndLoad(*test.calendar);
}

}  // namespace velmora::fuzz
