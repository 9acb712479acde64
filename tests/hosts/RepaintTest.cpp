#include "tests/hosts/WidgetSupport.h"
#include "tests/support/RepaintWalk.h"

#include <gtest/gtest.h>

#include <QScreen>

namespace velmora {
namespace {

constexpr int kRounding = 3;  // of 255, where glyphs overlap

int Farthest(const QImage& a, const QImage& b) {
    int farthest = a.size() == b.size() ? 0 : 255;
    for (int y = 0; y < a.height() && farthest <= kRounding; ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            farthest = std::max({farthest, std::abs(p.red() - q.red()),
                                 std::abs(p.green() - q.green()), std::abs(p.blue() - q.blue())});
        }
    }
    return farthest;
}

TEST(VmCalendarWidget, RepaintOfAPartShowsWhatARepaintOfAllShows) {
    Widget widget;
    Prepare(widget);
    test::RepaintWalk walk(widget.calendar());
    for (int i = 0; i < 1'500; ++i) {
        std::string done = "resize";
        if (walk.Random(1, 100) == 1) {
            widget.resize(walk.Random(120, 200), walk.Random(100, 180));
        } else {
            done = walk.Step();
        }
        QApplication::processEvents();
        const QImage screen = widget.screen()->grabWindow(widget.winId()).toImage();
        ASSERT_LE(Farthest(screen, ImageOf(widget)), kRounding) << "step " << i << ": " << done;
    }
}

}  // namespace
}  // namespace velmora
