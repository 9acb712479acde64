#include "apps/vmhost/Ambients.h"
#include "hosts/activex/control/DropDownControl.h"
#include "tests/activex/component/ComponentTest.h"

namespace velmora {
namespace {

constexpr HRESULT kSetNotPermitted = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 387);
const std::string kShown =
    "CanInPlaceActivate OnInPlaceActivate GetWindow GetWindowContext ShowObject";
const std::string kActive = "OnUIActivate OnFocus(1) SetActiveObject SetActiveObject";
const std::string kInactive = "SetActiveObject(0) SetActiveObject(0) OnUIDeactivate";

class Control : public ComponentTest {
protected:
    HRESULT Site(ScriptedContainer* site) { return object->SetClientSite(site); }
    HRESULT Extent(LONG width, LONG height) {
        SIZEL extent{width, height};
        return object->SetExtent(DVASPECT_CONTENT, &extent);
    }
    HRESULT Deactivate() { return As<IOleInPlaceObject>()->InPlaceDeactivate(); }
    HRESULT Send(UINT message, WPARAM w = 0, LPARAM l = MAKELPARAM(60, 60)) {
        SendMessageW(Window(), message, w, l);
        return S_OK;
    }
    void AmbientFlag(DISPID id, bool value) {
        container->ambients[id] = value;
        AmbientChanged(id);
    }
};

TEST_F(Control, GoesThroughItsStatesInOrder) {
    const auto other = Adopt(new ScriptedContainer);
    const auto save = [&] {
        ComPtr<IStream> stream;
        CreateStreamOnHGlobal(nullptr, TRUE, &stream);
        return As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    };
    DWORD advise = 0;
    object->Advise(container.Get(), &advise);
    Play({
        {"no site", [&] { return Do(OLEIVERB_SHOW); }, "", "inactive", E_UNEXPECTED},
        {"site", [&] { return Site(container.Get()); }, ""},
        {"show", [&] { return Do(OLEIVERB_INPLACEACTIVATE); }, kShown, "shown"},
        {"show again", [&] { return Do(OLEIVERB_SHOW); }, "", "shown"},
        {"activate", [&] { return Do(OLEIVERB_UIACTIVATE); }, kActive, "shown focus"},
        {"activate again", [&] { return Do(OLEIVERB_OPEN); }, "", "shown focus"},
        {"same site", [&] { return Site(container.Get()); }, "", "shown focus"},
        {"hide", [&] { return Do(OLEIVERB_HIDE); }, kInactive + " OnFocus(0)", "hidden"},
        {"back", [&] { return Do(OLEIVERB_PRIMARY); }, kActive, "shown focus"},
        {"other site", [&] { return Site(other.Get()); },
         kInactive + " OnFocus(0) OnInPlaceDeactivate"},
        {"shown there", [&] { return Do(OLEIVERB_SHOW); }, "", "shown"},
        {"first site", [&] { return Site(container.Get()); }, ""},
        {"close clean", [&] { return object->Close(OLECLOSE_SAVEIFDIRTY); }, "OnClose"},
        {"extent", [&] { return Extent(2540, 5080); }, "", "inactive dirty"},
        {"save", save, ""},
        {"same extent", [&] { return Extent(2540, 5080); }, ""},
        {"change", [&] { return Change(::VmMonthAbbrName); }, "", "inactive dirty"},
        {"shown", [&] { return Do(OLEIVERB_SHOW); }, kShown, "shown dirty"},
        {"no save", [&] { return object->Close(OLECLOSE_NOSAVE); }, "OnInPlaceDeactivate OnClose",
         "inactive dirty"},
        {"close dirty", [&] { return object->Close(OLECLOSE_SAVEIFDIRTY); }, "SaveObject OnClose",
         "inactive dirty"},
        {"frames", [&] { return Do(OLEIVERB_PROPERTIES); }, "ShowPropertyFrame", "inactive dirty"},
        {"undo", [&] { return Do(OLEIVERB_DISCARDUNDOSTATE); }, "", "inactive dirty"},
        {"no verb", [&] { return Do(-42); }, "", "inactive dirty", E_NOTIMPL},
        {"no verb of its own", [&] { return Do(42); }, kShown + " " + kActive, "shown focus dirty",
         OLEOBJ_S_INVALIDVERB},
        {"taken out", [&] { return Site(nullptr); }, kInactive + " OnFocus(0) OnInPlaceDeactivate",
         "inactive dirty"},
        {"no site any more", [&] { return Do(OLEIVERB_UIACTIVATE); }, "", "inactive dirty",
         E_UNEXPECTED},
        {"date", [&] { return SetDate(45000); }, "", "inactive dirty"},
    });
    EXPECT_NE(other->TakeLog(), "");
}

TEST_F(Control, TellsItsPlaceAndItsFocus) {
    Place();
    const RECT place{10, 20, 110, 60}, all{0, 0, 1000, 1000};
    container->clip = {10, 20, 60, 70};
    Do(OLEIVERB_SHOW);
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    RECT box{};
    EXPECT_EQ(GetWindowRgn(Window(), region), SIMPLEREGION);
    GetRgnBox(region, &box);
    EXPECT_EQ(std::pair(box.right, box.bottom), std::pair(LONG{50}, LONG{50}));
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &all), S_OK);
    EXPECT_EQ(GetWindowRgn(Window(), region), ERROR);
    DeleteObject(region);
    GetClientRect(Window(), &box);
    EXPECT_EQ(std::pair(box.right, box.bottom), std::pair(LONG{100}, LONG{40}));
    As<::_VmCalendar>()->put_MonthYearSelStyle(::VmMonthSelCombo);
    container->TakeLog();
    Play({
        {"extent", [&] { return Extent(2540, 5080); }, "OnPosRectChange(10,20,106,212)",
         "shown dirty"},
        {"activate", [&] { return Do(OLEIVERB_UIACTIVATE); }, kActive, "shown focus dirty"},
        {"list", [&] { return SetFocus(MonthList()) ? S_OK : E_FAIL; }, "", "shown dirty"},
        {"form", [&] { return SetFocus(container->window) ? S_OK : E_FAIL; }, "OnFocus(0)",
         "shown dirty"},
        {"list again", [&] { return SetFocus(MonthList()) ? S_OK : E_FAIL; }, "OnFocus(1)",
         "shown dirty"},
        {"the end of all windows", [&] { return Deactivate(); },
         kInactive + " OnFocus(0) OnInPlaceDeactivate", "inactive dirty"},
        {"shown", [&] { return Do(OLEIVERB_SHOW); }, kShown, "shown dirty"},
        {"the form's end",
         [&] { return DestroyWindow(std::exchange(container->window, nullptr)) ? S_OK : E_FAIL; },
         "", "inactive dirty"},
    });
}

TEST_F(Control, EveryRefusalOfTheContainerLeavesItInactive) {
    Place();
    for (const char* const call :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext"}) {
        container->refused = call;
        EXPECT_EQ(Do(OLEIVERB_SHOW), E_FAIL) << call;
        EXPECT_EQ(Window(), nullptr) << call;
    }
    container->refused = "OnUIActivate";
    container->TakeLog();
    container->interferesWith = "GetWindow";
    container->interference = [&] { EXPECT_EQ(Do(OLEIVERB_SHOW), OLEOBJ_S_CANNOT_DOVERB_NOW); };
    Play({{"refused", [&] { return Do(OLEIVERB_UIACTIVATE); }, kShown + " OnUIActivate", "shown",
           E_FAIL},
          {"again", [&] { return Do(OLEIVERB_UIACTIVATE); }, "OnUIActivate", "shown", E_FAIL}});
}

/// What the container may do to the control in the middle of any of its calls.
TEST_F(Control, SurvivesWhatItsContainerDoesMeanwhile) {
    const std::function<void()> interferences[] = {
        [this] { Deactivate(); }, [this] { Do(OLEIVERB_SHOW); },
        [this] {
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        },
        [this] { DestroyWindow(std::exchange(container->window, nullptr)); },
        [this] {
            const ComPtr<IOleObject> last = std::move(object);
            last->Close(OLECLOSE_NOSAVE);
            last->SetClientSite(nullptr);
        }};
    for (const char* const call :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "ShowObject",
          "OnUIActivate", "OnFocus(1)", "SetActiveObject", "OnUIDeactivate", "SetActiveObject(0)",
          "OnFocus(0)", "OnInPlaceDeactivate"}) {
        for (const auto& interference : interferences) {
            container = Adopt(new ScriptedContainer);
            Renew();
            Place();
            container->interferesWith = call;
            container->interference = interference;
            IOleObject* const raw = object.Get();
            raw->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
            if (object) object->Close(OLECLOSE_NOSAVE);
            EXPECT_EQ(container->interferesWith, "") << "was never called";
            if (object) object->SetClientSite(nullptr);
        }
    }
}

TEST_F(Control, TakesNoInputInDesignOrDisabled) {
    Place();
    Connect(__uuidof(::__VmCalendar));
    for (const auto& [ambient, value] :
         {std::pair(DISPID_AMBIENT_USERMODE, false), {DISPID_AMBIENT_UIDEAD, true}}) {
        container->ambients.clear();
        AmbientFlag(ambient, value);
        Do(OLEIVERB_SHOW);
        ServeWaiting();
        container->TakeLog();
        Play({{"press", [&] { return Send(WM_RBUTTONDOWN, MK_RBUTTON); }, "", "shown"},
              {"key", [&] { return Send(WM_KEYDOWN, VK_F5, 1); }, "", "shown"}});
    }
    EnableWindow(Window(), FALSE);
    EXPECT_EQ(GetProperty(object.Get(), "Enabled").result.Number(), VARIANT_FALSE);
    Deactivate();
    Do(OLEIVERB_SHOW);
    EXPECT_FALSE(IsWindowEnabled(Window()));
}

TEST_F(Control, TakesItsOwnKeysBeforeTheContainer) {
    Place();
    As<::_VmCalendar>()->put_MonthYearSelStyle(::VmMonthSelCombo);
    Do(OLEIVERB_UIACTIVATE);
    const HWND control = Window(), list = MonthList();
    const std::string kOffered = "TranslateAccelerator(0)";
    for (const auto& [focus, key, calls, result] :
         {std::tuple(control, VK_RIGHT, std::string(), S_OK),
          {control, VK_TAB, "", S_OK},  // to the first selector
          {FindWindowExW(control, nullptr, L"Edit", nullptr), VK_TAB, kOffered, S_OK},
          {control, VK_RETURN, kOffered, S_OK},
          {list, VK_RETURN, "", S_OK},
          {container->window, VK_RIGHT, "", S_FALSE}}) {
        SetFocus(focus);
        container->TakeLog();
        MSG message{focus, WM_KEYDOWN, static_cast<WPARAM>(key), 1, 0, {}};
        EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), result) << key;
        EXPECT_EQ(container->TakeLog(), calls) << key;
    }
}

TEST_F(Control, FollowsTheContainersLanguageAndFont) {
    const auto tell = [&](LONG locale) {
        container->ambients[DISPID_AMBIENT_LOCALEID] = locale;
        if (Window()) return AmbientChanged(DISPID_AMBIENT_LOCALEID);
        Place();  // at once, as well as later
        As<::_VmCalendar>()->put_MonthYearSelStyle(::VmMonthSelCombo);
        return Do(OLEIVERB_SHOW);
    };
    for (const auto& [locale, fifth, may] :
         {std::tuple(0x0407, 45416.0, L"Mai"), {0x0409, 45387.0, L"May"}}) {
        EXPECT_EQ(tell(locale), S_OK);
        PutProperty(object.Get(), "DateValue", "4/5/2024");
        const auto day = GetProperty(object.Get(), "SelectedDay").result;
        EXPECT_EQ(GetProperty(day.Object(), "DayDate").result.Real(), fifth);
        wchar_t name[32]{};
        SendMessageW(MonthList(), CB_GETLBTEXT, 4, reinterpret_cast<LPARAM>(name));
        EXPECT_STREQ(name, may);
    }
    container->ambients[DISPID_AMBIENT_RIGHTTOLEFT] = true;
    AmbientChanged(DISPID_AMBIENT_RIGHTTOLEFT);
    EXPECT_TRUE(GetWindowLongPtrW(MonthList(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL);
    As<IViewObjectEx>()->SetAdvise(DVASPECT_CONTENT, 0, container.Get());
    for (const DISPID id : {DISPID_UNKNOWN, DISPID_AMBIENT_BACKCOLOR}) {
        container->TakeLog();
        AmbientChanged(id);
        EXPECT_EQ(container->TakeLog(), "OnViewChange") << id;
    }
    container->ambients[DISPID_AMBIENT_FONT] = vmhost::MakeFont("Tahoma", 14).Get();
    Renew();
    Place();
    const auto own = GetProperty(object.Get(), "DayFont").result;
    EXPECT_EQ(GetProperty(own.Object(), "Name").result.Text(), "Tahoma");
    EXPECT_NEAR(GetProperty(own.Object(), "Size").result.Real(), 14, 0.5);
    EXPECT_NE(own.Object(), container->ambients[DISPID_AMBIENT_FONT].Object());
}

TEST_F(Control, MeasuresInTheContainersUnits) {
    const struct {
        const char* units;        // the ambient property
        short container, parent;  // scale modes; 0: not known
        LONG height;              // of 200 pixels at 96 an inch
    } cases[] = {{"Twip", 0, 0, 3000},     {"Pixel", 0, 0, 200}, {"Point", 0, 0, 150},
                 {"Millimeter", 0, 0, 53}, {"cm", 0, 0, 5},      {"Centimeter", 0, 0, 5},
                 {"Furlong", 0, 0, 3000},  {"Point", 3, 0, 200}, {"", 0, 2, 150},
                 {"Pixel", 1, 2, 3000},    {"", 0, 0, 3000}};
    for (const auto& c : cases) {
        container = Adopt(new ScriptedContainer);
        container->ambients[DISPID_AMBIENT_SCALEUNITS] = c.units;
        if (c.container) container->scaleModes[L"Container"] = c.container;
        if (c.parent) container->scaleModes[L"Parent"] = c.parent;
        const auto box = Adopt<IOleObject>(new DropDownControl);
        box->SetClientSite(container.Get());
        EXPECT_EQ(GetProperty(box.Get(), "DropDownHeight").result.Number(), c.height)
            << c.units << c.container << c.parent;
        box->SetClientSite(nullptr);
    }
}

TEST_F(Control, AsksBeforeAChangeAndTellsAfterIt) {
    const auto abbreviate = [&] { return Change(::VmMonthAbbrName); };
    const auto color = [&] { return As<::_VmCalendar>()->put_MonthBackColor(0x7F000000); };
    Connect(IID_IPropertyNotifySink);
    Play({{"change", abbreviate, "OnRequestEdit(19) OnChanged(19)", "inactive dirty"}});
    Connect(IID_IPropertyNotifySink);
    container->refused = "OnRequestEdit(19)";
    Play({{"refused by one", [&] { return Change(::VmMonthFullName); }, "OnRequestEdit(19)",
           "inactive dirty", kSetNotPermitted},
          {"invalid", color, "OnRequestEdit(18) OnRequestEdit(18)", "inactive dirty",
           HresultOf(ErrorNumber::InvalidPropertyValue)}});
    container->refused.clear();
    EXPECT_EQ(Display(), ::VmMonthAbbrName);
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

TEST_F(Control, EventsStopWhileTheyAreFrozenOrDisconnected) {
    const IID& events = __uuidof(::__VmCalendar);
    SetDate(45000);
    Connect(events);
    const auto freeze = [&](BOOL on) { return As<IOleControl>()->FreezeEvents(on); };
    const auto date = [&](DATE value) { return [this, value] { return SetDate(value); }; };
    Play({{"freeze", [&] { return freeze(TRUE), freeze(TRUE); }, "", "inactive dirty"},
          {"once", [&] { return freeze(FALSE); }, "", "inactive dirty"},
          {"frozen", date(45100), "", "inactive dirty"},
          {"too often", [&] { return freeze(FALSE), freeze(FALSE); }, "", "inactive dirty"},
          {"August", date(45150), "Event2(2023-08-12) Event3(12) Event8(8)", "inactive dirty"}});
    const DWORD second = Connect(events);
    container->interferesWith = "Event8(4)";  // a sink that has left is not called any more
    container->interference = [&] { Point(events)->Unadvise(second); };
    Play({{"April", date(45035),
           "Event2(2023-04-19) Event2(2023-04-19) Event3(19) Event3(19) Event8(4)",
           "inactive dirty"}});
    EXPECT_EQ(Point(events)->Unadvise(second), CONNECT_E_NOCONNECTION);
}

}  // namespace
}  // namespace velmora
