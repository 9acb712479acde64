#include "tests/support/RepaintWalk.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

/// A calendar whose window keeps what was painted and confines a paint to what is asked for.
class Window {
public:
    TestCalendar test;

    Window() { test.drawing.notesCalls = false; }

    void Resize(Size size) {
        test.client = size;
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
        return std::to_string(at % test.client.width) + ',' +
               std::to_string(at / test.client.width);
    }

private:
    void Paint(const std::shared_ptr<Pixels>& pixels,
               const std::vector<std::optional<Rect>>& asked) {
        std::vector<Rect> exposed;
        for (const auto& rect : asked) {
            exposed.push_back(rect.value_or(Rect{0, 0, test.client.width, test.client.height}));
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
            const int x = walk.Random(0, test.client.width - 1);
            const int y = walk.Random(0, test.client.height - 1);
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
                                           << test.client.width << "x" << test.client.height;
    }
    EXPECT_EQ(test.drawing.FaultsAfterPaint(), std::vector<std::string>{});
}

}  // namespace
}  // namespace velmora::test
