#include "fuzz/FuzzCalendar.h"

#include "platform/stores/PropertiesText.h"

#include <algorithm>

/// The content of a file; its bytes from the end choose what is done with the calendar.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    MemoryBag bag;
    try {
        bag = ParseProperties({reinterpret_cast<const char*>(data), size});
    } catch (const PropertyFileError& error) {
        if (error.Line() == 0) fuzz::Fail("damage without a line");
        return 0;
    }
    const std::string content = FormatProperties(bag);
    if (FormatProperties(ParseProperties(content)) != content) fuzz::Fail("no round trip");
    constexpr std::size_t kDeeds = 48;
    fuzz::LiveThrough(bag, {data + (size - std::min(size, kDeeds)), std::min(size, kDeeds)});
    return 0;
}
