#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

const std::string kShown =
    "CanInPlaceActivate OnInPlaceActivate GetWindow GetWindowContext ShowObject";
const std::string kActive = "OnUIActivate OnFocus(1) SetActiveObject SetActiveObject";
const std::string kInactive = "SetActiveObject(0) SetActiveObject(0) OnUIDeactivate";

class Control : public ShellFixture {
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
        V_VT(&container->ambients[id]) = VT_BOOL;
        V_BOOL(&container->ambients[id]) = value ? VARIANT_TRUE : VARIANT_FALSE;
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

}  // namespace
}  // namespace velmora
