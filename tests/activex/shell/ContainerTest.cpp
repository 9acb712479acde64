#include "apps/vmhost/Automation.h"
#include "apps/vmhost/Persistence.h"
#include "hosts/activex/control/DropDownControl.h"
#include "hosts/activex/win32/WinText.h"
#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

constexpr HRESULT kSetNotPermitted = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 387);

class Container : public ShellFixture {};

// What the container says about itself.

TEST_F(Container, FollowsTheContainersLanguageAndFont) {
    Place();
    As<::_VmCalendar>()->put_MonthYearSelStyle(::VmMonthSelCombo);
    Do(OLEIVERB_SHOW);
    As<IViewObjectEx>()->SetAdvise(DVASPECT_CONTENT, 0, container.Get());
    container->TakeLog();
    for (const DISPID id : {DISPID_UNKNOWN, DISPID_AMBIENT_FONT, DISPID_AMBIENT_SCALEUNITS,
                            DISPID_AMBIENT_FORECOLOR, DISPID_AMBIENT_BACKCOLOR}) {
        AmbientChanged(id);
        EXPECT_EQ(container->TakeLog(), "OnViewChange") << id;
    }
    AmbientChanged(DISPID_AMBIENT_DISPLAYNAME);
    EXPECT_EQ(container->TakeLog(), "");
    V_VT(&container->ambients[DISPID_AMBIENT_LOCALEID]) = VT_I4;
    for (const auto& [locale, fifth, may] :
         {std::tuple(0x0407, 45416.0, L"Mai"), std::tuple(0x0409, 45387.0, L"May"),
          std::tuple(0x0407, 45416.0, L"Mai")}) {
        V_I4(&container->ambients[DISPID_AMBIENT_LOCALEID]) = locale;
        if (may == std::wstring(L"May")) {
            object->SetClientSite(nullptr);  // at once, as well as later
            Place();
            Do(OLEIVERB_SHOW);
        } else {
            AmbientChanged(DISPID_AMBIENT_LOCALEID);
        }
        OwnedVariant text;
        V_VT(&text) = VT_BSTR;
        V_BSTR(&text) = SysAllocString(L"4/5/2024");
        EXPECT_EQ(As<::_VmCalendar>()->put_DateValue(text), S_OK);
        ComPtr<::_VmDay> day;
        DATE date = 0;
        As<::_VmCalendar>()->get_SelectedDay(&day);
        day->get_DayDate(&date);
        EXPECT_EQ(date, fifth);
        wchar_t name[32]{};
        SendMessageW(MonthList(), CB_GETLBTEXT, 4, reinterpret_cast<LPARAM>(name));
        EXPECT_STREQ(name, may);
    }
    V_I4(&container->ambients[DISPID_AMBIENT_LOCALEID]) = 0x7FFF;  // no language
    AmbientChanged(DISPID_AMBIENT_LOCALEID);
    EXPECT_GT(SendMessageW(MonthList(), CB_GETLBTEXTLEN, 4, 0), 0);
    wchar_t face[] = L"Tahoma";
    FONTDESC description{sizeof description, face, {.int64 = 140000}, FW_BOLD, 0, TRUE, 0, 0};
    VARIANT& ambient = container->ambients[DISPID_AMBIENT_FONT];
    V_VT(&ambient) = VT_DISPATCH;
    OleCreateFontIndirect(&description, IID_IDispatch,
                          reinterpret_cast<void**>(&V_DISPATCH(&ambient)));
    Renew();
    Place();
    ComPtr<IFontDisp> own;
    ComPtr<IFont> font;
    As<::_VmCalendar>()->get_DayFont(&own);
    own.As(&font);
    CY size{};
    OwnedVariant name;
    V_VT(&name) = VT_BSTR;
    font->get_Name(&V_BSTR(&name));
    font->get_Size(&size);
    EXPECT_EQ(FromBstr(V_BSTR(&name)), "Tahoma");
    EXPECT_NEAR(static_cast<double>(size.int64), 140000, 5000);
    EXPECT_NE(own.Get(), V_DISPATCH(&ambient)) << "a change of one does not change the other";
}

TEST_F(Container, MeasuresInTheContainersUnits) {
    const struct {
        const wchar_t* units;     // the ambient property
        short container, parent;  // scale modes; 0: not known
        LONG height;              // of 200 pixels at 96 an inch
    } cases[] = {{L"Twip", 0, 0, 3000},     {L"Pixel", 0, 0, 200}, {L"Point", 0, 0, 150},
                 {L"Millimeter", 0, 0, 53}, {L"cm", 0, 0, 5},      {L"Centimeter", 0, 0, 5},
                 {L"Furlong", 0, 0, 3000},  {L"Point", 3, 0, 200}, {L"", 0, 2, 150},
                 {L"Pixel", 1, 2, 3000},    {L"", 0, 0, 3000}};
    for (const auto& c : cases) {
        container = Adopt(new ScriptedContainer);
        V_VT(&container->ambients[DISPID_AMBIENT_SCALEUNITS]) = VT_BSTR;
        V_BSTR(&container->ambients[DISPID_AMBIENT_SCALEUNITS]) = SysAllocString(c.units);
        if (c.container) container->scaleModes[L"Container"] = c.container;
        if (c.parent) container->scaleModes[L"Parent"] = c.parent;
        const auto box = Adopt<IOleObject>(new DropDownControl);
        box->SetClientSite(container.Get());
        ComPtr<::_VmCalDropDown> published;
        box.As(&published);
        LONG height = 0;
        EXPECT_EQ(published->get_DropDownHeight(&height), S_OK);
        EXPECT_EQ(height, c.height) << ToUtf8(c.units) << c.container << c.parent;
        box->SetClientSite(nullptr);
    }
}

// Notifications and events.

TEST_F(Container, AsksBeforeAChangeAndTellsAfterIt) {
    const auto abbreviate = [&] { return Change(::VmMonthAbbrName); };
    const auto color = [&] { return As<::_VmCalendar>()->put_MonthBackColor(0x7F000000); };
    Connect(IID_IPropertyNotifySink);
    Play({{"change", abbreviate, "OnRequestEdit(19) OnChanged(19)", "inactive dirty"}});
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, &stream);
    As<IPersistStreamInit>()->Save(stream.Get(), FALSE);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    const auto bag = Adopt(new vmhost::TextBag);
    OwnedVariant negative;
    V_VT(&negative) = VT_I4;
    V_I4(&negative) = -5;
    bag->Write(L"_ExtentX", &negative);
    SIZEL extent{};
    const auto loadBag = [&] {
        EXPECT_EQ(As<IPersistPropertyBag>()->Load(bag.Get(), nullptr), S_OK);
        return object->GetExtent(DVASPECT_CONTENT, &extent);
    };
    Play({{"bag", loadBag, ""},
          {"load", [&] { return As<IPersistStreamInit>()->Load(stream.Get()); }, ""}});
    EXPECT_EQ(extent.cx, 6615) << "nothing is narrower than nothing";
    Connect(IID_IPropertyNotifySink);
    container->refuseNextEdit = true;
    Play({{"refused by one", [&] { return Change(::VmMonthFullName); }, "OnRequestEdit(19)",
           "inactive", kSetNotPermitted}});
    EXPECT_EQ(vmhost::GetProperty(object.Get(), "MonthBackColor").result.Type(), VT_I4)
        << "no script has unsigned numbers";
    ::VmMonthDisplayConstants display{};
    As<::_VmCalendar>()->get_MonthDisplay(&display);
    EXPECT_EQ(display, ::VmMonthAbbrName);
    Play({{"invalid", color, "OnRequestEdit(18) OnRequestEdit(18)", "inactive",
           HresultOf(ErrorNumber::InvalidPropertyValue)}});
    for (const char* const call : {"OnRequestEdit(19)", "OnChanged(19)"}) {
        Renew();
        Connect(IID_IPropertyNotifySink);
        container->interferesWith = call;
        container->interference = [this] { object.Reset(); };
        ::_VmCalendar* const calendar = As<::_VmCalendar>().Get();
        EXPECT_EQ(calendar->put_MonthDisplay(::VmMonthAbbrName), S_OK);
        EXPECT_EQ(object, nullptr) << "it may go meanwhile";
    }
}

TEST_F(Container, EventsStopWhileTheyAreFrozenOrDisconnected) {
    const IID& events = __uuidof(::__VmCalendar);
    SetDate(45000);
    const DWORD first = Connect(events);
    const auto freeze = [&](BOOL on) { return As<IOleControl>()->FreezeEvents(on); };
    const auto date = [&](DATE value) { return [this, value] { return SetDate(value); }; };
    const std::string april = "Event2(45035) Event3(19) Event8(4)";  // 2023
    Play({{"freeze", [&] { return freeze(TRUE), freeze(TRUE); }, "", "inactive dirty"},
          {"frozen", date(45050), "", "inactive dirty"},
          {"once", [&] { return freeze(FALSE); }, "", "inactive dirty"},
          {"frozen", date(45100), "", "inactive dirty"},
          {"too often", [&] { return freeze(FALSE), freeze(FALSE); }, "", "inactive dirty"},
          {"August", date(45150), "Event2(45150) Event3(12) Event8(8)", "inactive dirty"}});
    const DWORD second = Connect(events);
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(Point(events)->EnumConnections(&connections), S_OK);
    container->interferesWith = "Event8(4)";  // a sink that has left is not called any more
    container->interference = [&] { Point(events)->Unadvise(second); };
    Play({{"April", date(45035), "Event2(45035) Event2(45035) Event3(19) Event3(19) Event8(4)",
           "inactive dirty"}});
    EXPECT_EQ(Point(events)->Unadvise(second), CONNECT_E_NOCONNECTION);
    CONNECTDATA data[2] = {};
    ULONG fetched = 0;
    EXPECT_EQ(connections->Next(2, data, &fetched), S_OK);  // as they were
    EXPECT_EQ(data[0].dwCookie, first);
    EXPECT_EQ(data[1].dwCookie, second);
    for (const CONNECTDATA& item : data) item.pUnk->Release();
    DWORD cookie = 1;
    EXPECT_EQ(Point(IID_IPropertyNotifySink)->Advise(object.Get(), &cookie),
              CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
}

}  // namespace
}  // namespace velmora
