#include "calendar/CProperties.h"
#include "fuzz/FuzzValues.h"
#include "platform/AutomationError.h"
#include "tests/support/TestCalendar.h"

namespace velmora::fuzz {
namespace {

void SetOrStay(VmCalendar& calendar, ByteReader& bytes) {
    const std::string before = Saved(calendar);
    if (!Set(calendar, bytes) && Saved(calendar) != before) {
        Fail("a refused value has changed something");
    }
}

void Transfer(VmCalendar& calendar, const CProperties& holder) {
    try {
        calendar.SetProps(holder);
    } catch (const AutomationError& error) {
        Fail(std::string("a calendar refuses what its holder has taken: ") + error.what());
    }
}

}  // namespace
}  // namespace velmora::fuzz

/// Setters of a calendar and of a set of properties, transfers, decorations and paints, in any
/// order.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    constexpr int kMostDeeds = 64;
    fuzz::ByteReader bytes(data, size);
    test::TestCalendar test;
    CProperties holder(test.dates);
    for (int i = 0; i < kMostDeeds && !bytes.AtEnd(); ++i) {
        const auto deed = bytes.Take<std::uint8_t>();
        const VmDays& days = deed % 2 == 0 ? *test.calendar->Days() : *holder.Days();
        switch (deed % 8) {
            case 0:
            case 1:
            case 2: fuzz::SetOrStay(*test.calendar, bytes); break;
            case 3: fuzz::Set(holder, bytes); break;
            case 4: fuzz::Transfer(*test.calendar, holder); break;
            case 5:
            case 6:
                fuzz::Decorate(*days.Item(static_cast<std::int16_t>(1 + deed / 8 % days.Count())),
                               bytes);
                break;
            default: fuzz::Paint(test); break;
        }
        if (const auto broken = test.BrokenInvariant(); !broken.empty()) fuzz::Fail(broken);
    }
    fuzz::Paint(test);
    fuzz::SaveAndLoad(*test.calendar);
    return 0;
}
