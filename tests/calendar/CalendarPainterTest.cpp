#include "calendar/DayPicture.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::test {
namespace {

constexpr Rgb Sys(int index) { return StrictDrawing::SystemRgb(index); }

std::shared_ptr<StdPicture> PictureOf(PictureType type, int width, int height, double scale = 1) {
    auto image = std::make_shared<PixelImage>();
    image->width = width;
    image->height = height;
    image->pixels.resize(static_cast<std::size_t>(width * height));
    const auto himetric = [&](int pixels) {
        return static_cast<std::int32_t>(pixels * scale * 2540 / 96 + 0.5);
    };
    return std::make_shared<StdPicture>(type, Size{himetric(width), himetric(height)}, image);
}

class CalendarPainterTest : public testing::Test {
protected:
    struct Look {
        Rgb fore = 0;
        Rgb back = 0;
        std::string number;
        std::vector<std::string> captions;
    };

    /// What the last paint drew inside a day's cell.
    Look LookOf(DayNumber day) {
        const Point center = test.CenterOf(day);
        const auto inside = [&](const Rect& rect) {
            return rect.left <= center.x && center.x < rect.right && rect.top <= center.y &&
                   center.y < rect.bottom;
        };
        Look look;
        for (const auto& fill : test.drawing.fills) {
            if (inside(fill.rect)) look.back = fill.color;
        }
        for (const auto& text : test.drawing.texts) {
            if (!inside(text.rect)) continue;
            look.fore = text.color;
            (look.number.empty() ? look.number : look.captions.emplace_back()) = text.text;
        }
        return look;
    }

    void Repaint() {
        test.drawing.Forget();
        EXPECT_EQ(test.Paint(), std::vector<std::string>{});
    }

    TestCalendar test;  // 15 March 2020 is today and selected
    VmCalendar& calendar = *test.calendar;
};

TEST_F(CalendarPainterTest, ColoursFollowTheirPrecedence) {
    calendar.DateValue(DateOf(Day(2020, 3, 20)));
    calendar.DayOtherMonthForeColor(0x000011);
    calendar.Days()->Item(12)->ForeColor(std::int32_t{0x000022});
    calendar.Days()->Item(12)->BackColor(std::int32_t{0x000033});
    calendar.Days()->Item(15)->BackColor(std::int32_t{0x000044});
    calendar.Days()->Item(20)->BackColor(std::int32_t{0x000055});
    calendar.Days()->Item(13)->ForeColor(Null{});
    Repaint();

    struct Case {
        DayNumber day;
        const char* number;
        Rgb fore, back;
    };
    const auto expect = [&](const Case& c) {
        const Look look = LookOf(c.day);
        EXPECT_EQ(look.number, c.number);
        EXPECT_EQ(look.fore, c.fore) << c.number;
        EXPECT_EQ(look.back, c.back) << c.number;
    };
    expect({Day(2020, 3, 20), "20", Sys(14), Sys(13)});  // selected, over its own
    expect({Day(2020, 3, 15), "15", Sys(8), 0xFFFF00});  // today, over its own
    expect({Day(2020, 3, 12), "12", 0x22, 0x33});        // its own
    expect({Day(2020, 3, 13), "13", Sys(8), Sys(15)});   // Null is the default
    expect({Day(2020, 2, 29), "29", 0x11, Sys(15)});     // other month
    expect({Day(2020, 4, 1), "1", 0x11, Sys(15)});

    test.now = DateOf(Day(2020, 4, 1));
    Repaint();
    expect({Day(2020, 4, 1), "1", Sys(8), 0xFFFF00});  // today, over other month

    calendar.Enabled(false);
    Repaint();
    for (const auto& text : test.drawing.texts) EXPECT_EQ(text.color, Sys(17)) << text.text;
}

TEST_F(CalendarPainterTest, WritesCaptionsNumbersAndDecorations) {
    calendar.Days()->Item(5)->Caption("Rent & rates");
    calendar.WeekDayDisplay(VmWeekDayFullName);
    calendar.FirstDayOfWeek(VmMonday);
    Repaint();
    std::vector<std::string> texts;
    for (const auto& text : test.drawing.texts) texts.push_back(text.text);
    ASSERT_EQ(texts.size(), 1u + 7u + 42u + 1u);
    EXPECT_EQ(texts[0], "March 2020");
    EXPECT_EQ(texts[1], "Monday");
    EXPECT_EQ(texts[7], "Sunday");
    EXPECT_EQ(test.drawing.texts[0].flags, 0x25u);
    EXPECT_EQ(test.drawing.texts[0].rect, (Rect{2, 2, 249, 23}));
    EXPECT_EQ(LookOf(Day(2020, 3, 5)).captions, std::vector<std::string>{"Rent & rates"});

    calendar.WeekDayDisplay(VmWeekDayLetter);
    calendar.ShowWeekend(false);
    calendar.MonthDisplay(VmMonthAbbrName);
    Repaint();
    EXPECT_EQ(test.drawing.texts[0].text, "Mar 2020");
    EXPECT_EQ(test.drawing.texts[5].text, "F");
    EXPECT_EQ(test.drawing.texts.size(), 1u + 5u + 30u + 1u);
}

TEST_F(CalendarPainterTest, ComposesOffScreenAndCopiesOnce) {
    Repaint();
    EXPECT_EQ(test.drawing.blits, std::vector<Rect>{(Rect{0, 0, 252, 202})});
    for (const auto& fill : test.drawing.fills) {
        EXPECT_NE(fill.surface, StrictDrawing::kWindowSurface);
    }
}

TEST_F(CalendarPainterTest, AChangedDayRedrawsItsCellAlone) {
    Repaint();
    test.TakeLog();
    calendar.Days()->Item(5)->BackColor(std::int32_t{255});
    EXPECT_EQ(test.TakeLog(), std::vector<std::string>{"repaint cell 2020-03-05"});
    const Point at = test.CenterOf(Day(2020, 3, 5));
    test.drawing.Forget();
    EXPECT_TRUE(test.Paint({at.x, at.y, at.x + 1, at.y + 1}).empty());
    ASSERT_EQ(test.drawing.texts.size(), 1u);
    EXPECT_EQ(LookOf(Day(2020, 3, 5)).back, 255u);
    EXPECT_TRUE(test.drawing.blits.empty());

    calendar.NoRepaintControl(true);
    test.TakeLog();
    calendar.Days()->Item(6)->Caption("quiet");
    EXPECT_TRUE(test.TakeLog().empty());
}

TEST_F(CalendarPainterTest, APartIsNotPaintedIntoAnotherMonthsPicture) {
    Repaint();
    calendar.DateMax(DateOf(Day(2019, 5, 1)));  // moves the date, paints nothing
    test.TakeLog();
    const Point at = test.CenterOf(Day(2019, 5, 8));
    test.Paint({at.x, at.y, at.x + 1, at.y + 1});
    EXPECT_EQ(test.TakeLog(), std::vector<std::string>{"repaint"});
}

TEST_F(CalendarPainterTest, LeavesNothingBehindWhicheverCreationFails) {
    calendar.MonthYearSelStyle(VmMonthSelArrows);
    const PictureRef pictures[] = {PictureOf(PictureType::Icon, 16, 16),
                                   PictureOf(PictureType::Bitmap, 8, 8)};
    for (std::int16_t i = 1; i <= 31; ++i) calendar.Days()->Item(i)->Picture(pictures[i % 2]);
    Repaint();
    const int creations = test.drawing.creations;
    ASSERT_GT(creations, 25);
    for (const auto alignment : {VmPictTopLeft, VmPictTile, VmPictBelowText}) {
        calendar.DayPictureAlignment(alignment);
        for (int n = 1; n <= creations; ++n) {
            test.drawing.failAt = n;
            Repaint();
        }
    }
}

TEST_F(CalendarPainterTest, SurvivesPicturesThatCannotBeDrawn) {
    const auto himetric = Size{500, 500};
    const PictureRef broken[] = {
        std::make_shared<StdPicture>(PictureType::None, Size{}, nullptr),
        std::make_shared<StdPicture>(PictureType::Bitmap, himetric, nullptr),
        std::make_shared<StdPicture>(PictureType::Bitmap, himetric, std::make_shared<PixelImage>()),
        std::make_shared<StdPicture>(PictureType::Metafile, himetric, nullptr),
        std::make_shared<StdPicture>(PictureType::Bitmap, Size{-5, 0},
                                     PictureOf(PictureType::Bitmap, 3, 3)->Image()),
    };
    for (const PictureRef& picture : broken) {
        calendar.Days()->Item(9)->Picture(picture);
        Repaint();
        EXPECT_TRUE(test.drawing.pictures.empty());
        EXPECT_EQ(LookOf(Day(2020, 3, 9)).number, "9");
    }
}

TEST_F(CalendarPainterTest, TilesOverlapByOnePixelAndEnd) {
    calendar.DayPictureAlignment(VmPictTile);
    calendar.Days()->Item(9)->Picture(PictureOf(PictureType::Bitmap, 11, 30));
    Repaint();
    const auto& tiles = test.drawing.pictures;
    ASSERT_GE(tiles.size(), 4u);
    EXPECT_EQ(tiles.front().right - tiles.front().left, 11);
    const auto next = std::find_if(tiles.begin(), tiles.end(), [&](const Rect& tile) {
        return tile.left > tiles.front().left;
    });
    EXPECT_EQ(next->left - tiles.front().left, 10);

    calendar.Days()->Item(9)->Picture(PictureOf(PictureType::Bitmap, 1, 1));
    Repaint();
    EXPECT_GT(test.drawing.pictures.size(), 500u);
}

TEST(PlaceDayPicture, PutsThePictureWhereItsNameSays) {
    const Rect cell{100, 200, 160, 250};
    const Rect text{140, 202, 158, 214};  // a number at the top right
    const Size size{10, 8};
    struct Case {
        VmPictureAlignmentConstants alignment;
        Rect place;
    };
    const Case cases[] = {{VmPictTopLeft, {100, 200, 110, 208}},
                          {VmPictMiddleLeft, {100, 221, 110, 229}},
                          {VmPictBottomLeft, {100, 242, 110, 250}},
                          {VmPictTopCenter, {125, 200, 135, 208}},
                          {VmPictMiddleCenter, {125, 221, 135, 229}},
                          {VmPictBottomRight, {150, 242, 160, 250}},
                          {VmPictStretch, cell},
                          {VmPictTile, cell},
                          {VmPictLeftOfText, {128, 204, 138, 212}},
                          {VmPictRightOfText, {150, 204, 160, 212}},  // kept inside the cell
                          {VmPictAboveText, {144, 200, 154, 208}},    // kept inside the cell
                          {VmPictBelowText, {144, 216, 154, 224}},
                          {VmPictureAlignmentConstants(200), {100, 200, 110, 208}}};
    for (const Case& c : cases) {
        EXPECT_EQ(PlaceDayPicture(c.alignment, size, cell, text), c.place) << c.alignment;
    }
    EXPECT_EQ(PictureSize(*PictureOf(PictureType::Icon, 64, 64), 96), kIconSize);
    EXPECT_EQ(PictureSize(*PictureOf(PictureType::Bitmap, 20, 10), 192), (Size{40, 20}));
}

TEST(AlignmentToTextFlags, IsColumnMajor) {
    const std::uint32_t flags[] = {0, 4, 8, 1, 5, 9, 2, 6, 10};
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(AlignmentToTextFlags(static_cast<VmTextAlignmentConstants>(i)), flags[i]);
    }
    EXPECT_EQ(AlignmentToTextFlags(static_cast<VmTextAlignmentConstants>(200)), 0u);
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
    for (const std::int32_t number : {0, -1, 200, 1'000'000, INT32_MAX, INT32_MIN}) {
        for (const Size size :
             {Size{252, 202}, Size{0, 0}, Size{1, 1}, Size{9, 9}, Size{3, 2000}}) {
            TestCalendar test(size);
            bag.number = number;
            test.calendar->ReadProps(bag);
            EXPECT_TRUE(test.Paint().empty());
            for (const int key : {33, 34, 37, 38, 39, 40}) test.Key(static_cast<std::int16_t>(key));
            test.calendar->OnMouseDown(1, 0, 5, 5);
            test.calendar->OnMouseUp(1, 0, 5, 5);
            EXPECT_TRUE(test.Paint().empty());
            for (const auto& fill : test.drawing.fills) {
                EXPECT_LE(fill.rect.right, std::max(size.width, fill.rect.left));
            }
        }
    }
}

}  // namespace
}  // namespace velmora::test
