#include "model/VmDays.h"
#include "tests/support/Refusals.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

class VmDaysTest : public testing::Test {
protected:
    VmDaysTest() {
        days->LoadMonth(DayFromCivil(2024, 2, 10));
        days->DayChanged.Connect([this](Date& key, std::string& property) {
            log.push_back(std::to_string(DayOf(key) - DayFromCivil(2024, 1, 31)) + ' ' + property);
        });
    }

    DaysRef days = std::make_shared<VmDays>();
    std::vector<std::string> log;  // day of February 2024 and property
};

using test::NumberOf;

TEST_F(VmDaysTest, EveryChangeIsReportedAndMarksTheDay) {
    const std::pair<Variant, bool> kColors[] = {
        {Variant(), true},          {Null{}, true}, {std::int32_t{255}, true},
        {std::int16_t{255}, false}, {255.0, false}, {"255", false}};
    const DayRef day = days->Item(29);
    for (const auto& [value, accepted] : kColors) {
        day->BackColor(std::int32_t{1});
        log.clear();
        EXPECT_EQ(NumberOf([&, &color = value] { day->BackColor(color); }),
                  accepted ? ErrorNumber{} : ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(day->BackColor(), accepted ? value : Variant(std::int32_t{1}));
        EXPECT_EQ(test::Joined(log), accepted ? "29 BackColor" : "");
    }
    log.clear();
    days->Item(2)->ForeColor(Null{});
    days->Item(3)->Caption("three");
    days->Item(4)->Picture(nullptr);
    days->Item(5)->DayDate(DateOf(DayFromCivil(2024, 2, 9)));
    EXPECT_EQ(test::Joined(log), "2 ForeColor, 3 Caption, 4 Picture, 9 DayDate");
    for (std::int16_t i = 2; i < 6; ++i) EXPECT_EQ(days->Item(i)->Dirty(), i < 5);
}

TEST_F(VmDaysTest, ADroppedDayReportsThroughItsFormerParentButIsNoItem) {
    std::vector<int> changedItems;
    days->WhenItemChanges([&](std::int16_t position) { changedItems.push_back(position); });
    const DayRef dropped = days->Item(5);
    const std::weak_ptr<VmDay> watched = days->Item(7);
    days->LoadMonth(DayFromCivil(2024, 2, 1));
    EXPECT_TRUE(watched.expired());
    EXPECT_TRUE(log.empty());
    dropped->Caption("late");
    days->Item(6)->Caption("current");
    EXPECT_EQ(log, (std::vector<std::string>{"5 Caption", "6 Caption"}));
    EXPECT_EQ(changedItems, std::vector<int>{6});

    days->DayChanged.Connect([this](Date&, std::string&) { days.reset(); });
    days->Item(1)->Caption("last");
    dropped->Caption("alone");  // nobody hears it
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(VmDaysTest, AddDayChecksItsColoursFirst) {
    EXPECT_EQ(NumberOf([&] { days->AddDay(Date(1.5), std::int16_t{3}); }),
              ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(days->AddDay(Date(-1.25), std::int32_t{3})->DayDate(), Date(-1));
    EXPECT_EQ(days->Count(), 30);
    days->RemoveDay(30);
    for (const std::int16_t index : {std::int16_t{0}, std::int16_t{30}, std::int16_t{-1}}) {
        EXPECT_EQ(NumberOf([&] { days->Item(index); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(NumberOf([&] { days->RemoveDay(index); }), ErrorNumber::SubscriptOutOfRange);
    }
}

}  // namespace
}  // namespace velmora
