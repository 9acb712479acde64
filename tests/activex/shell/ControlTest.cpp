#include "hosts/activex/control/DropDownControl.h"
#include "hosts/activex/win32/WinText.h"
#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

const std::string kShown =
    "CanInPlaceActivate OnInPlaceActivate GetWindow GetWindowContext ShowObject";
const std::string kActive = "OnUIActivate OnFocus(1) SetActiveObject SetActiveObject";
const std::string kInactive = "SetActiveObject(0) SetActiveObject(0) OnUIDeactivate";
constexpr HRESULT kSetNotPermitted = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 387);

/// What is done to the control, what it calls then, and what it has become.
struct Step {
    const char* what;
    std::function<HRESULT()> act;
    std::string calls;
    std::string state = "inactive";
    HRESULT result = S_OK;
};

void ServeWaiting() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

class Control : public ShellFixture {
protected:
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
    HRESULT Site(ScriptedContainer* site) { return object->SetClientSite(site); }
    HRESULT Change(::VmMonthDisplayConstants display) {
        return As<::_VmCalendar>()->put_MonthDisplay(display);
    }
    HRESULT Extent(LONG width, LONG height) {
        SIZEL extent{width, height};
        return object->SetExtent(DVASPECT_CONTENT, &extent);
    }
    HRESULT Deactivate() { return As<IOleInPlaceObject>()->InPlaceDeactivate(); }
    HRESULT AmbientChanged(DISPID id) { return As<IOleControl>()->OnAmbientPropertyChange(id); }
    HRESULT Send(UINT message, WPARAM w = 0, LPARAM l = MAKELPARAM(60, 60)) {
        SendMessageW(Window(), message, w, l);
        return S_OK;
    }
    void AmbientFlag(DISPID id, bool value) {
        V_VT(&container->ambients[id]) = VT_BOOL;
        V_BOOL(&container->ambients[id]) = value ? VARIANT_TRUE : VARIANT_FALSE;
        AmbientChanged(id);
    }
    HWND MonthList() const {
        long window = 0;
        As<::_VmCalendar>()->get_cboMonthhwnd(&window);
        return static_cast<HWND>(LongToHandle(window));
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
        {"deactivate nothing", [&] { return Deactivate(); }, "", "inactive dirty"},
        {"frames", [&] { return Do(OLEIVERB_PROPERTIES); }, "ShowPropertyFrame", "inactive dirty"},
        {"frames", [&] { return Do(1); }, "ShowPropertyFrame", "inactive dirty"},
        {"undo", [&] { return Do(OLEIVERB_DISCARDUNDOSTATE); }, "", "inactive dirty"},
        {"no verb", [&] { return Do(-42); }, "", "inactive dirty", E_NOTIMPL},
        {"no verb of its own", [&] { return Do(42); }, kShown + " " + kActive, "shown focus dirty",
         OLEOBJ_S_INVALIDVERB},
    });
    EXPECT_NE(other->TakeLog(), "");
}

TEST_F(Control, TellsItsPlaceAndItsFocus) {
    Place();
    const auto calendar = As<::_VmCalendar>();
    const RECT place{10, 20, 110, 60}, all{0, 0, 1000, 1000};
    const auto move = [&](const RECT& clip) {
        return As<IOleInPlaceObject>()->SetObjectRects(&place, &clip);
    };
    const auto size = [&] {
        RECT client{};
        GetClientRect(Window(), &client);
        return std::pair(client.right, client.bottom);
    };
    container->clip = {10, 20, 60, 70};
    Do(OLEIVERB_SHOW);
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    RECT box{};
    EXPECT_EQ(GetWindowRgn(Window(), region), SIMPLEREGION);
    GetRgnBox(region, &box);
    EXPECT_EQ(std::pair(box.right, box.bottom), std::pair(LONG{50}, LONG{50}));
    EXPECT_EQ(size(), std::pair(LONG{250}, LONG{200}));
    EXPECT_EQ(move(all), S_OK);
    EXPECT_EQ(GetWindowRgn(Window(), region), ERROR);
    DeleteObject(region);
    EXPECT_EQ(size(), std::pair(LONG{100}, LONG{40}));
    calendar->put_MonthYearSelStyle(::VmMonthSelCombo);
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
    container->window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300,
                                        nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsChild(container->window, Window()));
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

TEST_F(Control, TakesTheMouseInUseButNotInDesign) {
    container->scaleModes[L"Container"] = 3;  // pixels
    const struct {
        DISPID ambient;
        bool value, isUsed;
    } cases[] = {{DISPID_AMBIENT_USERMODE, false, false},
                 {DISPID_AMBIENT_USERMODE, true, true},
                 {DISPID_AMBIENT_UIDEAD, true, false},
                 {DISPID_AMBIENT_UIDEAD, false, true}};
    Place();
    Connect(__uuidof(::__VmCalendar));
    for (const auto& c : cases) {
        AmbientFlag(c.ambient, c.value);
        Do(OLEIVERB_SHOW);
        ServeWaiting();
        container->TakeLog();
        const auto calls = [&](const std::string& events) { return c.isUsed ? events : ""; };
        const std::string state = c.isUsed ? "shown focus" : "shown";
        SCOPED_TRACE(state + std::to_string(c.ambient));
        Play({{"press", [&] { return Send(WM_RBUTTONDOWN, MK_RBUTTON); },
               calls(kActive + " Event9(2,0,60,60)"), state},
              {"release", [&] { return Send(WM_RBUTTONUP); }, calls("Event11(2,0,60,60)"), state},
              {"key", [&] { return Send(WM_KEYDOWN, VK_F5, 1); }, calls("Event7(116,0)"), state}});
        As<IOleInPlaceObject>()->UIDeactivate();
        SetFocus(container->window);
    }
}

TEST_F(Control, LooksDisabledWhenItIs) {
    Place();
    Do(OLEIVERB_SHOW);
    const auto calendar = As<::_VmCalendar>();
    VARIANT_BOOL enabled = VARIANT_FALSE;
    for (const BOOL isEnabled : {FALSE, TRUE}) {
        ValidateRect(Window(), nullptr);
        EnableWindow(Window(), isEnabled);
        EXPECT_TRUE(GetUpdateRect(Window(), nullptr, FALSE));
        calendar->get_Enabled(&enabled);
        EXPECT_EQ(enabled != VARIANT_FALSE, isEnabled != FALSE);
    }
    calendar->put_Enabled(VARIANT_FALSE);
    for (const bool again : {false, true}) {
        EXPECT_FALSE(IsWindowEnabled(Window()));
        Deactivate();
        calendar->get_Enabled(&enabled);
        EXPECT_EQ(enabled, VARIANT_FALSE);
        if (!again) Do(OLEIVERB_SHOW);
    }
}

TEST_F(Control, TakesItsOwnKeysBeforeTheContainer) {
    Place();
    As<::_VmCalendar>()->put_MonthYearSelStyle(::VmMonthSelCombo);
    Do(OLEIVERB_UIACTIVATE);
    const HWND control = Window(), list = MonthList(), form = container->window;
    const struct {
        HWND focus;
        UINT message;
        WORD key;
        const char* calls;
    } cases[] = {{control, WM_KEYDOWN, VK_RIGHT, ""},
                 {control, WM_KEYDOWN, VK_NEXT, ""},
                 {control, WM_SYSKEYDOWN, VK_UP, ""},
                 {control, WM_SYSKEYDOWN, VK_DOWN, ""},
                 {control, WM_KEYDOWN, VK_TAB, "TranslateAccelerator(1)"},
                 {control, WM_KEYDOWN, VK_RETURN, "TranslateAccelerator(1)"},
                 {control, WM_KEYDOWN, VK_F4, "TranslateAccelerator(1)"},
                 {control, WM_KEYUP, VK_RIGHT, "TranslateAccelerator(1)"},
                 {control, WM_SYSKEYDOWN, 'F', "TranslateAccelerator(1)"},
                 {list, WM_KEYDOWN, VK_RETURN, ""},
                 {list, WM_KEYDOWN, VK_TAB, "TranslateAccelerator(1)"},
                 {form, WM_KEYDOWN, VK_RIGHT, nullptr}};
    BYTE keys[256]{};
    keys[VK_SHIFT] = 0x80;
    for (const bool takes : {false, true}) {
        container->refused = takes ? "" : "TranslateAccelerator(1)";
        for (const auto& c : cases) {
            SetFocus(c.focus);
            SetKeyboardState(keys);
            container->TakeLog();
            MSG message{c.focus, c.message, c.key, 1, 0, {}};
            const bool isTaken = c.calls && (takes || !*c.calls);
            EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message),
                      isTaken ? S_OK : S_FALSE)
                << c.key;
            EXPECT_EQ(container->TakeLog(), c.calls ? c.calls : "") << c.key;
        }
    }
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    AmbientFlag(DISPID_AMBIENT_UIDEAD, true);
    SetFocus(control);
    MSG message{control, WM_KEYDOWN, VK_RIGHT, 1, 0, {}};
    container->TakeLog();
    As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message);
    EXPECT_EQ(container->TakeLog(), "TranslateAccelerator(0)");
    EXPECT_EQ(SendMessageW(control, WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(&message)),
              DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTMESSAGE);
}

// What the container says about itself.

TEST_F(Control, FollowsTheContainersLanguageAndFont) {
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
            Site(nullptr);  // at once, as well as later
            Site(container.Get());
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

TEST_F(Control, MeasuresInTheContainersUnits) {
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

TEST_F(Control, AsksBeforeAChangeAndTellsAfterIt) {
    const auto abbreviate = [&] { return Change(::VmMonthAbbrName); };
    const auto color = [&] { return As<::_VmCalendar>()->put_MonthBackColor(0x7F000000); };
    Connect(IID_IPropertyNotifySink);
    Play({{"change", abbreviate, "OnRequestEdit(19) OnChanged(19)", "inactive dirty"}});
    Connect(IID_IPropertyNotifySink);
    container->refuseNextEdit = true;
    Play({{"refused by one", [&] { return Change(::VmMonthFullName); }, "OnRequestEdit(19)",
           "inactive dirty", kSetNotPermitted}});
    ::VmMonthDisplayConstants display{};
    As<::_VmCalendar>()->get_MonthDisplay(&display);
    EXPECT_EQ(display, ::VmMonthAbbrName);
    Play({{"invalid", color, "OnRequestEdit(18) OnRequestEdit(18)", "inactive dirty",
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

TEST_F(Control, EventsStopWhileTheyAreFrozenOrDisconnected) {
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
