#include "hosts/activex/win32/WinText.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(WinTextTest, GoesThereAndBack) {
    for (const char* text : {"", "abc", "März", "\U0001F4C5 2024"}) {
        EXPECT_EQ(ToUtf8(ToWide(text)), text);
    }
    EXPECT_EQ(ToWide("M\xC3\xA4rz"), L"M\u00E4rz");
}

}  // namespace
}  // namespace velmora
