#include "tests/activex/support/Census.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <functional>

namespace velmora::vmhost {
namespace {

class Lifetime : public ClientTest {
protected:
    void OnFirst(const std::string& name, const std::function<void()>& action) {
        m_done = false;
        onEvent = [this, name, action](Event& event) {
            if (m_done || event.Name() != name) return;
            m_done = true;
            action();
        };
    }
    bool Done() const { return m_done; }

private:
    bool m_done = false;
};

/// Makes a calendar raise the event.
void Cause(const std::string& event, ControlSite& site) {
    if (event.starts_with("Key")) {
        site.Activate(OLEIVERB_UIACTIVATE);
        TypeKey(VK_RIGHT);
    } else if (event.ends_with("Changed")) {
        const ComPtr<IOleObject> control(site.Control());
        PutProperty(control.Get(), "DateValue", Value::Date(DayNumber(2021, 7, 9)));
    } else {
        MoveMouse(OnScreen(site.ControlWindow(), 30, 60));
        Click(OnScreen(site.ControlWindow(), 60, 90));
    }
}

TEST_F(Lifetime, AHandlerRemovesTheControlOrClosesTheForm) {
    for (const char* event : {"DateChanged", "DayChanged", "MonthChanged", "YearChanged", "Click",
                              "MouseDown", "MouseUp", "MouseMove", "KeyDown", "KeyUp"}) {
        for (const bool closes : {false, true}) {
            ControlSite& site = AddCalendar();
            ServeWaiting(form.Get());
            SetForegroundWindow(form->Window());
            OnFirst(event, [&] { closes ? form->Close() : form->Remove(site); });
            Cause(event, site);
            EXPECT_TRUE(Serve([&] { return Done(); })) << event;
            ServeWaiting(nullptr);
            EXPECT_TRUE(form->Sites().empty());
            if (closes) form = Form::Open(nullptr, {0, 0, 500, 300}, "Next");
        }
    }
}

TEST_F(Lifetime, AHandlerClosesTheFormOfAnOpenBox) {
    const struct {
        const char* event;
        std::function<void()> act;  // once it is open
    } cases[] = {
        {"DropDown", nullptr},
        {"CloseUp", [] { TypeKey(VK_RETURN); }},
        {"DateChanged", [] { TypeKey(VK_DOWN); }},
        {"CloseUp",
         [&] { SetWindowPos(form->Window(), nullptr, 90, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER); }},
        {"CloseUp", [] {
             SendMessageW(FindWindowW(L"VelmoraDropDownForm", nullptr), WM_LBUTTONDOWN, MK_LBUTTON,
                          MAKELPARAM(-50, -50));
         }}};
    for (const auto& c : cases) {
        ControlSite& site = AddBox();
        SetForegroundWindow(form->Window());
        site.Activate(OLEIVERB_UIACTIVATE);
        ServeWaiting(form.Get());
        OnFirst(c.event, [&] { form->Close(); });
        TypeKey(VK_F4);
        if (c.act) {
            EXPECT_TRUE(Serve([&] { return Got(site.Control(), "DropDownState") == "True"; }));
            c.act();
        }
        EXPECT_TRUE(Serve([&] { return Done(); })) << c.event;
        ServeWaiting(nullptr);
        EXPECT_EQ(VisibleWindows(), 0) << c.event;
        form = Form::Open(nullptr, {0, 0, 500, 300}, "Next");
    }
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

class Leaks : public ClientTest {
protected:
    /// Lives of both controls: made, active, painted, used, gone. Each tenth is drawn inactive
    /// too, which makes all windows twice.
    Census CensusAfter(int lives) {
        for (int life = 0; life < lives; ++life) LiveOnce(life % 4, life % 10 == 0);
        return Census::Take();
    }

private:
    void LiveOnce(int selectorStyle, bool alsoInactive) {
        ControlSite& calendar = AddCalendar();
        ControlSite& box = AddBox();
        PutProperty(calendar.Control(), "MonthYearSelStyle", Value(selectorStyle));
        PutProperty(calendar.Control(), "DateValue", Value::Date(DayNumber(2024, 3, 2)));
        UpdateWindow(calendar.ControlWindow());
        UpdateWindow(box.ControlWindow());
        calendar.Activate(OLEIVERB_UIACTIVATE);
        if (alsoInactive) {
            form->SetUserMode(false);
            InvalidateRect(form->Window(), nullptr, TRUE);
            UpdateWindow(form->Window());
            form->SetUserMode(true);
        }
        form->RemoveAll();
        ServeWaiting(form.Get());
        events.clear();
        events.shrink_to_fit();
    }
};

TEST_F(Leaks, AThousandControlsLeaveNothing) {
    CensusAfter(20);  // what is made once and kept
    const Census before = CensusAfter(20);
    const Census after = CensusAfter(500);  // of two controls each
    EXPECT_EQ(after.drawingObjects, before.drawingObjects) << after.Text();
    EXPECT_EQ(after.windows, before.windows) << after.Text();
    // A block for each life would be five hundred, for each tenth fifty.
    EXPECT_LT(after.heapBlocks, before.heapBlocks + 40) << before.Text() << "; " << after.Text();
}

/// More colours and fonts than are kept, in one calendar.
TEST_F(Leaks, PaintsLeaveNoDrawingObjects) {
    const auto countAfterLife = [&] {
        ControlSite& site = AddCalendar();
        for (int i = 0; i < 90; ++i) {
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
        form->RemoveAll();
        ServeWaiting(form.Get());
        return Census::Take().drawingObjects;
    };
    countAfterLife();  // what the system itself keeps
    const int before = countAfterLife();
    EXPECT_EQ(countAfterLife(), before);
    const HGDIOBJ brush = CreateSolidBrush(0x123456);
    EXPECT_EQ(Census::Take().drawingObjects, before + 1) << "the count counts";
    DeleteObject(brush);
}

TEST_F(Leaks, TheComponentUnloads) {
    CensusAfter(3);
    EXPECT_TRUE(IsModuleLoaded(L"VelmoraCalendar.ocx"));
    EXPECT_TRUE(Serve([] {
        CoFreeUnusedLibrariesEx(0, 0);
        return !IsModuleLoaded(L"VelmoraCalendar.ocx");
    }));
    CensusAfter(1);
    EXPECT_TRUE(IsModuleLoaded(L"VelmoraCalendar.ocx"));
}

}  // namespace
}  // namespace velmora::vmhost
