#include "platform/NumberText.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cstring>
#include <random>

namespace velmora {
namespace {

void ExpectAsStandard(std::string_view text) {
    double expected = 7;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), expected);
    const bool isWhole = error != std::errc() || stop == text.data() + text.size();
    double number = 7;
    EXPECT_EQ(ParseNumber(text, number), isWhole ? error : std::errc::invalid_argument) << text;
    if (error == std::errc() && isWhole) {
        EXPECT_EQ(std::memcmp(&number, &expected, sizeof number), 0) << text;
    } else {
        EXPECT_EQ(number, 7) << text;
    }
}

TEST(NumberText, ReadsWhatTheStandardLibraryReadsInEveryLocale) {
    for (const char* const locale : {"C", "de_DE.UTF-8"}) {  // with a comma, where there is one
        std::setlocale(LC_NUMERIC, locale);
        for (const char* const text :
             {"",        "-",        "+1",    "--1",  " 1",     "1 ",
              "1,5",     "1.5.5",    ".",     ".5",   "5.",     "-0",
              "e5",      "1e",       "1e+",   "1e5x", "0x10",   "1e5",
              "1E-5",    "00012",    "inf",   "infi", "1e23",   "1e999",
              "-1e-999", "4.9e-324", "0.1e1", "nan",  "-1e999", "9007199254740993"}) {
            ExpectAsStandard(text);
        }
    }
    std::setlocale(LC_NUMERIC, "C");
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
