#include "apps/vmhost/Snapshot.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <algorithm>

namespace velmora::vmhost {
namespace {

constexpr int kWidth = 250;
constexpr int kHeight = 200;

Picture DrawnBy(IOleObject& control, int width = kWidth, int height = kHeight) {
    return Drawn(width, height, [&](HDC context) {
        const RECT whole{0, 0, width, height};
        EXPECT_EQ(OleDraw(&control, DVASPECT_CONTENT, context, &whole), S_OK);
    });
}

/// How many different colours there are: a blank surface has one.
std::size_t ColorsIn(const Picture& picture) {
    std::vector<std::uint32_t> colors = picture.pixels;
    std::sort(colors.begin(), colors.end());
    return static_cast<std::size_t>(std::unique(colors.begin(), colors.end()) - colors.begin());
}

using Activation = ClientTest;

TEST_F(Activation, ActiveControlsHaveAWindowOnTheForm) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        const HWND window = site.ControlWindow();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(GetParent(window), form->Window());
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_EQ(GetProperty(site.Control(), "hWnd").result.Number(),
                  static_cast<long>(reinterpret_cast<LONG_PTR>(window)));
        form->Remove(site);
        EXPECT_FALSE(IsWindow(window));
    }
}

TEST_F(Activation, DesignModeDrawsWithoutAWindow) {
    ControlSite& calendar = AddCalendar();
    ControlSite& box = AddBox();
    const Picture active = DrawnBy(*calendar.Control());
    form->SetUserMode(false);
    EXPECT_EQ(calendar.ControlWindow(), nullptr);
    EXPECT_EQ(box.ControlWindow(), nullptr);
    EXPECT_EQ(DrawnBy(*calendar.Control()).pixels, active.pixels);
    EXPECT_GT(ColorsIn(active), 4U);
    EXPECT_GT(ColorsIn(DrawnBy(*box.Control(), 121, 21)), 3U);
    TakeEvents();
    form->SetUserMode(true);
    EXPECT_NE(calendar.ControlWindow(), nullptr);
}

TEST_F(Activation, DrawsIntoAMetafile) {
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        form->SetUserMode(false);
        const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        const RECT whole{0, 0, kWidth, kHeight};
        EXPECT_EQ(OleDraw(site.Control(), DVASPECT_CONTENT, recorder, &whole), S_OK);
        const HENHMETAFILE file = CloseEnhMetaFile(recorder);
        const Picture played =
            Drawn(kWidth, kHeight, [&](HDC context) { PlayEnhMetaFile(context, file, &whole); });
        DeleteEnhMetaFile(file);
        EXPECT_GT(ColorsIn(played), 3U) << classText;
        form->SetUserMode(true);
        form->Remove(site);
    }
}

TEST_F(Activation, TheTabKeyWalksThroughTheForm) {
    ControlSite& first = AddCalendar("First");
    ControlSite& second = AddBox("Second");
    SetForegroundWindow(form->Window());
    form->MoveFocus(true);
    EXPECT_EQ(form->Active(), &first);
    for (const auto& [modifier, expected] :
         {std::pair(WORD{0}, &second), std::pair(WORD{0}, &first),
          std::pair(WORD{VK_SHIFT}, &second), std::pair(WORD{VK_SHIFT}, &first)}) {
        TypeKey(VK_TAB, modifier);
        EXPECT_TRUE(Serve([&] { return form->Active() == expected; }));
        ServeWaiting(form.Get());
        const HWND focus = GetFocus();
        EXPECT_TRUE(focus == expected->ControlWindow() ||
                    IsChild(expected->ControlWindow(), focus));
        EXPECT_EQ(first.IsUIActive() + second.IsUIActive(), 1);
    }
}

TEST_F(Activation, AClickActivatesTheUserInterface) {
    ControlSite& first = AddCalendar("First");
    ControlSite& second = AddBox("Second");
    SetForegroundWindow(form->Window());
    for (ControlSite* site : {&second, &first}) {
        Click(OnScreen(site->ControlWindow(), 5, 5));
        EXPECT_TRUE(Serve([&] { return form->Active() == site; })) << site->Name();
        ServeWaiting(form.Get());
    }
    EXPECT_FALSE(second.IsUIActive());
}

TEST_F(Activation, TheFormsLanguageNamesTheMonths) {
    form->ChangeAmbient(DISPID_AMBIENT_LOCALEID, [](Ambients& a) { a.locale = 0x0409; });
    ControlSite& site = AddCalendar();
    PutProperty(site.Control(), "DateValue", Value::Date(DayNumber(2024, 3, 2)));
    const Picture english = DrawnBy(*site.Control());
    form->ChangeAmbient(DISPID_AMBIENT_LOCALEID, [](Ambients& a) { a.locale = 0x0407; });
    EXPECT_NE(DrawnBy(*site.Control()).pixels, english.pixels);
    form->ChangeAmbient(DISPID_AMBIENT_LOCALEID, [](Ambients& a) { a.locale = 0x0409; });
    EXPECT_EQ(DrawnBy(*site.Control()).pixels, english.pixels);
}

TEST_F(Activation, ANewControlTakesTheFormsFont) {
    form->ChangeAmbient(DISPID_AMBIENT_FONT, [](Ambients& a) { a.font = MakeFont("Tahoma", 14); });
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        const Value font = GetProperty(site.Control(), "DayFont").result;
        EXPECT_EQ(Got(font.Object(), "Name"), "\"Tahoma\"") << classText;
        EXPECT_NEAR(GetProperty(font.Object(), "Size").result.Real(), 14, 0.5) << classText;
        form->Remove(site);
    }
}

TEST_F(Activation, ScaleUnitsAreTheForms) {
    const struct {
        const char* units;
        double tolerance;
        double height;  // of 200 pixels at 96 an inch
    } cases[] = {{"Twip", 0, 3000},       {"Pixel", 0, 200}, {"Point", 0, 150},
                 {"Millimeter", 1, 52.9}, {"", 0, 3000},     {"Furlong", 0, 3000}};
    for (const auto& c : cases) {
        form->ChangeAmbient(DISPID_AMBIENT_SCALEUNITS,
                            [&](Ambients& a) { a.scaleUnits = c.units; });
        ControlSite& site = AddBox();
        EXPECT_NEAR(GetProperty(site.Control(), "DropDownHeight").result.Real(), c.height,
                    c.tolerance)
            << c.units;
        form->Remove(site);
    }
}

TEST_F(Activation, LivesWithAFormThatSaysNothing) {
    form->ChangeAmbient(DISPID_AMBIENT_FONT, [](Ambients& a) {
        for (DISPID id = -750; id < -700; ++id) a.unanswered.insert(id);
    });
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        EXPECT_NE(Got(site.Control(), "DateValue"), "");
        EXPECT_GT(ColorsIn(DrawnBy(*site.Control())), 3U);
        form->Remove(site);
    }
}

TEST_F(Activation, FirstPlacementHasTheUsualSize) {
    for (const auto& [classText, width, height] :
         {std::tuple(L"VelmoraCalendar.VmCalendar", 250, 200),
          std::tuple(L"VelmoraCalendar.VmCalDropDown", 121, 21)}) {
        CLSID classId{};
        ASSERT_EQ(CLSIDFromProgID(classText, &classId), S_OK);
        ComPtr<IOleObject> control;
        ASSERT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_PPV_ARGS(control.GetAddressOf())),
                  S_OK);
        LoadControl(*control.Get(), {});
        SIZEL extent{};
        EXPECT_EQ(control->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
        EXPECT_EQ(ToPixels(extent.cx), width);
        EXPECT_EQ(ToPixels(extent.cy), height);
        control->Close(OLECLOSE_NOSAVE);
    }
}

TEST_F(Activation, ANewSizeReachesTheWindow) {
    ControlSite& site = AddCalendar();
    site.MoveTo({20, 20, 340, 260});
    RECT area{};
    GetWindowRect(site.ControlWindow(), &area);
    EXPECT_EQ(area.right - area.left, 320);
    EXPECT_EQ(area.bottom - area.top, 240);
    SIZEL extent{};
    site.Control()->GetExtent(DVASPECT_CONTENT, &extent);
    EXPECT_EQ(ToPixels(extent.cx), 320);
    EXPECT_EQ(ToPixels(extent.cy), 240);
}

}  // namespace
}  // namespace velmora::vmhost
