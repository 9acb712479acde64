#include "proppages/PropertyPage.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

// The pages' script is played by the hosts, on real controls.

TEST(IsNumber, KeepsItsOddCases) {
    for (const char* text : {"0", "120", "-5", "1.5", "-", ".", "-.", "5."}) {
        EXPECT_TRUE(IsNumber(text)) << text;
    }
    for (const char* text : {"", "1.2.3", "5-", "--5", "+5", " 5", "5 ", "12a", "1e3", "1,0"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
}

}  // namespace
}  // namespace velmora::test
