#pragma once

#include "calendar/VmCalendar.h"
#include "platform/MemoryBag.h"
#include "platform/ValueText.h"

#include <bit>
#include <iterator>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace velmora::test {

/// A value with its type, bit for bit: what a store must give back.
inline std::string Described(const Variant& value) {
    const auto bits = [](double number) {
        return std::to_string(std::bit_cast<std::uint64_t>(number));
    };
    if (const auto* number = value.As<double>()) return "double " + bits(*number);
    if (const auto* date = value.As<Date>()) return "date " + bits(date->value);
    return FormatValue(value);
}

inline PictureRef IconOf(std::int32_t width, std::int32_t height) {
    auto image = std::make_shared<PixelImage>();
    image->width = width;
    image->height = height;
    for (std::int32_t i = 0; i < width * height; ++i) {
        image->pixels.push_back(0x01020304u * static_cast<std::uint32_t>(i + 40));
    }
    return std::make_shared<StdPicture>(PictureType::Icon, Size{847, 846}, image);
}

/// Values of every type that a store holds, the awkward ones first of all.
inline std::vector<Variant> AwkwardValues() {
    constexpr auto kLeast = std::numeric_limits<double>::denorm_min();
    constexpr auto kMost = std::numeric_limits<double>::max();
    constexpr auto kInfinity = std::numeric_limits<double>::infinity();
    StdFont font;
    font.name = "Odd \"Face\", \n#1; = \\";
    font.size = 8.25;
    font.italic = font.strikethrough = true;
    std::string everyByte;
    for (int byte = 0; byte < 128; ++byte) everyByte += static_cast<char>(byte);
    return {
        Variant(),
        Null{},
        ObjectRef(),
        true,
        false,
        std::int16_t{-32768},
        std::int16_t{32767},
        std::int32_t{0},
        std::numeric_limits<std::int32_t>::min(),
        std::uint32_t{0x80000012},
        std::numeric_limits<std::int32_t>::max(),
        0.1,
        -0.0,
        kLeast,
        -kMost,
        kInfinity,
        1.0 / 3,
        std::numeric_limits<double>::quiet_NaN(),
        Date(-657434.999988),
        Date(43905 + 1.0 / 3),
        Date(2958465.9),
        Date(-0.5),
        Date(kInfinity),
        "",
        " spaces ",
        "@At",
        "%20",
        "int32 5",
        "line\nline\r\n\ttab",
        "a,b;c=d",
        "\\x41\\",
        "Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5 \xF0\x9F\x93\x85",
        everyByte,
        ObjectRef(std::make_shared<StdFont>(font)),
        ObjectRef(std::make_shared<StdFont>()),
        ObjectRef(IconOf(1, 1)),
        ObjectRef(IconOf(3, 2)),
        ObjectRef(IconOf(5, 1)),
        ObjectRef(std::make_shared<StdPicture>(PictureType::EnhMetafile, Size{-1, 70000}, nullptr)),
        ObjectRef(std::make_shared<StdPicture>(PictureType::None, Size{}, nullptr))};
}

inline std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// Every name under which a calendar saves something, in the order of its writing.
inline const std::vector<std::string> kSavedNames = WordsOf(
    "Appearance SelectedDayBackColor SelectedDayForeColor DateValue DayAppearance "
    "DayCaptionAlignment DayDefaultBackColor DayOtherMonthForeColor DayDefaultForeColor DayFont "
    "DayNumberAlignment DayPictureAlignment Enabled FirstDayOfWeek MonthAppearance MonthBackColor "
    "MonthDisplay MonthFont MonthForeColor DateMax DateMin MonthYearSelStyle MouseIcon "
    "MousePointer ShowWeekend TodayBackColor TodayForeColor WeekDayAppearance WeekDayBackColor "
    "WeekDayCaptionAlignment WeekDayDisplay WeekDayFont WeekDayForeColor");

/// One saved property and the ends of what its setter admits.
struct SavedRange {
    const char* name;
    std::int32_t lowest, highest;
};

/// In an order in which each of them is admitted: the limits before the date.
inline constexpr SavedRange kSavedRanges[] = {{"Appearance", 0, 1},
                                              {"SelectedDayBackColor", 0, 0xFFFFFF},
                                              {"SelectedDayForeColor", 0, 0xFFFFFF},
                                              {"DayAppearance", 0, 1},
                                              {"DayCaptionAlignment", 0, 8},
                                              {"DayDefaultBackColor", 0, 0xFFFFFF},
                                              {"DayDefaultForeColor", 0, 0xFFFFFF},
                                              {"DayOtherMonthForeColor", 0, 0xFFFFFF},
                                              {"DayNumberAlignment", 0, 8},
                                              {"DayPictureAlignment", 0, 14},
                                              {"Enabled", 0, 1},
                                              {"FirstDayOfWeek", 1, 7},
                                              {"MonthAppearance", 0, 1},
                                              {"MonthBackColor", 0, 0xFFFFFF},
                                              {"MonthDisplay", 0, 1},
                                              {"MonthForeColor", 0, 0xFFFFFF},
                                              {"DateMin", -620908, 36526},
                                              {"DateMax", 36900, 986520},
                                              {"DateValue", 36526, 36900},
                                              {"MonthYearSelStyle", 0, 3},
                                              {"MousePointer", 0, 15},
                                              {"ShowWeekend", 0, 1},
                                              {"TodayBackColor", 0, 0xFFFFFF},
                                              {"TodayForeColor", 0, 0xFFFFFF},
                                              {"WeekDayAppearance", 0, 1},
                                              {"WeekDayBackColor", 0, 0xFFFFFF},
                                              {"WeekDayCaptionAlignment", 0, 8},
                                              {"WeekDayDisplay", 0, 3},
                                              {"WeekDayForeColor", 0, 0xFFFFFF}};
inline constexpr const char* kSavedFonts[] = {"DayFont", "MonthFont", "WeekDayFont"};

/// Properties of a calendar as text, for comparison.
inline std::string SavedFace(const VmCalendar& calendar) {
    std::string face;
    const auto add = [&](const char* name) {
        face += std::string(name) + ": " + FormatValue(calendar.GetMember(name)) + '\n';
    };
    for (const auto& range : kSavedRanges) add(range.name);
    for (const char* name : kSavedFonts) add(name);
    add("MouseIcon");
    return face + FormatValue(calendar.SelectedDate());
}

/// Keeps the names that a control asks for and gives, in order.
class RecordingBag : public MemoryBag {
public:
    Variant ReadProperty(std::string_view name, const Variant& fallback) override {
        reads.emplace_back(name);
        return MemoryBag::ReadProperty(name, fallback);
    }
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& fallback) override {
        writes.emplace_back(name);
        MemoryBag::WriteProperty(name, value, fallback);
    }
    std::vector<std::string> Kept() const {
        std::vector<std::string> names;
        for (const auto& [name, value] : Values()) names.push_back(name);
        return names;
    }

    std::vector<std::string> reads, writes;
};

enum class Look { Default, Lowest, Highest, Random };

inline void Dress(VmCalendar& calendar, Look look, unsigned seed = 1) {
    if (look == Look::Default) return;
    std::minstd_rand random(seed);
    const auto pick = [&](std::int32_t lowest, std::int32_t highest) {
        if (look != Look::Random) return look == Look::Lowest ? lowest : highest;
        return std::uniform_int_distribution(lowest, highest)(random);
    };
    for (const auto& [name, lowest, highest] : kSavedRanges) {
        calendar.LetMember(name, pick(lowest, highest));
    }
    for (const char* name : kSavedFonts) {
        auto font = std::make_shared<StdFont>();
        font->name = "Face " + std::to_string(pick(0, 999));
        font->size = pick(1, 4000) / 7.0;
        font->bold = pick(0, 1) == 1;
        font->underline = pick(0, 1) == 1;
        calendar.LetMember(name, ObjectRef(font));
    }
    calendar.MouseIcon(IconOf(pick(1, 9), pick(1, 9)));
}

}  // namespace velmora::test
