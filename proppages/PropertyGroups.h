#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace velmora {

/// What properties are about, for the lists of designers.
inline constexpr std::string_view kPropertyGroups[] = {"General",   "Dates", "Days",
                                                       "Week days", "Month", "Drop-down"};

/// Names that begin like this are in that group; the first one that fits decides.
inline constexpr struct {
    std::string_view beginning;
    std::size_t group;
} kGroupedNames[] = {{"Date", 1},     {"FirstDayOfWeek", 1}, {"Day", 2},         {"SelectedDay", 2},
                     {"Today", 2},    {"WeekDay", 3},        {"ShowWeekend", 3}, {"Month", 4},
                     {"DropDown", 5}, {"KeepDropDown", 5}};

/// The group of a property by its published name, whose first letter may be small: an index of
/// `kPropertyGroups`.
constexpr std::size_t GroupOf(std::string_view property) noexcept {
    const auto* const known = std::ranges::find_if(kGroupedNames, [property](const auto& each) {
        const std::string_view begins = each.beginning;
        return !property.empty() && (property.front() | 0x20) == (begins.front() | 0x20) &&
               property.substr(1).starts_with(begins.substr(1));
    });
    return known != std::end(kGroupedNames) ? known->group : 0;
}

}  // namespace velmora
