#include "hosts/activex/control/PublishedControl.h"

#include "hosts/activex/com/ComError.h"

namespace velmora {
namespace {

constexpr auto kSetNotPermitted = static_cast<ErrorNumber>(387);

}  // namespace

ULONG PublishedControl::CountDown() noexcept {
    const long left = --m_references;
    if (left == 0) m_references = 1;
    return static_cast<ULONG>(left);
}

void PublishedControl::AskForEdit(std::string_view property) {
    if (!RequestEdit(property)) {
        throw ComFailure(HresultOf(kSetNotPermitted), "Set not permitted");
    }
}

}  // namespace velmora
