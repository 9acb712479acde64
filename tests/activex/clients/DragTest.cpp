#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <condition_variable>
#include <mutex>
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

class Drags : public ClientTest {
protected:
    Drags() : from(AddCalendar("From")), to(Add(kCalendarClass, "To", {265, 10, 465, 210})) {
        PutProperty(to.Control(), "OLEDropMode", Value(1));
        SetDate(from, 2024, 3, 5);
        SetForegroundWindow(form->Window());
        UpdateWindow(from.ControlWindow());
        UpdateWindow(to.ControlWindow());
    }
    /// The user's hand, which has a thread of its own, as the loop of a drag keeps the control's:
    /// it goes on when it sees what it has done.
    void Pull(POINT start, POINT end, bool cancelled) {
        MoveMouse(start, MOUSEEVENTF_LEFTDOWN);
        Await("press");
        for (const auto& [x, y, seen] : {std::tuple(start.x + 5, start.y, "start"),
                                         {start.x + 10, start.y, "feedback 0"},
                                         {end.x - 5, end.y, " at 0"},
                                         {end.x, end.y, " at 2"}}) {
            MoveMouse({x, y});
            Await(seen);
        }
        if (cancelled) TypeKey(VK_ESCAPE);
        if (cancelled) Await("complete");
        MoveMouse(end, MOUSEEVENTF_LEFTUP);
    }
    void Await(const char* seen) {
        std::unique_lock lock(mutex);
        const auto isSeen = [&] { return order.find(seen) != order.npos; };
        EXPECT_TRUE(noted.wait_for(lock, std::chrono::seconds(10), isSeen)) << seen;
    }
    /// Each event in the order of its first time.
    void Note(const std::string& event) {
        const std::lock_guard lock(mutex);
        if (order.find(event) != order.npos) return;
        order += (order.empty() ? "" : ", ") + event;
        noted.notify_all();
    }
    void Handle(const Drag& drag, Event& event) {
        if (event.Name() == "MouseDown") {
            Note("press");
        } else if (event.Name() == "MouseMove" && order == "press") {
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
            // The system's pointer may jump back for a moment: only the last leave is noted.
            isOver = event.Argument(6).Number() != 1;
            if (isOver)
                Note("over " + event.Argument(1).Text() + " at " + event.Argument(6).Text());
            EXPECT_TRUE(event.Change(1, Value(drag.over)));
        } else if (event.Name() == "OLEDragDrop") {
            const Outcome got =
                CallMethod(event.Argument(0).Object(), "GetData", {Value(drag.format)});
            Note("drop " + event.Argument(1).Text() + " " + got.result.Text());
            EXPECT_TRUE(event.Change(1, Value(drag.dropped)));
        } else if (event.Name() == "OLECompleteDrag") {
            if (!isOver) Note("left");
            Note("complete " + event.Argument(0).Text());
        }
    }

    ControlSite& from;
    ControlSite& to;
    std::mutex mutex;
    std::condition_variable noted;
    bool isOver = false;
    std::string order;  // written by this thread
};

TEST_F(Drags, GoFromOneCalendarToAnother) {
    const Drag drags[] = {
        {How::Given, kText, "2024-03-02", kCopy | kMove, kCopy, kCopy,
         "press, start, feedback 0, over 3 at 0, feedback 1, over 3 at 2, drop 3 2024-03-02, "
         "complete 1"},
        {How::Given, kFiles, "C:\\1.txt\nC:\\2.txt", kMove, kMove, kMove,
         "press, start, feedback 0, over 2 at 0, feedback 2, over 2 at 2, drop 2 "
         "C:\\1.txt\nC:\\2.txt, "
         "complete 2"},
        {How::Promised, kText, "later", kCopy | kMove, kCopy, kMove,
         "press, start, feedback 0, over 3 at 0, feedback 1, over 3 at 2, promise 1, drop 3 later, "
         "complete 2"},
        {How::Given, kText, "refused", kCopy, 0, 0,
         "press, start, feedback 0, over 1 at 0, over 1 at 2, left, complete 0"},
        {How::Cancelled, kText, "cancelled", kCopy, kCopy, kCopy,
         "press, start, feedback 0, over 1 at 0, feedback 1, over 1 at 2, left, complete "
         "0"}};
    for (const Drag& drag : drags) {
        SCOPED_TRACE(drag.value);
        order.clear();
        onEvent = [&](Event& event) { Handle(drag, event); };
        const POINT start = OnScreen(from.ControlWindow(), 100, 100);
        const POINT end = OnScreen(to.ControlWindow(), 100, 100);
        std::thread hand([&] { Pull(start, end, drag.how == How::Cancelled); });
        EXPECT_TRUE(Serve([&] { return order.find("complete") != order.npos; }, 60000));
        hand.join();
        ServeWaiting(form.Get());
        EXPECT_EQ(order, drag.order);
        EXPECT_EQ(Got(GetProperty(from.Control(), "SelectedDay").result.Object(), "DayDate"),
                  "2024-03-05")
            << "the press became a drag";
        EXPECT_EQ(GetCapture(), nullptr);
    }
}

}  // namespace
}  // namespace velmora::vmhost
