#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

constexpr char kActivation[] =
    "CanInPlaceActivate OnInPlaceActivate GetWindow GetWindowContext ShowObject";
constexpr char kUiActivation[] = "OnUIActivate OnFocus(1) SetActiveObject";

class Activation : public ShellFixture {};

TEST_F(Activation, GoesThroughTheStatesInOrder) {
    Place();
    container->TakeLog();
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(container->TakeLog(), kActivation);
    ASSERT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(container->TakeLog(), "");
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(container->TakeLog(), kUiActivation);
    EXPECT_EQ(GetFocus(), Window());
    EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(IsWindowVisible(Window()));
    EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
    EXPECT_TRUE(IsWindowVisible(Window()));
    container->TakeLog();
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(container->TakeLog(),
              "SetActiveObject(0) OnUIDeactivate OnFocus(0) OnInPlaceDeactivate");
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(container->TakeLog(), "");
}

TEST_F(Activation, AnswersItsVerbs) {
    Place();
    constexpr struct {
        LONG verb;
        HRESULT result;
    } kVerbs[] = {{OLEIVERB_OPEN, S_OK},       {OLEIVERB_DISCARDUNDOSTATE, S_OK},
                  {OLEIVERB_PROPERTIES, S_OK}, {1, S_OK},
                  {42, OLEOBJ_S_INVALIDVERB},  {-42, E_NOTIMPL}};
    for (const auto& row : kVerbs) EXPECT_EQ(Do(row.verb), row.result) << row.verb;
    EXPECT_NE(container->TakeLog().find("ShowPropertyFrame ShowPropertyFrame"), std::string::npos);
}

TEST_F(Activation, EveryRefusalOfTheContainerLeavesItInactive) {
    Place();
    for (const char* const call :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext"}) {
        container->refused = call;
        EXPECT_EQ(Do(OLEIVERB_SHOW), E_FAIL) << call;
        EXPECT_EQ(Window(), nullptr) << call;
    }
    container->refused = "OnUIActivate";
    container->TakeLog();
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), E_FAIL);
    EXPECT_EQ(container->TakeLog(), kActivation + std::string(" OnUIActivate"));
    EXPECT_NE(Window(), nullptr);
}

/// What the container may do to the control in the middle of any of its calls.
class Interference : public ShellFixture, public testing::WithParamInterface<const char*> {
protected:
    void Run(std::function<void()> interference) {
        Place();
        container->interferesWith = GetParam();
        container->interference = std::move(interference);
        const ComPtr<IOleObject> held = object;
        held->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        held->Close(OLECLOSE_NOSAVE);
        EXPECT_EQ(container->interferesWith, "") << "was never called";
    }
};

TEST_P(Interference, DeactivatesIt) {
    Run([this] { As<IOleInPlaceObject>()->InPlaceDeactivate(); });
}

TEST_P(Interference, ClosesItAndTakesItsSite) {
    Run([this] {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    });
}

TEST_P(Interference, DestroysTheWindowAroundIt) {
    Run([this] { DestroyWindow(std::exchange(container->window, nullptr)); });
}

TEST_P(Interference, DropsTheLastReference) {
    Place();
    container->interferesWith = GetParam();
    container->interference = [this] {
        const ComPtr<IOleObject> last = std::move(object);
        last->Close(OLECLOSE_NOSAVE);
        last->SetClientSite(nullptr);
    };
    IOleObject* const raw = object.Get();
    raw->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
    if (object) object->Close(OLECLOSE_NOSAVE);
}

INSTANTIATE_TEST_SUITE_P(AtEveryCall, Interference,
                         testing::Values("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                         "GetWindowContext", "ShowObject", "OnUIActivate",
                                         "OnFocus(1)", "SetActiveObject", "OnUIDeactivate",
                                         "SetActiveObject(0)", "OnFocus(0)",
                                         "OnInPlaceDeactivate"));

TEST_F(Activation, SurvivesItsWindowAndComesBackInAnother) {
    Place();
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    DestroyWindow(container->window);
    EXPECT_EQ(Window(), nullptr);
    container->window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300,
                                        nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsChild(container->window, Window()));
}

TEST_F(Activation, IsClippedToWhatTheContainerShows) {
    Place();
    container->clip = {10, 20, 60, 70};
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    RECT box{};
    EXPECT_EQ(GetWindowRgn(Window(), region), SIMPLEREGION);
    GetRgnBox(region, &box);
    EXPECT_EQ(box.right, 50);
    EXPECT_EQ(box.bottom, 50);
    const RECT all{0, 0, 1000, 1000};
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&container->place, &all), S_OK);
    EXPECT_EQ(GetWindowRgn(Window(), region), ERROR);
    DeleteObject(region);
}

TEST_F(Activation, AClickMakesItActiveInUseButNotInDesign) {
    for (const VARIANT_BOOL inUse : {VARIANT_FALSE, VARIANT_TRUE}) {
        container->userMode = inUse;
        Place();
        As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
        EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
        Connect(__uuidof(::__VmCalendar));
        container->TakeLog();
        SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(60, 60));
        SendMessageW(Window(), WM_LBUTTONUP, 0, MAKELPARAM(60, 60));
        const std::string log = container->TakeLog();
        EXPECT_EQ(log.find(kUiActivation) == 0, inUse != VARIANT_FALSE) << log;
        EXPECT_EQ(log.find("Event9") != std::string::npos, inUse != VARIANT_FALSE) << log;
    }
}

TEST_F(Activation, TakesItsOwnKeysBeforeTheContainer) {
    Place();
    Do(OLEIVERB_UIACTIVATE);
    constexpr struct {
        UINT message;
        WPARAM key;
        bool isOwn;
    } kKeys[] = {{WM_KEYDOWN, VK_RIGHT, true}, {WM_KEYDOWN, VK_NEXT, true},
                 {WM_KEYDOWN, VK_TAB, false},  {WM_KEYDOWN, VK_RETURN, false},
                 {WM_SYSKEYDOWN, 'F', false},  {WM_SYSKEYDOWN, VK_F4, false}};
    const auto active = As<IOleInPlaceActiveObject>();
    for (const auto& row : kKeys) {
        container->refused = "TranslateAccelerator";  // it has no use for the key
        container->TakeLog();
        MSG message{Window(), row.message, row.key, 1, 0, {}};
        const HRESULT result = active->TranslateAccelerator(&message);
        EXPECT_EQ(result, row.isOwn ? S_OK : S_FALSE) << row.key;
        EXPECT_EQ(container->TakeLog(), row.isOwn ? "" : "TranslateAccelerator") << row.key;
    }
    SetFocus(container->window);
    MSG elsewhere{container->window, WM_KEYDOWN, VK_RIGHT, 1, 0, {}};
    container->TakeLog();
    EXPECT_EQ(active->TranslateAccelerator(&elsewhere), S_FALSE);
    EXPECT_EQ(container->TakeLog(), "");
}

TEST_F(Activation, AsksTheContainerToSaveWhenItCloses) {
    Place();
    As<IPersistStreamInit>()->InitNew();
    object->Close(OLECLOSE_SAVEIFDIRTY);
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(container->TakeLog(), "SaveObject");
}

}  // namespace
}  // namespace velmora
