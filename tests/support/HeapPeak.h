#pragma once

#include <cstddef>

namespace velmora::test {

/// What `new` has taken at most, in bytes, since it was made. One at a time, in one thread.
class HeapPeak {
public:
    HeapPeak();
    std::size_t Bytes() const;

private:
    std::size_t m_before;
};

}  // namespace velmora::test
