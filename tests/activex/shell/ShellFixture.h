#pragma once

#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/control/CalendarControl.h"
#include "tests/activex/shell/ScriptedContainer.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace velmora {

/// What is done to the control, what it calls then, and what it has become.
struct Step {
    const char* what;
    std::function<HRESULT()> act;
    std::string calls;
    std::string state = "inactive";
    HRESULT result = S_OK;
};

inline void ServeWaiting() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

/// A calendar and a container for it. Whatever a test does, nothing may be left of the control.
class ShellFixture : public testing::Test {
protected:
    template <class Interface>
    using ComPtr = Microsoft::WRL::ComPtr<Interface>;

    ShellFixture() {
        m_before = ModuleLock::Count();
        object = Adopt<IOleObject>(new CalendarControl);
    }
    ~ShellFixture() override {
        Drop();
        EXPECT_EQ(ModuleLock::Count(), m_before) << "a reference to the control was left";
        EXPECT_FALSE(container->window && ::GetWindow(container->window, GW_CHILD));
    }

    template <class Interface>
    ComPtr<Interface> As() const {
        ComPtr<Interface> other;
        object.As(&other);
        return other;
    }
    void Drop() {
        if (object) {
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        }
        object.Reset();
    }
    void Renew() {
        Drop();
        object = Adopt<IOleObject>(new CalendarControl);
    }
    HRESULT Do(LONG verb) { return object->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr); }
    /// Turns the page, which raises MonthChanged and YearChanged.
    HRESULT SetDate(DATE date) {
        VARIANT value;
        V_VT(&value) = VT_DATE;
        V_DATE(&value) = date;
        return As<::_VmCalendar>()->put_DateValue(value);
    }
    /// Site given, so that it can be activated.
    void Place() { object->SetClientSite(container.Get()); }
    HWND Window() const {
        HWND window = nullptr;
        As<IOleInPlaceObject>()->GetWindow(&window);
        return window;
    }
    ComPtr<IConnectionPoint> Point(REFIID iid) {
        ComPtr<IConnectionPoint> point;
        As<IConnectionPointContainer>()->FindConnectionPoint(iid, &point);
        return point;
    }
    DWORD Connect(REFIID events) {
        DWORD cookie = 0;
        IUnknown* const sink = static_cast<IOleClientSite*>(container.Get());
        EXPECT_EQ(Point(events)->Advise(sink, &cookie), S_OK);
        return cookie;
    }

    void Play(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            EXPECT_EQ(step.act(), step.result) << step.what;
            ServeWaiting();
            EXPECT_EQ(container->TakeLog(), step.calls) << step.what;
            EXPECT_EQ(State(), step.state) << step.what;
        }
    }
    std::string State() const {
        std::string state = "inactive";
        const HWND window = Window();
        if (window) state = IsWindowVisible(window) ? "shown" : "hidden";
        if (window && GetFocus() == window) state += " focus";
        if (As<IPersistStreamInit>()->IsDirty() == S_OK) state += " dirty";
        return state;
    }
    HRESULT Change(::VmMonthDisplayConstants display) {
        return As<::_VmCalendar>()->put_MonthDisplay(display);
    }
    ::VmMonthDisplayConstants Display() const {
        ::VmMonthDisplayConstants display{};
        As<::_VmCalendar>()->get_MonthDisplay(&display);
        return display;
    }
    HRESULT AmbientChanged(DISPID id) { return As<IOleControl>()->OnAmbientPropertyChange(id); }
    HWND MonthList() const {
        long window = 0;
        As<::_VmCalendar>()->get_cboMonthhwnd(&window);
        return static_cast<HWND>(LongToHandle(window));
    }

    ComPtr<ScriptedContainer> container = Adopt(new ScriptedContainer);
    ComPtr<IOleObject> object;

private:
    long m_before = 0;
};

}  // namespace velmora
