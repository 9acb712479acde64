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

/// What makes a calendar raise the event.
const std::map<std::string, std::function<void(ControlSite&)>>& Causes() {
    const auto setDate = [](ControlSite& site) {
        const ComPtr<IOleObject> control(site.Control());
        PutProperty(control.Get(), "DateValue", Value::Date(DayNumber(2021, 7, 9)));
    };
    const auto click = [](ControlSite& site) {
        MoveMouse(OnScreen(site.ControlWindow(), 30, 60));
        Click(OnScreen(site.ControlWindow(), 60, 90));
    };
    const auto key = [](ControlSite& site) {
        site.Activate(OLEIVERB_UIACTIVATE);
        TypeKey(VK_RIGHT);
    };
    static const std::map<std::string, std::function<void(ControlSite&)>> causes{
        {"DateChanged", setDate},  {"DayChanged", setDate},
        {"MonthChanged", setDate}, {"YearChanged", setDate},
        {"MouseDown", click},      {"MouseUp", click},
        {"MouseMove", click},      {"Click", click},
        {"KeyDown", key},          {"KeyUp", key}};
    return causes;
}

TEST_F(Lifetime, AHandlerRemovesTheControl) {
    for (const auto& [event, cause] : Causes()) {
        ControlSite& site = AddCalendar();
        ServeWaiting(form.Get());
        SetForegroundWindow(form->Window());
        OnFirst(event, [&] { form->Remove(site); });
        cause(site);
        EXPECT_TRUE(Serve([&] { return Done(); })) << event;
        ServeWaiting(form.Get());
        EXPECT_TRUE(form->Sites().empty());
    }
}

TEST_F(Lifetime, AHandlerClosesTheForm) {
    for (const auto& [event, cause] : Causes()) {
        ControlSite& site = AddCalendar();
        AddBox();
        ServeWaiting(form.Get());
        SetForegroundWindow(form->Window());
        OnFirst(event, [&] { form->Close(); });
        cause(site);
        EXPECT_TRUE(Serve([&] { return Done(); })) << event;
        ServeWaiting(nullptr);
        EXPECT_FALSE(form->IsOpen());
        form = Form::Open(nullptr, {0, 0, 500, 300}, "Next");
    }
}

TEST_F(Lifetime, AHandlerClosesTheFormOfAnOpenBox) {
    for (const std::string event : {"DropDown", "CloseUp", "DateChanged"}) {
        ControlSite& site = AddBox();
        SetForegroundWindow(form->Window());
        site.Activate(OLEIVERB_UIACTIVATE);
        ServeWaiting(form.Get());
        OnFirst(event, [&] { form->Close(); });
        TypeKey(VK_F4);
        if (event != "DropDown") {
            EXPECT_TRUE(Serve([&] { return Got(site.Control(), "DropDownState") == "True"; }));
            TypeKey(VK_DOWN);
            TypeKey(VK_RETURN);
        }
        EXPECT_TRUE(Serve([&] { return Done(); })) << event;
        ServeWaiting(nullptr);
        EXPECT_EQ(VisibleWindows(), 0) << event;
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
