#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

using Events = std::vector<std::string>;

using ContainerEvents = ClientTest;

TEST_F(ContainerEvents, TellEachPartOfADateThatChanged) {
    ControlSite& site = AddCalendar("C");
    SetDate(site, 2024, 3, 2);
    struct Case {
        int year, month, day;
        Events events;
    };
    for (const Case& c : {Case{2024, 3, 2, {}},
                          {2024, 3, 5, {"C.DateChanged(2024-03-05)", "C.DayChanged(5)"}},
                          {2024, 4, 5, {"C.DateChanged(2024-04-05)", "C.MonthChanged(4)"}},
                          {2025, 4, 5, {"C.DateChanged(2025-04-05)", "C.YearChanged(2025)"}},
                          {2023,
                           1,
                           1,
                           {"C.DateChanged(2023-01-01)", "C.DayChanged(1)", "C.MonthChanged(1)",
                            "C.YearChanged(2023)"}}}) {
        TakeEvents();
        SetDate(site, c.year, c.month, c.day);
        EXPECT_EQ(TakeEvents(), c.events);
    }
}

TEST_F(ContainerEvents, KeysArriveBeforeTheyAct) {
    ControlSite& site = AddCalendar("C");
    SetDate(site, 2024, 3, 5);
    FocusOn(site);
    TypeKey(VK_RIGHT);
    EXPECT_TRUE(Serve([&] { return !events.empty() && events.back().starts_with("C.KeyUp"); }));
    EXPECT_EQ(TakeEvents(), (Events{"C.KeyDown(39, 0)", "C.DateChanged(2024-03-06)",
                                    "C.DayChanged(6)", "C.KeyUp(39, 0)"}));
}

TEST_F(ContainerEvents, AHandlerChangesTheKey) {
    ControlSite& site = AddCalendar("C");
    SetDate(site, 2024, 3, 5);
    FocusOn(site);
    int becomes = 0;
    onEvent = [&](Event& event) {
        const bool changed = event.Name() != "KeyDown" || event.Change(0, Value(becomes));
        EXPECT_TRUE(changed);
    };
    for (const auto& [key, date] : {std::pair(0, "2024-03-05"), std::pair(VK_DOWN, "2024-03-12"),
                                    std::pair(VK_LEFT, "2024-03-11")}) {
        becomes = key;
        TypeKey(VK_RIGHT);
        EXPECT_TRUE(Serve([&] { return !events.empty() && events.back().starts_with("C.KeyUp"); }));
        TakeEvents();
        EXPECT_EQ(DateOf(site), date);
    }
}

TEST_F(ContainerEvents, ClicksSelectTheDayUnderThem) {
    ControlSite& site = AddCalendar("C");
    SetDate(site, 2024, 3, 5);
    FocusOn(site);
    const auto click = [&](int x, int y) {
        Click(OnScreen(site.ControlWindow(), x, y));
        EXPECT_TRUE(
            Serve([&] { return std::count(events.begin(), events.end(), "C.Click()") > 0; }));
        ServeWaiting(form.Get());
        TakeEvents();
        return Value(GetProperty(GetProperty(site.Control(), "SelectedDay").result.Object(),
                                 "DayDate")
                         .result)
            .Real();
    };
    const double middle = click(125, 120);
    EXPECT_EQ(click(125 + 34, 120), middle + 1);
    EXPECT_EQ(click(125 + 34, 120 + 27), middle + 8);
}

TEST_F(ContainerEvents, NotificationsNameTheProperty) {
    ControlSite& site = AddCalendar("C");
    Events told;
    site.onChanged = [&](const std::string& name) { told.push_back("changed " + name); };
    site.onRequestEdit = [&](const std::string& name) {
        told.push_back("asked " + name);
        return true;
    };
    PutProperty(site.Control(), "DayAppearance", Value(0));
    EXPECT_EQ(told, (Events{"asked DayAppearance", "changed DayAppearance"}));
    told.clear();
    PutProperty(site.Control(), "DayAppearance", Value(7));
    EXPECT_EQ(std::count(told.begin(), told.end(), "changed DayAppearance"), 0);
}

TEST_F(ContainerEvents, ARefusedEditChangesNothing) {
    ControlSite& site = AddCalendar("C");
    SetDate(site, 2024, 3, 5);
    site.onRequestEdit = [](const std::string&) { return false; };
    const Outcome put = PutProperty(site.Control(), "MonthBackColor", Value(0xFF));
    EXPECT_FALSE(put.Succeeded());
    PutProperty(site.Control(), "DateValue", Value::Date(DayNumber(2024, 3, 9)));
    site.onRequestEdit = nullptr;
    EXPECT_EQ(GetProperty(site.Control(), "MonthBackColor").result.Number(), -2147483633);
    EXPECT_EQ(DateOf(site), "2024-03-05");
}

}  // namespace
}  // namespace velmora::vmhost
