#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace velmora::vmhost {

/// A step of hosting that failed, with the system's code.
class HostError : public std::runtime_error {
public:
    HostError(const std::string& step, HRESULT code);
    HRESULT Code() const { return m_code; }

private:
    HRESULT m_code;
};

/// Throws `HostError` when the step failed.
void Check(HRESULT code, const std::string& step);

}  // namespace velmora::vmhost
