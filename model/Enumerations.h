#pragma once

#include <cstdint>

namespace velmora {

/// The published enumerations. The numbers are part of the saved format.

enum VmAppearanceConstants : std::int32_t { VmAppearanceFlat = 0, VmAppearance3D = 1 };

enum VmMonthConstants : std::int32_t {
    VmJanuary = 1,
    VmFebruary = 2,
    VmMarch = 3,
    VmApril = 4,
    VmMay = 5,
    VmJune = 6,
    VmJuly = 7,
    VmAugust = 8,
    VmSeptember = 9,
    VmOctober = 10,
    VmNovember = 11,
    VmDecember = 12,
};

/// Column-major: value / 3 is left, centre, right; value % 3 is top, middle, bottom.
enum VmTextAlignmentConstants : std::int32_t {
    VmTextTopLeft = 0,
    VmTextMiddleLeft = 1,
    VmTextBottomLeft = 2,
    VmTextTopCenter = 3,
    VmTextMiddleCenter = 4,
    VmTextBottomCenter = 5,
    VmTextTopRight = 6,
    VmTextMiddleRight = 7,
    VmTextBottomRight = 8,
};

/// The first nine as the text alignments, then placement modes.
enum VmPictureAlignmentConstants : std::int32_t {
    VmPictTopLeft = 0,
    VmPictMiddleLeft = 1,
    VmPictBottomLeft = 2,
    VmPictTopCenter = 3,
    VmPictMiddleCenter = 4,
    VmPictBottomCenter = 5,
    VmPictTopRight = 6,
    VmPictMiddleRight = 7,
    VmPictBottomRight = 8,
    VmPictStretch = 9,
    VmPictTile = 10,
    VmPictLeftOfText = 11,
    VmPictRightOfText = 12,
    VmPictAboveText = 13,
    VmPictBelowText = 14,
};

enum VmMonthDisplayConstants : std::int32_t { VmMonthFullName = 0, VmMonthAbbrName = 1 };

enum VmMonthYearSelStyleConstants : std::int32_t {
    VmMonthSelNone = 0,
    VmMonthSelArrows = 1,
    VmMonthSelCombo = 2,
    VmMonthSelScrollbar = 3,
};

enum VmWeekDayDisplayConstants : std::int32_t {
    VmWeekdayNone = 0,
    VmWeekDayFullName = 1,
    VmWeekDayAbbrName = 2,
    VmWeekDayLetter = 3,
};

enum VmWeekDays : std::int32_t {
    VmSunday = 1,
    VmMonday = 2,
    VmTuesday = 3,
    VmWednesday = 4,
    VmThursday = 5,
    VmFriday = 6,
    VmSaturday = 7,
};

/// The controls publish this choice as the Boolean `ShowWeekend`, True being the full week.
enum VmWeekTypeConstants : std::int32_t { VmFullWeek = 0, VmWorkWeek = 1 };

enum VmOLEDropModeConstants : std::int32_t { VmOLENone = 0, VmOLEManual = 1, VmOLEAutomatic = 2 };

enum VmDropDownAlignmentConstants : std::int32_t { VmLeftJustified = 0, VmRightJustified = 1 };

/// The date box offers only the first two selector styles.
enum VmDDMonthYearSelStyleConstants : std::int32_t { VmDDMonthSelNone = 0, VmDDMonthSelArrows = 1 };

}  // namespace velmora
