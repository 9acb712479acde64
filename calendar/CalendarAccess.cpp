#include "calendar/PropertyAccess.h"
#include "calendar/VmCalendar.h"

namespace velmora {
namespace {

constexpr auto kMembers = MembersOf<VmCalendar>(Slots());

}  // namespace

Variant VmCalendar::GetMember(std::string_view name) const { return kMembers.Get(*this, name); }

void VmCalendar::LetMember(std::string_view name, const Variant& value) {
    kMembers.Let(*this, name, value);
}

}  // namespace velmora
