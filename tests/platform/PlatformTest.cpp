#include "platform/ScaleMode.h"
#include "platform/TextCut.h"
#include "proppages/PropertyPage.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velmora::test {
namespace {

std::string Repeated(std::string_view part, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) text += part;
    return text;
}

// The pages' script is played by the hosts, on real controls.

TEST(IsNumber, KeepsItsOddCases) {
    for (const char* text : {"0", "120", "-5", "1.5", "-", ".", "-.", "5."}) {
        EXPECT_TRUE(IsNumber(text)) << text;
    }
    for (const char* text : {"", "1.2.3", "5-", "--5", "+5", " 5", "5 ", "12a", "1e3", "1,0"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
}

TEST(ScaleMode, AnInchHasItsUnits) {
    const std::tuple<std::int16_t, double, double> kUnits[] = {
        {kScaleTwips, 1440, 1440}, {2, 72, 72},     {kScalePixels, 96, 96}, {4, 12, 6}, {5, 1, 1},
        {6, 25.4, 25.4},           {7, 2.54, 2.54}, {8, 2540, 2540},        {0, 96, 96}};
    for (const auto& [mode, across, down] : kUnits) {
        EXPECT_DOUBLE_EQ(FromPixels(96, mode, 96, Axis::Horizontal), across) << mode;
        EXPECT_DOUBLE_EQ(ToPixels(down, mode, 96, Axis::Vertical), 96) << mode;
    }
}

TEST(TextCut, AHugeCaptionIsKeptWholeAndDrawnCut) {
    const std::string caption = "begin" + Repeated("\xF0\x9F\x93\x85 ", 10u << 20) + "end";
    TestCalendar test;
    test.calendar->Days()->Item(5)->Caption(caption);
    test.Paint();
    std::size_t drawn = 0;
    for (const auto& text : test.drawing.Of("text")) drawn += text.text.size();
    EXPECT_GT(drawn, 1000u);
    EXPECT_LT(drawn, 20000u);
    EXPECT_EQ(test.calendar->Days()->Item(5)->Caption(), caption);
}

TEST(TextCut, CutsBetweenCharactersAtWhatIsNotShown) {
    const auto cut = [](const std::string& text, std::uint32_t flags) {
        return CutToWidth(text, 10, flags).value_or("whole");
    };
    constexpr std::size_t kKept = 1024 + 40;  // characters from each end, or about the middle
    for (const std::string part : {"a", "\xC3\xBC", "\xE6\x97\xA5", "\xF0\x9F\x93\x85", "\x80"}) {
        // Of lone continuation bytes up to four count as one character.
        const std::size_t size = part == "\x80" ? 4 : part.size();
        const std::string half = Repeated(part, kKept * size);
        for (const auto flags : {kTextLeft, kTextRight, kTextCenter}) {
            EXPECT_EQ(cut(half + half, flags), "whole") << part << flags;
        }
        EXPECT_EQ(cut(half + "x" + half, kTextLeft), half + half) << part;
        EXPECT_EQ(cut(half + "x" + half, kTextRight), half + half) << part;
        EXPECT_EQ(cut("xx" + half + half + "yy", kTextCenter), half + half) << part;
    }
    EXPECT_EQ(CutToWidth(std::string(3000, 'a'), -5, kTextLeft)->size(), 2048u);
}

}  // namespace
}  // namespace velmora::test
