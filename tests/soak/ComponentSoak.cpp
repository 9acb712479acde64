#include "tests/activex/support/Census.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <functional>

namespace velmora::vmhost {
namespace {

constexpr int kTimes = 10000;

class ComponentSoak : public ClientTest {
protected:
    /// What the process holds must be the same in the end as after a tenth of the way.
    void ExpectFlat(const std::function<void()>& step) {
        const auto run = [&](int times) {
            for (int i = 0; i < times; ++i) step();
            ServeWaiting(form.Get());
            events.clear();
            events.shrink_to_fit();
            DWORD handles = 0;
            GetProcessHandleCount(GetCurrentProcess(), &handles);
            return std::pair(handles, Census::Take());
        };
        const auto [handlesBefore, before] = run(kTimes / 10);
        const auto [handles, after] = run(kTimes - kTimes / 10);
        EXPECT_EQ(handles, handlesBefore);
        EXPECT_EQ(after.drawingObjects, before.drawingObjects);
        EXPECT_EQ(after.windows, before.windows);
        // One block for each hundredth time would be ninety.
        EXPECT_LT(after.heapBlocks, before.heapBlocks + 40)
            << before.Text() << "; " << after.Text();
    }
};

TEST_F(ComponentSoak, TenThousandCreations) {
    bool isBox = false;
    ExpectFlat([&] {
        isBox = !isBox;
        ControlSite& site = isBox ? AddBox() : AddCalendar();
        SetDate(site, 2024, 3, 2);
        UpdateWindow(site.ControlWindow());
        site.Activate(OLEIVERB_UIACTIVATE);
        form->RemoveAll();
        ServeWaiting(form.Get());
        events.clear();
    });
}

TEST_F(ComponentSoak, TenThousandOpenings) {
    ControlSite& box = AddBox();
    FocusOn(box);
    int opened = 0;
    ExpectFlat([&] {
        PutProperty(box.Control(), "DropDownState", Value(true));
        ServeWaiting(form.Get());
        opened += VisibleWindows() == 2;  // the form and the calendar
        PutProperty(box.Control(), "DropDownState", Value(false));
        events.clear();
    });
    EXPECT_EQ(opened, kTimes);
}

}  // namespace
}  // namespace velmora::vmhost
