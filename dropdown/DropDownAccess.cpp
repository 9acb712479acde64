#include "calendar/PropertyAccess.h"
#include "dropdown/VmCalDropDown.h"

namespace velmora {
namespace {

template <const auto&... kOwn, const auto&... kCalendar>
consteval auto BoxMembers(Rows<kOwn...>, Rows<kCalendar...>) {
    return Members(std::array{MemberOf<VmCalDropDown, kOwn>()...,
                              MemberOf<VmCalDropDown, kCalendar>(InBox(kCalendar).name)...});
}

constexpr auto kMembers = BoxMembers(BoxSlots(), Slots());

}  // namespace

Variant VmCalDropDown::GetMember(std::string_view name) const { return kMembers.Get(*this, name); }

void VmCalDropDown::LetMember(std::string_view name, const Variant& value) {
    kMembers.Let(*this, name, value);
}

}  // namespace velmora
