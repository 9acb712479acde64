#include "fuzz/FuzzValues.h"

#include "platform/AutomationError.h"
#include "tests/support/PropertyTable.h"

#include <algorithm>
#include <memory>

namespace velmora::fuzz {
namespace {

void Add(Names& names, std::string_view name) {
    if (std::ranges::find(names, name) == names.end()) names.push_back(name);
}

FontRef TakeFont(ByteReader& bytes) {
    auto font = std::make_shared<StdFont>();
    font->size = bytes.Take<double>();
    font->name = bytes.TakeText(bytes.Take<std::uint8_t>() % 16);
    font->bold = bytes.Take<std::uint8_t>() % 2 != 0;
    return font;
}

/// The pixels may be more or fewer than the size says.
PictureRef TakePicture(ByteReader& bytes) {
    auto image = std::make_shared<PixelImage>();
    image->width = bytes.Take<std::int8_t>();
    image->height = bytes.Take<std::int8_t>();
    image->pixels.resize(bytes.Take<std::uint8_t>());
    const auto type = static_cast<PictureType>(bytes.Take<std::uint8_t>() % 5);
    const Size himetric{bytes.Take<std::int32_t>(), bytes.Take<std::int32_t>()};
    return std::make_shared<StdPicture>(type, himetric, image);
}

}  // namespace

Variant TakeValue(ByteReader& bytes) {
    switch (bytes.Take<std::uint8_t>() % 12) {
        case 0: return {};
        case 1: return Null{};
        case 2: return bytes.Take<std::int16_t>();
        case 3: return bytes.Take<std::int32_t>();
        case 4: return bytes.Take<double>();
        case 5: return Date(bytes.Take<double>());
        case 6: return Date(bytes.Take<std::int32_t>() % 4000000);
        case 7: return std::string(bytes.TakeText(bytes.Take<std::uint8_t>() % 32));
        case 8: return bytes.Take<std::uint8_t>() % 2 != 0;
        case 9: return ObjectRef(TakeFont(bytes));
        case 10: return ObjectRef(TakePicture(bytes));
        default: return ObjectRef();
    }
}

const Names& CalendarKeys() {
    static const Names names = [] {
        Names keys;
        for (const auto& row : test::kCalendarRows) Add(keys, row.Key());
        return keys;
    }();
    return names;
}

const Names& AllNames() {
    static const Names names = [] {
        Names all = CalendarKeys();
        Add(all, "DropDownState");
        for (const auto& row : test::kBoxRows) Add(all, row.name), Add(all, row.Key());
        return all;
    }();
    return names;
}

std::string_view TakeName(ByteReader& bytes, const Names& names) {
    return names[bytes.Take<std::uint8_t>() % names.size()];
}

bool Set(AutomationObject& object, ByteReader& bytes) {
    const std::string_view name = TakeName(bytes);
    // Most properties are small numbers, which would be rare among all values.
    const auto small = bytes.Take<std::int8_t>();
    const Variant value = small > 0 ? Variant(std::int32_t{small - 1}) : TakeValue(bytes);
    try {
        object.LetMember(name, value);
        return true;
    } catch (const AutomationError&) {
        return false;
    }
}

void Decorate(VmDay& day, ByteReader& bytes) {
    const auto which = bytes.Take<std::uint8_t>() % 4;
    const Variant value = TakeValue(bytes);
    try {
        switch (which) {
            case 0: day.BackColor(value); break;
            case 1: day.ForeColor(value); break;
            case 2:
                day.Caption(std::string(bytes.TakeText(bytes.Take<std::uint16_t>() % 4096)));
                break;
            default: day.Picture(FromVariant<PictureRef>(value)); break;
        }
    } catch (const AutomationError&) {
    }
}

}  // namespace velmora::fuzz
