#pragma once

#include "platform/AutomationError.h"

#include <gtest/gtest.h>

#include <functional>

namespace velmora::test {

/// The error that an operation raises, or number 0 when it succeeds.
inline ErrorNumber NumberOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const AutomationError& error) {
        return error.Number();
    }
    return ErrorNumber{};
}

}  // namespace velmora::test
