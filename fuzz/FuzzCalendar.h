#pragma once

#include "platform/stores/MemoryBag.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {
class VmCalendar;
namespace test {
class TestCalendar;
}
}  // namespace velmora

namespace velmora::fuzz {

/// Ends the program with a message, as a finding.
[[noreturn]] void Fail(const std::string& what);

/// Takes numbers off the front of the bytes; zeros behind their end.
class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), size) {}

    bool AtEnd() const { return m_rest.empty(); }
    template <class T>
    T Take() {
        T value{};
        char* const to = reinterpret_cast<char*>(&value);
        m_rest.remove_prefix(m_rest.copy(to, sizeof value));
        return value;
    }
    /// As many as there are.
    std::string_view TakeText(std::size_t length) {
        const std::string_view text = m_rest.substr(0, length);
        m_rest.remove_prefix(text.size());
        return text;
    }

private:
    std::string_view m_rest;
};

/// Paints the whole; a leak, a fault of the drawing or a pixel outside is a finding.
void Paint(test::TestCalendar& test);
/// What the calendar saves must be loadable, and saved again the same.
void SaveAndLoad(const VmCalendar& calendar);

/// What happens to a calendar with those values: it is read, painted, worked with by keyboard,
/// mouse and selectors, and saved; what it saves must be loadable. `deeds` chooses what is done.
/// Ends the program when an invariant breaks.
void LiveThrough(PropertyBag& bag, ByteReader deeds);

}  // namespace velmora::fuzz
