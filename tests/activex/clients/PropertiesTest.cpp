#include "tests/activex/support/ComponentRows.h"

#include <set>

namespace velmora::vmhost {
namespace {

using PublishedProperties = ClientTest;

TEST_F(PublishedProperties, FollowTheTable) {
    form->ChangeAmbient(DISPID_AMBIENT_SCALEUNITS,
                        [](Ambients& ambients) { ambients.scaleUnits = "Pixel"; });
    for (const auto& [classText, rows] : kClasses) {
        for (const PropertyRow& row : rows) {
            // The system makes a text of any value, and fonts and icons of its own.
            if (row.kind == test::Kind::Format || row.form == test::Form::Object) continue;
            SCOPED_TRACE(std::string(classText) + '.' + std::string(row.name));
            ControlSite& site = Add(classText, "C", kCalendarPlace);
            Automated control(site);
            if (row.initial != test::kToday) {
                EXPECT_EQ(test::ReadBack(control, row), row.initial);
            }
            test::ExpectTakesAndRefuses(control, row, [](bool) {});
            form->Remove(site);
        }
    }
}

TEST_F(PublishedProperties, BesidesTheTableAreObjectsHandlesAndModes) {
    for (const auto& [classText, rows] : kClasses) {
        IUnknown* const control = Add(classText, classText, kCalendarPlace).Control();
        std::set<std::string> names;
        for (const PropertyInfo& property : PropertiesOf(control)) names.insert(property.name);
        for (const PropertyRow& row : rows) names.erase(std::string(row.name));
        std::set<std::string> others{"Days", "OLEDropMode", "SelectedDay", "hWnd"};
        if (classText == kCalendarClass) others.insert("cboMonthhwnd");
        EXPECT_EQ(names, others);
        for (const char* name : {"Days", "SelectedDay", "hWnd"}) {
            EXPECT_EQ(PutProperty(control, name, 1).Number(), 438) << name;
        }
        EXPECT_EQ(PutProperty(control, "OLEDropMode", 2).Number(), 0);
        EXPECT_EQ(PutProperty(control, "OLEDropMode", 3).Number(), 380);
        EXPECT_EQ(Got(control, "OLEDropMode"), "2");
    }
    events.clear();
    IUnknown* const box = AddBox("B").Control();
    EXPECT_EQ(CallMethod(box, "MouseDown", {1, 2, 3.0, 4.0}).Number(), 0);  // an event of its own
    EXPECT_EQ(TakeEvents(), std::vector<std::string>{"B.MouseDown(1, 2, 3, 4)"});
}

}  // namespace
}  // namespace velmora::vmhost
