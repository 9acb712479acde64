#include "tests/dropdown/DropDownFixture.h"
#include "tests/support/PropertyCases.h"

namespace velmora::test {

static VmCalDropDown& ControlOf(TestBoxes& test) { return *test.a.control; }

namespace {

const double kNow = kMar15 + 0.5;

TEST_F(DropDown, RowsStoreAndNotifyOrRefuse) {
    for (const PropertyRow& row : kBoxRows) {
        SCOPED_TRACE(row.name);
        TestBoxes boxes;
        EXPECT_EQ(ReadBack(ControlOf(boxes), row), row.initial == kToday ? kNow : row.initial);
        ExpectTakesAndRefuses(ControlOf(boxes), row, [&](bool changes) {
            EXPECT_EQ(boxes.TakeLog(), changes ? Log{"notify " + std::string(row.Key())} : Log());
        });
    }
    EXPECT_EQ(NumberOf([&] { box.LetMember("Appearance", 1.0); }), ErrorNumber::MemberNotFound);
    EXPECT_EQ(NumberOf([&] { box.LetMember("DateValue", Variant()); }), ErrorNumber::TypeMismatch);
}

TEST_F(DropDown, ItsCalendarHasEachRowWhenItOpensAndWhileItIsOpen) {
    for (const PropertyRow& row : kBoxRows) {
        if (!row.copied) continue;
        SCOPED_TRACE(row.name);
        TestBoxes boxes;
        PropertyRow inside = row;
        if (row.name == "DropDownAppearance") inside.name = "Appearance";
        for (const double number : {row.low, row.high}) {
            boxes.a.control->LetMember(row.name, ValueOf(row, number));
            if (!boxes.a.control->DropDownState()) boxes.Key(boxes.a, kKeyF4);
            const double shown = ReadBack(boxes.form->Calendar(), inside);
            EXPECT_EQ(row.kind == Kind::Moment ? DayOf(Date(shown)) : shown,
                      row.kind == Kind::Moment ? DayOf(Date(number)) : number);
        }
    }
}

TEST_F(DropDown, SavesEachRowInItsForm) { ExpectSavedForms(box, kBoxRows); }

TEST_F(DropDown, EachSavedRowComesBack) { ExpectEachComesBack<TestBoxes>(kBoxRows); }

TEST_F(DropDown, WronglyTypedRowsGiveTheDefaults) {
    ExpectDefaultsForWrongTypes<TestBoxes>(kBoxRows, kNow);
}

TEST_F(DropDown, ReadsInTheOrderOfWritingWithoutNews) {
    RecordingBag bag;
    box.WriteProps(bag);
    test.TakeLog();
    box.ReadProps(bag);
    EXPECT_EQ(bag.reads, bag.writes);
    EXPECT_EQ(test.TakeLog(), Log());
    EXPECT_NE(box.ComboFont(), box.Get(kDayFont));
    EXPECT_NE(box.Get(kMonthFont), box.Get(kDayFont));
}

TEST_F(DropDown, RefusedSavedValuesGiveTheDefaults) {
    MemoryBag bag;
    for (const PropertyRow& row : kBoxRows) {
        if (row.kind == Kind::Choice) bag.WriteProperty(row.Key(), row.high + 1, Variant());
    }
    bag.WriteProperty("DropDownHeight", -5.0, Variant());
    bag.WriteProperty("DateMax", Date(Day(1050, 1, 1)), Variant());
    bag.WriteProperty("DateMin", "text", Variant());  // its default lies behind that maximum
    bag.WriteProperty("ComboDateFormat", "yyyy", Variant());
    bag.WriteProperty("DateValue", Date(Day(1000, 1, 1)), Variant());
    box.ReadProps(bag);
    for (const PropertyRow& row : kBoxRows) {
        if (row.kind != Kind::Choice && row.kind != Kind::Limit) continue;
        EXPECT_EQ(ReadBack(box, row), row.initial) << row.name;
    }
    EXPECT_EQ(box.DropDownHeight(), 200);
    EXPECT_EQ(DateOfBox(), Day(1100, 1, 1));
    EXPECT_EQ(box.Text(), "1100");
}

TEST_F(DropDown, AHandlerFindsTheNewDateInTheBox) {
    std::vector<DayNumber> seen;
    box.Events().DateChanged.Connect([&](Date&) { seen.push_back(DateOfBox()); });
    Open();
    test.Key(test.a, kKeyRight);
    EXPECT_EQ(seen, std::vector<DayNumber>{kMar15 + 1});
}

}  // namespace
}  // namespace velmora::test
