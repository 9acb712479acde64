#pragma once

#include "platform/Keys.h"
#include "tests/support/TestBoxes.h"
#include "tests/support/TestCalendar.h"

#include <gtest/gtest.h>

namespace velmora::test {

using Log = std::vector<std::string>;

inline const DayNumber kMar15 = Day(2020, 3, 15);

class DropDown : public testing::Test {
protected:
    void Open() {
        test.Key(test.a, kKeyF4);
        ASSERT_TRUE(test.visible);
        test.TakeLog();
    }
    DayNumber DateOfBox() { return DayOf(box.DateValue()); }

    TestBoxes test;
    VmCalDropDown& box = *test.a.control;
};

}  // namespace velmora::test
