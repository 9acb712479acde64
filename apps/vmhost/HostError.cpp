#include "apps/vmhost/HostError.h"

#include <cstdio>

namespace velmora::vmhost {
namespace {

std::string Described(const std::string& step, HRESULT code) {
    char number[24];
    std::snprintf(number, sizeof number, " failed: 0x%08lx", static_cast<unsigned long>(code));
    return step + number;
}

}  // namespace

HostError::HostError(const std::string& step, HRESULT code)
    : std::runtime_error(Described(step, code)), m_code(code) {}

void Check(HRESULT code, const std::string& step) {
    if (FAILED(code)) throw HostError(step, code);
}

}  // namespace velmora::vmhost
