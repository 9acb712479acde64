#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <thread>

namespace velmora::vmhost {
namespace {

constexpr short kText = 1;
constexpr short kFiles = 15;
constexpr long kCopy = DROPEFFECT_COPY;
constexpr long kMove = DROPEFFECT_MOVE;

enum class How { Given, Promised, Cancelled };

struct Drag {
    How how;  // Promised: made when the target asks for it; Cancelled: by Escape over the target
    short format;
    const char* value;
    long allowed, over, dropped;  // effects: the last two by the target's handlers
    const char* order;
};

/// The user's hand has a thread of its own, as the loop of a drag keeps the control's.
void Pull(POINT from, POINT to, bool cancelled) {
    constexpr DWORD kPause = 40;
    constexpr int kSteps = 8;
    MoveMouse(from);
    MouseButton(MOUSEEVENTF_LEFTDOWN);
    for (int step = 1; step <= kSteps; ++step) {
        Sleep(kPause);
        MoveMouse({from.x + (to.x - from.x) * step / kSteps, to.y});
    }
    Sleep(kPause);
    if (cancelled) TypeKey(VK_ESCAPE);
    Sleep(cancelled ? kPause : 0);
    MouseButton(MOUSEEVENTF_LEFTUP);
}

class Drags : public ClientTest {
protected:
    Drags() : from(AddCalendar("From")), to(Add(kCalendarClass, "To", {265, 10, 465, 210})) {
        PutProperty(to.Control(), "OLEDropMode", Value(1));
        SetDate(from, 2024, 3, 5);
        SetForegroundWindow(form->Window());
        UpdateWindow(from.ControlWindow());
        UpdateWindow(to.ControlWindow());
    }

    /// Each event in the order of its first time.
    void Note(const std::string& event) {
        if (order.find(event) != std::string::npos) return;
        order += (order.empty() ? "" : ", ") + event;
    }
    void Handle(const Drag& drag, Event& event) {
        if (event.Name() == "MouseMove" && event.Argument(0).Number() == 1 && order.empty()) {
            CallMethod(from.Control(), "OleDrag");
        } else if (event.Name() == "OLEStartDrag") {
            Note("start");
            const Value value = drag.how == How::Promised ? Value() : Value(drag.value);
            CallMethod(event.Argument(0).Object(), "SetData", {value, Value(drag.format)});
            EXPECT_TRUE(event.Change(1, Value(drag.allowed)));
        } else if (event.Name() == "OLESetData") {
            Note("promise " + event.Argument(1).Text());
            CallMethod(event.Argument(0).Object(), "SetData",
                       {Value(drag.value), event.Argument(1)});
        } else if (event.Name() == "OLEGiveFeedback") {
            Note("feedback " + event.Argument(0).Text());
        } else if (event.Name() == "OLEDragOver") {
            Note("over " + event.Argument(1).Text() + " at " + event.Argument(6).Text());
            EXPECT_TRUE(event.Change(1, Value(drag.over)));
        } else if (event.Name() == "OLEDragDrop") {
            const Outcome got =
                CallMethod(event.Argument(0).Object(), "GetData", {Value(drag.format)});
            Note("drop " + event.Argument(1).Text() + " " + got.result.Text());
            EXPECT_TRUE(event.Change(1, Value(drag.dropped)));
        } else if (event.Name() == "OLECompleteDrag") {
            Note("complete " + event.Argument(0).Text());
        }
    }
    bool IsComplete() const { return order.find("complete") != std::string::npos; }

    ControlSite& from;
    ControlSite& to;
    std::string order;
};

TEST_F(Drags, GoFromOneCalendarToAnother) {
    const Drag drags[] = {
        {How::Given, kText, "2024-03-02", kCopy | kMove, kCopy, kCopy,
         "start, feedback 0, over 3 at 0, feedback 1, over 3 at 2, drop 3 2024-03-02, complete 1"},
        {How::Given, kFiles, "C:\\1.txt\nC:\\2.txt", kMove, kMove, kMove,
         "start, feedback 0, over 2 at 0, feedback 2, over 2 at 2, drop 2 C:\\1.txt\nC:\\2.txt, "
         "complete 2"},
        {How::Promised, kText, "later", kCopy | kMove, kCopy, kMove,
         "start, feedback 0, over 3 at 0, feedback 1, over 3 at 2, promise 1, drop 3 later, "
         "complete 2"},
        {How::Given, kText, "refused", kCopy, 0, 0,
         "start, feedback 0, over 1 at 0, over 1 at 2, over 0 at 1, complete 0"},
        {How::Cancelled, kText, "cancelled", kCopy, kCopy, kCopy,
         "start, feedback 0, over 1 at 0, feedback 1, over 1 at 2, over 0 at 1, complete 0"}};
    for (const Drag& drag : drags) {
        SCOPED_TRACE(drag.value);
        order.clear();
        onEvent = [&](Event& event) { Handle(drag, event); };
        const POINT start = OnScreen(from.ControlWindow(), 100, 100);
        const POINT end = OnScreen(to.ControlWindow(), 100, 100);
        std::thread hand([&] { Pull(start, end, drag.how == How::Cancelled); });
        EXPECT_TRUE(Serve([&] { return IsComplete(); }));
        hand.join();
        ServeWaiting(form.Get());
        EXPECT_EQ(order, drag.order);
        EXPECT_EQ(DateOf(from), "2024-03-05") << "the press became a drag";
        EXPECT_EQ(GetCapture(), nullptr);
    }
}

}  // namespace
}  // namespace velmora::vmhost
