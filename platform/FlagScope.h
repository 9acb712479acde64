#pragma once

#include <utility>

namespace velmora {

/// Keeps a flag set while something is under way.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

}  // namespace velmora
