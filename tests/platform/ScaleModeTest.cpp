#include "platform/ScaleMode.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ScaleMode, AnInchHasItsUnits) {
    const struct {
        std::int16_t mode;
        double across, down;
    } kCases[] = {
        {kScaleTwips, 1440, 1440}, {2, 72, 72},     {kScalePixels, 96, 96}, {4, 12, 6}, {5, 1, 1},
        {6, 25.4, 25.4},           {7, 2.54, 2.54}, {8, 2540, 2540},        {0, 96, 96}};
    for (const auto& c : kCases) {
        for (const auto& [axis, units] :
             {std::pair(Axis::Horizontal, c.across), std::pair(Axis::Vertical, c.down)}) {
            EXPECT_DOUBLE_EQ(FromPixels(96, c.mode, 96, axis), units) << c.mode;
            EXPECT_DOUBLE_EQ(ToPixels(units, c.mode, 96, axis), 96) << c.mode;
        }
    }
}

}  // namespace
}  // namespace velmora
