#include "tests/support/Looks.h"
#include "tests/support/PropertyCases.h"
#include "tests/support/RepaintWalk.h"

#include <climits>
#include <fstream>

namespace velmora::test {
namespace {

/// What is drawn, call by call, is what it was.
template <class Look>
void ExpectReference(const Look& look) {
    StrictDrawing drawing;
    const auto children = Paint(look, drawing, [](const Rect&, const auto& paint) {
        paint(StrictDrawing::kWindowSurface);
    });
    EXPECT_EQ(drawing.FaultsAfterPaint(), std::vector<std::string>{}) << look.name;
    std::ostringstream drawn, wanted;
    for (const std::string& line : drawing.Described()) drawn << line << '\n';
    for (const std::string& line : children) drawn << line << '\n';
    const Reference reference = ReferenceOf(look.name, "calendar", ".txt");
    wanted << std::ifstream(reference.kept).rdbuf();
    if (drawn.str() == wanted.str()) return;
    std::ofstream(RenewsLooks() ? reference.kept : reference.actual) << drawn.str();
    EXPECT_TRUE(RenewsLooks()) << "diff " << reference.kept << ' ' << reference.actual;
}

TEST(Looks, AreDrawnAsTheirReferencesSay) {
    for (const Look& look : Looks()) ExpectReference(look);
    for (const BoxLook& look : BoxLooks()) ExpectReference(look);
}

/// A calendar whose window keeps what was painted and confines a paint to what is asked for.
class Window {
public:
    TestCalendar test;

    Window() { test.drawing.notesCalls = false; }

    void Resize(Size size) {
        test.screen = {0, 0, size.width, size.height};
        test.rightToLeft = size.width % 2 == 0;
        m_screen = std::make_shared<Pixels>(size);
        m_fresh = std::make_shared<Pixels>(size);
        test.calendar->OnWindowChanged();
    }

    void PaintWhatIsAskedFor() {
        for (int round = 0; !test.drawing.damage.empty(); ++round) {
            ASSERT_LT(round, 3) << "every paint asks for another";
            Paint(m_screen, std::exchange(test.drawing.damage, {}));
        }
        test.drawing.Forget();
        test.log.clear();
    }

    /// The first pixel that a paint of the whole shows otherwise; empty if there is none.
    std::string Difference() {
        Paint(m_fresh, {std::nullopt});
        const auto& [is, was] =
            std::mismatch(m_screen->data.begin(), m_screen->data.end(), m_fresh->data.begin());
        if (is == m_screen->data.end()) return {};
        const auto at = static_cast<int>(is - m_screen->data.begin());
        return std::to_string(at % test.screen.right) + ',' +
               std::to_string(at / test.screen.right);
    }

private:
    void Paint(const std::shared_ptr<Pixels>& pixels,
               const std::vector<std::optional<Rect>>& asked) {
        std::vector<Rect> exposed;
        for (const auto& rect : asked) {
            exposed.push_back(rect.value_or(test.screen));
        }
        test.drawing.DrawWindowOn(pixels, exposed);
        test.calendar->OnPaint(StrictDrawing::kWindowSurface, exposed);
    }

    std::shared_ptr<Pixels> m_screen, m_fresh;
};

TEST(Repaint, OfAPartShowsWhatARepaintOfAllShows) {
    Window window;
    TestCalendar& test = window.test;
    RepaintWalk walk(*test.calendar);
    struct Thrown {};
    bool throws = false;
    const auto handler = [&](auto&) {
        if (throws && walk.Random(0, 1) == 0) throw Thrown();
    };
    test.calendar->Events().DateChanged.Connect(handler);
    test.calendar->Events().MonthChanged.Connect(handler);
    test.calendar->Events().YearChanged.Connect(handler);
    for (int i = 0; i < 20'000; ++i) {
        std::string done = "resize";
        throws = i % 10 == 1;
        if (i % 100 == 0) {
            window.Resize({walk.Random(1, 130), walk.Random(1, 130)});
        } else if (i % 10 == 2) {
            done = "hidden for " + walk.Step() + ", " + walk.Step();
            test.drawing.damage = {std::nullopt};
        } else if (i % 10 == 3) {  // what comes next shows it too
            test.calendar->NoRepaintControl(true);
            done = "suspended for " + walk.Step() + ", " + walk.Step();
            if (i % 20 == 3) window.PaintWhatIsAskedFor();
            test.calendar->NoRepaintControl(false);
            done += ", then " + walk.Date(1);
        } else if (i % 10 == 4) {
            test.now.value += 0.5;
            test.calendar->DateMax(
                DateOf(DayOf(test.calendar->SelectedDate()) - walk.Random(0, 40)));
            test.calendar->DateMax(kDefaultDateMax);
            done = "midnight and a limit, then " + walk.Date(1);
        } else if (i % 10 == 0) {
            done = "uncover";  // what lay over a part of it has gone
            const int x = walk.Random(0, test.screen.right - 1);
            const int y = walk.Random(0, test.screen.bottom - 1);
            test.drawing.damage.push_back(
                Rect{x, y, x + walk.Random(1, 40), y + walk.Random(1, 40)});
        } else {
            try {
                done = walk.Step();
            } catch (const Thrown&) {
                done = "a handler throws";
            }
        }
        window.PaintWhatIsAskedFor();
        ASSERT_EQ(window.Difference(), "") << "step " << i << ": " << done << " in "
                                           << test.screen.right << "x" << test.screen.bottom;
    }
    EXPECT_EQ(test.drawing.FaultsAfterPaint(), std::vector<std::string>{});
}

const std::vector<std::string> kNoFaults;

TEST(CalendarPainter, ShowsEachPropertyThatRepaints) {
    const auto painted = [](decltype(Look::values) values) {
        StrictDrawing drawing;
        Paint(Look{{}, {250, 200}, std::move(values)}, drawing,
              [](const Rect&, const auto& paint) { paint(StrictDrawing::kWindowSurface); });
        return drawing.Described();
    };
    for (const PropertyRow& row : kCalendarRows) {
        if (row.repaint == Repaint::Nothing) continue;
        EXPECT_NE(painted({{row.name, ValueOf(row, row.Changed())}}), painted({})) << row.name;
    }
}

TEST(CalendarPainter, AChangedDayRedrawsItsCellAlone) {
    TestCalendar test;
    test.Paint();
    test.TakeLog();
    test.drawing.Forget();
    test.calendar->Days()->Item(5)->BackColor(std::int32_t{255});
    EXPECT_EQ(test.drawing.invalidated.size(), 1u);
    EXPECT_EQ(test.TakeLog(), std::vector<std::string>{"repaint cell 2020-03-05"});
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
    ASSERT_GT(creations, 15);
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
    const std::tuple<PictureType, Size, std::shared_ptr<const PixelImage>> pictures[] = {
        {PictureType::None, {}, nullptr},
        {PictureType::Bitmap, himetric, nullptr},
        {PictureType::Bitmap, himetric, std::make_shared<PixelImage>()},
        {PictureType::Metafile, himetric, nullptr},
        {PictureType::Bitmap, {-5, 0}, pixels},
        {PictureType::Bitmap, {0, 900}, pixels}};
    for (const auto alignment : {VmPictTopLeft, VmPictTile}) {
        test.calendar->DayPictureAlignment(alignment);
        for (const auto& [type, size, image] : pictures) {
            const auto picture = std::make_shared<StdPicture>(type, size, image);
            test.calendar->Days()->Item(9)->Picture(picture);
            test.drawing.Forget();
            EXPECT_EQ(test.Paint(), kNoFaults);
            EXPECT_TRUE(test.drawing.Of("picture").empty());
        }
    }
    // A tile of one pixel advances nevertheless.
    test.calendar->Days()->Item(9)->Picture(PatternPicture(PictureType::Bitmap, {1, 1}));
    test.Paint();
    EXPECT_GT(test.drawing.Of("picture").size(), 500u);
}

/// The texts of a paint at that size, all of which have room.
std::vector<std::string> TextsAt(TestCalendar& test, Size size) {
    test.screen = {0, 0, size.width, size.height};
    test.calendar->OnWindowChanged();
    test.drawing.Forget();
    test.Paint();
    std::vector<std::string> texts;
    for (const StrictDrawing::Call& call : test.drawing.Of("text")) {
        EXPECT_GE(call.rect.Width(), 6 * static_cast<int>(call.text.size())) << call.text;
        EXPECT_GE(call.rect.Height(), 12) << call.text;
        if (call.text != "September 2020") texts.push_back(call.text);  // not beside the list
    }
    return texts;
}

TEST(CalendarPainter, CutsNothingAtItsLeastSize) {
    for (std::int32_t i = 0; i < 4 * 4 * 2; ++i) {
        TestCalendar test;
        VmCalendar& calendar = *test.calendar;
        calendar.DateValue("9/16/2020");
        calendar.LetMember("MonthYearSelStyle", i % 4);
        calendar.LetMember("WeekDayDisplay", i / 4 % 4);
        calendar.LetMember("ShowWeekend", i < 16);
        SCOPED_TRACE(i);
        EXPECT_EQ(TextsAt(test, calendar.LeastSize()), TextsAt(test, {900, 900}));
        TextsAt(test, calendar.LeastSize());
        const auto& [yearBack, yearForward, monthBack, monthForward] = calendar.Layout().arrows;
        const bool hasArrows = i % 4 == VmMonthSelArrows, hasList = i % 4 == VmMonthSelCombo;
        EXPECT_GE(monthForward.left - monthBack.right, hasArrows ? 14 * 6 : 0);
        EXPECT_GE(calendar.Layout().monthList.left, hasList ? 1 : 0);
        TextsAt(test, calendar.UsualSize());
        EXPECT_GE(calendar.Layout().cellWidth, calendar.Layout().rowHeight);
    }
}

TEST(CalendarPainter, PaintsAtAnySize) {
    for (const Size size : {Size{0, 0}, Size{1, 1}, Size{9, 9}, Size{3, 2000}, Size{-1, -1},
                            Size{INT_MAX, INT_MAX}, Size{INT_MIN, 7}}) {
        TestCalendar test(size);
        test.calendar->Days()->Item(3)->Picture(PatternPicture(PictureType::Icon, {2, 2}));
        EXPECT_EQ(test.Paint(), kNoFaults);
        test.Clicks(Day(2020, 3, 5));
        EXPECT_GE(test.calendar->Layout().client.width, 0);
        EXPECT_LE(test.calendar->Layout().cellWidth, 32767);
        for (const auto& fill : test.drawing.Of("fill")) {
            EXPECT_LE(fill.rect.right, std::max({size.width, fill.rect.left, 0}));
        }
    }
}

}  // namespace
}  // namespace velmora::test
