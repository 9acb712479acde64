#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <algorithm>
#include <thread>

namespace velmora::vmhost {
namespace {

/// Moves the pointer in steps from a thread of its own, as the drag's loop keeps this one.
std::thread DragTo(std::vector<POINT> path) {
    return std::thread([path = std::move(path)] {
        constexpr DWORD kPause = 60;
        for (const POINT point : path) {
            Sleep(kPause);
            MoveMouse(point);
        }
        Sleep(kPause);
        MouseButton(MOUSEEVENTF_LEFTUP);
    });
}

using Drags = ClientTest;

TEST_F(Drags, TextGoesFromOneCalendarToAnother) {
    ControlSite& from = AddCalendar("From");
    ControlSite& to = Add(kCalendarClass, "To", {265, 10, 465, 210});
    PutProperty(to.Control(), "OLEDropMode", Value(1));
    std::string dropped;
    std::vector<std::string> order;
    onEvent = [&](Event& event) {
        if (event.Name().starts_with("OLE") && (order.empty() || order.back() != event.Name())) {
            order.push_back(event.Name());
        }
        if (event.Name() == "OLEStartDrag") {
            CallMethod(event.Argument(0).Object(), "SetData", {Value("2024-03-02"), Value(1)});
            event.Change(1, Value(1));
        } else if (event.Name() == "OLEDragOver") {
            event.Change(1, Value(1));
        } else if (event.Name() == "OLEDragDrop") {
            dropped = CallMethod(event.Argument(0).Object(), "GetData", {Value(1)}).result.Text();
        }
    };
    SetForegroundWindow(form->Window());
    ServeWaiting(form.Get());
    const POINT start = OnScreen(from.ControlWindow(), 100, 100);
    const POINT end = OnScreen(to.ControlWindow(), 100, 100);
    MoveMouse(start);
    MouseButton(MOUSEEVENTF_LEFTDOWN);
    const std::string pressed = "From.MouseDown";
    EXPECT_TRUE(Serve([&] { return !events.empty() && events.back().starts_with(pressed); }));
    std::vector<POINT> path;
    for (int step = 1; step <= 8; ++step)
        path.push_back({start.x + (end.x - start.x) * step / 8, end.y});
    std::thread mover = DragTo(std::move(path));
    CallMethod(from.Control(), "OleDrag");
    mover.join();
    EXPECT_EQ(dropped, "2024-03-02");
    ASSERT_FALSE(order.empty());
    EXPECT_EQ(order.front(), "OLEStartDrag");
    EXPECT_EQ(order.back(), "OLECompleteDrag");
    for (const char* name : {"OLEDragOver", "OLEGiveFeedback", "OLEDragDrop"}) {
        EXPECT_NE(std::find(order.begin(), order.end(), name), order.end()) << name;
    }
}

}  // namespace
}  // namespace velmora::vmhost
