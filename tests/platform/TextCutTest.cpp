#include "tests/support/TestCalendar.h"

#include "platform/TextCut.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

std::string Repeated(std::string_view part, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) text += part;
    return text;
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
