#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

constexpr HRESULT kSetNotPermitted = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 387);

class Notification : public ShellFixture {
protected:
    HRESULT Change(::VmMonthDisplayConstants display) {
        return As<::_VmCalendar>()->put_MonthDisplay(display);
    }
    /// Turns the page, which raises MonthChanged and YearChanged.
    void SetDate(DATE date) {
        VARIANT value;
        V_VT(&value) = VT_DATE;
        V_DATE(&value) = date;
        As<::_VmCalendar>()->put_DateValue(value);
    }
};

TEST_F(Notification, ComesBeforeAndAfterAChange) {
    Connect(IID_IPropertyNotifySink);
    EXPECT_EQ(Change(::VmMonthAbbrName), S_OK);
    EXPECT_EQ(container->TakeLog(), "OnRequestEdit(19) OnChanged(19)");
    container->refusesEdits = true;
    EXPECT_EQ(Change(::VmMonthFullName), kSetNotPermitted);
    EXPECT_EQ(container->TakeLog(), "OnRequestEdit(19)");
    ::VmMonthDisplayConstants display{};
    As<::_VmCalendar>()->get_MonthDisplay(&display);
    EXPECT_EQ(display, ::VmMonthAbbrName);
    SetDate(45000);
    EXPECT_EQ(container->TakeLog().find("OnChanged"), std::string::npos);
    container->refusesEdits = false;
    EXPECT_EQ(As<::_VmCalendar>()->put_MonthBackColor(0x7F000000),
              HresultOf(ErrorNumber::InvalidPropertyValue));
    EXPECT_EQ(container->TakeLog(), "OnRequestEdit(18)");
}

TEST_F(Notification, MayDropTheControl) {
    for (const char* const call : {"OnRequestEdit(19)", "OnChanged(19)"}) {
        if (!object) object = Adopt<IOleObject>(new CalendarControl);
        Connect(IID_IPropertyNotifySink);
        container->interferesWith = call;
        container->interference = [this] { object.Reset(); };
        ::_VmCalendar* const calendar = As<::_VmCalendar>().Get();
        EXPECT_EQ(calendar->put_MonthDisplay(::VmMonthAbbrName), S_OK);
        EXPECT_EQ(object, nullptr);
    }
}

TEST_F(Notification, EventsStopWhileTheyAreFrozen) {
    SetDate(45000);
    Connect(__uuidof(::__VmCalendar));
    const auto control = As<IOleControl>();
    control->FreezeEvents(TRUE);
    control->FreezeEvents(TRUE);
    SetDate(45050);
    control->FreezeEvents(FALSE);
    SetDate(45100);
    EXPECT_EQ(container->TakeLog(), "");
    control->FreezeEvents(FALSE);
    control->FreezeEvents(FALSE);  // one too many
    SetDate(45150);                // 11 August 2023
    const std::string log = container->TakeLog();
    EXPECT_NE(log.find("Event8(8)"), std::string::npos) << log;
}

TEST_F(Notification, ConnectionsAreEnumeratedAndEnd) {
    const auto points = As<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> all;
    ASSERT_EQ(points->EnumConnectionPoints(&all), S_OK);
    IConnectionPoint* items[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(all->Next(3, items, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    IID iid{};
    items[0]->GetConnectionInterface(&iid);
    EXPECT_EQ(iid, __uuidof(::__VmCalendar));
    items[0]->Release();
    items[1]->Release();

    const DWORD first = Connect(__uuidof(::__VmCalendar));
    const DWORD second = Connect(__uuidof(::__VmCalendar));
    const auto point = Point(__uuidof(::__VmCalendar));
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(&connections), S_OK);
    EXPECT_EQ(point->Unadvise(first), S_OK);
    EXPECT_EQ(point->Unadvise(first), CONNECT_E_NOCONNECTION);
    CONNECTDATA data[2] = {};
    EXPECT_EQ(connections->Next(2, data, &fetched), S_OK);  // as they were
    EXPECT_EQ(data[1].dwCookie, second);
    for (const CONNECTDATA& item : data) item.pUnk->Release();
    DWORD cookie = 1;
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point->Advise(object.Get(), nullptr), E_POINTER);
    EXPECT_EQ(Point(IID_IPropertyNotifySink)->Advise(object.Get(), &cookie),
              CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(points->FindConnectionPoint(IID_IAdviseSink, &none), CONNECT_E_NOCONNECTION);
}

/// A sink that has left is not called any more, though the event is under way.
TEST_F(Notification, ASinkMayDisconnectAnotherOne) {
    SetDate(45000);
    Connect(__uuidof(::__VmCalendar));
    const DWORD second = Connect(__uuidof(::__VmCalendar));
    container->interferesWith = "Event8(4)";
    container->interference = [&] { Point(__uuidof(::__VmCalendar))->Unadvise(second); };
    SetDate(45035);  // 19 April 2023
    const std::string log = container->TakeLog();
    EXPECT_EQ(log.find("Event8(4)"), log.rfind("Event8(4)")) << log;
}

}  // namespace
}  // namespace velmora
