#include "tests/support/Looks.h"

#include <gtest/gtest.h>

#include <climits>

namespace velmora::test {
namespace {

const std::vector<std::string> kNoFaults;

TEST(CalendarPainter, AChangedDayRedrawsItsCellAlone) {
    TestCalendar test;
    test.Paint();
    test.TakeLog();
    test.drawing.Forget();
    test.calendar->Days()->Item(5)->BackColor(std::int32_t{255});
    ASSERT_EQ(test.drawing.invalidated.size(), 1u);
    const Rect cell = *test.drawing.invalidated[0];
    EXPECT_EQ(test.TakeLog(), std::vector<std::string>{"repaint cell 2020-03-05"});
    EXPECT_EQ(test.Paint(cell), kNoFaults);
    ASSERT_EQ(test.drawing.Of("text").size(), 1u);
    EXPECT_EQ(test.drawing.Of("text")[0].text, "5");
    EXPECT_EQ(test.drawing.Of("fill")[0].color, 255u);

    test.calendar->NoRepaintControl(true);
    test.TakeLog();
    test.calendar->Days()->Item(6)->Caption("quiet");
    EXPECT_TRUE(test.TakeLog().empty());
}

TEST(CalendarPainter, LeavesNothingBehindWhicheverCreationFails) {
    TestCalendar test;
    VmCalendar& calendar = *test.calendar;
    calendar.MonthYearSelStyle(VmMonthSelArrows);
    for (std::int16_t i = 1; i <= 31; ++i) {
        const auto type = i % 2 == 0 ? PictureType::Icon : PictureType::Bitmap;
        calendar.Days()->Item(i)->Picture(PatternPicture(type, {8, 8}));
    }
    test.Paint();
    const int creations = test.drawing.creations;
    ASSERT_GT(creations, 25);
    for (const auto alignment : {VmPictTopLeft, VmPictTile, VmPictBelowText}) {
        calendar.DayPictureAlignment(alignment);
        for (int n = 1; n <= creations; ++n) {
            test.drawing.Forget();
            test.drawing.failAt = n;
            EXPECT_EQ(test.Paint(), kNoFaults) << n;
        }
    }
}

TEST(CalendarPainter, SurvivesPicturesThatCannotBeDrawn) {
    TestCalendar test;
    const auto himetric = Size{500, 500};
    const auto pixels = PatternPicture(PictureType::Bitmap, {1, 1})->Image();
    struct Case {
        PictureType type;
        Size size;
        std::shared_ptr<const PixelImage> image;
        VmPictureAlignmentConstants alignment = VmPictTopLeft;
    };
    for (const Case& c : {Case{PictureType::None, {}, nullptr},
                          {PictureType::Bitmap, himetric, nullptr},
                          {PictureType::Bitmap, himetric, std::make_shared<PixelImage>()},
                          {PictureType::Metafile, himetric, nullptr},
                          {PictureType::Bitmap, {-5, 0}, pixels},
                          {PictureType::Bitmap, {0, 900}, pixels, VmPictTile}}) {
        test.calendar->DayPictureAlignment(c.alignment);
        test.calendar->Days()->Item(9)->Picture(
            std::make_shared<StdPicture>(c.type, c.size, c.image));
        test.drawing.Forget();
        EXPECT_EQ(test.Paint(), kNoFaults);
        EXPECT_TRUE(test.drawing.Of("picture").empty());
    }
    // A tile of one pixel advances nevertheless.
    test.calendar->Days()->Item(9)->Picture(PatternPicture(PictureType::Bitmap, {1, 1}));
    test.Paint();
    EXPECT_GT(test.drawing.Of("picture").size(), 500u);
}

TEST(CalendarPainter, PaintsAnyRestoredNonsense) {
    class Bag : public PropertyBag {
    public:
        std::int32_t number = 0;
        Variant ReadProperty(std::string_view name, const Variant& fallback) override {
            if (fallback.Type() == VarType::Object) return fallback;
            if (name.substr(0, 4) == "Date") return Date(number * 1e4);
            return number;
        }
        void WriteProperty(std::string_view, const Variant&, const Variant&) override {}
    } bag;
    for (const std::int32_t number : {0, -1, 3, 200, 1'000'000, INT32_MAX, INT32_MIN}) {
        for (const Size size : {Size{252, 202}, Size{0, 0}, Size{1, 1}, Size{9, 9}, Size{3, 2000},
                                Size{-1, -1}, Size{INT_MAX, INT_MAX}, Size{INT_MIN, 7}}) {
            TestCalendar test(size);
            bag.number = number;
            test.calendar->ReadProps(bag);
            test.calendar->Days()->Item(3)->Picture(PatternPicture(PictureType::Icon, {2, 2}));
            EXPECT_EQ(test.Paint(), kNoFaults);
            for (const int key : {33, 34, 37, 38, 39, 40}) test.Key(static_cast<std::int16_t>(key));
            test.Press(Day(2020, 3, 5));
            test.Release(Day(2020, 3, 5));
            EXPECT_EQ(test.Paint(), kNoFaults);
            EXPECT_GE(test.calendar->Layout().client.width, 0);
            EXPECT_LE(test.calendar->Layout().cellWidth, 32767);
            for (const auto& fill : test.drawing.Of("fill")) {
                EXPECT_LE(fill.rect.right, std::max({size.width, fill.rect.left, 0}));
            }
        }
    }
}

}  // namespace
}  // namespace velmora::test
