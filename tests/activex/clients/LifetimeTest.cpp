#include "tests/activex/support/ClientTest.h"

#include <thread>

namespace velmora::vmhost {
namespace {

class Lifetime : public ClientTest {
protected:
    /// Lives of both controls: made, painted with more colours and fonts than are kept, drawn
    /// inactive, gone.
    Census CensusAfter(int lives) {
        for (int life = 0; life < lives; ++life) {
            ControlSite& calendar = AddCalendar();
            AddBox();
            for (int i = 0; i < 90; ++i) Paint(calendar, i);
            form->SetUserMode(false);
            InvalidateRect(form->Window(), nullptr, TRUE);
            UpdateWindow(form->Window());
            form->SetUserMode(true);
            form->RemoveAll();
            ServeWaiting(form.Get());
            events = {};
        }
        return Census::Take();
    }

    static void ExpectSame(const Census& before, const Census& after) {
        EXPECT_EQ(after.drawingObjects, before.drawingObjects) << after.Text();
        EXPECT_EQ(after.windows, before.windows) << after.Text();
        EXPECT_LT(after.heapBlocks, before.heapBlocks + 40)
            << before.Text() << "; " << after.Text();
    }

private:
    static void Paint(ControlSite& site, int i) {
        PutProperty(site.Control(), "DayAppearance", Value(i % 2));
        PutProperty(site.Control(), "MonthYearSelStyle", Value(i % 4));
        PutProperty(site.Control(), "DayDefaultBackColor", Value(i * 7919));
        PutProperty(site.Control(), "DayFont", Value(MakeFont("Tahoma", 6 + i % 20).Get()));
        const Value days = GetProperty(site.Control(), "Days").result;
        const Value day = GetProperty(days.Object(), "Item", {Value(i % 28 + 1)}).result;
        const UINT type = i % 3 == 0 ? PICTYPE_ICON : PICTYPE_BITMAP;
        EXPECT_TRUE(PutProperty(day.Object(), "Picture", MakePicture(type).Get()).Succeeded());
        UpdateWindow(site.ControlWindow());
    }
};

TEST_F(Lifetime, ControlsAndPaintsLeaveNothing) {
    CensusAfter(1);  // what is made once and kept
    const Census before = CensusAfter(1), after = CensusAfter(2);
    ExpectSame(before, after);
    const HGDIOBJ brush = CreateSolidBrush(0x123456);
    EXPECT_EQ(Census::Take().drawingObjects, after.drawingObjects + 1) << "the count counts";
    DeleteObject(brush);
}

/// For `./test --soak`: at the end as after a tenth of the way.
TEST_F(Lifetime, DISABLED_TenThousandCreationsAndOpeningsLeaveNothing) {
    ControlSite* box = nullptr;
    const auto create = [&](int time) {
        ControlSite& site = time % 2 ? AddBox() : AddCalendar();
        SetDate(site, 2024, 3, 2);
        UpdateWindow(site.ControlWindow());
        site.Activate(OLEIVERB_UIACTIVATE);
        form->RemoveAll();
    };
    const auto open = [&](int) {
        PutProperty(box->Control(), "DropDownState", Value(true));
        ServeWaiting(form.Get());
        EXPECT_EQ(VisibleWindows(), 2) << "the form and the calendar";
        PutProperty(box->Control(), "DropDownState", Value(false));
    };
    for (const std::function<void(int)>& step : {std::function<void(int)>(create), {open}}) {
        const auto run = [&](int times) {
            for (int i = 0; i < times; ++i) {
                step(i);
                ServeWaiting(form.Get());
                events = {};
            }
            DWORD handles = 0;
            GetProcessHandleCount(GetCurrentProcess(), &handles);
            return std::pair(handles, Census::Take());
        };
        const auto [handlesBefore, before] = run(1000);
        const auto [handles, after] = run(9000);
        EXPECT_EQ(handles, handlesBefore);
        ExpectSame(before, after);
        FocusOn(*(box = &AddBox()));
    }
}

/// Also what was thrown in it, in a thread that has ended, too.
TEST_F(Lifetime, TheComponentUnloadsAndLeavesNothing) {
    const auto load = [&](int times) {
        for (int i = 0; i < times; ++i) {
            AddBox();
            EXPECT_EQ(PutProperty(AddCalendar().Control(), "Appearance", 7).Number(), 380);
            const CLSID classId = form->Sites()[0]->ClassId();
            std::thread([&] {
                OleInitialize(nullptr);
                ComPtr<IDispatch> box;
                CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_PPV_ARGS(box.GetAddressOf()));
                EXPECT_EQ(PutProperty(box.Get(), "Enabled", "none").Number(), 13);
                EXPECT_EQ(PutProperty(box.Get(), "DropDownAppearance", 7).Number(), 380);
                box.Reset();
                OleUninitialize();
            }).join();
            EXPECT_TRUE(IsModuleLoaded(L"VelmoraCalendar.ocx"));
            form->RemoveAll();
            EXPECT_TRUE(Serve([] {
                CoFreeUnusedLibrariesEx(0, 0);
                return !IsModuleLoaded(L"VelmoraCalendar.ocx");
            }));
            events = {};
        }
        return Census::Take();
    };
    load(2);
    const Census before = load(1), after = load(100);
    EXPECT_LT(after.heapBlocks, before.heapBlocks + 20) << before.Text() << "; " << after.Text();
}

TEST_F(Lifetime, CallsAfterTheEndGiveAnError) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        const ComPtr<IOleObject> control(site.Control());
        form->Remove(site);
        for (const PropertyInfo& property : PropertiesOf(control.Get())) {
            const Value value = GetProperty(control.Get(), property.name).result;
            if (property.writable) PutProperty(control.Get(), property.name, value);
        }
        for (const char* method : {"RepaintControl", "OleDrag"}) CallMethod(control.Get(), method);
        RECT place = kCalendarPlace;
        EXPECT_TRUE(FAILED(control->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0,
                                           form->Window(), &place)));
    }
}

}  // namespace
}  // namespace velmora::vmhost
