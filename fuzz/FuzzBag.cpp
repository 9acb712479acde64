#include "fuzz/FuzzCalendar.h"
#include "tests/support/PropertyTable.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace velmora::fuzz {
namespace {

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

/// Every name under which a calendar saves something, once.
std::vector<std::string_view> SavedNames() {
    std::vector<std::string_view> names;
    for (const test::PropertyRow& row : test::kCalendarRows) {
        if (std::ranges::find(names, row.Key()) == names.end()) names.push_back(row.Key());
    }
    return names;
}

}  // namespace
}  // namespace velmora::fuzz

/// A number of values, then what is done with the calendar.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    static const auto names = fuzz::SavedNames();
    fuzz::ByteReader bytes(data, size);
    MemoryBag bag;
    const int count = bytes.Take<std::uint8_t>() % 40;
    for (int i = 0; i < count && !bytes.AtEnd(); ++i) {
        const auto name = names[bytes.Take<std::uint8_t>() % names.size()];
        bag.WriteProperty(name, fuzz::TakeValue(bytes), Variant());
    }
    fuzz::LiveThrough(bag, bytes);
    return 0;
}
