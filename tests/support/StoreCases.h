#pragma once

#include "platform/stores/MemoryBag.h"
#include "platform/stores/ValueText.h"

#include <bit>
#include <limits>
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
    constexpr auto kNoNumber = std::numeric_limits<double>::quiet_NaN();
    StdFont font;
    font.name = "Odd \"Face\", \n#1; = \\";
    font.size = 8.25;
    font.italic = font.strikethrough = true;
    std::string everyByte;
    for (int byte = 0; byte < 128; ++byte) everyByte += static_cast<char>(byte);
    std::vector<Variant> values{Variant(), Null{}, ObjectRef(), true, false};
    for (const int number : {-32768, 32767}) values.emplace_back(static_cast<std::int16_t>(number));
    for (const std::int32_t number : {0, INT32_MIN, INT32_MAX}) values.emplace_back(number);
    values.emplace_back(std::uint32_t{0x80000012});
    for (const double number : {0.1, -0.0, kLeast, -kMost, kInfinity, 1.0 / 3, kNoNumber}) {
        values.emplace_back(number);
    }
    for (const double day : {-657434.999988, 43905 + 1.0 / 3, 2958465.9, -0.5, kInfinity}) {
        values.emplace_back(Date(day));
    }
    for (const char* text :
         {"", " spaces ", "@At", "%20", "int32 5", "line\nline\r\n\ttab", "a,b;c=d", "\\x41\\",
          "Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5 \xF0\x9F\x93\x85"}) {
        values.emplace_back(text);
    }
    values.emplace_back(everyByte);
    for (const ObjectRef& object :
         {ObjectRef(std::make_shared<StdFont>(font)), ObjectRef(std::make_shared<StdFont>()),
          ObjectRef(IconOf(1, 1)), ObjectRef(IconOf(3, 2)), ObjectRef(IconOf(5, 1)),
          ObjectRef(
              std::make_shared<StdPicture>(PictureType::EnhMetafile, Size{-1, 70000}, nullptr)),
          ObjectRef(std::make_shared<StdPicture>(PictureType::None, Size{}, nullptr))}) {
        values.emplace_back(object);
    }
    return values;
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

}  // namespace velmora::test
