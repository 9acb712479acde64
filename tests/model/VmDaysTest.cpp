#include "model/VmDays.h"
#include "tests/support/Refusals.h"

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

TEST_F(VmDaysTest, HoldsTheDaysOfItsMonthInOrder) {
    ASSERT_EQ(days->Count(), 29);
    EXPECT_EQ(DayOf(days->Item(29)->DayDate()), DayFromCivil(2024, 2, 29));
    for (const int index : {0, 30, -1, 32767}) {
        EXPECT_EQ(NumberOf([&] { days->Item(static_cast<std::int16_t>(index)); }),
                  ErrorNumber::SubscriptOutOfRange);
    }
}

TEST_F(VmDaysTest, ColoursTakeExactlyThreeTypes) {
    const DayRef day = days->Item(1);
    const struct {
        Variant value;
        bool accepted;
    } kCases[] = {{Variant(), true},          {Null{}, true}, {std::int32_t{255}, true},
                  {std::int16_t{255}, false}, {255.0, false}, {"255", false}};
    for (const auto& c : kCases) {
        day->BackColor(std::int32_t{1});
        log.clear();
        const ErrorNumber number = NumberOf([&] { day->BackColor(c.value); });
        EXPECT_EQ(number, c.accepted ? ErrorNumber{} : ErrorNumber::InvalidPropertyValue);
        EXPECT_EQ(day->BackColor(), c.accepted ? c.value : Variant(std::int32_t{1}));
        EXPECT_EQ(log.size(), c.accepted ? 1u : 0u);
    }
}

TEST_F(VmDaysTest, EveryChangeIsReportedAndMarksTheDay) {
    days->Item(1)->BackColor(Null{});
    EXPECT_TRUE(days->Item(1)->Dirty());
    days->Item(2)->ForeColor(std::int32_t{255});
    days->Item(3)->Caption("three");
    days->Item(4)->Picture(nullptr);
    EXPECT_TRUE(days->Item(4)->Dirty());
    days->Item(5)->DayDate(DateOf(DayFromCivil(2024, 2, 9)));
    EXPECT_FALSE(days->Item(5)->Dirty());
    EXPECT_EQ(log, (std::vector<std::string>{"1 BackColor", "2 ForeColor", "3 Caption", "4 Picture",
                                             "9 DayDate"}));
}

TEST_F(VmDaysTest, ADroppedDayReportsThroughItsFormerParentButIsNoItem) {
    std::vector<int> changedItems;
    days->WhenItemChanges([&](std::int16_t position) { changedItems.push_back(position); });
    const DayRef dropped = days->Item(5);
    days->LoadMonth(DayFromCivil(2024, 2, 1));
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
    EXPECT_EQ(days->Count(), 29);
    const DayRef day = days->AddDay(Date(-1.25), std::int32_t{3});
    EXPECT_EQ(day->DayDate(), Date(-1));
    EXPECT_EQ(days->Count(), 30);
    days->RemoveDay(30);
    EXPECT_EQ(NumberOf([&] { days->RemoveDay(30); }), ErrorNumber::SubscriptOutOfRange);
}

}  // namespace
}  // namespace velmora
