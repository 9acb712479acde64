#include "platform/ScaleMode.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velmora {
namespace {

TEST(ScaleMode, AnInchHasItsUnits) {
    const std::tuple<std::int16_t, double, double> kUnits[] = {
        {kScaleTwips, 1440, 1440}, {2, 72, 72},     {kScalePixels, 96, 96}, {4, 12, 6}, {5, 1, 1},
        {6, 25.4, 25.4},           {7, 2.54, 2.54}, {8, 2540, 2540},        {0, 96, 96}};
    for (const auto& [mode, across, down] : kUnits) {
        EXPECT_DOUBLE_EQ(FromPixels(96, mode, 96, Axis::Horizontal), across) << mode;
        EXPECT_DOUBLE_EQ(ToPixels(down, mode, 96, Axis::Vertical), 96) << mode;
    }
}

}  // namespace
}  // namespace velmora
