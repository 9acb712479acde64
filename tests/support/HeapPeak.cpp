#include "tests/support/HeapPeak.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t g_heap = 0, g_peak = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (!block) throw std::bad_alloc();
    g_heap += malloc_usable_size(block);
    g_peak = std::max(g_peak, g_heap);
    return block;
}

void operator delete(void* block) noexcept {
    if (block) g_heap -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace velmora::test {

HeapPeak::HeapPeak() : m_before(g_heap) { g_peak = g_heap; }

std::size_t HeapPeak::Bytes() const { return g_peak - m_before; }

}  // namespace velmora::test
