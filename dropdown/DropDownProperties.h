#pragma once

#include "calendar/CalendarProperties.h"
#include "platform/ScaleMode.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace velmora {

/// What a date box remembers besides its calendar's properties. The initialisers are the defaults
/// of a new box. Sizes count pixels of a screen with 96 an inch.
struct BoxState {
    FontRef comboFont;  // null: the container's
    std::string dateFormat = "Short Date";
    VmDropDownAlignmentConstants alignment = VmLeftJustified;
    std::int32_t heightPixels = 200;
    std::int32_t widthPixels = 250;
};

/// A new box admits fewer years than a new calendar.
inline constexpr Date kBoxDateMax{292560};   // 31 December 2700
inline constexpr Date kBoxDateMin{-292192};  // 1 January 1100

/// Where a box keeps the values of its own rows and of the calendar's.
struct BoxStorage : CalendarStorage {
    BoxState& box;
};

/// What a setter of the box does after it has stored the value.
enum class BoxEffect { Nothing, Repaint, DateText };

/// A property of the box itself.
template <class T>
struct BoxProperty {
    using Value = T;

    std::string_view name;
    std::string_view key;  // saved and told to the container under this name
    T BoxState::*field;
    BoxEffect effect = BoxEffect::Nothing;
    bool (*admits)(const T&) = nullptr;
    static constexpr Saved saved = Saved::WhenChanged;
    static constexpr Unfit unfit = Unfit::Refused;

    const T& Get(const auto& from) const { return from.box.*field; }
    void Store(const auto& to, const T& value) const { to.box.*field = value; }
};

/// A size of the drop-down: kept and saved in pixels, published in the units of the container.
struct SizeProperty : BoxProperty<std::int32_t> {
    Axis axis;
};

struct DropDownStateProperty {
    using Value = bool;

    std::string_view name;
    std::string_view key;
    static constexpr Saved saved = Saved::Never;
};

constexpr bool IsSize(const std::int32_t& pixels) { return pixels >= 0; }

inline constexpr BoxProperty<FontRef> kComboFont{"ComboFont", "ComboFont", &BoxState::comboFont,
                                                 BoxEffect::Repaint};
inline constexpr BoxProperty<std::string> kDateFormat{"DateFormat", "ComboDateFormat",
                                                      &BoxState::dateFormat, BoxEffect::DateText};
inline constexpr BoxProperty<VmDropDownAlignmentConstants> kDropDownAlignment{
    "DropDownAlignment", "DropDownAlignment", &BoxState::alignment, BoxEffect::Nothing,
    Within<VmLeftJustified, VmRightJustified>};
inline constexpr SizeProperty kDropDownHeight{
    {"DropDownHeight", "DropDownHeight", &BoxState::heightPixels, BoxEffect::Nothing, IsSize},
    Axis::Vertical};
inline constexpr SizeProperty kDropDownWidth{
    {"DropDownWidth", "DropDownWidth", &BoxState::widthPixels, BoxEffect::Nothing, IsSize},
    Axis::Horizontal};
inline constexpr DropDownStateProperty kDropDownState{"DropDownState", "DropDownState"};

using BoxSlots = Rows<kComboFont, kDateFormat, kDropDownAlignment, kDropDownHeight, kDropDownWidth,
                      kDropDownState>;

/// In the order of writing and reading. The second date format is part of the saved format.
using BoxOrder =
    Rows<kComboFont, kDateFormat, kDropDownAlignment, kDropDownHeight, kDropDownWidth, kEnabled,
         kMouseIcon, kMousePointer, kAppearance, kDateFormat, kDateMax, kDateMin, kDateValue,
         kDayAppearance, kDayCaptionAlignment, kDayDefaultBackColor, kDayDefaultForeColor,
         kDayOtherMonthForeColor, kDayFont, kDayNumberAlignment, kDayPictureAlignment,
         kFirstDayOfWeek, kMonthAppearance, kMonthBackColor, kMonthDisplay, kMonthForeColor,
         kMonthFont, kMonthYearSelStyle, kSelectedDayBackColor, kSelectedDayForeColor,
         kTodayBackColor, kTodayForeColor, kWeekDayAppearance, kWeekDayBackColor, kWeekDayForeColor,
         kWeekDayDisplay, kWeekDayFont, kWeekDayCaptionAlignment, kShowWeekend>;
static_assert(Covers<BoxOrder>(Slots(), kIsSaved) && Covers<BoxOrder>(BoxSlots(), kIsSaved) &&
              IsWithin<Slots, BoxSlots>(BoxOrder()));

/// The calendar of a box has two of the selector styles only.
constexpr bool IsSelStyleOfBox(VmMonthYearSelStyleConstants style) {
    return style == VmMonthSelNone || style == VmMonthSelArrows;
}

/// `Admit` of a box.
template <class Row>
bool AdmitInBox(const Row& row, const typename Row::Value& value) {
    if constexpr (std::is_same_v<typename Row::Value, VmMonthYearSelStyleConstants>) {
        if (!IsSelStyleOfBox(value)) throw AutomationError(ErrorNumber::InvalidPropertyValue);
    }
    return Admit(row, value);
}

/// A calendar's property that a box publishes, or saves and reports, under another name.
struct Renamed {
    std::string_view calendarName;
    std::string_view name;
    std::string_view key;
};
inline constexpr Renamed kRenamed[] = {
    {kAppearance.name, "DropDownAppearance", "DropDownAppearance"},
    {kEnabled.name, "Enabled", "ComboEnabled"},
    {kMouseIcon.name, "MouseIcon", "ComboMouseIcon"},
    {kMousePointer.name, "MousePointer", "ComboMousePointer"}};

constexpr Renamed InBox(const auto& row) {
    if constexpr (requires { row.key; }) {
        return {{}, row.name, row.key};
    } else {
        for (const Renamed& renamed : kRenamed) {
            if (renamed.calendarName == row.name) return renamed;
        }
        return {row.name, row.name, row.name};
    }
}

/// The published name of what a box saves and reports as `key`.
template <const auto&... kRow>
constexpr std::string_view NameOfKey(Rows<kRow...>, std::string_view key) {
    std::string_view name = key;
    ((InBox(kRow).key == key ? void(name = InBox(kRow).name) : void()), ...);
    return name;
}

}  // namespace velmora
