#pragma once

#include "platform/AutomationError.h"
#include "platform/TextError.h"

#include <windows.h>

#include <string_view>
#include <type_traits>

namespace velmora {

/// A failure without a published number, on its way to a client or from one of its objects.
class ComFailure : public TextError {
public:
    explicit ComFailure(HRESULT failure, const char* description = "Automation error");

    HRESULT Failure() const noexcept { return m_failure; }

private:
    HRESULT m_failure;
};

inline void Require(HRESULT result) {
    if (FAILED(result)) throw ComFailure(result);
}

/// The failure that a client sees as that error number.
constexpr HRESULT HresultOf(ErrorNumber number) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<int>(number));
}

/// Leaves number, source and description for the client, and returns the failure.
HRESULT Refuse(HRESULT failure, std::string_view description);

/// Inside a handler of an exception: what the client gets for it, with its description. Nothing
/// passes an interface as an exception.
HRESULT RefusalOfException() noexcept;

/// Runs the body of an interface member, which returns its result or nothing.
template <class Body>
HRESULT Guard(Body body) noexcept {
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
            body();
            return S_OK;
        } else {
            return body();
        }
    } catch (...) {
        return RefusalOfException();
    }
}

}  // namespace velmora
