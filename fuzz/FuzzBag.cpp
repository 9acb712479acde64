#include "fuzz/FuzzValues.h"

/// A number of values, then what is done with the calendar.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    fuzz::ByteReader bytes(data, size);
    MemoryBag bag;
    const int count = bytes.Take<std::uint8_t>() % 40;
    for (int i = 0; i < count && !bytes.AtEnd(); ++i) {
        const auto name = fuzz::TakeName(bytes, fuzz::CalendarKeys());
        bag.WriteProperty(name, fuzz::TakeValue(bytes), Variant());
    }
    fuzz::LiveThrough(bag, bytes);
    return 0;
}
