#include "platform/stores/NumberText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace velmora {
namespace {

TEST(NumberText, TakesNothingButAWholeNumber) {
    for (const char* text : {"", "+1", " 1", "1 ", "1,5", "1.5.5", "1e", "1e5x", "0x10", "infi"}) {
        double number = 7;
        EXPECT_EQ(ParseNumber(text, number), std::errc::invalid_argument) << text;
        EXPECT_EQ(number, 7) << text;
    }
    double number = 7;
    EXPECT_EQ(ParseNumber("1e999", number), std::errc::result_out_of_range);
    EXPECT_EQ(number, 7);
}

TEST(NumberText, ComesBackAsTheSameNumber) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 2000; ++i) {
        const auto bits = random();
        double number = static_cast<double>(bits >> 20) / 86400;
        if (i % 2) std::memcpy(&number, &bits, sizeof number);
        if (number != number) continue;
        double again = 0;
        EXPECT_EQ(ParseNumber(NumberText(number), again), std::errc());
        EXPECT_EQ(again, number);
    }
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(NumberText(1e15), "1e+15");
}

}  // namespace
}  // namespace velmora
