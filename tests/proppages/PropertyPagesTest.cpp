#include "proppages/PropertyPages.h"
#include "tests/support/Refusals.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

using Log = std::vector<std::string>;

/// A control of any kind; what the page sets comes back as an edit, as native controls do.
struct FakeControl : PageList, PageCheckBox, PageText {
    void Enabled(bool value) override { enabled = value; }
    void Items(std::span<const std::string_view> names) override {
        items.assign(names.begin(), names.end());
    }
    int ListIndex() const override { return index; }
    void ListIndex(int value) override { index = value, Edited(); }
    bool Checked() const override { return checked; }
    void Checked(bool value) override { checked = value, Edited(); }
    std::string Text() const override { return text; }
    void Text(const std::string& value) override { text = value, Edited(); }
    void ForeColor(Rgb value) override { color = value; }
    void Edited() const {
        if (edited) edited();
    }

    bool enabled = true;
    std::vector<std::string> items;
    int index = -1;
    bool checked = false;
    std::string text;
    Rgb color = 0;
    std::function<void()> edited;
};

struct FakeSite : PageSite {
    void Changed(bool value) override { changed = value; }
    void MessageBox(const std::string& text) override { messages.push_back(text); }
    bool changed = false;
    Log messages;
};

/// An object of somebody else's with some of the names; it keeps what it is given.
struct Foreign : AutomationObject {
    Variant GetMember(std::string_view name) const override {
        const auto found = values.find(std::string(name));
        if (found == values.end()) throw AutomationError(ErrorNumber::MemberNotFound);
        return found->second;
    }
    void LetMember(std::string_view name, const Variant& value) override {
        writes.emplace_back(name);
        if (name == refused) throw AutomationError(ErrorNumber::InvalidPropertyValue);
        values[std::string(name)] = value;
    }
    std::map<std::string, Variant> values;
    Log writes;
    std::string refused;
};

class PropertyPages : public testing::Test {
protected:
    PropertyPages() {
        for (FakeControl* each : {&minimum, &maximum, &value}) {
            each->edited = [this, each] { general.OnDateText(*each); };
        }
        format.edited = [this] { general.OnFormatText(); };
        width.edited = [this] { dropDown.OnWidthText(); };
        height.edited = [this] { dropDown.OnHeightText(); };
        for (FakeControl& list : lists) list.edited = [this] { general.OnClick(), day.OnClick(); };
        enabled.edited = [this] { dropDown.OnClick(); };
    }
    void Select(PropertyPage& page, std::vector<AutomationObject*> objects) {
        page.SelectionChanged(objects);
    }

    TestCalendar calendar;
    TestBoxes boxes;
    VmCalDropDown& box = *boxes.a.control;
    FakeSite site;
    FakeControl lists[8], enabled, width, height, minimum, maximum, value, format;
    Dates& dates = calendar.dates;
    GeneralPP general{{lists[0], lists[1], lists[2], lists[3], lists[4], lists[5], lists[6],
                       lists[7], minimum, maximum, value, format},
                      site,
                      dates};
    FakeControl dayLists[5];
    DayPP day{{dayLists[0], dayLists[1], dayLists[2], dayLists[3], dayLists[4]}, site, dates};
    DropDownPP dropDown{{enabled, width, height}, site, dates};
};

TEST(IsNumber, KeepsItsOddCases) {
    for (const char* text : {"0", "120", "-5", "1.5", "-", ".", "-.", "5.", "-1.2"}) {
        EXPECT_TRUE(IsNumber(text)) << text;
    }
    for (const char* text :
         {"", "1.2.3", "..", "5-", "--5", "+5", " 5", "5 ", "12a", "1e3", "1,000"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
}

TEST_F(PropertyPages, TheDayPageLoadsAndWritesTheFirstSelected) {
    TestCalendar second;
    calendar.calendar->FirstDayOfWeek(VmWednesday);
    calendar.calendar->DayPictureAlignment(VmPictTile);
    Select(day, {calendar.calendar.get(), second.calendar.get()});
    EXPECT_FALSE(site.changed);
    const std::pair<std::size_t, int> loaded[] = {{7, 3}, {2, 1}, {9, 6}, {9, 5}, {15, 10}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(dayLists[i].items.size(), loaded[i].first);
        EXPECT_EQ(dayLists[i].index, loaded[i].second);
    }
    EXPECT_EQ(dayLists[0].items.front(), "VmSunday");
    dayLists[0].index = 1;
    dayLists[3].index = 8;
    day.OnClick();
    EXPECT_TRUE(site.changed);
    day.ApplyChanges();
    EXPECT_FALSE(site.changed);
    EXPECT_EQ(calendar.calendar->FirstDayOfWeek(), VmMonday);
    EXPECT_EQ(calendar.calendar->DayCaptionAlignment(), VmTextBottomRight);
    EXPECT_EQ(second.calendar->FirstDayOfWeek(), VmSunday);
}

TEST_F(PropertyPages, TheDropDownPageChecksItsNumbers) {
    Select(dropDown, {&box});
    EXPECT_EQ(width.text + ' ' + height.text, "250 200");
    EXPECT_TRUE(enabled.checked);
    width.Text("12a");
    EXPECT_EQ(width.color, kInvalidText);
    EXPECT_FALSE(site.changed);
    width.Text("120");
    EXPECT_EQ(width.color, kValidText);
    EXPECT_TRUE(site.changed);
    height.Text("1.2.3");
    enabled.checked = false;
    dropDown.ApplyChanges();
    EXPECT_EQ(site.messages, (Log{"Property 'DropDownWidth' must a number."}));
    EXPECT_EQ(box.DropDownWidth(), 120);
    EXPECT_EQ(box.DropDownHeight(), 200);
    EXPECT_FALSE(box.Enabled());

    height.Text("-1");  // a number, but refused
    width.Text("130");
    EXPECT_EQ(NumberOf([&] { dropDown.ApplyChanges(); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_TRUE(site.changed);
    EXPECT_EQ(box.DropDownWidth(), 130);
}

TEST_F(PropertyPages, TheGeneralPageTellsTheControlsApart) {
    Select(general, {calendar.calendar.get()});
    EXPECT_EQ(lists[7].items.size(), 4u);
    EXPECT_FALSE(format.enabled);
    EXPECT_EQ(minimum.text + ' ' + maximum.text + ' ' + value.text,
              "1/1/1000 12/31/2999 3/15/2020");
    EXPECT_FALSE(site.changed);
    value.Text("12x");
    EXPECT_EQ(value.color, kInvalidText);
    EXPECT_FALSE(site.changed);
    value.Text("4 May 2021");
    EXPECT_TRUE(site.changed);
    maximum.Text("");
    lists[0].index = 0;
    lists[7].index = 3;
    general.ApplyChanges();
    EXPECT_EQ(site.messages, (Log{"Property 'DateMax' cannot be blank"}));
    EXPECT_EQ(DayOf(calendar.calendar->SelectedDate()), Day(2021, 5, 4));
    EXPECT_EQ(DayOf(calendar.calendar->DateMax()), Day(2999, 12, 31));
    EXPECT_EQ(calendar.calendar->Appearance(), VmAppearanceFlat);
    EXPECT_EQ(calendar.calendar->MonthYearSelStyle(), VmMonthSelScrollbar);

    Select(general, {&box});
    EXPECT_EQ(lists[7].items.size(), 2u);
    EXPECT_EQ(format.text, "Short Date");
    format.Text("yyyy");
    lists[0].index = 0;
    general.ApplyChanges();
    EXPECT_EQ(box.Text(), "2020");
    EXPECT_EQ(box.Get(kAppearance), VmAppearanceFlat);
    format.Text("");
    general.ApplyChanges();
    EXPECT_EQ(box.DateFormat(), "");
}

TEST_F(PropertyPages, ForeignObjectsGetWhatTheyHaveInOrder) {
    Foreign object;
    object.values = {{"WeekDayDisplay", std::int32_t{2}},
                     {"ShowWeekend", true},
                     {"DateMin", Date(43000)},
                     {"DateValue", "no date at all"},
                     {"DateFormat", "yyyy"}};
    object.refused = "ShowWeekend";
    Select(general, {&object});
    EXPECT_FALSE(lists[0].enabled);
    EXPECT_EQ(lists[0].index, -1);
    EXPECT_EQ(minimum.text, dates.Format(Date(43000), "Short Date"));
    EXPECT_FALSE(maximum.enabled);
    EXPECT_EQ(NumberOf([&] { general.ApplyChanges(); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(object.writes, (Log{"WeekDayDisplay", "ShowWeekend", "DateMin", "DateValue"}));
    EXPECT_EQ(site.messages, (Log{"Invalid Date FormatType mismatch"}));

    for (PropertyPage* page :
         {static_cast<PropertyPage*>(&general), static_cast<PropertyPage*>(&day),
          static_cast<PropertyPage*>(&dropDown)}) {
        Select(*page, {});
        page->ApplyChanges();
    }
    EXPECT_FALSE(width.enabled || value.enabled || dayLists[2].enabled || enabled.enabled);
    EXPECT_EQ(width.text + value.text, "");
}

}  // namespace
}  // namespace velmora::test
