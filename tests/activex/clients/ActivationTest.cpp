#include "apps/vmhost/Snapshot.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/activex/support/Input.h"

#include <set>

namespace velmora::vmhost {
namespace {

Picture DrawnBy(IOleObject& control, int width = 250, int height = 200) {
    return Drawn(width, height, [&](HDC context) {
        const RECT whole{0, 0, width, height};
        EXPECT_EQ(OleDraw(&control, DVASPECT_CONTENT, context, &whole), S_OK);
    });
}

/// How many different colours there are: a blank surface has one.
std::size_t ColorsIn(const Picture& picture) {
    return std::set(picture.pixels.begin(), picture.pixels.end()).size();
}

using Activation = ClientTest;

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
    const ComPtr<IFontDisp> own = MakeFont("Tahoma", 14);
    form->ChangeAmbient(DISPID_AMBIENT_FONT, [&](Ambients& a) { a.font = own; });
    for (const char* classText : {kCalendarClass, kBoxClass}) {
        ControlSite& site = Add(classText, "C", kCalendarPlace);
        const Value font = GetProperty(site.Control(), "DayFont").result;
        EXPECT_EQ(Got(font.Object(), "Name"), "\"Tahoma\"") << classText;
        EXPECT_NEAR(GetProperty(font.Object(), "Size").result.Real(), 14, 0.5) << classText;
        EXPECT_NE(font.Object(), own.Get()) << "a copy: a change of one does not change the other";
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
